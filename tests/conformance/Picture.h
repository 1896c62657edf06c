#pragma once
// What a script leaves behind, and the file in which the results of a run are kept.

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace conformance {

/// Pixels 0x00RRGGBB, top row first.
struct Picture {
    std::string name;
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    friend bool operator==(const Picture&, const Picture&) = default;
};

struct Result {
    std::string script;
    std::string shown; ///< What the `show` lines said
    std::vector<Picture> pictures;

    friend bool operator==(const Result&, const Result&) = default;
};

/// Writes one result after another; runs of pixels, and runs that repeat the row above, are told by length.
void writeResult(std::ostream& out, const Result& result);

/// The next result; false at the end of the file. Throws on a file that is cut short.
bool readResult(std::istream& in, Result& result);

} // namespace conformance
