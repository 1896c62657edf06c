#pragma once

#include "host/DialogButton.h"
#include "host/Form.h"
#include "host/Label.h"
#include "host/MsgBox.h"

#include <vector>

namespace host {

/// The window of MsgBox.
class MessageForm : public Form {
public:
    MessageForm(const automation::String& prompt, MsgBoxStyle style, const automation::String& title);

    /// Shows the window and returns the button that closed it.
    MsgBoxResult ask();
    MsgBoxStyle style() const { return style_; }

protected:
    void onQueryUnload(short& Cancel, UnloadMode mode) override;
    void onPaint() override;
    void onKeyPress(short& KeyAscii) override;

private:
    struct Choice {
        MsgBoxResult result;
        automation::Ref<DialogButton> button;
    };

    void layOut(const automation::String& prompt);
    void placeButtons(int contentWidth, int contentHeight);
    void answer(MsgBoxResult result);

    MsgBoxStyle style_;
    automation::Ref<host::Picture> sign_;
    automation::Ref<Label> text_;
    std::vector<Choice> choices_;
    MsgBoxResult result_ = MsgBoxResult::Cancel;
    bool answered_ = false;
};

} // namespace host
