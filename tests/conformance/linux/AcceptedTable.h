#pragma once
// The differences between two runs that are known and accepted, with their reasons.

#include "conformance/linux/Difference.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace conformance {

/// A row of the table has script names, the difference that is accepted, and the reason, with tabs between.
/// Lines that begin with # are remarks. Commas part several last names ("random/fills/7,12"), of which *
/// stands for all.
///
/// The difference is one of these:
///     pixels         each name tells how many pixels may differ ("random/fills/7:40,12:3"), and what is
///     shown may
///                    not; the name alone stands for any number
///     pixels, shown  the same, and what is shown may differ
///     any            the same, as names without a number have it
///     sometimes      as "pixels, shown", but nothing need differ: one run paints it one way and the next
///     another way a number       by so much may each component of each pixel differ, and nothing else
class AcceptedTable {
public:
    /// Throws std::runtime_error, which tells the row, on one without a reason, or whose difference is none.
    explicit AcceptedTable(std::istream& in);

    /// Whether a row covers this much of a script, and remembers that there is a use for it.
    bool accepts(const std::string& script, const Difference& difference);

    /// The most pixels that the row of a script lets differ.
    std::optional<std::size_t> pixelsOf(const std::string& script) const;

    /// Names under which nothing was accepted although their rows promise a difference.
    std::vector<std::string> unused() const;

private:
    /// One name of a row.
    struct Row {
        std::string name; ///< Or "folder/*"
        std::size_t pixels;
        int component;
        bool mayShow;  ///< What is shown may differ
        bool isSteady; ///< Something has to differ
        bool isUsed = false;

        bool isFor(const std::string& script) const;
        bool covers(const Difference& difference) const;
    };

    void add(const std::string& names, const Row& like);

    std::vector<Row> rows_;
};

} // namespace conformance
