#include "host/Session.h"

#include "host/Form.h"

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

automation::Ref<StdFont> plainFont() {
    if (StdFont* shown = session().plainFont) return shown;
    auto made = automation::make<PlainFont>();
    session().plainFont = made.get();
    return made;
}

} // namespace host
