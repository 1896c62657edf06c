#include "host/App.h"

#include "host/Session.h"
#include "platform/processes.h"

namespace host {

namespace {

std::u16string programFile() {
    return platform::modulePath({});
}

std::size_t nameStart(std::u16string_view path) {
    const std::size_t separator = path.find_last_of(u"\\/");
    return separator == path.npos ? 0 : separator + 1;
}

} // namespace

automation::String App::Path() {
    const std::u16string file = programFile();
    const std::size_t start = nameStart(file);
    if (start == 0) return {};
    const std::u16string folder = file.substr(0, start - 1);
    const bool isRoot = folder.empty() || folder.back() == u':';
    return isRoot ? file.substr(0, start) : folder;
}

automation::String App::EXEName() {
    const std::u16string file = programFile();
    const std::u16string name = file.substr(nameStart(file));
    const std::size_t dot = name.rfind(u'.');
    return dot == name.npos || dot == 0 ? name : name.substr(0, dot);
}

automation::String App::Title() {
    return session().title.empty() ? EXEName() : session().title;
}

void App::Title(const automation::String& value) {
    session().title = value;
}

platform::HINSTANCE App::hInstance() {
    return platform::moduleInstance();
}

} // namespace host
