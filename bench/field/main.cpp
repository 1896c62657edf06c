// The data-entry field against Qt's QLineEdit and FLTK's Fl_Input: from a typed character to the finished
// picture, and a form of a thousand fields from nothing to its first paint, with the properties of each read
// from the same bag. Everything is drawn off screen; FLTK, which draws through an X server only, gets one of
// this benchmark's own, and its server's time isn't counted.
#include "../measure.h"
#include "../processes.h"
#include "fields.h"

#include <QApplication>

#include <fstream>
#include <string>

namespace {

constexpr int characters = 400;
constexpr int rounds = 31;

pid_t server = 0;

/// The processor's time of this process and of the X server, which does what FLTK has it draw.
double drawingSeconds() {
    double nanoseconds = 0;
    std::ifstream("/proc/" + std::to_string(server) + "/schedstat") >> nanoseconds;
    return bench::processorSeconds() + nanoseconds / 1e9;
}

/// Types digits, and begins anew when the field is full.
void typeInto(bench::TypingField& field, int full) {
    for (int i = 0; i < characters; ++i) {
        if (i % full == 0) field.clear();
        field.type(static_cast<char>('0' + i % 10));
    }
    field.finish();
}

bench::Candidate typing(const char* name, bench::TypingField& field, int full) {
    return {name, [&field, full] { typeInto(field, full); }};
}

void measureTyping(const char* name, const std::vector<bench::Candidate>& candidates) {
    const auto times = bench::interleaved(candidates, rounds, drawingSeconds);
    for (std::size_t i = 1; i < candidates.size(); ++i)
        bench::ratio(name, candidates[i].name, times[0], times[i]);
    bench::time(name, times[0] / characters);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    setenv("TESELA_DISPLAY", "headless", 1);
    // What lies beside the screen would not be painted.
    setenv("TESELA_SCREEN", "1600x2200", 1);
    server = bench::startServer("1600x2200x24");
    if (!server) {
        std::fprintf(stderr, "Xvfb did not start\n");
        return 1;
    }
    const QApplication application(argc, argv);
    {
        constexpr int full = 16, masked = 8;
        const auto ours = bench::makeOurField(""), qt = bench::makeQtField(""), fltk = bench::makeFltkField();
        measureTyping("key_to_paint",
                      {typing("tesela", *ours, full), typing("qt", *qt, full), typing("fltk", *fltk, full)});
        const auto oursMasked = bench::makeOurField("##/##/####"),
                   qtMasked = bench::makeQtField("99/99/9999");
        measureTyping("key_to_paint_masked",
                      {typing("tesela", *oursMasked, masked), typing("qt", *qtMasked, masked)});
    }
    const std::vector<bench::Candidate> forms{
        {"tesela", bench::showOurForm}, {"qt", bench::showQtForm}, {"fltk", bench::showFltkForm}};
    const auto times = bench::interleaved(forms, rounds, drawingSeconds);
    for (std::size_t i = 1; i < forms.size(); ++i)
        bench::ratio("form_1000", forms[i].name, times[0], times[i]);
    bench::time("form_1000", times[0]);
    const bench::IdleField idle = bench::idleField();
    std::printf("value\trender_idle_bytes\t%.0f\nvalue\tobjects_idle\t%.3f\n", idle.bytes, idle.objects);
    bench::end(server);
    return 0;
}
