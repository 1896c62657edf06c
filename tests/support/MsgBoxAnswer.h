#pragma once
// The user who reads a message box and presses a key.

#include "host/Form.h"
#include "host/Label.h"
#include "host/MessageForm.h"
#include "host/Screen.h"
#include "host/Timer.h"
#include "support/Desk.h"

namespace support {

/// While it lives, each message box that opens is read, counted and answered with a key.
class MsgBoxAnswer {
public:
    MsgBoxAnswer(Desk& desk, int virtualKey) : desk_(desk), key_(virtualKey) {
        timer_.Tick.join([this] { look(); });
        timer_.Interval(20);
    }

    int shown() const { return shown_; }
    /// Of the last one.
    const automation::String& title() const { return title_; }
    const automation::String& text() const { return text_; }
    host::MsgBoxStyle style() const { return style_; }

private:
    void look() {
        host::Form* form = host::Screen::ActiveForm();
        if (!form || form == last_) return;
        auto* label = dynamic_cast<host::Label*>(form->find(u"Text"));
        if (!label) return;
        last_ = form;
        ++shown_;
        title_ = form->Caption();
        text_ = label->Caption();
        if (const auto* message = dynamic_cast<host::MessageForm*>(form)) style_ = message->style();
        desk_.strikeKey(key_);
    }

    Desk& desk_;
    int key_;
    int shown_ = 0;
    host::Form* last_ = nullptr;
    automation::String title_, text_;
    host::MsgBoxStyle style_ = host::MsgBoxStyle::OkOnly;
    host::Timer timer_;
};

} // namespace support
