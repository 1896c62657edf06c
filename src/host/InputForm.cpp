#include "host/InputForm.h"

#include "host/DialogButton.h"
#include "host/DialogTexts.h"
#include "host/Label.h"

namespace host {

namespace {

// Pixels.
constexpr float Margin = 8;
constexpr float ClientWidth = 356;
constexpr float ClientHeight = 116;
constexpr float ButtonWidth = 75;
constexpr float ButtonHeight = 23;
constexpr float ButtonGap = 6;
constexpr float EditHeight = 21;

} // namespace

InputForm::InputForm(const automation::String& prompt, const automation::String& title,
                     const automation::String& text)
    : Form(u"InputBox") {
    Caption(title);
    BorderStyle(FormBorderStyle::FixedDialog);
    StartUpPosition(host::StartUpPosition::CenterScreen);
    ScaleMode(host::ScaleMode::Pixels);
    edit_ = &add<DialogEdit>(u"Edit");
    layOut(prompt);
    edit_->Text(text);
}

void InputForm::layOut(const automation::String& prompt) {
    auto& label = add<Label>(u"Prompt");
    label.UseMnemonic(false);
    label.BackStyle(BackStyle::Transparent);
    label.Caption(prompt);
    const float buttonLeft = ClientWidth - Margin - ButtonWidth;
    const float editTop = ClientHeight - Margin - EditHeight;
    label.Move(Margin, Margin, buttonLeft - 2 * Margin, editTop - 2 * Margin);
    edit_->Extender().Move(Margin, editTop, ClientWidth - 2 * Margin, EditHeight);
    float top = Margin;
    for (const MsgBoxResult result : {MsgBoxResult::Ok, MsgBoxResult::Cancel}) {
        const bool accepts = result == MsgBoxResult::Ok;
        auto& button = add<DialogButton>(accepts ? u"Ok" : u"Cancel");
        button.Caption(dialogCaption(result));
        button.Click.join([this, accepts] { finish(accepts); });
        button.Extender().Move(buttonLeft, top, ButtonWidth, ButtonHeight);
        if (accepts)
            button.Extender().Default(true);
        else
            button.Extender().Cancel(true);
        top += ButtonHeight + ButtonGap;
    }
    SetClientSize(static_cast<float>(ClientWidth * twipsPerPixel(Axis::Horizontal)),
                  static_cast<float>(ClientHeight * twipsPerPixel(Axis::Vertical)));
}

automation::String InputForm::ask() {
    Show(true);
    unload();
    return answer_;
}

void InputForm::finish(bool accepted) {
    if (accepted) answer_ = edit_->Text();
    unload();
}

} // namespace host
