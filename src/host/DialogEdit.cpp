#include "host/DialogEdit.h"

#include "automation/ClassTable.h"
#include "host/Clipboard.h"
#include "platform/gdi.h"
#include "platform/locale.h"

#include <algorithm>

namespace host {

namespace {

constexpr int Margin = 2; ///< Pixels around the text
constexpr short CtrlA = 1;
constexpr short CtrlC = 3;
constexpr short CtrlV = 22;
constexpr short CtrlX = 24;
constexpr short CtrlBackspace = 127;
constexpr short FirstPrintable = 32;

} // namespace

DialogEdit::DialogEdit() {
    ScaleMode(host::ScaleMode::Pixels);
    BackColor(colorWindowBackground);
    ForeColor(colorWindowText);
    MousePointer(host::MousePointer::IBeam);
}

void DialogEdit::onInitProperties() {
    frame(platform::WS_EX_CLIENTEDGE, 0);
}

void DialogEdit::Text(const automation::String& value) {
    text_ = value.string();
    anchor_ = 0;
    caret_ = text_.size();
    show();
}

int DialogEdit::widthTo(std::size_t position) const {
    return static_cast<int>(TextWidth(automation::String(std::u16string_view(text_).substr(0, position))));
}

void DialogEdit::onPaint() {
    const platform::HDC dc = hDC();
    const int height = static_cast<int>(TextHeight(u"X"));
    const int left = Margin - scroll_;
    platform::TextOutW(dc, left, Margin, text_.data(), static_cast<int>(text_.size()));
    if (caret_ == anchor_ || !hasFocus()) return;
    const platform::RECT selected{left + widthTo(low()), Margin, left + widthTo(high()), Margin + height};
    platform::SetTextColor(dc, platform::GetSysColor(platform::COLOR_HIGHLIGHTTEXT));
    platform::SetBkColor(dc, platform::GetSysColor(platform::COLOR_HIGHLIGHT));
    platform::ExtTextOutW(dc, selected.left, Margin, platform::ETO_OPAQUE | platform::ETO_CLIPPED, &selected,
                          text_.data() + low(), static_cast<platform::UINT>(high() - low()), nullptr);
}

void DialogEdit::show() {
    const int room = clientSize().cx - 2 * Margin - 1;
    const int at = widthTo(caret_);
    if (room > 0) scroll_ = std::clamp(scroll_, std::max(0, at - room), at);
    if (hasFocus()) platform::SetCaretPos(Margin + at - scroll_, Margin);
    Refresh();
}

void DialogEdit::onGotFocus() {
    platform::CreateCaret(hWnd(), {}, 1, static_cast<int>(TextHeight(u"X")));
    platform::ShowCaret(hWnd());
    show();
}

void DialogEdit::onLostFocus() {
    platform::DestroyCaret();
    Refresh();
}

std::size_t DialogEdit::wordEdge(bool forward) const {
    std::size_t at = caret_;
    const auto blank = [this](std::size_t i) { return text_[i] == u' '; };
    if (forward) {
        while (at < text_.size() && !blank(at))
            ++at;
        while (at < text_.size() && blank(at))
            ++at;
    } else {
        while (at > 0 && blank(at - 1))
            --at;
        while (at > 0 && !blank(at - 1))
            --at;
    }
    return at;
}

void DialogEdit::moveTo(std::size_t position, bool select) {
    caret_ = std::min(position, text_.size());
    if (!select) anchor_ = caret_;
    show();
}

void DialogEdit::replaceSelection(std::u16string_view with) {
    text_.replace(low(), high() - low(), with);
    caret_ = low() + with.size();
    anchor_ = caret_;
    show();
}

void DialogEdit::onKeyDown(short& KeyCode, short& Shift) {
    const bool select = (Shift & ShiftMask) != 0;
    const bool word = (Shift & CtrlMask) != 0;
    switch (KeyCode) {
    case platform::VK_LEFT:
        moveTo(word ? wordEdge(false) : caret_ - (caret_ > 0 ? 1 : 0), select);
        break;
    case platform::VK_RIGHT:
        moveTo(word ? wordEdge(true) : caret_ + 1, select);
        break;
    case platform::VK_HOME:
        moveTo(0, select);
        break;
    case platform::VK_END:
        moveTo(text_.size(), select);
        break;
    case platform::VK_DELETE:
        if (select) {
            copy();
        } else if (caret_ == anchor_) {
            anchor_ = std::min(word ? wordEdge(true) : caret_ + 1, text_.size());
        }
        replaceSelection({});
        break;
    case platform::VK_INSERT:
        if (select) paste();
        if (word) copy();
        break;
    default:
        break;
    }
}

void DialogEdit::onKeyPress(short& KeyAscii) {
    switch (KeyAscii) {
    case CtrlA:
        anchor_ = 0;
        caret_ = text_.size();
        show();
        return;
    case CtrlC:
        copy();
        return;
    case CtrlX:
        copy();
        replaceSelection({});
        return;
    case CtrlV:
        paste();
        return;
    case platform::VK_BACK:
    case CtrlBackspace: {
        // Not every keyboard gives Ctrl+Backspace a character of its own.
        const bool word = KeyAscii == CtrlBackspace || (shiftState() & CtrlMask) != 0;
        if (caret_ == anchor_) anchor_ = word ? wordEdge(false) : caret_ - (caret_ > 0 ? 1 : 0);
        replaceSelection({});
        return;
    }
    default:
        break;
    }
    if (KeyAscii < FirstPrintable) return;
    const char byte = static_cast<char>(KeyAscii);
    replaceSelection(platform::wideFromAnsi({&byte, 1}));
}

void DialogEdit::copy() const {
    if (caret_ != anchor_)
        Clipboard::SetText(automation::String(std::u16string_view(text_).substr(low(), high() - low())));
}

void DialogEdit::paste() {
    std::u16string pasted = Clipboard::GetText().string();
    pasted.erase(
        std::find_if(pasted.begin(), pasted.end(), [](char16_t c) { return c == u'\r' || c == u'\n'; }),
        pasted.end());
    replaceSelection(pasted);
}

std::size_t DialogEdit::positionAt(float x) const {
    const int at = static_cast<int>(x) - Margin + scroll_;
    for (std::size_t i = 0; i < text_.size(); ++i) {
        if (at < (widthTo(i) + widthTo(i + 1)) / 2) return i;
    }
    return text_.size();
}

void DialogEdit::onMouseDown(short& Button, short& Shift, float& X, float&) {
    if (Button == LeftButton) moveTo(positionAt(X), (Shift & ShiftMask) != 0);
}

void DialogEdit::onMouseMove(short& Button, short&, float& X, float&) {
    if (Button == LeftButton) moveTo(positionAt(X), true);
}

void DialogEdit::onDblClick() {
    anchor_ = wordEdge(false);
    moveTo(wordEdge(true), true);
}

const automation::ClassTable& DialogEdit::classTable() const {
    static const automation::ClassTable table = automation::ClassTable::of<DialogEdit>("DialogEdit")
                                                    .property("Text", &DialogEdit::Text, &DialogEdit::Text)
                                                    .defaultMember();
    return table;
}

} // namespace host
