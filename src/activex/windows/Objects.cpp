#include "activex/windows/Objects.h"

#include "activex/windows/ComObject.h"
#include "activex/windows/Fonts.h"
#include "activex/windows/HostObject.h"
#include "activex/windows/Pictures.h"

namespace activex {

automation::Ref<automation::Object> objectOf(::IUnknown* object) {
    if (!object) return {};
    if (const auto own = ComPointer<OwnObject>::of(object, OwnObject::id())) return own->object();
    if (const auto font = ComPointer<::IFont>::of(object)) return fontOf(*font.get());
    if (const auto picture = ComPointer<::IPicture>::of(object)) return pictureOf(*picture.get());
    const auto dispatch = ComPointer<::IDispatch>::of(object);
    constexpr std::int32_t noAutomation = 430;
    if (!dispatch) automation::throwError(noAutomation);
    return HostObject::of(*dispatch.get());
}

::IDispatch* dispatchOf(automation::Object* object) {
    if (!object) return nullptr;
    if (const auto* foreign = dynamic_cast<const HostObject*>(object)) {
        foreign->dispatch().AddRef();
        return &foreign->dispatch();
    }
    if (auto* font = dynamic_cast<host::StdFont*>(object)) return fontFace(*font);
    if (const auto* picture = dynamic_cast<const host::Picture*>(object)) return pictureFace(*picture);
    return ComObject::of(*object);
}

} // namespace activex
