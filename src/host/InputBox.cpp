#include "host/InputBox.h"

#include "host/App.h"
#include "host/InputForm.h"

namespace host {

automation::String InputBox(const automation::String& prompt, const automation::String& title,
                            const automation::String& defaultText, std::optional<float> left,
                            std::optional<float> top) {
    const auto form = automation::make<InputForm>(prompt, title.empty() ? App::Title() : title, defaultText);
    if (left || top) {
        form->StartUpPosition(StartUpPosition::Manual);
        form->Move(left.value_or(form->Left()), top.value_or(form->Top()), form->Width(), form->Height());
    }
    return form->ask();
}

} // namespace host
