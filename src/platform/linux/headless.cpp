// The headless display and what tests do with it.

#include "platform/linux/headless.h"

#include "platform/clock.h"
#include "platform/linux/headless_display.h"
#include "platform/linux/keyboard.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/png_file.h"
#include "platform/linux/time_source.h"

#include <array>

namespace platform::driver {

namespace {

constexpr std::int64_t NanosecondsPerMillisecond = 1'000'000;

}

HeadlessDisplay::HeadlessDisplay() : screen_(wantedScreenSize()) {
    pointer_ = {screen_.cx / 2, screen_.cy / 2};
    holdTime(true);
}

bool HeadlessDisplay::waitForInput(std::int64_t milliseconds) {
    if (idle_) {
        const auto handler = idle_;
        if (handler()) return true;
    }
    if (milliseconds < 0) return false;
    advanceHeldTime(milliseconds * NanosecondsPerMillisecond);
    return true;
}

std::string HeadlessDisplay::clipboardBytes(const std::string& type) {
    const auto found = clipboard_.find(type);
    return found == clipboard_.end() ? std::string() : found->second;
}

} // namespace platform::driver

namespace platform::headless {

using namespace driver;

namespace {

constexpr int UnicodeKey = 0xE7; ///< A key that carries a character and no layout

struct Modifier {
    int bit;
    int key;
};

constexpr std::array Modifiers{Modifier{1, VK_LSHIFT}, Modifier{2, VK_LCONTROL}, Modifier{4, VK_RMENU}};

RawInput keyInput(int key, bool up) {
    RawInput input;
    input.kind = RawInput::Kind::Key;
    input.virtualKey = key;
    input.up = up;
    input.scanCode = scanCodeOf(key);
    input.extended = isExtendedKey(key);
    return input;
}

void strike(const KeyStroke& stroke) {
    for (const Modifier& m : Modifiers)
        if (stroke.modifiers & m.bit) injectKeyDown(m.key);
    injectKey(stroke.virtualKey);
    for (std::size_t i = Modifiers.size(); i-- > 0;)
        if (stroke.modifiers & Modifiers[i].bit) injectKeyUp(Modifiers[i].key);
}

void injectCharacter(char16_t character) {
    if (const auto stroke = strokeOf(character)) {
        strike(*stroke);
        return;
    }
    if (const auto strokes = deadStrokesOf(character)) {
        strike(strokes->dead);
        strike(strokes->letter);
        return;
    }
    RawInput input = keyInput(UnicodeKey, false);
    input.hasText = true;
    input.text = std::u16string(1, character);
    postInput(input);
    postInput(keyInput(UnicodeKey, true));
}

RawInput buttonInput(int button, bool up) {
    RawInput input;
    input.kind = RawInput::Kind::Button;
    input.virtualKey = button;
    input.up = up;
    input.at = display().pointer();
    return input;
}

void paintWaiting() {
    for (HWND top : childHandles(desktopWindow()))
        UpdateWindow(top);
}

} // namespace

bool active() {
    return display().holdsTime();
}

void injectKeyDown(int key) {
    postInput(keyInput(key, false));
}

void injectKeyUp(int key) {
    postInput(keyInput(key, true));
}

void injectKey(int key) {
    injectKeyDown(key);
    injectKeyUp(key);
}

void injectText(std::u16string_view text) {
    for (const char16_t character : text)
        injectCharacter(character == u'\n' ? u'\r' : character);
}

void injectMouseMove(int x, int y) {
    SetCursorPos(x, y);
}

void injectMouseDown(int button) {
    postInput(buttonInput(button, false));
}

void injectMouseUp(int button) {
    postInput(buttonInput(button, true));
}

void injectClick(int x, int y, int button) {
    injectMouseMove(x, y);
    injectMouseDown(button);
    injectMouseUp(button);
}

void injectDoubleClick(int x, int y, int button) {
    injectClick(x, y, button);
    injectMouseDown(button);
    injectMouseUp(button);
}

void injectWheel(int delta) {
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(delta), 0);
}

void injectForegroundLoss() {
    loseForeground();
}

void injectForegroundReturn() {
    regainForeground();
}

void setIdleHandler(std::function<bool()> handler) {
    if (HeadlessDisplay* own = headlessDisplay()) own->setIdleHandler(std::move(handler));
}

void setSleepHandler(std::function<void()> handler) {
    driver::setSleepHandler(std::move(handler));
}

void advanceClock(DWORD milliseconds) {
    display();
    advanceHeldTime(static_cast<std::int64_t>(milliseconds) * NanosecondsPerMillisecond);
}

void setLocalTime(const SYSTEMTIME& time) {
    constexpr std::int64_t UnixEpoch = 116'444'736'000'000'000; // In units of 100 ns
    constexpr std::int64_t NanosecondsPerUnit = 100;
    FILETIME local{};
    FILETIME universal{};
    display();
    if (!SystemTimeToFileTime(&time, &local) || !LocalFileTimeToFileTime(&local, &universal)) return;
    const auto units =
        static_cast<std::int64_t>(std::uint64_t{universal.dwHighDateTime} << 32 | universal.dwLowDateTime);
    setHeldWallClock((units - UnixEpoch) * NanosecondsPerUnit);
}

const Surface* frameBuffer(HWND topLevel) {
    static PixelStore picture;
    const Window* window = findWindow(topLevel);
    if (!window || !isTopLevel(*window) || !window->pixels) return nullptr;
    composeWindow(*window, picture);
    return &picture.surface;
}

const Surface& desktop() {
    static PixelStore picture;
    composeDesktop(picture);
    return picture.surface;
}

bool screenshot(HWND handle, const std::string& path) {
    paintWaiting();
    if (!handle) return savePng(path, desktop());
    Window* window = findWindow(handle);
    Window* top = topLevelOf(window);
    const Surface* whole = top ? frameBuffer(top->handle) : nullptr;
    if (!whole) return false;
    const RECT part = overlapOf(offset(screenFrame(*window), -top->frame.left, -top->frame.top),
                                {0, 0, whole->width, whole->height});
    if (hasNoArea(part)) return false;
    Surface cut = *whole;
    cut.bits +=
        static_cast<std::ptrdiff_t>(part.top) * whole->stride + static_cast<std::ptrdiff_t>(part.left) * 4;
    cut.width = widthOf(part);
    cut.height = heightOf(part);
    return savePng(path, cut);
}

int beeps() {
    const HeadlessDisplay* own = headlessDisplay();
    return own ? own->beeps() : 0;
}

int liveWindows() {
    return countWindows();
}

int liveTimers() {
    return static_cast<int>(messageQueue().timers.size());
}

void reset() {
    destroyAllWindows();
    messageQueue() = {};
    keyboard() = {};
    attention() = {};
    setIdleHandler({});
    setSleepHandler({});
    if (HeadlessDisplay* own = headlessDisplay()) {
        own->setClipboard({});
        own->movePointer({own->screenSize().cx / 2, own->screenSize().cy / 2});
    }
}

} // namespace platform::headless
