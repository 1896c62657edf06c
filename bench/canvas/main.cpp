// What controls are painted with, against Cairo's image surface and Qt's raster painter, which draw the same
// on sheets of the same size and depth; whole sheets also against the machine's own fill and copy of as many
// bytes.

#include "cairo_sheet.h"
#include "our_sheet.h"
#include "qt_sheet.h"

#include "../measure.h"

#include <QGuiApplication>

#include <cstring>

namespace {

using bench::Operations;

struct Measurement {
    const char* name;
    int calls; ///< In a round, which then takes about a millisecond
};

constexpr Measurement measurements[] = {
    {"fillbox16", 10000},        {"fillbox256", 200},     {"fillbox_full", 10},
    {"drawbox", 4000},           {"hline100", 10000},     {"diagonal100", 4000},
    {"gradient_v_100x20", 4000}, {"bitblt_100x20", 5000}, {"bitblt_full", 10},
    {"alphablend_100x20", 4000}, {"text12", 2000},        {"extent12", 5000},
    {"triangle7", 4000},         {"icon16", 5000},        {"ellipse40", 1000},
    {"transparentblt_32", 1000}, {"html_paragraph", 20},  {"button_cell", 200},
};

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

/// Measures the operation with each library that has it; the first is ours.
void measure(const Measurement& measurement, const std::vector<Library>& libraries) {
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
    bench::time(measurement.name, times[0] / measurement.calls);
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
    for (const Measurement& measurement : measurements)
        if (argc < 2 || std::strcmp(argv[1], measurement.name) == 0) measure(measurement, libraries);
}
