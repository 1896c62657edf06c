#include "conformance/RandomTexts.h"

#include "conformance/TextWriter.h"

namespace conformance {

namespace {

struct Subject {
    const char* name;
    void (TextWriter::*write)();
};

constexpr Subject traced = {"traced", &TextWriter::outlinedLetters};
constexpr Subject recorded = {"recorded", &TextWriter::recordedLetters};

/// From here on text is recorded.
constexpr int firstRecorded = 19900;

const Subject& subjectOf(int number) {
    return number < firstRecorded ? traced : recorded;
}

} // namespace

std::string textSubject(int number) {
    return subjectOf(number).name;
}

std::string textScript(int number) {
    // The dice of neighbouring seeds fall alike, one throw apart: these stand far from each other.
    constexpr int distance = 7919;
    TextWriter writer(number * distance);
    writer.target(writer.depth());
    (writer.*subjectOf(number).write)();
    return writer.text;
}

} // namespace conformance
