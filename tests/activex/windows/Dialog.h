#pragma once
// A window of several controls as a program has it: a Tab order, and a loop that offers keys to the active
// control.

#include "activex/windows/Container.h"

#include <memory>

namespace support {

/// Knows the active control. It lives as long as its dialog.
class Frame final : public EmptyFrame {
public:
    explicit Frame(::HWND window) : window_(window) {}

    ::IOleInPlaceActiveObject* active() const { return active_.get(); }

    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
    ::HRESULT STDMETHODCALLTYPE GetWindow(::HWND* window) override { return *window = window_, S_OK; }
    ::HRESULT STDMETHODCALLTYPE SetActiveObject(::IOleInPlaceActiveObject* object, ::LPCOLESTR) override;

private:
    ::HWND window_;
    ComPointer<::IOleInPlaceActiveObject> active_;
};

/// Tab and Shift+Tab walk through its controls and windows in the order in which they were added, round and
/// round.
class Dialog {
public:
    Dialog() : frame_(window_.handle()) {}

    /// A new control, active in its place.
    Site& add(const ::RECT& place, ComPointer<::IDispatch> control);
    /// A window of one of the system's classes.
    ::HWND add(const ::RECT& place, const wchar_t* systemClass);
    /// Gives the focus to what was added as the number `index`, from 0.
    void focus(std::size_t index);
    /// Reads and dispatches messages until none waits.
    void readMessages();
    ::IOleInPlaceActiveObject* active() const { return frame_.active(); }
    ::HWND handle() const { return window_.handle(); }

private:
    /// A control, or a window of the system.
    struct Stop {
        std::unique_ptr<Site> site;
        ::HWND window = nullptr;
    };
    bool hasFocus(const Stop& stop) const;
    void becomesActive(const Site& site);
    bool walk(const ::MSG& key);
    bool handles(::MSG& message);

    ContainerWindow window_;
    Frame frame_;
    std::vector<Stop> stops_;
};

} // namespace support
