// What controls are painted with, against Cairo's image surface and Qt's raster painter, which draw the same
// on sheets of the same size and depth: what controls are made of on a sheet of a control's size, and that
// and all else on one of a window's; whole windows also against the machine's own fill and copy of as many
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

/// The machine's own fill and copy: of a whole sheet's bytes, in memory that it has touched before, and of
/// the rows of bytes of the smaller operations, which none of them can do without.
class Machine {
public:
    explicit Machine(const bench::Sheet& sheet) : sheet_(sheet) {}

    const bench::Sheet& sheet() const { return sheet_; }
    Operations fill() { return {{"fillbox_full", bench::repeated<&Machine::fillWhole>(*this)}}; }
    Operations copy() { return {{"bitblt_full", bench::repeated<&Machine::copyWhole>(*this)}}; }
    Operations rows() {
        using namespace bench;
        return {
            {"fillbox16", repeated<&Machine::fillRows<smallBox, smallBox>>(*this)},
            {"gradient_v_100x20", repeated<&Machine::fillRows<bandWidth, bandHeight>>(*this)},
            {"bitblt_100x20", repeated<&Machine::copyRows<bandWidth, bandHeight>>(*this)},
            {"alphablend_100x20", repeated<&Machine::copyRows<bandWidth, bandHeight>>(*this)},
            {"icon16", repeated<&Machine::copyRows<iconSide, iconSide>>(*this)},
            {"transparentblt_32", repeated<&Machine::copyRows<spriteSide, spriteSide>>(*this)},
        };
    }

private:
    void fillWhole(const bench::Place& place) {
        std::memset(target_.data(), place.red(), target_.size());
        bench::keep(target_.front());
    }
    void copyWhole(const bench::Place&) {
        std::memcpy(target_.data(), source_.data(), target_.size());
        bench::keep(target_.front());
    }
    template <std::size_t width, int height>
    void fillRows(const bench::Place& place) {
        char* row = rowOf(place);
        for (int y = 0; y < height; ++y, row += rowBytes_)
            std::memset(row, place.red(), rowLength(width));
        bench::keep(target_.front());
    }
    template <std::size_t width, int height>
    void copyRows(const bench::Place& place) {
        char* row = rowOf(place);
        const char* source = source_.data();
        for (int y = 0; y < height; ++y, row += rowBytes_, source += rowBytes_)
            std::memcpy(row, source, rowLength(width));
        bench::keep(target_.front());
    }
    /// Unknown to the compiler, whose own code for a known length is slower than the C library's.
    static std::size_t rowLength(std::size_t pixels) {
        std::size_t bytes = pixels * pixelBytes;
        asm("" : "+r"(bytes));
        return bytes;
    }
    char* rowOf(const bench::Place& place) {
        return target_.data() + static_cast<std::size_t>(place.y()) * rowBytes_ +
               static_cast<std::size_t>(place.x()) * pixelBytes;
    }

    static constexpr std::size_t pixelBytes = 4;
    const bench::Sheet& sheet_;
    std::size_t rowBytes_ = static_cast<std::size_t>(sheet_.width) * pixelBytes;
    std::vector<char> target_ = std::vector<char>(rowBytes_ * static_cast<std::size_t>(sheet_.height), 'a');
    std::vector<char> source_ = std::vector<char>(target_.size(), 'b');
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

/// Measures the operation with each library that has it; the first is ours. What the machine takes for the
/// bare rows of bytes is a bound for all: `floor` lines say how many times faster than each peer that is.
/// Each draws its round once unmeasured before: the others have taken its place in the processor's memory,
/// which on Windows, in a process of its own, nobody does.
void measure(const Measurement& measurement, const std::string& name, const std::vector<Library>& libraries,
             const Operations& rows, const std::map<std::string, double>& windows) {
    constexpr int rounds = 41;
    std::vector<bench::Candidate> candidates;
    const auto add = [&](const char* library, const Operations& operations) {
        const auto found = operations.find(measurement.name);
        if (found == operations.end()) return false;
        const auto work = [draw = found->second, calls = measurement.calls] { draw(calls); };
        candidates.push_back({library, work, work});
        return true;
    };
    for (const Library& library : libraries)
        add(library.name, library.operations);
    const bool hasFloor = add("floor", rows);
    std::vector<double> times = bench::interleaved(candidates, rounds);
    if (hasFloor) candidates.pop_back();
    if (const auto found = windows.find(name); found != windows.end()) {
        candidates.push_back({"wine", {}});
        times.insert(times.begin() + static_cast<std::ptrdiff_t>(candidates.size()) - 1,
                     found->second * measurement.calls);
    }
    for (std::size_t i = 1; i < candidates.size(); ++i)
        bench::ratio(name, candidates[i].name, times[0], times[i]);
    for (std::size_t i = 1; i < candidates.size() && hasFloor; ++i)
        bench::floor(name, candidates[i].name, times.back(), times[i]);
    bench::time(name, times[0] / measurement.calls);
    if (name == "button_cell")
        std::printf("button_cell: %.0f cells a second, Qt %.0f\n", measurement.calls / times[0],
                    measurement.calls / times[1]);
}

/// The libraries on sheets of one size, measured by themselves: all operations that are drawn there, or the
/// one of that name.
void measureOn(const bench::Sheet& sheet, const char* only, const std::map<std::string, double>& windows) {
    bench::OurSheet ours(sheet);
    bench::CairoSheet cairo(sheet);
    bench::QtSheet qt(sheet);
    Machine machine(sheet);
    const std::vector<Library> libraries = {{"tesela", ours.operations()},
                                            {"cairo", cairo.operations()},
                                            {"qt", qt.operations()},
                                            {"memset", machine.fill()},
                                            {"memcpy", machine.copy()}};
    const Operations rows = machine.rows();
    for (const Measurement& measurement : bench::measurements) {
        if (only && std::strcmp(only, measurement.name) != 0) continue;
        if (&sheet == &bench::controlSheet && !measurement.isOfControls) continue;
        measure(measurement, bench::nameOn(sheet, measurement), libraries, rows, windows);
    }
}

} // namespace

int main(int argc, char** argv) {
    // Qt's painter needs an application for its fonts, but no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const char* only = argc > 1 ? argv[1] : nullptr;
    const std::map<std::string, double> windows = windowsTimes();
    measureOn(bench::controlSheet, only, windows);
    measureOn(bench::windowSheet, only, windows);
}
