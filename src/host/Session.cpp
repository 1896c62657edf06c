#include "host/Session.h"

#include "host/Form.h"

#include <algorithm>

namespace host {

Session& session() {
    // Never destroyed: fonts and forms may outlive any order of the program's own statics.
    static Session& only = *new Session;
    return only;
}

namespace {

class PlainFont final : public StdFont {
public:
    ~PlainFont() override { session().plainFont = nullptr; }
};

} // namespace

automation::Ref<StdFont> sharedFont(const StdFont& like) {
    constexpr std::size_t most = 8;
    auto& fonts = session().sharedFonts;
    const auto found =
        std::find_if(fonts.begin(), fonts.end(), [&like](const auto& font) { return font->equals(like); });
    if (found != fonts.end()) return *found;
    if (fonts.size() == most) fonts.erase(fonts.begin());
    return fonts.emplace_back(like.clone());
}

automation::Ref<StdFont> plainFont() {
    if (StdFont* shown = session().plainFont) return shown;
    auto made = automation::make<PlainFont>();
    session().plainFont = made.get();
    return made;
}

} // namespace host
