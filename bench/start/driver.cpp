// From process start to the first painted window. The programs are started in turn under an X server of
// this benchmark's own; the time ends when the window's colour stands on the screen, read from outside, so
// that no program judges itself.
#include "../measure.h"
#include "../processes.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using bench::start;

constexpr int rounds = 15;
constexpr double patience = 10; // seconds until a program counts as failed
constexpr unsigned long expectedColour = 0x3060C0;

unsigned long pixel(Display* display) {
    XImage* image = XGetImage(display, DefaultRootWindow(display), 300, 200, 1, 1, AllPlanes, ZPixmap);
    const unsigned long value = XGetPixel(image, 0, 0) & 0xFFFFFF;
    XDestroyImage(image);
    return value;
}

/// Seconds until the pixel has (or no longer has) the windows' colour; -1 when that takes too long.
double waitForColour(Display* display, bool present, double since) {
    while (bench::seconds() - since < patience) {
        if ((pixel(display) == expectedColour) == present) return bench::seconds() - since;
        usleep(100);
    }
    return -1;
}

/// Runs a program to its end; the number that it prints, -1 if it prints none.
double numberFrom(const std::string& program) {
    int ends[2];
    if (pipe(ends) != 0) return -1;
    const pid_t pid = start({program}, ends[1]);
    close(ends[1]);
    char text[32] = {};
    const ssize_t got = pid ? read(ends[0], text, sizeof text - 1) : 0;
    close(ends[0]);
    if (pid) waitpid(pid, nullptr, 0);
    return got > 0 ? std::atof(text) : -1;
}

/// The library's start alone, in a fresh process each time, against the time that it is allowed.
bool measureInicio(const std::string& folder) {
    constexpr double allowed = 0.005;
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(numberFrom(folder + "start_inicio"));
        if (times.back() < 0) return false;
    }
    bench::ratio("inicio", "5ms", bench::median(times), allowed);
    return true;
}

} // namespace

int main(int, char** argv) {
    using namespace bench;
    std::string folder = argv[0];
    folder.erase(folder.rfind('/') + 1);
    unsetenv("WAYLAND_DISPLAY");
    setenv("TESELA_DISPLAY", "desktop", 1);

    const pid_t server = startServer();
    Display* display = server ? XOpenDisplay(nullptr) : nullptr;
    if (!display) {
        std::fprintf(stderr, "Xvfb did not start\n");
        return 1;
    }
    const std::vector<std::string> names{"tesela", "fltk", "qt"};
    std::vector<std::vector<double>> times(names.size());
    bool complete = true;
    for (int round = 0; round < rounds && complete; ++round)
        for (std::size_t i = 0; i < names.size(); ++i) {
            const double since = seconds();
            const pid_t program = start({folder + "start_" + names[i]});
            const double took = waitForColour(display, true, since);
            complete = complete && took >= 0;
            if (round > 0) times[i].push_back(took); // the first round warms the page cache
            end(program);
            waitForColour(display, false, seconds());
        }
    complete = complete && measureInicio(folder);
    XCloseDisplay(display);
    end(server);
    if (!complete) {
        std::fprintf(stderr, "a program showed no window or told no time\n");
        return 1;
    }
    const double ours = bench::median(times[0]);
    for (std::size_t i = 1; i < names.size(); ++i)
        bench::ratio("start", names[i], ours, bench::median(times[i]));
    return 0;
}
