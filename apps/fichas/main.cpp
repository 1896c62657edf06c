// fichas FILE [TABLE]: shows the records of a SQLite or CSV file in a window, where they can be edited.
// Without a display it takes a short tour in memory and prints where its pictures are.

#include "fichas/DataFile.h"
#include "fichas/window/RecordForm.h"
#include "fichas/window/linux/Tour.h"
#include "host/App.h"
#include "host/MessageLoop.h"
#include "host/MsgBox.h"
#include "platform/linux/headless.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>

namespace {

using automation::String;

enum ExitCode { success = 0, brokenFile = 1, wrongUse = 2 };

constexpr const char* usage =
    "Uso: fichas ARCHIVO [TABLA]\n"
    "Muestra los registros de un archivo SQLite o CSV, uno cada vez, y deja cambiarlos. Sin ARCHIVO abre el\n"
    "que nombre la variable TESELA_SAMPLE. Sin pantalla da un paseo corto e imprime dónde están sus\n"
    "imágenes.\n";

/// On the terminal, and in a window for whoever started the program without one.
int report(const std::string& text) {
    std::fprintf(stderr, "fichas: %s\n", text.c_str());
    if (!platform::headless::active())
        host::MsgBox(String::fromUtf8(text), host::MsgBoxStyle::Critical, u"fichas");
    return brokenFile;
}

int show(const String& path, const String& table) {
    const std::shared_ptr<const fichas::DataFile> file = fichas::openFile(path);
    const std::vector<String> tables = file->tables();
    const auto form = automation::make<fichas::RecordForm>(file, table.empty() ? tables.front() : table);
    if (platform::headless::active()) {
        for (const std::string& picture : fichas::takeTour(*form, tables.size() > 1))
            std::printf("%s\n", picture.c_str());
        return success;
    }
    host::run(*form);
    return form->failure() ? report(*form->failure()) : success;
}

} // namespace

int main(int argc, char** argv) {
    constexpr int mostArguments = 3;
    const char* sample = std::getenv("TESELA_SAMPLE");
    const char* path = argc > 1 ? argv[1] : sample;
    if (path && std::string_view(path) == "--help") {
        std::fputs(usage, stdout);
        return success;
    }
    if (!path || argc > mostArguments) {
        std::fputs(usage, stderr);
        return wrongUse;
    }
    host::App::Title(u"fichas");
    try {
        return show(String::fromUtf8(path), argc == mostArguments ? String::fromUtf8(argv[2]) : String());
    } catch (const std::exception& error) {
        return report(error.what());
    }
}
