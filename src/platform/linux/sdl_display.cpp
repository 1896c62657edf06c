// The desktop through SDL: one SDL window for each top-level window, its pixels copied from ours.

#include "platform/linux/sdl_display.h"

#include "platform/linux/desktop_windows.h"
#include "platform/linux/keyboard.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/sdl_keys.h"
#include "platform/linux/sdl_library.h"
#include "platform/linux/x11_extras.h"
#include "platform/linux/x11_refusals.h"
#include "platform/locale.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <string_view>
#include <vector>

namespace platform::driver {

namespace {

/// What happened to a window on the desktop and is still to be told to it.
struct WindowChange {
    SDL_WindowEventID what;
    std::uint32_t window;
    int a;
    int b;
};

struct CursorShape {
    WORD id;
    SDL_SystemCursor shape;
};

constexpr CursorShape CursorShapes[] = {{IDC_ARROW, SDL_SYSTEM_CURSOR_ARROW},
                                        {IDC_IBEAM, SDL_SYSTEM_CURSOR_IBEAM},
                                        {IDC_WAIT, SDL_SYSTEM_CURSOR_WAIT},
                                        {IDC_CROSS, SDL_SYSTEM_CURSOR_CROSSHAIR},
                                        {IDC_UPARROW, SDL_SYSTEM_CURSOR_ARROW},
                                        {IDC_SIZENWSE, SDL_SYSTEM_CURSOR_SIZENWSE},
                                        {IDC_SIZENESW, SDL_SYSTEM_CURSOR_SIZENESW},
                                        {IDC_SIZEWE, SDL_SYSTEM_CURSOR_SIZEWE},
                                        {IDC_SIZENS, SDL_SYSTEM_CURSOR_SIZENS},
                                        {IDC_SIZEALL, SDL_SYSTEM_CURSOR_SIZEALL},
                                        {IDC_NO, SDL_SYSTEM_CURSOR_NO},
                                        {IDC_HAND, SDL_SYSTEM_CURSOR_HAND},
                                        {IDC_APPSTARTING, SDL_SYSTEM_CURSOR_WAITARROW},
                                        {IDC_HELP, SDL_SYSTEM_CURSOR_ARROW}};

Uint32 windowFlags(const Window& window) {
    Uint32 flags = 0;
    if (!window.is(WS_CAPTION)) flags |= SDL_WINDOW_BORDERLESS;
    if (window.style & WS_THICKFRAME) flags |= SDL_WINDOW_RESIZABLE;
    if (window.exStyle & WS_EX_TOPMOST) flags |= SDL_WINDOW_ALWAYS_ON_TOP;
    if (window.owner || (window.exStyle & WS_EX_TOOLWINDOW)) flags |= SDL_WINDOW_SKIP_TASKBAR;
    if (window.is(WS_MAXIMIZE)) flags |= SDL_WINDOW_MAXIMIZED;
    if (isPopup(window)) flags |= SDL_WINDOW_POPUP_MENU;
    return flags;
}

class SdlDisplay final : public Display {
public:
    ~SdlDisplay() override;

    SIZE screenSize() override;
    RECT workArea() override;
    bool drawsFrames() const override { return false; }

    void shown(Window& window) override;
    void hidden(Window& window) override;
    void placed(Window& window) override;
    void stateChanged(Window& window) override;
    void renamed(Window& window) override;
    void activated(Window& window) override;
    void destroyed(Window& window) override;

    void present() override;
    void collectInput() override;
    void settle() override;
    bool mustSettle() const override { return !changes_.empty(); }
    bool waitForInput(std::int64_t milliseconds) override;

    POINT pointer() override { return pointer_; }
    void movePointer(POINT screen) override;
    void showCursor(WORD id) override;
    void captureMouse(bool captured) override { sdl().CaptureMouse(captured ? SDL_TRUE : SDL_FALSE); }
    void setLocks(const BYTE* states) override { lockKeys(states); }
    bool clipboardHas(const std::string& type) override;
    std::string clipboardBytes(const std::string& type) override;
    void setClipboard(ClipboardContent content) override;
    void beep() override { ringBell(); }

    void readLocks();

private:
    SDL_Window* nativeOf(HWND window) const;
    Window* windowOf(std::uint32_t id) const;
    void presentWindow(Window& window, SDL_Window* native);
    void returnKeyboard(const Window& from);

    void take(const SDL_Event& event);
    void takeKey(const SDL_KeyboardEvent& event);
    void takeButton(const SDL_MouseButtonEvent& event);
    void takeMotion(std::uint32_t id, int x, int y);
    void takeWheel(const SDL_MouseWheelEvent& event);
    void takeWindowEvent(const SDL_WindowEvent& event);
    void postKey(int key, bool up, const SDL_KeyboardEvent& event, std::u16string text);

    void tell(const WindowChange& change);
    void keepPlace(const WindowChange& change);
    void tellKeyboardFocus();

    std::map<HWND, SDL_Window*> natives_;
    std::vector<WindowChange> changes_;
    std::map<WORD, SDL_Cursor*> cursors_;
    POINT pointer_;
    bool focusChanged_ = false;
};

RECT movedTo(const RECT& part, int x, int y) {
    return offset(part, x - part.left, y - part.top);
}

RECT sizedTo(const RECT& part, int width, int height) {
    return {part.left, part.top, part.left + width, part.top + height};
}

std::u16string wideText(const char* utf8) {
    return wideFromUtf8(utf8 ? utf8 : "");
}

} // namespace

SdlDisplay::~SdlDisplay() {
    for (const auto& [id, cursor] : cursors_)
        sdl().FreeCursor(cursor);
    for (const auto& [handle, native] : natives_)
        sdl().DestroyWindow(native);
    sdl().QuitSubSystem(SDL_INIT_VIDEO);
}

// --- Windows ---------------------------------------------------------------------------------------

SDL_Window* SdlDisplay::nativeOf(HWND window) const {
    const auto found = natives_.find(window);
    return found == natives_.end() ? nullptr : found->second;
}

Window* SdlDisplay::windowOf(std::uint32_t id) const {
    SDL_Window* native = sdl().GetWindowFromID(id);
    for (const auto& [handle, known] : natives_)
        if (known == native && native) return findWindow(handle);
    return nullptr;
}

SIZE SdlDisplay::screenSize() {
    SDL_Rect bounds{};
    sdl().GetDisplayBounds(0, &bounds);
    return {bounds.w, bounds.h};
}

RECT SdlDisplay::workArea() {
    SDL_Rect bounds{};
    sdl().GetDisplayUsableBounds(0, &bounds);
    return {bounds.x, bounds.y, bounds.x + bounds.w, bounds.y + bounds.h};
}

void SdlDisplay::shown(Window& window) {
    if (SDL_Window* native = nativeOf(window.handle)) {
        stateChanged(window);
        placed(window);
        sdl().ShowWindow(native);
        return;
    }
    const RECT part = shownPart(window);
    SDL_Window* native = sdl().CreateWindow(utf8Title(window).c_str(), part.left, part.top, widthOf(part),
                                            heightOf(part), windowFlags(window));
    if (!native) return;
    natives_[window.handle] = native;
    if (SDL_Window* owner = nativeOf(window.owner)) sdl().SetWindowModalFor(native, owner);
}

void SdlDisplay::hidden(Window& window) {
    SDL_Window* native = nativeOf(window.handle);
    if (!native) return;
    sdl().HideWindow(native);
    returnKeyboard(window);
}

void SdlDisplay::placed(Window& window) {
    SDL_Window* native = nativeOf(window.handle);
    if (!native || (window.style & (WS_MINIMIZE | WS_MAXIMIZE))) return;
    const RECT part = shownPart(window);
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    sdl().GetWindowPosition(native, &x, &y);
    sdl().GetWindowSize(native, &width, &height);
    if (width != widthOf(part) || height != heightOf(part))
        sdl().SetWindowSize(native, widthOf(part), heightOf(part));
    if (x != part.left || y != part.top) sdl().SetWindowPosition(native, part.left, part.top);
}

void SdlDisplay::stateChanged(Window& window) {
    SDL_Window* native = nativeOf(window.handle);
    if (!native) return;
    const Uint32 shown = sdl().GetWindowFlags(native);
    if (window.is(WS_MINIMIZE)) {
        sdl().MinimizeWindow(native);
        return;
    }
    // A minimised window comes back first as it was; a maximised one that is restored then shrinks.
    if (shown & SDL_WINDOW_MINIMIZED) sdl().RestoreWindow(native);
    if (window.is(WS_MAXIMIZE))
        sdl().MaximizeWindow(native);
    else if (shown & SDL_WINDOW_MAXIMIZED)
        sdl().RestoreWindow(native);
}

void SdlDisplay::renamed(Window& window) {
    if (SDL_Window* native = nativeOf(window.handle)) sdl().SetWindowTitle(native, utf8Title(window).c_str());
}

void SdlDisplay::activated(Window& window) {
    SDL_Window* native = nativeOf(window.handle);
    if (native && sdl().GetKeyboardFocus() != native) sdl().RaiseWindow(native);
}

void SdlDisplay::destroyed(Window& window) {
    const auto found = natives_.find(window.handle);
    if (found == natives_.end()) return;
    sdl().DestroyWindow(found->second);
    natives_.erase(found);
    returnKeyboard(window);
}

/// A list that drops down may have got the keyboard from a desktop without a window manager.
void SdlDisplay::returnKeyboard(const Window& from) {
    SDL_Window* active = nativeOf(attention().active);
    if (active && (from.exStyle & WS_EX_NOACTIVATE) && !sdl().GetKeyboardFocus())
        sdl().SetWindowInputFocus(active);
}

// --- Pixels ----------------------------------------------------------------------------------------

void SdlDisplay::present() {
    noteBlink();
    for (const auto& [handle, native] : natives_) {
        Window* window = findWindow(handle);
        if (window && window->pixels && !hasNoArea(window->unpresented) && window->is(WS_VISIBLE))
            presentWindow(*window, native);
    }
}

void SdlDisplay::presentWindow(Window& window, SDL_Window* native) {
    constexpr Uint32 RedMask = 0xFF0000;
    constexpr Uint32 GreenMask = 0xFF00;
    constexpr Uint32 BlueMask = 0xFF;
    constexpr int Depth = 32;
    SDL_Surface* target = sdl().GetWindowSurface(native);
    if (!target) return;
    PixelStore& pixels = pixelsOf(window);
    const RECT part = offset(shownPart(window), -window.frame.left, -window.frame.top);
    const RECT drawn = overlapOf(window.unpresented, part);
    window.unpresented = {};
    if (hasNoArea(drawn)) return;
    SDL_Rect from{drawn.left, drawn.top, widthOf(drawn), heightOf(drawn)};
    SDL_Rect to{drawn.left - part.left, drawn.top - part.top, from.w, from.h};
    inkCaret(window, pixels, {});
    PixelStore words;
    const Surface& shown = plainSurface(pixels, words);
    SDL_Surface* source = sdl().CreateRGBSurfaceFrom(shown.bits, shown.width, shown.height, Depth,
                                                     shown.stride, RedMask, GreenMask, BlueMask, 0);
    if (source) sdl().UpperBlit(source, &from, target, &to);
    inkCaret(window, pixels, {});
    sdl().FreeSurface(source);
    if (to.w > 0 && to.h > 0) sdl().UpdateWindowSurfaceRects(native, &to, 1);
}

// --- Input -----------------------------------------------------------------------------------------

void SdlDisplay::collectInput() {
    SDL_Event event;
    while (sdl().PollEvent(&event))
        take(event);
}

bool SdlDisplay::waitForInput(std::int64_t milliseconds) {
    constexpr std::int64_t LongestWait = 60'000;
    const std::int64_t wait = milliseconds < 0 ? LongestWait : std::min(milliseconds, LongestWait);
    sdl().WaitEventTimeout(nullptr, static_cast<int>(wait));
    return true;
}

void SdlDisplay::take(const SDL_Event& event) {
    switch (event.type) {
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        takeKey(event.key);
        break;
    case SDL_TEXTINPUT:
        postText(wideText(event.text.text));
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        takeButton(event.button);
        break;
    case SDL_MOUSEMOTION:
        takeMotion(event.motion.windowID, event.motion.x, event.motion.y);
        break;
    case SDL_MOUSEWHEEL:
        takeWheel(event.wheel);
        break;
    case SDL_WINDOWEVENT:
        takeWindowEvent(event.window);
        break;
    default:
        break;
    }
}

void SdlDisplay::postKey(int key, bool up, const SDL_KeyboardEvent& event, std::u16string text) {
    RawInput input;
    input.kind = RawInput::Kind::Key;
    input.virtualKey = key;
    input.up = up;
    input.scanCode = scanCodeOf(key);
    input.extended = isExtendedKey(key) || event.keysym.scancode == SDL_SCANCODE_KP_ENTER;
    input.hasText = true;
    input.text = std::move(text);
    input.plain = plainCharacterOf(event.keysym);
    postInput(std::move(input));
}

/// The text that a key types comes as the event right behind it.
void SdlDisplay::takeKey(const SDL_KeyboardEvent& event) {
    const int key = virtualKeyOf(event.keysym);
    if (!key) return;
    const bool up = event.type == SDL_KEYUP;
    std::u16string text;
    SDL_Event next;
    if (!up && sdl().PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1 &&
        next.type == SDL_TEXTINPUT) {
        sdl().PeepEvents(&next, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
        text = wideText(next.text.text);
    }
    // Alt Gr is Ctrl with the right Alt, in that order.
    if (key == VK_RMENU && !up) postKey(VK_LCONTROL, false, event, {});
    if (key == VK_RMENU && up) postKey(VK_LCONTROL, true, event, {});
    postKey(key, up, event, std::move(text));
}

void SdlDisplay::takeMotion(std::uint32_t id, int x, int y) {
    const Window* window = windowOf(id);
    if (!window) return;
    const RECT part = shownPart(*window);
    pointer_ = {part.left + x, part.top + y};
    postPointer(pointer_);
}

void SdlDisplay::takeButton(const SDL_MouseButtonEvent& event) {
    const Window* window = windowOf(event.windowID);
    if (!window) return;
    const RECT part = shownPart(*window);
    pointer_ = {part.left + event.x, part.top + event.y};
    if (event.button > SDL_BUTTON_RIGHT) return;
    const int button = event.button == SDL_BUTTON_LEFT    ? VK_LBUTTON
                       : event.button == SDL_BUTTON_RIGHT ? VK_RBUTTON
                                                          : VK_MBUTTON;
    postButton(button, event.type == SDL_MOUSEBUTTONUP, pointer_);
}

void SdlDisplay::takeWheel(const SDL_MouseWheelEvent& event) {
    const int turn = event.direction == SDL_MOUSEWHEEL_FLIPPED ? -event.y : event.y;
    if (turn) postWheel(turn, pointer_);
}

void SdlDisplay::takeWindowEvent(const SDL_WindowEvent& event) {
    const auto what = static_cast<SDL_WindowEventID>(event.event);
    switch (what) {
    case SDL_WINDOWEVENT_EXPOSED:
        if (Window* window = windowOf(event.windowID)) showAgain(*window);
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        readLocks();
        [[fallthrough]];
    case SDL_WINDOWEVENT_FOCUS_LOST:
    case SDL_WINDOWEVENT_MOVED:
    case SDL_WINDOWEVENT_RESIZED:
    case SDL_WINDOWEVENT_MINIMIZED:
    case SDL_WINDOWEVENT_MAXIMIZED:
    case SDL_WINDOWEVENT_RESTORED:
    case SDL_WINDOWEVENT_CLOSE:
        changes_.push_back({what, event.windowID, event.data1, event.data2});
        break;
    default:
        break;
    }
}

void SdlDisplay::readLocks() {
    struct Lock {
        int key;
        int modifier;
    };
    static constexpr Lock Locks[] = {
        {VK_CAPITAL, KMOD_CAPS}, {VK_NUMLOCK, KMOD_NUM}, {VK_SCROLL, KMOD_SCROLL}};
    const int on = sdl().GetModState();
    for (const Lock& lock : Locks)
        noteLock(lock.key, (on & lock.modifier) != 0);
}

// --- What the desktop did to the windows -----------------------------------------------------------

void SdlDisplay::settle() {
    while (!changes_.empty()) {
        const std::vector<WindowChange> changes = std::move(changes_);
        changes_.clear();
        for (const WindowChange& change : changes)
            keepPlace(change);
        for (const WindowChange& change : changes)
            tell(change);
        if (focusChanged_) tellKeyboardFocus();
    }
}

/// The news of a window's new size may come before that of its new state.
void SdlDisplay::keepPlace(const WindowChange& change) {
    if (change.what != SDL_WINDOWEVENT_MAXIMIZED && change.what != SDL_WINDOWEVENT_MINIMIZED) return;
    if (Window* window = windowOf(change.window)) keepNormalPlace(*window);
}

void SdlDisplay::tell(const WindowChange& change) {
    Window* window = windowOf(change.window);
    if (!window) return;
    switch (change.what) {
    case SDL_WINDOWEVENT_FOCUS_GAINED:
    case SDL_WINDOWEVENT_FOCUS_LOST:
        focusChanged_ = true;
        break;
    case SDL_WINDOWEVENT_MOVED:
        tellPlace(*window, movedTo(shownPart(*window), change.a, change.b));
        break;
    case SDL_WINDOWEVENT_RESIZED:
        tellPlace(*window, sizedTo(shownPart(*window), change.a, change.b));
        break;
    case SDL_WINDOWEVENT_MINIMIZED:
        tellState(*window, true, window->is(WS_MAXIMIZE));
        break;
    case SDL_WINDOWEVENT_MAXIMIZED:
        tellState(*window, false, true);
        break;
    case SDL_WINDOWEVENT_RESTORED:
        tellState(*window, false,
                  (sdl().GetWindowFlags(nativeOf(window->handle)) & SDL_WINDOW_MAXIMIZED) != 0);
        break;
    case SDL_WINDOWEVENT_CLOSE:
        tellCloseWish(*window);
        break;
    default:
        break;
    }
}

void SdlDisplay::tellKeyboardFocus() {
    focusChanged_ = false;
    SDL_Window* native = sdl().GetKeyboardFocus();
    tellFocus(native ? windowOf(sdl().GetWindowID(native)) : nullptr);
}

// --- Pointer and clipboard -------------------------------------------------------------------------

void SdlDisplay::movePointer(POINT screen) {
    pointer_ = screen;
    sdl().WarpMouseGlobal(screen.x, screen.y);
}

void SdlDisplay::showCursor(WORD id) {
    sdl().ShowCursor(id ? SDL_ENABLE : SDL_DISABLE);
    if (!id) return;
    SDL_Cursor*& cursor = cursors_[id];
    if (!cursor) {
        const auto found = std::find_if(std::begin(CursorShapes), std::end(CursorShapes),
                                        [&](const CursorShape& c) { return c.id == id; });
        cursor = sdl().CreateSystemCursor(found == std::end(CursorShapes) ? SDL_SYSTEM_CURSOR_ARROW
                                                                          : found->shape);
    }
    sdl().SetCursor(cursor);
}

bool SdlDisplay::clipboardHas(const std::string& type) {
    return type == PlainText && sdl().HasClipboardText() == SDL_TRUE;
}

std::string SdlDisplay::clipboardBytes(const std::string& type) {
    if (type != PlainText) return {};
    char* text = sdl().GetClipboardText();
    std::string bytes = text ? text : "";
    sdl().free(text);
    return bytes;
}

void SdlDisplay::setClipboard(ClipboardContent content) {
    sdl().SetClipboardText(content[PlainText].c_str());
}

// --- Start -----------------------------------------------------------------------------------------

namespace {

struct Hint {
    const char* name;
    const char* value;
};

/// A plain window system client: signals and the screen saver stay the program's.
constexpr Hint Hints[] = {{SDL_HINT_NO_SIGNAL_HANDLERS, "1"},
                          {SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1"},
                          {SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1"},
                          {SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0"},
                          {SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0"},
                          {SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0"},
                          {SDL_HINT_IME_SHOW_UI, "1"}};

/// Where no session bus is known, looking for one would start one, which takes longer than all the rest.
class NoBusSearch {
public:
    NoBusSearch() : quiet_(!std::getenv(Bus) && !hasUserBus()) {
        if (quiet_) setenv(Bus, "disabled:", 1);
    }
    ~NoBusSearch() {
        if (quiet_) unsetenv(Bus);
    }
    NoBusSearch(const NoBusSearch&) = delete;
    NoBusSearch& operator=(const NoBusSearch&) = delete;

private:
    static constexpr const char* Bus = "DBUS_SESSION_BUS_ADDRESS";

    static bool hasUserBus() {
        const char* folder = std::getenv("XDG_RUNTIME_DIR");
        return folder && access((std::string(folder) + "/bus").c_str(), F_OK) == 0;
    }

    const bool quiet_;
};

/// On X11 pixels go without a renderer, which would take long to start. On Wayland SDL has no other way.
void chooseWayOfPixels() {
    const std::string_view driver = sdl().GetCurrentVideoDriver();
    sdl().SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, driver == "wayland" ? "1" : "0");
}

bool startVideo(const char* driver) {
    if (driver) sdl().SetHint(SDL_HINT_VIDEODRIVER, driver);
    return sdl().InitSubSystem(SDL_INIT_VIDEO) == 0;
}

} // namespace

std::unique_ptr<Display> startSdlDisplay() {
    if (!sdl().complete) return nullptr;
    for (const Hint& hint : Hints)
        sdl().SetHint(hint.name, hint.value);
    sdl().SetMainReady();
    // Before the start, because SDL goes back to the handler it found when it ends; after it, because SDL's
    // own comes in between.
    outliveRefusals();
    const NoBusSearch noBusSearch;
    const bool chosen = std::getenv("SDL_VIDEODRIVER") != nullptr;
    const bool started = chosen ? startVideo(nullptr) : startVideo("wayland") || startVideo("x11");
    if (!started) return nullptr;
    outliveRefusals();
    chooseWayOfPixels();
    auto display = std::make_unique<SdlDisplay>();
    display->readLocks();
    sdl().StartTextInput();
    return display;
}

} // namespace platform::driver
