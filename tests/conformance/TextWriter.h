#pragma once
// Writes random scripts about text.

#include "conformance/ScriptWriter.h"

namespace conformance {

class TextWriter : public ScriptWriter {
public:
    using ScriptWriter::ScriptWriter;

    /// A text of any font, with its extents.
    void letters();
    /// Mapped text of outlines: its place, lines and ground, and the extents.
    void mappedLetters();
    /// Text within a path, of letters without curves, and what the path is used for.
    void outlinedLetters();
    /// Text of outlines in a metafile, and the metafile played in its size or another.
    void recordedLetters();

private:
    void font();
    /// All but the quality and the family; some with lines.
    Call outlineFont(bool isTurned, bool hasLines = true);
    std::string words();
    void textState();
    /// Larger and smaller, with axes of both directions, and the origins moved.
    void letterMapping();
    /// Where the text lies about its point, and how wide it is made.
    void placing();
    int format();
    void usePath();
    void recordedText();
    void playRecord();
};

} // namespace conformance
