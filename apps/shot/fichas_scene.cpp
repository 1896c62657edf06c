// A record of the sample database while it is edited in fichas: one value has been typed, and a date that
// there isn't keeps the focus.
#include "fichas/DataFile.h"
#include "fichas/window/RecordForm.h"
#include "host/MessageLoop.h"
#include "platform/input.h"
#include "platform/linux/headless.h"
#include "platform/processes.h"
#include "shot/scenes.h"

#include <stdexcept>

namespace shot {

namespace {

namespace headless = platform::headless;

/// Goes on by so many fields.
void enter(int fields) {
    for (int i = 0; i < fields; ++i) {
        headless::injectKey(platform::VK_RETURN);
        host::DoEvents();
    }
}

void type(std::u16string_view text) {
    headless::injectText(text);
    host::DoEvents();
}

void edit() {
    enter(2);
    type(u"Lucía Ferrer Díaz");
    enter(7);
    type(u"3102");
    enter(1);
}

} // namespace

bool fichas(const std::string& file) {
    const std::u16string sample = platform::environmentVariable(u"TESELA_SAMPLE");
    if (sample.empty()) throw std::runtime_error("TESELA_SAMPLE doesn't name the sample database");
    std::shared_ptr<const ::fichas::DataFile> data = ::fichas::openFile(sample);
    const auto form = automation::make<::fichas::RecordForm>(data, data->tables().front());
    form->Show();
    host::DoEvents();
    edit();
    const bool saved = headless::screenshot(form->hWnd(), file);
    form->discard();
    form->unload();
    return saved;
}

} // namespace shot
