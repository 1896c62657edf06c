#pragma once

#include "host/DialogEdit.h"
#include "host/Form.h"

namespace host {

/// The window of InputBox.
class InputForm : public Form {
public:
    InputForm(const automation::String& prompt, const automation::String& title,
              const automation::String& text);

    /// Shows the window; the text, or the empty text if it was cancelled.
    automation::String ask();

private:
    void layOut(const automation::String& prompt);
    void finish(bool accepted);

    automation::Ref<DialogEdit> edit_;
    automation::String answer_;
};

} // namespace host
