#pragma once
// The keyboard of the X server: which virtual key a key of it is and what it types, dead keys and compose
// sequences included.

#include "platform/linux/x11_server.h"

#include <X11/XKBlib.h>

#include <map>
#include <string>

namespace platform::driver {

class X11Keys {
public:
    explicit X11Keys(const X11Server& server) : server_(server) {}
    ~X11Keys();
    X11Keys(const X11Keys&) = delete;
    X11Keys& operator=(const X11Keys&) = delete;

    /// A press or release as input of the queue.
    void take(XEvent& event);

    /// Whether the event was the input method's own.
    bool isForMethod(XEvent& event) const;

    void takeNewLayout(XMappingEvent& event);

    /// Which keys are down, as the server tells behind a change of the focus.
    void takeHeldKeys(const XKeymapEvent& event);
    void releaseAll();
    void readLocks() const;
    void forgetWindow(::Window window); ///< Before it is destroyed

private:
    struct Held {
        int virtualKey;
        bool extended;
        bool isAltGr;
    };

    void press(XEvent& event);
    void release(unsigned keycode);
    void post(const Held& key, bool up, std::u16string text, char16_t plain) const;
    void typeInto(::Window window);
    void openMethod();
    std::u16string textOf(XKeyEvent& event) const;
    std::u16string composedText() const;

    Held heldModifier(unsigned keycode) const;
    KeySym plainSymbol(const XKeyEvent& event) const;
    Held keyOf(XKeyEvent& event, KeySym plain) const;
    int latinKey(const XKeyEvent& event) const;
    int digitAt(unsigned keycode) const;
    std::string placeOf(unsigned keycode) const;

    const X11Server& server_;
    XIM method_ = nullptr;
    XIC context_ = nullptr;
    ::Window typedInto_ = 0;
    bool asksProgram_ = false; ///< The input method is another program, which gives keys back that it leaves
    bool prepared_ = false;
    std::map<unsigned, Held> held_; ///< By the server's number of the key
    mutable XkbDescRec* places_ = nullptr;
};

} // namespace platform::driver
