#include "host/ControlRegistry.h"

#include "host/Label.h"
#include "host/PictureBox.h"
#include "platform/locale.h"

namespace host {

ControlRegistry::ControlRegistry() {
    add<Label>(u"Label");
    add<PictureBox>(u"PictureBox");
}

void ControlRegistry::add(const automation::String& className, Maker maker) {
    makers_[platform::upperCase(className)] = std::move(maker);
}

bool ControlRegistry::knows(const automation::String& className) const {
    return makers_.count(platform::upperCase(className)) != 0;
}

automation::Ref<Control> ControlRegistry::make(const automation::String& className) const {
    const auto maker = makers_.find(platform::upperCase(className));
    return maker == makers_.end() ? automation::Ref<Control>() : maker->second();
}

} // namespace host
