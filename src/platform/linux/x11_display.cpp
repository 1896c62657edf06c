// The display on X11: takes the server's events apart and puts the pixels on the windows.

#include "platform/linux/x11_display.h"

#include "platform/linux/desktop_windows.h"
#include "platform/linux/x11_clipboard.h"
#include "platform/linux/x11_keys.h"
#include "platform/linux/x11_painter.h"
#include "platform/linux/x11_pointer.h"
#include "platform/linux/x11_refusals.h"
#include "platform/linux/x11_screen.h"
#include "platform/linux/x11_windows.h"

#include <X11/Xatom.h>

#include <optional>
#include <utility>

namespace platform::driver {

namespace {

/// What happened to a window on the desktop and is still to be told to it.
struct WindowNews {
    enum class Kind { Place, State, CloseWish };
    Kind kind;
    HWND window;
    RECT place;
    bool minimized = false;
    bool maximized = false;
};

constexpr unsigned WheelUp = Button4;
constexpr unsigned WheelDown = Button5;

class X11Display final : public Display {
public:
    explicit X11Display(std::unique_ptr<X11Server> server);

    SIZE screenSize() override { return server_->screenSize(); }
    RECT workArea() override { return server_->workArea(); }
    bool drawsFrames() const override { return false; }

    void shown(Window& window) override { windows_.show(window); }
    void hidden(Window& window) override;
    void placed(Window& window) override { windows_.place(window); }
    void stateChanged(Window& window) override { windows_.changeState(window); }
    void raised(Window& window) override;
    void renamed(Window& window) override { windows_.rename(window); }
    void iconChanged(Window& window) override { windows_.changeIcon(window); }
    void activated(Window& window) override;
    void destroyed(Window& window) override;

    bool readScreen(const Surface& words) override;
    void showInFront(const Surface& words, const Region& region) override;
    void present() override;
    void collectInput() override;
    void settle() override;
    bool mustSettle() const override { return !news_.empty() || focusMoved_; }
    bool waitForInput(std::int64_t milliseconds) override;

    POINT pointer() override;
    void movePointer(POINT screen) override;
    void showCursor(WORD id) override;
    void captureMouse(bool captured) override;
    void setLocks(const BYTE* states) override { server_->lockKeys(states); }
    bool clipboardHas(const std::string& type) override { return clipboard_.has(type); }
    std::string clipboardBytes(const std::string& type) override { return clipboard_.bytes(type); }
    void setClipboard(ClipboardContent content) override { clipboard_.set(std::move(content)); }
    void beep() override { server_->ringBell(); }

private:
    void presentWindow(Window& window, const X11Window& native);

    void take(XEvent& event);
    void takeKey(XEvent& event);
    void takeButton(const XButtonEvent& event);
    void takeMotion(::Window id, int x, int y);
    void takeFocus(const XFocusChangeEvent& event);
    void takePlace(const XConfigureEvent& event);
    void takeProperty(const XPropertyEvent& event);
    void takeMessage(const XClientMessageEvent& event);
    void takeExposure(const XExposeEvent& event);

    void tell(const WindowNews& news);
    void tellKeyboard();
    std::optional<POINT> onScreen(::Window id, int x, int y) const;

    const std::unique_ptr<X11Server> server_;
    X11Windows windows_;
    X11Painter painter_;
    X11Screen screen_;
    X11Keys keys_;
    X11Pointer mouse_;
    X11Clipboard clipboard_;
    std::vector<WindowNews> news_;
    std::optional<POINT> pointer_;
    HWND keyboard_; ///< The window that the server gives the keyboard to
    bool focusMoved_ = false;
};

X11Display::X11Display(std::unique_ptr<X11Server> server)
    : server_(std::move(server)), windows_(*server_), painter_(*server_), screen_(*server_, painter_),
      keys_(*server_), mouse_(*server_), clipboard_(*server_) {
    keys_.readLocks();
}

// --- Windows ---------------------------------------------------------------------------------------

void X11Display::hidden(Window& window) {
    windows_.hide(window);
    if (keyboard_ == window.handle) keyboard_ = {};
}

/// Not when a window manager has given it the keyboard: it may have its reasons not to raise it.
void X11Display::raised(Window& window) {
    windows_.writeTopmost(window);
    if (keyboard_ != window.handle || !server_->hasWindowManager()) windows_.stack(window);
}

void X11Display::activated(Window& window) {
    if (keyboard_ != window.handle) windows_.giveKeyboard(window);
}

void X11Display::destroyed(Window& window) {
    if (const X11Window* native = windows_.find(window.handle)) keys_.forgetWindow(native->id);
    windows_.destroy(window.handle);
    if (keyboard_ == window.handle) keyboard_ = {};
}

// --- Pixels ----------------------------------------------------------------------------------------

void X11Display::present() {
    noteBlink();
    for (const auto& [handle, native] : windows_.all()) {
        Window* window = findWindow(handle);
        if (window && window->pixels && !hasNoArea(window->unpresented) && window->is(WS_VISIBLE))
            presentWindow(*window, native);
    }
    XFlush(server_->display());
}

/// What lay behind pixels that have just gone is first shown again, as far as it is ours.
bool X11Display::readScreen(const Surface& words) {
    XSync(server_->display(), 0);
    collectInput();
    present();
    return screen_.read(words);
}

void X11Display::showInFront(const Surface& words, const Region& region) {
    screen_.showInFront(words, region);
}

void X11Display::presentWindow(Window& window, const X11Window& native) {
    PixelStore& pixels = pixelsOf(window);
    const RECT part = offset(shownPart(window), -window.frame.left, -window.frame.top);
    const RECT all{0, 0, pixels.surface.width, pixels.surface.height};
    const RECT drawn = overlapOf(overlapOf(window.unpresented, part), all);
    window.unpresented = {};
    if (hasNoArea(drawn)) return;
    inkCaret(window, pixels, {});
    PixelStore words;
    const Surface& shown = plainSurface(pixels, words);
    painter_.show(shown, drawn, native.id, {drawn.left - part.left, drawn.top - part.top});
    inkCaret(window, pixels, {});
}

// --- Events ----------------------------------------------------------------------------------------

void X11Display::collectInput() {
    while (XPending(server_->display())) {
        XEvent event{};
        XNextEvent(server_->display(), &event);
        take(event);
    }
}

bool X11Display::waitForInput(std::int64_t milliseconds) {
    if (!XPending(server_->display())) server_->wait(milliseconds);
    return true;
}

void X11Display::take(XEvent& event) {
    if (event.type == KeyPress || event.type == KeyRelease) return takeKey(event);
    if (keys_.isForMethod(event) || clipboard_.take(event)) return;
    server_->noteRootChange(event);
    switch (event.type) {
    case ButtonPress:
    case ButtonRelease:
        return takeButton(event.xbutton);
    case MotionNotify:
        return takeMotion(event.xmotion.window, event.xmotion.x, event.xmotion.y);
    case EnterNotify:
        return takeMotion(event.xcrossing.window, event.xcrossing.x, event.xcrossing.y);
    case FocusIn:
    case FocusOut:
        return takeFocus(event.xfocus);
    case KeymapNotify:
        if (keyboard_) keys_.takeHeldKeys(event.xkeymap);
        return;
    case Expose:
        return takeExposure(event.xexpose);
    case ConfigureNotify:
        return takePlace(event.xconfigure);
    case ReparentNotify:
        if (Window* window = windows_.windowOf(event.xreparent.window))
            windows_.find(window->handle)->isInFrame = event.xreparent.parent != server_->root();
        return;
    case PropertyNotify:
        return takeProperty(event.xproperty);
    case ClientMessage:
        return takeMessage(event.xclient);
    case MappingNotify:
        return keys_.takeNewLayout(event.xmapping);
    default:
        return;
    }
}

void X11Display::takeKey(XEvent& event) {
    server_->noteUserTime(event.xkey.time);
    keys_.take(event);
}

std::optional<POINT> X11Display::onScreen(::Window id, int x, int y) const {
    const Window* window = windows_.windowOf(id);
    if (!window) return std::nullopt;
    const RECT part = shownPart(*window);
    return POINT{part.left + x, part.top + y};
}

void X11Display::takeMotion(::Window id, int x, int y) {
    const auto at = onScreen(id, x, y);
    if (!at) return;
    pointer_ = at;
    X11Window& native = *windows_.find(windows_.windowOf(id)->handle);
    if (!std::exchange(native.hasShape, true)) mouse_.showIn(id);
    postPointer(*at);
}

void X11Display::takeButton(const XButtonEvent& event) {
    server_->noteUserTime(event.time);
    const auto at = onScreen(event.window, event.x, event.y);
    if (!at) return;
    pointer_ = at;
    const bool up = event.type == ButtonRelease;
    if (event.button == WheelUp || event.button == WheelDown) {
        if (!up) postWheel(event.button == WheelUp ? 1 : -1, *at);
        return;
    }
    if (event.button > Button3) return;
    const int button = event.button == Button1   ? VK_LBUTTON
                       : event.button == Button2 ? VK_MBUTTON
                                                 : VK_RBUTTON;
    postButton(button, up, *at);
}

/// Grabs take the keyboard for a moment only, and the pointer's presence gives it to no window of ours.
void X11Display::takeFocus(const XFocusChangeEvent& event) {
    if (event.mode == NotifyGrab || event.mode == NotifyUngrab) return;
    if (event.detail == NotifyPointer || event.detail == NotifyInferior) return;
    const Window* window = windows_.windowOf(event.window);
    if (!window) return;
    if (event.type == FocusIn) {
        keyboard_ = window->handle;
        keys_.readLocks();
    } else {
        if (keyboard_ != window->handle) return; // Hidden by the program, which has chosen another
        keyboard_ = {};
    }
    focusMoved_ = true;
}

void X11Display::takeExposure(const XExposeEvent& event) {
    if (Window* window = windows_.windowOf(event.window))
        showAgain(*window, {event.x, event.y, event.x + event.width, event.y + event.height});
}

void X11Display::takePlace(const XConfigureEvent& event) {
    const Window* window = windows_.windowOf(event.window);
    if (!window) return;
    X11Window& native = *windows_.find(window->handle);
    if (!windows_.readPlace(native, event)) return;
    // A window manager goes through several places to the last one, which alone is told.
    const HWND moved = window->handle;
    std::erase_if(
        news_, [&](const WindowNews& n) { return n.kind == WindowNews::Kind::Place && n.window == moved; });
    news_.push_back({WindowNews::Kind::Place, moved, native.place});
}

void X11Display::takeProperty(const XPropertyEvent& event) {
    if (event.atom != server_->atoms().state && event.atom != server_->atoms().netState) return;
    const Window* window = windows_.windowOf(event.window);
    if (!window) return;
    X11Window& native = *windows_.find(window->handle);
    if (windows_.readState(native))
        news_.push_back(
            {WindowNews::Kind::State, window->handle, {}, native.isMinimized, native.isMaximized});
}

void X11Display::takeMessage(const XClientMessageEvent& event) {
    const X11Atoms& atoms = server_->atoms();
    if (event.message_type != atoms.protocols) return;
    const auto wish = static_cast<::Atom>(event.data.l[0]);
    if (wish == atoms.ping) {
        XEvent echo{};
        echo.xclient = event;
        echo.xclient.window = server_->root();
        XSendEvent(server_->display(), server_->root(), 0, SubstructureRedirectMask | SubstructureNotifyMask,
                   &echo);
    }
    const Window* window = windows_.windowOf(event.window);
    if (wish == atoms.deleteWindow && window)
        news_.push_back({WindowNews::Kind::CloseWish, window->handle, {}});
}

// --- What the desktop did to the windows -----------------------------------------------------------

void X11Display::settle() {
    while (mustSettle()) {
        const std::vector<WindowNews> news = std::exchange(news_, {});
        for (const WindowNews& one : news)
            if (Window* window = findWindow(one.window); window && one.kind == WindowNews::Kind::State)
                keepNormalPlace(*window);
        for (const WindowNews& one : news)
            tell(one);
        if (std::exchange(focusMoved_, false)) tellKeyboard();
    }
}

void X11Display::tell(const WindowNews& news) {
    Window* window = findWindow(news.window);
    if (!window) return;
    switch (news.kind) {
    case WindowNews::Kind::Place:
        tellPlace(*window, news.place);
        break;
    case WindowNews::Kind::State:
        tellState(*window, news.minimized, news.maximized);
        break;
    case WindowNews::Kind::CloseWish:
        tellCloseWish(*window);
        break;
    }
}

void X11Display::tellKeyboard() {
    if (!keyboard_) keys_.releaseAll();
    const Window* window = findWindow(keyboard_);
    const bool refusesIt = window && window->is(WS_DISABLED);
    tellFocus(findWindow(keyboard_));
    const Window* active = findWindow(attention().active);
    if (refusesIt && active && active->handle != keyboard_) windows_.giveKeyboard(*active);
}

// --- Pointer ---------------------------------------------------------------------------------------

POINT X11Display::pointer() {
    if (!pointer_) pointer_ = mouse_.place();
    return *pointer_;
}

void X11Display::movePointer(POINT screen) {
    pointer_ = screen;
    mouse_.move(screen);
}

void X11Display::showCursor(WORD id) {
    mouse_.choose(id);
    for (auto& [handle, native] : windows_.all())
        if (native.hasShape) mouse_.showIn(native.id);
}

void X11Display::captureMouse(bool captured) {
    const Window* top = topLevelOf(findWindow(attention().capture));
    const X11Window* native = top && captured ? windows_.find(top->handle) : nullptr;
    if (native)
        mouse_.capture(native->id);
    else
        mouse_.release();
}

} // namespace

std::unique_ptr<Display> startX11Display() {
    auto server = X11Server::connect();
    if (!server) return nullptr;
    outliveRefusals();
    return std::make_unique<X11Display>(std::move(server));
}

} // namespace platform::driver
