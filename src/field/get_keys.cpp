// Keys that move, delete and command; and the caret.

#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "field/get.h"
#include "field/masks.h"
#include "host/Raised.h"
#include "platform/windows.h"

#include <algorithm>
#include <cstdlib>

namespace tesela {

using automation::String;

namespace {

platform::HWND caretWindow; ///< Of the field that has made the caret last

} // namespace

// --- Where things are ------------------------------------------------------------------------------

/// Whether a place of the text shows a literal of the mask that has the focus.
bool get::isLiteralAt(std::int32_t position) const {
    if (!hasTextMask() || position < 0 || position >= length()) return false;
    const auto at = static_cast<std::size_t>(position);
    return at < cMascaraFocus.length() && !isMaskInput(cMascaraFocus[at]) && cMascaraFocus[at] == cTexto[at];
}

bool get::isDateSeparatorAt(std::int32_t position) const {
    const String& separator = globales().cSepFecha;
    return isDate() && position >= 0 && position < length() && !separator.empty() &&
           cTexto[static_cast<std::size_t>(position)] == separator[0];
}

bool get::hasSelection() const {
    return SelLength() != 0;
}

/// From the lower to the higher end.
std::pair<std::int32_t, std::int32_t> get::selection() const {
    return std::minmax({nSelStart, nSelStart + SelLength()});
}

/// To the end of the word and of the blanks behind it.
std::int32_t get::wordRight(std::int32_t from) const {
    const std::u16string_view text = cTexto;
    const std::size_t blank = std::min(text.find(u' ', static_cast<std::size_t>(from)), text.size());
    return static_cast<std::int32_t>(std::min(text.find_first_not_of(u' ', blank), text.size()));
}

/// Over blanks, then to the beginning of the word.
std::int32_t get::wordLeft(std::int32_t from) const {
    while (from > 0 && cTexto[static_cast<std::size_t>(from - 1)] == u' ')
        --from;
    while (from > 0 && cTexto[static_cast<std::size_t>(from - 1)] != u' ')
        --from;
    return from;
}

// --- The caret -------------------------------------------------------------------------------------

std::int32_t get::naturalCaretWidth() const {
    constexpr std::int32_t insertWidth = 1, courierWidth = 8, otherWidth = 4;
    if (!overwrites()) return insertWidth;
    return oFont && oFont->Name() == u"Courier" ? courierWidth : otherWidth;
}

/// Makes the caret anew, hidden until the next paint.
void get::makeCaret(std::int32_t width) {
    if (!hWnd()) return;
    nCaretWidth = naturalCaretWidth();
    nCaretMaxWidth = width;
    nCaretHeight = nLineHeight;
    lCaretMade = platform::CreateCaret(hWnd(), {}, width, nLineHeight) != 0;
    caretWindow = hWnd();
    lCaretShown = false;
}

/// Whether the caret is still this field's: there is one for all windows, and whoever makes one takes it
/// over.
bool get::ownsCaret() const {
    return lCaretMade && caretWindow == hWnd() && (lDesdeTeclado || platform::GetFocus() == hWnd());
}

void get::dropCaret() {
    if (lCaretMade && caretWindow == hWnd()) platform::DestroyCaret();
    lCaretMade = lCaretShown = false;
}

/// Shows the canvas with the caret at its place, as wide as there is room.
void get::placeCaret() {
    const bool owns = ownsCaret();
    const bool shows = owns && lEnabledGet && lCaretVisible;
    if (owns && lCaretShown) platform::HideCaret(hWnd());
    showCanvas();
    if (!shows) {
        lCaretShown = false;
        return;
    }
    nCaretWidth = naturalCaretWidth();
    const bool fits = nCaretX + nCaretWidth <= nTextRight;
    const std::int32_t width = fits ? nCaretWidth : std::max(nTextRight - nCaretX, 1);
    if (width != nCaretMaxWidth || nLineHeight != nCaretHeight) makeCaret(width);
    platform::SetCaretPos(nCaretX, nCaretY);
    platform::ShowCaret(hWnd());
    lCaretShown = true;
}

void get::ShowCaret(std::int32_t nHWND) {
    platform::ShowCaret(nHWND == 0 ? hWnd() : platform::HWND(static_cast<std::uint32_t>(nHWND)));
}

void get::HideCaret(std::int32_t nHWND) {
    platform::HideCaret(nHWND == 0 ? hWnd() : platform::HWND(static_cast<std::uint32_t>(nHWND)));
}

void get::CaretVisible(bool value) {
    lCaretVisible = value;
    if (!ownsCaret() || value == lCaretShown || (value && !lEnabledGet)) return;
    if (value) {
        platform::SetCaretPos(nCaretX, nCaretY);
        ShowCaret(0);
    } else {
        HideCaret(0);
    }
    lCaretShown = value;
}

void get::SetCaretPosition(std::int32_t nNewPos) {
    if (!lHasFocus || nNewPos < 0 || nNewPos > length() || isLiteralAt(nNewPos)) return;
    if (isDateSeparatorAt(nNewPos)) ++nNewPos;
    nCaret = nNewPos;
    Render();
}

get::Shown get::whatShows() const {
    return {cTexto, nCaret, nSelStart, nSelLength, lInsertando};
}

// --- A key goes down -------------------------------------------------------------------------------

void get::onKeyDown(short& KeyCode, short& Shift) {
    if (!gateOpen() || lInKeyDown) {
        KeyCode = 0;
        return;
    }
    const automation::Ref<automation::Object> alive(this);
    const short came = KeyCode, cameShift = Shift;
    if (!lEnabledGet) return;
    noteDirection(KeyCode, Shift);
    {
        const host::Raised watching(lInKeyDown);
        raise(KeyWatch, KeyCode, Shift);
    }
    if (!oFont) return;
    Globales& g = globales();
    const Shown shown = whatShows();
    if (KeyCode == 0) {
        if (came == platform::VK_INSERT && cameShift == host::CtrlMask)
            g.oKeyboard->InsertState(!g.oKeyboard->InsertState());
        g.nLastKey = came;
        return;
    }
    if (handleKey(KeyCode, Shift) || !oFont) return;
    g.nLastKey = KeyCode;
    skipLiterals(KeyCode);
    // What a letter or a blank types is painted, by the application too, when its character comes.
    const bool types = KeyCode == platform::VK_SPACE || (KeyCode >= 'A' && KeyCode <= 'Z');
    if (whatShows() != shown || (!types && nUserDrawnMode != tslCtlUserDrawnMode_Default)) Render();
    if (KeyCode != 0) raise(KeyDown, KeyCode, Shift);
}

void get::noteDirection(short code, short shift) {
    switch (code) {
    case platform::VK_TAB:
        if (shift == host::ShiftMask) nDireccion = tslForwardFocus_Backward;
        [[fallthrough]];
    case platform::VK_RETURN:
    case platform::VK_DOWN:
        if (shift == 0) nDireccion = tslForwardFocus_Forward;
        break;
    case platform::VK_UP:
        if (shift == 0) nDireccion = tslForwardFocus_Backward;
        break;
    default:
        break;
    }
}

/// Asks whether a key is supported; if so, lets go of Alt and raises the event to act. Gives whether it was.
template <class... More>
bool get::askThenDo(const automation::Event<bool&, bool&, More...>& event, short& KeyCode, More... more) {
    bool cancel = true, checkOnly = true;
    raise(event, cancel, checkOnly, more...);
    if (cancel) return false;
    globales().oKeyboard->KeyUp(platform::VK_MENU);
    KeyCode = 0;
    checkOnly = false;
    raise(event, cancel, checkOnly, more...);
    return true;
}

/// The keys that mean something to the field; true when nothing is left to do.
bool get::handleKey(short& KeyCode, short Shift) {
    switch (KeyCode) {
    case platform::VK_RETURN:
        return enterKey(KeyCode, Shift);
    case platform::VK_DOWN:
    case platform::VK_UP:
        verticalKey(KeyCode, Shift, KeyCode == platform::VK_DOWN);
        return false;
    case platform::VK_RIGHT:
        if (Shift == host::AltMask && searchKey(KeyCode)) return true;
        horizontalKey(KeyCode, Shift, true);
        return false;
    case platform::VK_LEFT:
        horizontalKey(KeyCode, Shift, false);
        return false;
    case platform::VK_HOME:
    case platform::VK_END:
        edgeKey(KeyCode, Shift);
        return false;
    case platform::VK_ADD:
    case platform::VK_SUBTRACT:
        return Shift == host::AltMask && addKey(KeyCode);
    case platform::VK_INSERT:
        if (Shift == 0) insertKey();
        return false;
    case platform::VK_DELETE:
        return deleteKey(KeyCode, Shift);
    case platform::VK_BACK:
        return dropLeadingZero(KeyCode);
    default:
        return false;
    }
}

bool get::enterKey(short& KeyCode, short Shift) {
    if (Shift < host::CtrlMask) {
        KeyCode = 0;
        globales().lGoingToChangeFocus = true;
        lAutoFormatPendiente = false;
        globales().oKeyboard->PlayAction(tslKbdAction_Tab);
        return true;
    }
    if (Shift != host::AltMask) return false;
    if (!lBotonFicha) {
        askThenDo(KeyViewForm, KeyCode);
    } else if (lEnabledFicha) {
        pressButton(Companion::Record);
    }
    return true;
}

/// Alt+Right, the search; true if there is one.
bool get::searchKey(short& KeyCode) {
    if (!lBotonBuscar) return askThenDo(KeySearch, KeyCode);
    if (lEnabledBuscar) pressButton(Companion::Search);
    return true;
}

bool get::addKey(short& KeyCode) {
    if (!askThenDo(KeyAdd, KeyCode, KeyCode == platform::VK_ADD)) return false;
    Render();
    return true;
}

void get::verticalKey(short& KeyCode, short Shift, bool down) {
    if (Shift == host::AltMask && down) {
        if (!lBotonCombo) {
            pressAssociated(KeyCode);
        } else if (lEnabledCombo) {
            pressButton(Companion::Combo);
        }
        return;
    }
    if (Shift != 0) return;
    KeyCode = 0;
    if (lMultiLine && moveLine(down)) return;
    globales().lGoingToChangeFocus = true;
    globales().oKeyboard->PlayAction(down ? tslKbdAction_Tab : tslKbdAction_Shift_Tab);
}

/// The coupled button, if there is one.
void get::pressAssociated(short& KeyCode) {
    if (!oControlAsociado || oControlAsociado->typeName() != u"btn") return;
    globales().oKeyboard->KeyUp(platform::VK_MENU);
    if (automation::fromVariant<bool>(automation::getProperty(*oControlAsociado, u"Enabled")))
        automation::callMethod(*oControlAsociado, u"Set_And_Click");
    KeyCode = 0;
}

/// To the nearest character of the line beside; false if there is none.
bool get::moveLine(bool down) {
    // Behind a last line feed there is a line without characters.
    const std::int32_t last = length() + (nCaret < length() && cTexto.view().ends_with(u'\n'));
    if (down ? nLineaSiguiente > last || nLineaSiguiente == 0 : nLineaAnterior == 0) return false;
    const std::int32_t step = down ? nLineHeight : -nLineHeight;
    nCaret = PosicionDesdePixel(nCaretX, nCaretY + step);
    nSelLength = 0;
    return true;
}

// --- Moving ----------------------------------------------------------------------------------------

void get::anchorSelection(short Shift) {
    if ((Shift & host::ShiftMask) && !hasSelection()) nSelStart = nCaret;
}

void get::stretchSelection(short Shift) {
    nSelLength = Shift & host::ShiftMask ? nCaret - nSelStart : 0;
    fitPositions();
}

void get::horizontalKey(short& KeyCode, short Shift, bool right) {
    anchorSelection(Shift);
    const bool byWord = (Shift & host::CtrlMask) != 0;
    if (nCaret == (right ? length() : 0))
        KeyCode = 0;
    else if (byWord)
        nCaret = right ? wordRight(nCaret) : wordLeft(nCaret);
    else
        nCaret += right ? 1 : -1;
    stretchSelection(Shift);
}

void get::edgeKey(short& KeyCode, short Shift) {
    anchorSelection(Shift);
    nCaret = KeyCode == platform::VK_HOME ? 0 : length();
    stretchSelection(Shift);
    KeyCode = 0;
}

/// Left and Right don't stop in front of a literal.
void get::skipLiterals(short KeyCode) {
    if (KeyCode != platform::VK_LEFT && KeyCode != platform::VK_RIGHT) return;
    if (!isLiteralAt(nCaret) && !isDateSeparatorAt(nCaret)) return;
    nCaret = std::clamp(nCaret + (KeyCode == platform::VK_RIGHT ? 1 : -1), 0, length());
}

void get::insertKey() {
    if (isNumber())
        lInsertando = true;
    else if (!isPlain())
        lInsertando = false;
    else
        lInsertando = !lInsertando;
    globales().oKeyboard->InsertState(lInsertando);
    if (ownsCaret()) makeCaret(naturalCaretWidth());
    Render(); // which shows the caret
}

// --- Deleting --------------------------------------------------------------------------------------

/// An edited text, and the caret in it.
void get::setEdited(const String& text, std::int32_t caret) {
    nCaret = caret;
    nSelLength = 0;
    SetTextoInterno(text, false);
}

/// Takes characters out; places of a mask become blank instead.
void get::eraseRange(std::int32_t from, std::int32_t to) {
    std::u16string text = cTexto.string();
    if (isPlain()) {
        text.erase(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
    } else {
        for (std::int32_t i = from; i < to; ++i)
            if (!isLiteralAt(i) && !isDateSeparatorAt(i)) text[static_cast<std::size_t>(i)] = u' ';
    }
    setEdited(text, from);
}

void get::eraseSelection() {
    if (!hasSelection()) return;
    const auto [from, to] = selection();
    eraseRange(from, to);
}

bool get::deleteKey(short& KeyCode, short Shift) {
    if (lLocked) return false;
    if (dropLeadingZero(KeyCode)) return true;
    if (!isPlain()) {
        if (nCaret != 0) return false;
        setEdited(isDate() ? dateTemplate() : LlenarMascara({}, cMascaraFocus), 0);
        KeyCode = 0;
        return false;
    }
    if (hasSelection())
        eraseSelection();
    else if (nCaret < length())
        eraseRange(nCaret, Shift == host::CtrlMask ? wordRight(nCaret) : nCaret + 1);
    KeyCode = 0;
    Render();
    return true;
}

/// A number that begins "0." loses both at once: alone the 0 would come back.
bool get::dropLeadingZero(short& KeyCode) {
    const bool begins = isNumber() && !lLocked && !hasSelection() && cTexto.view().starts_with(u"0.");
    const std::int32_t place = KeyCode == platform::VK_DELETE ? 0 : 2;
    if (!begins || nCaret != place) return false;
    setEdited(cTexto.substring(2), 0);
    KeyCode = 0;
    Render();
    return true;
}

void get::onKeyUp(short& KeyCode, short& Shift) {
    if (gateOpen())
        raise(KeyUp, KeyCode, Shift);
    else
        KeyCode = 0;
}

} // namespace tesela
