#pragma once

#include "automation/String.h"

namespace host {

/// What a message box shows: one button set, one icon and one default button, joined by `|`.
enum class MsgBoxStyle : int {
    OkOnly = 0,
    OkCancel = 1,
    AbortRetryIgnore = 2,
    YesNoCancel = 3,
    YesNo = 4,
    RetryCancel = 5,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
    DefaultButton1 = 0,
    DefaultButton2 = 256,
    DefaultButton3 = 512,
};

constexpr MsgBoxStyle operator|(MsgBoxStyle a, MsgBoxStyle b) {
    return static_cast<MsgBoxStyle>(static_cast<int>(a) | static_cast<int>(b));
}

enum class MsgBoxResult : int { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// Shows a message in a modal window and returns the button that closed it. The empty title stands for the
/// program's (App). Esc and the close box answer Cancel where there is such a button and Ok where it is the
/// only one; else they do nothing. Buttons answer their underlined letter with and without Alt. The captions
/// are Spanish for a Spanish user and English for all others.
MsgBoxResult MsgBox(const automation::String& prompt, MsgBoxStyle style = MsgBoxStyle::OkOnly,
                    const automation::String& title = {});

} // namespace host
