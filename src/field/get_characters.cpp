// Characters: what is typed, and the control characters of the clipboard and of taking back.

#include "automation/Characters.h"
#include "automation/Strings.h"
#include "field/get.h"
#include "field/masks.h"
#include "host/Clipboard.h"
#include "platform/windows.h"

#include <algorithm>
#include <string>
#include <tuple>

namespace tesela {

using automation::isDigit;
using automation::String;

namespace {

enum Control : short {
    controlA = 1,
    controlC = 3,
    backspaceCode = 8,
    tabCode = 9,
    controlEnter = 10,
    enterCode = 13,
    controlV = 22,
    controlX = 24,
    controlY = 25,
    controlZ = 26,
    escapeCode = 27,
    controlBackspace = 127,
};
constexpr short firstPrintable = 32;

bool isSign(char16_t character) {
    return character == u'+' || character == u'-';
}

/// Text is painted in the ANSI code page.
bool canBeShown(char16_t character) {
    constexpr char16_t firstForeign = 0x80;
    const std::u16string_view alone(&character, 1);
    return character < firstForeign || String::fromAnsi(String(alone).ansi()) == String(alone);
}

std::int32_t countDigits(std::u16string_view text) {
    return static_cast<std::int32_t>(std::count_if(text.begin(), text.end(), isDigit));
}

} // namespace

void get::beep() const {
    platform::MessageBeep(0);
}

void get::onKeyPress(short& KeyAscii) {
    const automation::Ref<automation::Object> alive(this);
    if (!gateOpen() || !lEnabledGet || KeyAscii == enterCode || KeyAscii == tabCode) {
        KeyAscii = 0;
        return;
    }
    const bool erases = KeyAscii == backspaceCode || KeyAscii == controlBackspace;
    if (KeyAscii < firstPrintable && !erases) {
        if (!controlCharacter(KeyAscii)) KeyAscii = 0;
        return;
    }
    if (refuseIfLocked()) {
        KeyAscii = 0;
    } else if (erases) {
        // Some keyboards make the same character of Ctrl+Backspace as of Backspace alone.
        const bool withControl =
            (host::shiftState() & host::CtrlMask) != 0 && globales().nLastKey == platform::VK_BACK;
        backspace(KeyAscii == controlBackspace || withControl);
        KeyAscii = 0;
    } else {
        typeCharacter(KeyAscii);
    }
}

/// False for one that means nothing here. A locked field refuses all but the ones that leave its text alone.
bool get::controlCharacter(short& KeyAscii) {
    switch (KeyAscii) {
    case controlA:
        SelStart(0);
        SelLength(length());
        refuseIfLocked();
        break;
    case controlC:
        copySelection();
        break;
    case controlX:
        cutSelection();
        break;
    case controlV:
        paste();
        break;
    case controlY:
        if (!refuseIfLocked()) cutAtCaret();
        break;
    case controlZ:
        restoreOriginal();
        break;
    case controlEnter:
    case escapeCode:
        raise(KeyPress, KeyAscii);
        break;
    default:
        refuseIfLocked();
        return false;
    }
    KeyAscii = 0;
    return true;
}

/// Gives whether the field is locked. It beeps then, unless it has a list to choose from.
bool get::refuseIfLocked() const {
    if (lLocked && !lBotonCombo) beep();
    return lLocked;
}

// --- Clipboard and taking back ---------------------------------------------------------------------

void get::copySelection() {
    if (!hasSelection()) return;
    const auto [from, to] = selection();
    try {
        host::Clipboard::Clear();
        host::Clipboard::SetText(
            cTexto.substring(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)));
    } catch (const automation::Error&) {
        beep(); // another program holds the clipboard
    }
}

void get::cutSelection() {
    if (lLocked) {
        copySelection();
        beep();
        return;
    }
    copySelection();
    eraseSelection();
    Render();
}

void get::paste() {
    if (lLocked || (!isNumber() && !isPlain())) {
        beep();
        return;
    }
    std::u16string pasted = host::Clipboard::GetText().string();
    std::erase_if(pasted, [](char16_t c) { return c < firstPrintable || !canBeShown(c); });
    std::u16string text = cTexto.string();
    const auto [from, to] = hasSelection() ? selection() : std::pair(nCaret, nCaret);
    text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), pasted);
    std::size_t caret = static_cast<std::size_t>(from) + pasted.size();
    if (nMaxLength > 0 && text.size() > static_cast<std::size_t>(nMaxLength)) {
        beep();
        text.resize(static_cast<std::size_t>(nMaxLength));
    }
    String result = text;
    if (isNumber() && !cMascara.empty()) result = cutToDigits(result);
    caret = std::min(caret, result.length());
    setEdited(result, static_cast<std::int32_t>(caret));
    Render();
}

/// A pasted number with no more digits than its mask has.
String get::cutToDigits(const String& text) const {
    const Globales& g = globales();
    const String clean = FiltrarTexto({text.replaced(g.cSepMiles, u""), 0}).text;
    const std::size_t separator = g.cSepDecimal.empty() ? String::npos : clean.find(g.cSepDecimal);
    const String integers = clean.left(std::min(separator, clean.length()));
    const std::size_t sign = !integers.empty() && isSign(integers[0]);
    String head = integers.left(sign + static_cast<std::size_t>(nDigEnteros));
    if (separator == String::npos) return head;
    const String decimals = clean.substring(separator + 1, static_cast<std::size_t>(nDigDecimales));
    return head + g.cSepDecimal + decimals;
}

void get::restoreOriginal() {
    if (lLocked) {
        beep();
        return;
    }
    setEdited(cTextoOriginal, static_cast<std::int32_t>(cTextoOriginal.length()));
    nCaret = length();
    Render();
}

void get::cutAtCaret() {
    const String head = cTexto.left(static_cast<std::size_t>(nCaret));
    setEdited(hasTextMask() ? LlenarMascara(head, cMascaraFocus) : head, nCaret);
    Render();
}

// --- Backspace -------------------------------------------------------------------------------------

void get::backspace(bool word) {
    if (hasTextMask()) {
        backspaceMasked();
    } else if (isDate() && !startsRelativeDate()) {
        backspaceDate();
    } else if (hasSelection()) {
        eraseSelection();
    } else if (nCaret > 0) {
        std::int32_t from = nCaret - 1;
        if (word && nCaret >= 2) {
            const std::u16string_view text = cTexto;
            from = nCaret;
            while (from > 0 && text[static_cast<std::size_t>(from - 1)] != u' ')
                --from;
            while (from > 0 && text[static_cast<std::size_t>(from - 1)] == u' ')
                --from;
        }
        String text =
            cTexto.left(static_cast<std::size_t>(from)) + cTexto.substring(static_cast<std::size_t>(nCaret));
        if (isDate() && text.empty()) text = dateTemplate();
        setEdited(text, from);
    }
    nSelLength = 0;
    Render();
}

/// Walks back over the mask; the characters stay.
void get::backspaceMasked() {
    if (nCaret > 0) --nCaret;
    if (nCaret > 0 && isLiteralAt(nCaret)) --nCaret;
}

/// Behind the last digit the last typed unit goes, elsewhere the caret walks back.
void get::backspaceDate() {
    if (nCaret == 0) {
        keepDate(0);
        return;
    }
    const std::size_t last = cTexto.view().find_last_of(u"0123456789");
    const auto typed = last == String::npos ? 0 : static_cast<std::int32_t>(last) + 1;
    const bool behindSeparator = isDateSeparatorAt(nCaret - 1);
    const std::int32_t before = nCaret - 1 - behindSeparator;
    if (before + 1 >= typed)
        keepDate(std::max(before, 0));
    else
        nCaret = std::max(before, 0);
}

/// A blank date, as it is edited, of no more characters than the field takes.
String get::dateTemplate() {
    ownDate().SetEspecial(tslDateEmpty);
    const String blank = ownDate().Texto();
    return nMaxLength > 0 ? blank.left(static_cast<std::size_t>(nMaxLength)) : blank;
}

bool get::startsRelativeDate() const {
    return isDate() && !cTexto.empty() && isSign(cTexto[0]);
}

/// Keeps the first characters of a date. Up to the last separator the others turn blank, so that the
/// separators stay; behind it they go.
void get::keepDate(std::int32_t characters) {
    constexpr std::size_t behindSeparators = 6;
    const auto kept = static_cast<std::size_t>(characters);
    String text = cTexto.left(kept);
    if (kept < behindSeparators) text += dateTemplate().substring(kept);
    setEdited(text, characters);
}

// --- Typing ----------------------------------------------------------------------------------------

/// The character that a code types: in a number the comma and the point both stand for the decimal separator.
char16_t get::asTyped(short KeyAscii) const {
    const char16_t character = automation::Chr(KeyAscii & 0xFF)[0];
    const String& separator = globales().cSepDecimal;
    return isNumber() && (character == u',' || character == u'.') && separator.length() == 1 ? separator[0]
                                                                                             : character;
}

bool get::isValid(char16_t character) const {
    const String typed = inCase(String(std::u16string_view(&character, 1)), nMayusculas);
    return cCaracteresValidos.empty() || cCaracteresValidos.find(typed) != String::npos;
}

/// What may be typed into a date: digits, a sign in front, and "-" in the place of a separator.
bool get::dateCharacterFits(char16_t character) const {
    constexpr std::int32_t firstSeparator = 2, secondSeparator = 5;
    if (isDigit(character)) return true;
    if (nCaret == 0) return isSign(character);
    return character == u'-' && (nCaret == firstSeparator || nCaret == secondSeparator);
}

/// A number without a mask derives one from its length: it becomes a number anew.
void get::deriveNumberMask() {
    if (nDigEnteros != 0 || !cMascara.empty()) return;
    nTipoDato = tslTipoDatoCaracter;
    TipoDato(tslTipoDatoNumero);
}

/// Whether a digit has room in the number when it replaces the characters of a range; and the decimal
/// separator, which makes decimals of the digits behind it.
bool get::fitsNumber(char16_t character, std::int32_t from, std::int32_t to) const {
    const std::u16string_view text = cTexto;
    const std::u16string head(text.substr(0, static_cast<std::size_t>(from)));
    const std::u16string tail(text.substr(static_cast<std::size_t>(to)));
    const String& separator = globales().cSepDecimal;
    const std::size_t inHead = separator.empty() ? std::u16string::npos : head.find(separator.view());
    const bool separates = separator.length() == 1 && character == separator[0];
    if (separates) return inHead != std::u16string::npos || countDigits(tail) <= nDigDecimales;
    if (!isDigit(character)) return true;
    if (inHead != std::u16string::npos)
        return countDigits(head.substr(inHead)) + countDigits(tail) < nDigDecimales;
    const bool unlimited = nDigEnteros == 0 && nMaxLength <= 0 && cMascara.empty();
    const std::u16string before =
        tail.substr(0, separator.empty() ? std::u16string::npos : tail.find(separator.view()));
    return unlimited || countDigits(head) + countDigits(before) < nDigEnteros;
}

/// Finds room within MaxLength for one more character in the range of a place, which grows by the character
/// behind it when that is overwritten. False if there is none.
bool get::makeRoom(Place& place) const {
    if (overwrites()) {
        if (nMaxLength > 0 && place.from >= nMaxLength) return false;
        if (place.to < length()) ++place.to;
        return true;
    }
    std::u16string& text = place.text;
    const std::int32_t left = length() - (place.to - place.from);
    if (nMaxLength <= 0 || left < nMaxLength) return true;
    if (text.empty() || text.back() != u' ' || place.from >= nMaxLength || place.from >= length())
        return false;
    text.pop_back();
    return true;
}

/// Where a character goes; nothing if the mask, the number or the length has no place for it.
std::optional<get::Place> get::placeFor(char16_t character) {
    if (hasTextMask() && (static_cast<std::size_t>(nCaret) >= cMascaraFocus.length() ||
                          !maskTakes(cMascaraFocus[static_cast<std::size_t>(nCaret)], character)))
        return std::nullopt;
    if (isNumber()) deriveNumberMask(); // which may make the text another one
    Place place{{}, nCaret, nCaret};
    if (isPlain() && hasSelection()) std::tie(place.from, place.to) = selection();
    if (isDate() && isSign(character) && nCaret == 0) place.to = length(); // a relative date begins
    if (isNumber() && !fitsNumber(character, place.from, place.to)) return std::nullopt;
    place.text = cTexto.string();
    if (!makeRoom(place)) return std::nullopt;
    return place;
}

void get::typeCharacter(short& KeyAscii) {
    const auto refuse = [&] {
        beep();
        KeyAscii = 0;
    };
    if (isNumber() && KeyAscii == ',') KeyAscii = '.'; // which the application sees
    const char16_t character = asTyped(KeyAscii);
    if (isDate() && !dateCharacterFits(character)) {
        KeyAscii = 0;
        return;
    }
    if (!isValid(character)) {
        raise(KeyPress, KeyAscii);
        if (KeyAscii != 0) refuse();
        return;
    }
    auto place = placeFor(character);
    if (!place) return refuse();
    insertTyped(KeyAscii, character, *std::move(place));
}

/// Offers the character to the application and puts it in its place.
void get::insertTyped(short& KeyAscii, char16_t character, Place place) {
    globales().nLastKey = KeyAscii;
    const short offered = KeyAscii;
    const String before = cTexto;
    raise(KeyPress, KeyAscii);
    if (!oFont) return;
    if (KeyAscii <= 0) {
        Render();
        return;
    }
    if (KeyAscii != offered) character = asTyped(KeyAscii);
    if (cTexto != before) { // the handler has written another text, which may have no room
        nSelLength = 0;
        auto found = placeFor(character);
        if (!found) {
            beep();
            KeyAscii = 0;
            Render();
            return;
        }
        place = *std::move(found);
    }
    place.text.replace(static_cast<std::size_t>(place.from), static_cast<std::size_t>(place.to - place.from),
                       1, character);
    const bool beforeLiteral = isLiteralAt(place.from + 1) || isDateSeparatorAt(place.from + 1);
    nSelLength = 0;
    nCaret = place.from;
    SetTextoInterno(place.text, false);
    nCaret = std::min(nCaret + 1, length());
    Render();
    if (!beforeLiteral) return;
    short right = platform::VK_RIGHT, none = 0;
    onKeyDown(right, none);
}

} // namespace tesela
