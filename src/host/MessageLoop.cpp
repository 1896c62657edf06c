#include "host/MessageLoop.h"

#include "host/Form.h"
#include "host/Session.h"
#include "platform/windows.h"

#include <algorithm>

namespace host {

namespace {

short visibleForms() {
    const auto& forms = session().forms;
    return static_cast<short>(
        std::count_if(forms.begin(), forms.end(), [](const auto& form) { return form->Visible(); }));
}

void dispatch(const platform::MSG& message) {
    platform::TranslateMessage(&message);
    platform::DispatchMessageA(&message);
}

} // namespace

short DoEvents() {
    platform::MSG message;
    while (platform::PeekMessageA(&message, {}, 0, 0, platform::PM_REMOVE)) {
        if (message.message == platform::WM_QUIT) {
            platform::PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        dispatch(message);
    }
    return visibleForms();
}

bool waitAndDispatch() {
    platform::MSG message;
    if (platform::GetMessageA(&message, {}, 0, 0) <= 0) {
        // The loops around this one end too.
        platform::PostQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    dispatch(message);
    return true;
}

int run() {
    platform::MSG message;
    while (visibleForms() > 0) {
        if (platform::GetMessageA(&message, {}, 0, 0) <= 0) return static_cast<int>(message.wParam);
        dispatch(message);
    }
    return 0;
}

int run(Form& form) {
    const automation::Ref<Form> alive(&form);
    form.Show();
    return run();
}

} // namespace host
