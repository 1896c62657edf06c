#include "platform/gdi.h"

#include <algorithm>

namespace platform {

std::vector<std::u16string> fontFamilies() {
    std::vector<std::u16string> names;
    const HDC screen = CreateCompatibleDC({});
    LOGFONTW all;
    all.lfCharSet = DEFAULT_CHARSET;
    EnumFontFamiliesExW(screen, &all, [&](const ENUMLOGFONTEXW& font, const TEXTMETRICW&, DWORD) {
        if (font.elfLogFont.lfFaceName[0] != u'@') names.emplace_back(font.elfLogFont.lfFaceName);
        return 1;
    });
    DeleteDC(screen);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

} // namespace platform
