#include "host/MsgBox.h"

#include "host/App.h"
#include "host/MessageForm.h"

namespace host {

MsgBoxResult MsgBox(const automation::String& prompt, MsgBoxStyle style, const automation::String& title) {
    const auto form = automation::make<MessageForm>(prompt, style, title.empty() ? App::Title() : title);
    return form->ask();
}

} // namespace host
