#include "conformance/linux/AcceptedTable.h"

#include <algorithm>
#include <charconv>
#include <istream>
#include <limits>
#include <stdexcept>

namespace conformance {

namespace {

constexpr std::size_t anyPixels = std::numeric_limits<std::size_t>::max();
constexpr int anyComponent = 255; ///< The most by which one can differ

/// The whole of a text as a number that is not negative.
std::optional<int> numberIn(std::string_view text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < 0) return std::nullopt;
    return number;
}

} // namespace

AcceptedTable::AcceptedTable(std::istream& in) {
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        const std::size_t difference = line.find('\t') + 1;
        const std::size_t reason = line.find('\t', difference) + 1;
        if (difference == 0 || reason == 0 || reason == line.size())
            throw std::runtime_error("a row without reason: " + line);
        const std::string told = line.substr(difference, reason - difference - 1);
        const std::optional<int> component = numberIn(told);
        const bool isSteady = told != "sometimes";
        const bool mayShow = !isSteady || told == "any" || told == "pixels, shown";
        if (!component && !mayShow && told != "pixels")
            throw std::runtime_error("a row without a difference: " + line);
        add(line.substr(0, difference - 1),
            {"", anyPixels, component.value_or(anyComponent), mayShow, isSteady});
    }
}

/// Adds each name of a row: "random/fills/7:40,12" gives "random/fills/7" with 40 pixels and
/// "random/fills/12" with any number.
void AcceptedTable::add(const std::string& names, const Row& like) {
    const std::size_t last = names.rfind('/') + 1;
    for (std::size_t from = last; from <= names.size();) {
        const std::size_t to = std::min(names.find(',', from), names.size());
        const std::string name = names.substr(from, to - from);
        const std::size_t colon = std::min(name.find(':'), name.size());
        Row row = like;
        row.name = names.substr(0, last) + name.substr(0, colon);
        if (colon < name.size()) {
            const std::optional<int> pixels = numberIn(name.substr(colon + 1));
            if (!pixels) throw std::runtime_error("no number of pixels: " + name);
            row.pixels = static_cast<std::size_t>(*pixels);
        }
        rows_.push_back(row);
        from = to + 1;
    }
}

bool AcceptedTable::accepts(const std::string& script, const Difference& difference) {
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [&](const Row& r) { return r.isFor(script) && r.covers(difference); });
    if (row == rows_.end()) return false;
    row->isUsed = true;
    return true;
}

std::optional<std::size_t> AcceptedTable::pixelsOf(const std::string& script) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(), [&](const Row& r) { return r.isFor(script); });
    if (row == rows_.end() || row->pixels == anyPixels) return std::nullopt;
    return row->pixels;
}

std::vector<std::string> AcceptedTable::unused() const {
    std::vector<std::string> names;
    for (const Row& row : rows_)
        if (row.isSteady && !row.isUsed) names.push_back(row.name);
    return names;
}

bool AcceptedTable::Row::isFor(const std::string& script) const {
    if (name.back() != '*') return script == name;
    return script.starts_with(name.substr(0, name.size() - 1));
}

bool AcceptedTable::Row::covers(const Difference& difference) const {
    return difference.pixels <= pixels && difference.component <= component &&
           (mayShow || !difference.isInWhatIsShown);
}

} // namespace conformance
