#include "host/Screen.h"

#include "host/Form.h"
#include "host/Session.h"
#include "platform/gdi.h"

#include <algorithm>
#include <vector>

namespace host {

namespace {

/// Families in the order of their names, without those for vertical writing ("@...").
std::vector<std::u16string> fontNames() {
    std::vector<std::u16string> names;
    const platform::HDC screen = platform::GetDC({});
    platform::LOGFONTW all;
    all.lfCharSet = platform::DEFAULT_CHARSET;
    platform::EnumFontFamiliesExW(
        screen, &all,
        [&](const platform::ENUMLOGFONTEXW& font, const platform::TEXTMETRICW&, platform::DWORD) {
            if (font.elfLogFont.lfFaceName[0] != u'@') names.emplace_back(font.elfLogFont.lfFaceName);
            return 1;
        });
    platform::ReleaseDC({}, screen);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

/// Programs ask for one font after the other: the list is read once.
const std::vector<std::u16string>& fonts() {
    auto& names = session().fontNames;
    if (names.empty()) names = fontNames();
    return names;
}

} // namespace

short Screen::FontCount() {
    return static_cast<short>(fonts().size());
}

automation::String Screen::Fonts(short index) {
    const auto& names = fonts();
    if (index < 0 || static_cast<std::size_t>(index) >= names.size()) return {};
    return names[static_cast<std::size_t>(index)];
}

float Screen::TwipsPerPixelX() {
    return static_cast<float>(twipsPerPixel(Axis::Horizontal));
}

float Screen::TwipsPerPixelY() {
    return static_cast<float>(twipsPerPixel(Axis::Vertical));
}

float Screen::Width() {
    return static_cast<float>(platform::GetSystemMetrics(platform::SM_CXSCREEN) *
                              twipsPerPixel(Axis::Horizontal));
}

float Screen::Height() {
    return static_cast<float>(platform::GetSystemMetrics(platform::SM_CYSCREEN) *
                              twipsPerPixel(Axis::Vertical));
}

Form* Screen::ActiveForm() {
    return dynamic_cast<Form*>(DrawingWindow::fromWindow(platform::GetActiveWindow()));
}

Control* Screen::ActiveControl() {
    const Form* form = ActiveForm();
    return form ? form->ActiveControl() : nullptr;
}

host::MousePointer Screen::MousePointer() {
    return session().pointer;
}

void Screen::MousePointer(host::MousePointer value) {
    session().pointer = value;
}

} // namespace host
