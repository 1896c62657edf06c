// What controls are painted with, against Cairo's image surface and Qt's raster painter, which draw the same
// on sheets of the same size and depth; whole sheets also against the machine's own fill and copy of as many
// bytes.

#include "cairo_sheet.h"
#include "our_sheet.h"
#include "qt_sheet.h"

#include "../measure.h"

#include <QGuiApplication>

#include <cstdlib>
#include <cstring>

namespace {

using bench::Measurement;
using bench::Operations;

/// The machine's fill and copy of a whole sheet's bytes, in memory that it has touched before.
class Machine {
public:
    Operations fill() { return {{"fillbox_full", bench::repeated<&Machine::fillWhole>(*this)}}; }
    Operations copy() { return {{"bitblt_full", bench::repeated<&Machine::copyWhole>(*this)}}; }

private:
    void fillWhole(const bench::Place& place) {
        std::memset(target_.data(), place.red(), target_.size());
        bench::keep(target_.front());
    }
    void copyWhole(const bench::Place&) {
        std::memcpy(target_.data(), source_.data(), target_.size());
        bench::keep(target_.front());
    }

    static constexpr std::size_t bytes = std::size_t{bench::sheetWidth} * bench::sheetHeight * 4;
    std::vector<char> target_ = std::vector<char>(bytes, 'a');
    std::vector<char> source_ = std::vector<char>(bytes, 'b');
};

struct Library {
    const char* name;
    Operations operations;
};

/// Seconds of one call of each operation as the same calls take on Windows, which is measured by a program of
/// its own. The setting TESELA_BENCH_WINDOWS is the command that runs it; without it there are none.
std::map<std::string, double> windowsTimes() {
    std::map<std::string, double> times;
    const char* command = std::getenv("TESELA_BENCH_WINDOWS");
    FILE* output = command && *command ? popen(command, "r") : nullptr;
    if (!output) return times;
    char name[64];
    double nanoseconds = 0;
    while (std::fscanf(output, " time %63s %lf ns", name, &nanoseconds) == 2)
        times[name] = nanoseconds / 1e9;
    pclose(output);
    return times;
}

/// Measures the operation with each library that has it; the first is ours.
void measure(const Measurement& measurement, const std::vector<Library>& libraries,
             const std::map<std::string, double>& windows) {
    constexpr int rounds = 41;
    std::vector<bench::Candidate> candidates;
    for (const Library& library : libraries) {
        const auto found = library.operations.find(measurement.name);
        if (found == library.operations.end()) continue;
        candidates.push_back(
            {library.name, [draw = found->second, calls = measurement.calls] { draw(calls); }});
    }
    const std::vector<double> times = bench::interleaved(candidates, rounds);
    for (std::size_t i = 1; i < candidates.size(); ++i)
        bench::ratio(measurement.name, candidates[i].name, times[0], times[i]);
    const double ours = times[0] / measurement.calls;
    if (const auto found = windows.find(measurement.name); found != windows.end())
        bench::ratio(measurement.name, "wine", ours, found->second);
    bench::time(measurement.name, ours);
    if (std::strcmp(measurement.name, "button_cell") == 0)
        std::printf("button_cell: %.0f cells a second, Qt %.0f\n", measurement.calls / times[0],
                    measurement.calls / times[1]);
}

} // namespace

int main(int argc, char** argv) {
    // Qt's painter needs an application for its fonts, but no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    bench::OurSheet ours;
    bench::CairoSheet cairo;
    bench::QtSheet qt;
    Machine machine;
    const std::vector<Library> libraries = {{"tesela", ours.operations()},
                                            {"cairo", cairo.operations()},
                                            {"qt", qt.operations()},
                                            {"memset", machine.fill()},
                                            {"memcpy", machine.copy()}};
    const std::map<std::string, double> windows = windowsTimes();
    for (const Measurement& measurement : bench::measurements)
        if (argc < 2 || std::strcmp(argv[1], measurement.name) == 0) measure(measurement, libraries, windows);
}
