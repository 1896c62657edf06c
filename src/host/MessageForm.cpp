#include "host/MessageForm.h"

#include "host/DialogIcons.h"
#include "host/DialogTexts.h"
#include "host/Picture.h"
#include "platform/gdi.h"
#include "platform/locale.h"

#include <algorithm>

namespace host {

namespace {

// Pixels.
constexpr int Margin = 12;
constexpr int TextGap = 12;    ///< Between icon and text
constexpr int ButtonsGap = 14; ///< Between text and buttons
constexpr int ButtonWidth = 75;
constexpr int ButtonHeight = 23;
constexpr int ButtonPadding = 20; ///< Beside the text of a wide button
constexpr int ButtonGap = 6;

const std::vector<MsgBoxResult>& buttonSet(MsgBoxStyle style) {
    using enum MsgBoxResult;
    constexpr int SetBits = 0x0F;
    static const std::vector<MsgBoxResult> Sets[] = {
        {Ok}, {Ok, Cancel}, {Abort, Retry, Ignore}, {Yes, No, Cancel}, {Yes, No}, {Retry, Cancel},
    };
    const auto set = static_cast<std::size_t>(static_cast<int>(style) & SetBits);
    return Sets[set < std::size(Sets) ? set : 0];
}

/// The sign beside the text. A message that there is no memory for its sign is shown without.
automation::Ref<Picture> signOf(MsgBoxStyle style, platform::COLORREF ground) {
    try {
        return dialogIcon(style, ground);
    } catch (const automation::Error&) {
        return {};
    }
}

std::size_t defaultButton(MsgBoxStyle style) {
    constexpr int DefaultShift = 8;
    constexpr int DefaultBits = 3;
    return static_cast<std::size_t>(static_cast<int>(style) >> DefaultShift & DefaultBits);
}

} // namespace

MessageForm::MessageForm(const automation::String& prompt, MsgBoxStyle style, const automation::String& title)
    : Form(u"MsgBox"), style_(style) {
    Caption(title);
    BorderStyle(FormBorderStyle::FixedDialog);
    StartUpPosition(host::StartUpPosition::CenterScreen);
    ScaleMode(host::ScaleMode::Pixels);
    KeyPreview(true);
    sign_ = signOf(style, rgbFromOle(BackColor()));
    text_ = &add<Label>(u"Text");
    for (const MsgBoxResult result : buttonSet(style)) {
        auto& button = add<DialogButton>(u"Button", static_cast<short>(choices_.size()));
        button.Caption(dialogCaption(result));
        button.Click.join([this, result] { answer(result); });
        choices_.push_back({result, &button});
        if (result == MsgBoxResult::Cancel || choices_.size() == 1)
            button.Extender().Cancel(result == MsgBoxResult::Cancel || buttonSet(style).size() == 1);
    }
    layOut(prompt);
    ActiveControl(*choices_[std::min(defaultButton(style), choices_.size() - 1)].button);
}

void MessageForm::layOut(const automation::String& prompt) {
    const int screen = platform::GetSystemMetrics(platform::SM_CXSCREEN);
    const float widest = static_cast<float>(screen) * 5 / 8;
    text_->UseMnemonic(false);
    text_->BackStyle(BackStyle::Transparent);
    text_->AutoSize(true);
    text_->Caption(prompt);
    if (text_->Width() > widest) {
        text_->Width(widest);
        text_->WordWrap(true);
        text_->Width(widest);
    }
    const int iconSide = sign_ ? DialogIconSize : 0;
    const int textLeft = Margin + (sign_ ? iconSide + TextGap : 0);
    const int textHeight = static_cast<int>(text_->Height());
    const int height = std::max(iconSide, textHeight);
    text_->Left(static_cast<float>(textLeft));
    const int textTop = Margin + (height - textHeight) / 2;
    text_->Top(static_cast<float>(textTop));
    placeButtons(textLeft + static_cast<int>(text_->Width()), Margin + height);
}

void MessageForm::placeButtons(int contentWidth, int contentHeight) {
    int width = ButtonWidth;
    for (const Choice& choice : choices_)
        width = std::max(width, static_cast<int>(TextWidth(choice.button->Caption())) + ButtonPadding);
    const int count = static_cast<int>(choices_.size());
    const int row = count * width + (count - 1) * ButtonGap;
    const int client = std::max(contentWidth, Margin + row) + Margin;
    const int top = contentHeight + ButtonsGap;
    int left = (client - row) / 2;
    for (const Choice& choice : choices_) {
        choice.button->Extender().Move(static_cast<float>(left), static_cast<float>(top),
                                       static_cast<float>(width), static_cast<float>(ButtonHeight));
        left += width + ButtonGap;
    }
    SetClientSize(static_cast<float>(client * twipsPerPixel(Axis::Horizontal)),
                  static_cast<float>((top + ButtonHeight + Margin) * twipsPerPixel(Axis::Vertical)));
}

MsgBoxResult MessageForm::ask() {
    constexpr platform::UINT IconBits = 0x70;
    platform::MessageBeep(static_cast<platform::UINT>(style_) & IconBits);
    Show(true);
    // The program quits while the question stands: nobody answers it any more.
    if (!answered_) unload();
    return result_;
}

void MessageForm::answer(MsgBoxResult result) {
    result_ = result;
    answered_ = true;
    unload();
}

void MessageForm::onQueryUnload(short& Cancel, UnloadMode mode) {
    if (answered_ || mode != UnloadMode::FormControlMenu) return;
    const auto& buttons = buttonSet(style_);
    const bool hasCancel = std::find(buttons.begin(), buttons.end(), MsgBoxResult::Cancel) != buttons.end();
    if (hasCancel || buttons.size() == 1)
        result_ = hasCancel ? MsgBoxResult::Cancel : buttons.front();
    else
        Cancel = 1;
    answered_ = Cancel == 0;
}

void MessageForm::onPaint() {
    if (sign_) sign_->render(hDC(), Margin, Margin, DialogIconSize, DialogIconSize);
    Form::onPaint();
}

void MessageForm::onKeyPress(short& KeyAscii) {
    const char byte = static_cast<char>(KeyAscii);
    const std::u16string typed = platform::upperCase(platform::wideFromAnsi({&byte, 1}));
    for (const Choice& choice : choices_) {
        const automation::String& key = choice.button->AccessKeys();
        if (key.empty() || platform::upperCase(key) != typed) continue;
        KeyAscii = 0;
        answer(choice.result);
        return;
    }
    Form::onKeyPress(KeyAscii);
}

} // namespace host
