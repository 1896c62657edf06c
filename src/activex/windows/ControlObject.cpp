// The life of a control, and what it asks of its container.

#include "activex/windows/ControlObject.h"

#include "activex/windows/Failures.h"
#include "activex/windows/Values.h"

namespace activex {

using platform::driver::handleFrom;
using platform::driver::native;

/// Holds the windows of controls that no container shows. It is as good as visible, so that such a control
/// can make its picture, but has no extent and lies out of sight. It goes with the last control.
class ControlObject::ParkingWindow {
public:
    ParkingWindow() = default;
    ParkingWindow(const ParkingWindow&) = delete;
    ParkingWindow& operator=(const ParkingWindow&) = delete;
    ~ParkingWindow() {
        if (::IsWindow(window_)) ::DestroyWindow(window_);
    }

    /// The one that all controls of now share.
    static std::shared_ptr<ParkingWindow> shared() {
        static std::weak_ptr<ParkingWindow> present;
        auto window = present.lock();
        if (!window) present = window = std::make_shared<ParkingWindow>();
        return window;
    }

    ::HWND handle() {
        constexpr int outOfSight = -32'000;
        if (!::IsWindow(window_)) // a program that closes all windows of its thread took it along
            window_ =
                ::CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE,
                                  outOfSight, outOfSight, 0, 0, nullptr, nullptr, nullptr, nullptr);
        return window_;
    }

private:
    ::HWND window_ = nullptr;
};

ControlObject::ControlObject(automation::Ref<host::UserControl> control, ::IUnknown* outer)
    : ComObject(control, outer), parking_(ParkingWindow::shared()), control_(std::move(control)),
      site_(*this), notifications_(*this, fromNative(__uuidof(::IPropertyNotifySink))) {
    control_->enter(site_, nullptr, handleFrom<platform::HWND>(parking_->handle()), {});
}

ControlObject::~ControlObject() {
    if (accessKeys_) ::DestroyAcceleratorTable(accessKeys_);
}

void ControlObject::finish() {
    InPlaceDeactivate();
    try {
        control_->leave();
    } catch (...) {
        // Nobody is left to be told.
    }
    client_.reset();
}

void* ControlObject::find(REFIID id) {
    if (id == __uuidof(::IOleObject)) return static_cast<::IOleObject*>(this);
    if (id == __uuidof(::IOleControl)) return static_cast<::IOleControl*>(this);
    if (id == __uuidof(::IOleWindow) || id == __uuidof(::IOleInPlaceObject))
        return static_cast<::IOleInPlaceObject*>(this);
    if (id == __uuidof(::IOleInPlaceActiveObject)) return static_cast<::IOleInPlaceActiveObject*>(this);
    if (id == __uuidof(::IViewObject) || id == __uuidof(::IViewObject2))
        return static_cast<::IViewObject2*>(this);
    if (id == __uuidof(::IPersist) || id == __uuidof(::IPersistStreamInit))
        return static_cast<::IPersistStreamInit*>(this);
    if (id == __uuidof(::IPersistPropertyBag)) return static_cast<::IPersistPropertyBag*>(this);
    if (id == __uuidof(::IPersistStorage)) return static_cast<::IPersistStorage*>(this);
    return ComObject::find(id);
}

std::vector<ConnectionPoint*> ControlObject::connectionPoints() {
    auto points = ComObject::connectionPoints();
    points.push_back(&notifications_);
    return points;
}

void ControlObject::park() {
    ::SetParent(native(control_->window()), parking_->handle());
}

void ControlObject::show(bool visible) {
    shown_ = visible;
    control_->applyVisible(visible && isActive());
}

::RECT ControlObject::place() const {
    const platform::RECT pixels = control_->bounds().pixels();
    return {pixels.left, pixels.top, pixels.right, pixels.bottom};
}

/// The container decides; one that does not answer leaves the place to the control.
void ControlObject::requestPlace(const host::Bounds& wanted) {
    if (wanted == control_->bounds()) return;
    const platform::RECT pixels = wanted.pixels();
    const ::RECT asked{pixels.left, pixels.top, pixels.right, pixels.bottom};
    const ComPointer<::IOleInPlaceSite> container = inPlace_;
    if (!container || FAILED(container->OnPosRectChange(&asked))) control_->applyBounds(wanted);
    if (advised_) advised_->SendOnSave();
}

void ControlObject::propertyChanged(std::u16string_view name) {
    dirty_ = true;
    const ::DISPID id = control_->classTable().find(name);
    notifications_.callEach(
        [&](::IUnknown& listener) { static_cast<::IPropertyNotifySink&>(listener).OnChanged(id); });
    viewChanged();
}

void ControlObject::viewChanged() {
    const ComPointer<::IAdviseSink> viewer = viewer_;
    if (!viewer) return;
    if (viewFlags_ & ADVF_ONLYONCE) viewer_.reset();
    viewer->OnViewChange(DVASPECT_CONTENT, -1);
}

} // namespace activex
