#include "fichas/window/linux/Tour.h"

#include "host/MessageLoop.h"
#include "platform/input.h"
#include "platform/linux/headless.h"

#include <filesystem>
#include <system_error>

namespace fichas {

namespace {

namespace headless = platform::headless;

/// A folder that nobody has used yet.
std::filesystem::path makeFolder() {
    constexpr int mostFolders = 10000;
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    if (error)
        throw SourceError("la variable TMPDIR no nombra una carpeta, y las imágenes no tienen dónde ir");
    for (int i = 1; i < mostFolders && !error; ++i) {
        std::filesystem::path folder = parent / ("fichas-" + std::to_string(i));
        if (std::filesystem::create_directory(folder, error)) return folder;
    }
    throw SourceError(parent.string() + ": no se puede crear una carpeta para las imágenes");
}

class Tour {
public:
    explicit Tour(RecordForm& form) : form_(form), folder_(makeFolder()) {}

    void press(int key, bool withControl = false) {
        if (withControl) headless::injectKeyDown(platform::VK_CONTROL);
        headless::injectKey(key);
        if (withControl) headless::injectKeyUp(platform::VK_CONTROL);
        host::DoEvents();
        if (form_.failure()) throw SourceError(*form_.failure());
    }

    void takePicture(const std::string& name) {
        host::DoEvents();
        const std::string path =
            (folder_ / (std::to_string(paths_.size() + 1) + "-" + name + ".png")).string();
        if (!headless::screenshot(form_.hWnd(), path))
            throw SourceError(path + ": no se puede escribir la imagen");
        paths_.push_back(path);
    }

    std::vector<std::string> paths() const { return paths_; }

private:
    RecordForm& form_;
    std::filesystem::path folder_;
    std::vector<std::string> paths_;
};

} // namespace

std::vector<std::string> takeTour(RecordForm& form, bool hasOtherTables) {
    Tour tour(form);
    form.Show();
    tour.takePicture("primero");
    tour.press(platform::VK_NEXT);
    tour.takePicture("siguiente");
    tour.press(platform::VK_RETURN);
    tour.takePicture("campo");
    tour.press(platform::VK_END, true);
    tour.takePicture("ultimo");
    if (hasOtherTables) {
        tour.press(platform::VK_NEXT, true);
        tour.takePicture("otra-tabla");
    }
    return tour.paths();
}

} // namespace fichas
