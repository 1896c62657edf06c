#include "shot/form_picture.h"

#include "host/MessageLoop.h"
#include "platform/linux/headless.h"

namespace shot {

automation::Ref<host::Form> sheetForm(const automation::String& caption, float width, float height) {
    auto form = automation::make<host::Form>(u"sheet");
    form->Caption(caption);
    form->StartUpPosition(host::StartUpPosition::Manual);
    form->Move(0, 0, 0, 0);
    form->SetClientSize(width, height);
    return form;
}

bool savePicture(host::Form& form, const std::string& file) {
    form.Show();
    host::DoEvents();
    const bool saved = platform::headless::screenshot(form.hWnd(), file);
    form.unload();
    return saved;
}

} // namespace shot
