#include "platform/linux/x11_keys.h"

#include "platform/linux/desktop_keys.h"
#include "platform/linux/desktop_windows.h"
#include "platform/linux/keyboard.h"
#include "platform/linux/message_queue.h"
#include "platform/locale.h"

#include <X11/XKBlib.h>
#include <X11/keysym.h>
#include <langinfo.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <string_view>

namespace platform::driver {

namespace {

constexpr KeySym UnicodeSymbols = 0x01000000; ///< Symbols from here on are characters of this number
constexpr KeySym LastUnicodeSymbol = 0x0100FFFF;

struct SymbolKey {
    KeySym symbol;
    int virtualKey;
};

constexpr SymbolKey FixedKeys[] = {
    {XK_Return, VK_RETURN},
    {XK_KP_Enter, VK_RETURN},
    {XK_Escape, VK_ESCAPE},
    {XK_BackSpace, VK_BACK},
    {XK_Tab, VK_TAB},
    {XK_ISO_Left_Tab, VK_TAB},
    {XK_space, VK_SPACE},
    {XK_Caps_Lock, VK_CAPITAL},
    {XK_Num_Lock, VK_NUMLOCK},
    {XK_Scroll_Lock, VK_SCROLL},
    {XK_Print, VK_SNAPSHOT},
    {XK_Pause, VK_PAUSE},
    {XK_Insert, VK_INSERT},
    {XK_Delete, VK_DELETE},
    {XK_Home, VK_HOME},
    {XK_End, VK_END},
    {XK_Prior, VK_PRIOR},
    {XK_Next, VK_NEXT},
    {XK_Left, VK_LEFT},
    {XK_Right, VK_RIGHT},
    {XK_Up, VK_UP},
    {XK_Down, VK_DOWN},
    {XK_Help, VK_HELP},
    {XK_Menu, VK_APPS},
    {XK_Control_L, VK_LCONTROL},
    {XK_Control_R, VK_RCONTROL},
    {XK_Shift_L, VK_LSHIFT},
    {XK_Shift_R, VK_RSHIFT},
    {XK_Alt_L, VK_LMENU},
    {XK_Meta_L, VK_LMENU},
    {XK_Alt_R, VK_RMENU},
    {XK_Meta_R, VK_RMENU},
    {XK_ISO_Level3_Shift, VK_RMENU},
    {XK_Mode_switch, VK_RMENU},
    {XK_Super_L, VK_LWIN},
    {XK_Super_R, VK_RWIN},
};

/// The keypad with its lock off, and with it on.
constexpr SymbolKey KeypadKeys[] = {
    {XK_KP_Home, VK_HOME},         {XK_KP_Up, VK_UP},         {XK_KP_Prior, VK_PRIOR},
    {XK_KP_Left, VK_LEFT},         {XK_KP_Begin, VK_CLEAR},   {XK_KP_Right, VK_RIGHT},
    {XK_KP_End, VK_END},           {XK_KP_Down, VK_DOWN},     {XK_KP_Next, VK_NEXT},
    {XK_KP_Insert, VK_INSERT},     {XK_KP_Delete, VK_DELETE}, {XK_KP_Decimal, VK_DECIMAL},
    {XK_KP_Separator, VK_DECIMAL}, {XK_KP_Divide, VK_DIVIDE}, {XK_KP_Multiply, VK_MULTIPLY},
    {XK_KP_Subtract, VK_SUBTRACT}, {XK_KP_Add, VK_ADD},
};

struct DeadSymbol {
    KeySym symbol;
    char16_t sign;
};

constexpr DeadSymbol DeadSymbols[] = {
    {XK_dead_grave, u'`'},   {XK_dead_acute, u'´'},     {XK_dead_circumflex, u'^'}, {XK_dead_tilde, u'~'},
    {XK_dead_cedilla, u'¸'}, {XK_dead_diaeresis, u'¨'}, {XK_EuroSign, u'€'},
};

/// The rows of letters as they lie on a Latin keyboard, with the names that XKB has for the places.
struct LetterRow {
    std::string_view place; ///< Two digits follow, from 01 on
    std::string_view letters;
};

constexpr LetterRow LetterRows[] = {{"AD", "QWERTYUIOP"}, {"AC", "ASDFGHJKL"}, {"AB", "ZXCVBNM"}};

template <std::size_t Count>
int virtualKeyIn(const SymbolKey (&keys)[Count], KeySym symbol) {
    const auto found = std::find_if(std::begin(keys), std::end(keys),
                                    [&](const SymbolKey& k) { return k.symbol == symbol; });
    return found == std::end(keys) ? 0 : found->virtualKey;
}

bool isKeypad(KeySym symbol) {
    return symbol >= XK_KP_Space && symbol <= XK_KP_Equal && symbol != XK_KP_Enter;
}

int keypadKey(KeySym symbol) {
    if (symbol >= XK_KP_0 && symbol <= XK_KP_9) return VK_NUMPAD0 + static_cast<int>(symbol - XK_KP_0);
    return virtualKeyIn(KeypadKeys, symbol);
}

/// The character of a symbol, 0 for none or one that is of no use to access keys.
char16_t characterOf(KeySym symbol) {
    if ((symbol >= XK_space && symbol <= XK_asciitilde) ||
        (symbol >= XK_nobreakspace && symbol <= XK_ydiaeresis))
        return static_cast<char16_t>(symbol);
    if (symbol > UnicodeSymbols && symbol <= LastUnicodeSymbol)
        return static_cast<char16_t>(symbol - UnicodeSymbols);
    for (const DeadSymbol& dead : DeadSymbols)
        if (dead.symbol == symbol) return dead.sign;
    return 0;
}

bool isLetter(KeySym symbol) {
    return symbol >= XK_a && symbol <= XK_z;
}

/// Without the control characters, which the layout of the messages types.
std::u16string withoutControls(std::u16string text) {
    text.erase(std::remove_if(text.begin(), text.end(), [](char16_t c) { return c < u' ' || c == 0x7F; }),
               text.end());
    return text;
}

/// The input method is bound to the character set of the moment in which it is opened: UTF-8, whatever the
/// program has chosen.
class Utf8Moment {
public:
    Utf8Moment() : former_(std::setlocale(LC_CTYPE, nullptr)) {
        const bool known = std::setlocale(LC_CTYPE, "") && std::string_view(nl_langinfo(CODESET)) == "UTF-8";
        if (!known || !XSupportsLocale()) std::setlocale(LC_CTYPE, "C.UTF-8");
    }
    ~Utf8Moment() { std::setlocale(LC_CTYPE, former_.c_str()); }
    Utf8Moment(const Utf8Moment&) = delete;
    Utf8Moment& operator=(const Utf8Moment&) = delete;

private:
    const std::string former_;
};

/// Whether the program that XMODIFIERS names as the input method is running.
bool hasMethodProgram(::Display* display) {
    constexpr std::string_view Key = "@im=";
    const char* modifiers = std::getenv("XMODIFIERS");
    const std::string_view wish = modifiers ? modifiers : "";
    const std::size_t at = wish.find(Key);
    if (at == std::string_view::npos) return false;
    const std::string name(wish.substr(at + Key.size(), wish.find('@', at + 1) - at - Key.size()));
    const ::Atom server = XInternAtom(display, ("@server=" + name).c_str(), 1);
    return server && XGetSelectionOwner(display, server);
}

} // namespace

X11Keys::~X11Keys() {
    if (context_) XDestroyIC(context_);
    if (method_) XCloseIM(method_);
    if (places_) XkbFreeKeyboard(places_, 0, 1);
}

// --- Presses and releases --------------------------------------------------------------------------

void X11Keys::take(XEvent& event) {
    if (event.type == KeyPress)
        press(event);
    else if (!isForMethod(event))
        release(event.xkey.keycode);
}

void X11Keys::press(XEvent& event) {
    if (!prepared_) XkbSetDetectableAutoRepeat(server_.display(), 1, nullptr);
    prepared_ = true;
    typeInto(event.xkey.window);
    if (!event.xkey.keycode) { // What an input method made of earlier keys
        if (std::u16string text = textOf(event.xkey); !text.empty()) postText(std::move(text));
        return;
    }
    XKeyEvent struck = event.xkey;
    const bool taken = XFilterEvent(&event, 0);
    if (taken && asksProgram_) return;
    std::u16string text = taken ? composedText() : textOf(struck);
    const KeySym plain = plainSymbol(struck);
    const Held key = keyOf(struck, plain);
    if (!key.virtualKey) {
        if (!text.empty()) postText(std::move(text));
        return;
    }
    held_[struck.keycode] = key;
    post(key, false, std::move(text), characterOf(plain));
    // The server knows no lock behind this key in most layouts, so its light is ours to switch.
    if (key.virtualKey == VK_SCROLL) server_.lightScrollLock(keyboard().asynchronous[VK_SCROLL] & 1);
}

/// The key that it was when it went down, whatever lock or Shift came since.
void X11Keys::release(unsigned keycode) {
    const auto found = held_.find(keycode);
    if (found == held_.end()) return;
    post(found->second, true, {}, 0);
    held_.erase(found);
}

/// Alt Gr is Ctrl with the right Alt, in that order.
void X11Keys::post(const Held& key, bool up, std::u16string text, char16_t plain) const {
    if (key.isAltGr) post({VK_LCONTROL, false, false}, up, {}, 0);
    RawInput input;
    input.kind = RawInput::Kind::Key;
    input.virtualKey = key.virtualKey;
    input.up = up;
    input.scanCode = scanCodeOf(key.virtualKey);
    input.extended = key.extended;
    input.hasText = true;
    input.text = std::move(text);
    input.plain = plain;
    postInput(std::move(input));
}

void X11Keys::takeHeldKeys(const XKeymapEvent& event) {
    constexpr unsigned BitsEach = 8;
    constexpr unsigned FirstKeycode = 8;
    const auto isDown = [&](unsigned keycode) {
        return event.key_vector[keycode / BitsEach] >> keycode % BitsEach & 1;
    };
    const std::map<unsigned, Held> known = held_;
    for (const auto& [keycode, key] : known)
        if (!isDown(keycode)) release(keycode);
    for (unsigned keycode = FirstKeycode; keycode < sizeof event.key_vector * BitsEach; ++keycode) {
        if (!isDown(keycode) || held_.count(keycode)) continue;
        const Held modifier = heldModifier(keycode);
        if (!modifier.virtualKey) continue;
        held_[keycode] = modifier;
        post(modifier, false, {}, 0);
    }
}

/// Shift, Ctrl or Alt that went down elsewhere; other keys that are held began as another program's.
X11Keys::Held X11Keys::heldModifier(unsigned keycode) const {
    XKeyEvent event{};
    event.keycode = keycode;
    const KeySym symbol = plainSymbol(event);
    const int key = virtualKeyIn(FixedKeys, symbol);
    if (key < VK_LSHIFT || key > VK_RMENU) return {};
    return keyOf(event, symbol);
}

void X11Keys::releaseAll() {
    const std::map<unsigned, Held> known = held_;
    for (const auto& [keycode, key] : known)
        release(keycode);
}

void X11Keys::readLocks() const {
    XkbStateRec state{};
    if (XkbGetState(server_.display(), XkbUseCoreKbd, &state)) return;
    noteLock(VK_CAPITAL, state.locked_mods & LockMask);
    noteLock(VK_NUMLOCK, state.locked_mods & Mod2Mask);
    int on = 0;
    if (XkbGetNamedIndicator(server_.display(), server_.atoms().scrollLock, nullptr, &on, nullptr, nullptr))
        noteLock(VK_SCROLL, on != 0);
}

// --- What a key is ---------------------------------------------------------------------------------

/// The symbol of the key by itself, in the layout that is in force.
KeySym X11Keys::plainSymbol(const XKeyEvent& event) const {
    const unsigned layout = XkbBuildCoreState(0, XkbGroupForCoreState(event.state));
    KeySym symbol = NoSymbol;
    unsigned used = 0;
    XkbLookupKeySym(server_.display(), static_cast<KeyCode>(event.keycode), layout, &used, &symbol);
    return symbol;
}

X11Keys::Held X11Keys::keyOf(XKeyEvent& event, KeySym plain) const {
    const bool altGr = plain == XK_ISO_Level3_Shift || plain == XK_Mode_switch;
    int key = virtualKeyIn(FixedKeys, plain);
    if (!key && isKeypad(plain)) {
        KeySym locked = NoSymbol;
        unsigned used = 0;
        XkbLookupKeySym(server_.display(), static_cast<KeyCode>(event.keycode), event.state, &used, &locked);
        return {keypadKey(locked), locked == XK_KP_Divide, false};
    }
    if (plain >= XK_F1 && plain <= XK_F24) key = VK_F1 + static_cast<int>(plain - XK_F1);
    if (!key) key = latinKey(event);
    return {key, isExtendedKey(key) || plain == XK_KP_Enter, altGr};
}

/// The key of a letter, digit or sign. A layout without Latin letters has them where they usually lie.
int X11Keys::latinKey(const XKeyEvent& event) const {
    const KeySym plain = plainSymbol(event);
    if (isLetter(plain)) return static_cast<int>(plain - XK_a) + 'A';
    if (const int digit = digitAt(event.keycode)) return digit;
    const std::string place = placeOf(event.keycode);
    // On the Spanish keyboard the apostrophe stands beside the zero, elsewhere beside Enter.
    if (plain == XK_apostrophe && place == "AE11") return VK_OEM_4;
    if ((plain == XK_grave || plain == XK_dead_grave) && place == "AD11") return VK_OEM_1;
    const char16_t sign = characterOf(plain);
    if (const int key = sign ? virtualKeyOfSign(sign) : 0) return key;
    for (const LetterRow& row : LetterRows)
        if (place.size() == 4 && place.compare(0, 2, row.place) == 0) {
            const std::size_t at = static_cast<std::size_t>((place[2] - '0') * 10 + place[3] - '0') - 1;
            if (at < row.letters.size()) return row.letters[at];
        }
    return 0;
}

int X11Keys::digitAt(unsigned keycode) const {
    const std::string place = placeOf(keycode);
    if (place.compare(0, 2, "AE") != 0 || place.size() != 4) return 0;
    const int at = (place[2] - '0') * 10 + place[3] - '0';
    return at >= 1 && at <= 10 ? '0' + at % 10 : 0;
}

/// XKB's name for the place of a key: "AE01" is the first of the row of digits.
std::string X11Keys::placeOf(unsigned keycode) const {
    if (!places_) {
        places_ = XkbAllocKeyboard();
        if (places_) XkbGetNames(server_.display(), XkbKeyNamesMask, places_);
    }
    if (!places_ || !places_->names || !places_->names->keys || keycode > places_->max_key_code) return {};
    const char* name = places_->names->keys[keycode].name;
    return {name, strnlen(name, XkbKeyNameLength)};
}

void X11Keys::takeNewLayout(XMappingEvent& event) {
    XRefreshKeyboardMapping(&event);
    if (places_) XkbFreeKeyboard(places_, 0, 1);
    places_ = nullptr;
}

// --- Input methods ---------------------------------------------------------------------------------

/// Opened by the first key: reading the compose sequences takes longer than all the rest of the start.
void X11Keys::openMethod() {
    const Utf8Moment utf8;
    asksProgram_ = hasMethodProgram(server_.display());
    XSetLocaleModifiers("");
    method_ = XOpenIM(server_.display(), nullptr, nullptr, nullptr);
    if (!method_) {
        asksProgram_ = false;
        XSetLocaleModifiers("@im=none");
        method_ = XOpenIM(server_.display(), nullptr, nullptr, nullptr);
    }
    XIMCallback ended{reinterpret_cast<XPointer>(this), [](XIM, XPointer self, XPointer) {
                          auto* keys = reinterpret_cast<X11Keys*>(self);
                          keys->method_ = nullptr;
                          keys->context_ = nullptr;
                      }};
    if (method_) XSetIMValues(method_, XNDestroyCallback, &ended, nullptr);
}

void X11Keys::typeInto(::Window window) {
    if (typedInto_ == window && context_) return;
    if (!method_) openMethod();
    if (!method_) return;
    if (context_) XDestroyIC(context_);
    context_ = XCreateIC(method_, XNInputStyle, XIMPreeditNothing | XIMStatusNothing, XNClientWindow, window,
                         XNFocusWindow, window, nullptr);
    typedInto_ = window;
    if (context_) XSetICFocus(context_);
}

bool X11Keys::isForMethod(XEvent& event) const {
    return method_ && XFilterEvent(&event, 0);
}

void X11Keys::forgetWindow(::Window window) {
    if (typedInto_ != window) return;
    if (context_) XDestroyIC(context_);
    context_ = nullptr;
    typedInto_ = 0;
}

/// What a dead key or a compose sequence made of the key just pressed: the input method of the library puts
/// it in front of the events that wait, as a press without a key.
std::u16string X11Keys::composedText() const {
    if (!XEventsQueued(server_.display(), QueuedAlready)) return {};
    XEvent next{};
    XPeekEvent(server_.display(), &next);
    if (next.type != KeyPress || next.xkey.keycode) return {};
    XNextEvent(server_.display(), &next);
    return textOf(next.xkey);
}

/// Nothing but blanks with Ctrl, which makes commands of the keys; Alt Gr is no Ctrl here.
std::u16string X11Keys::textOf(XKeyEvent& event) const {
    if (event.state & ControlMask) return plainSymbol(event) == XK_space ? u" " : u"";
    constexpr int MostBytes = 512;
    std::string bytes(MostBytes, '\0');
    KeySym symbol = NoSymbol;
    const auto look = [&] {
        int status = 0;
        const int room = static_cast<int>(bytes.size());
        const int got = context_ ? Xutf8LookupString(context_, &event, bytes.data(), room, &symbol, &status)
                                 : XLookupString(&event, bytes.data(), room, &symbol, nullptr);
        const bool has = !context_ || status == XLookupChars || status == XLookupBoth;
        return status == XBufferOverflow ? -got : has ? got : 0;
    };
    int got = look();
    if (got < 0) {
        bytes.resize(static_cast<std::size_t>(-got));
        got = look();
    }
    bytes.resize(static_cast<std::size_t>(std::max(got, 0)));
    return withoutControls(wideFromUtf8(bytes));
}

} // namespace platform::driver
