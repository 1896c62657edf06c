// The canvas's calls where the system paints: prints the time of each, for bench_canvas to compare with.

#include "../../measure.h"
#include "../our_sheet.h"

namespace {

void measure(const bench::Sheet& extent) {
    constexpr int rounds = 15;
    bench::OurSheet sheet(extent);
    const bench::Operations operations = sheet.operations();
    for (const bench::Measurement& measurement : bench::measurements) {
        if (&extent == &bench::controlSheet && !measurement.isOfControls) continue;
        const auto& draw = operations.at(measurement.name);
        draw(1); // memory and caches are made now
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round) {
            const double start = bench::seconds();
            draw(measurement.calls);
            times.push_back(bench::seconds() - start);
        }
        bench::time(bench::nameOn(extent, measurement), bench::median(times) / measurement.calls);
    }
}

} // namespace

int main() {
    measure(bench::controlSheet);
    measure(bench::windowSheet);
}
