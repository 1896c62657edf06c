#pragma once
// The rows that tables are measured with: texts of 4 to 40 characters in Spanish, dates, amounts, numbers,
// yes and no, some Null.

#include "automation/Argument.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace bench {

inline constexpr int rowCount = 1'000'000;
inline constexpr int columnCount = 8;
inline constexpr int groupCount = 1000;

/// The columns by their logical numbers.
enum Column : std::int32_t { Number = 1, Name, Town, Born, Amount, Group, Active, Remark };

/// Texts are of the ANSI code page.
struct Record {
    std::int32_t number; ///< 1 to the number of rows, in any order
    std::string name;
    std::string town;
    std::optional<double> born; ///< Days; Null in one row of ten
    std::int64_t amount;        ///< Ten-thousandths
    std::int32_t group;         ///< 0 to 999
    bool active;
    std::optional<std::string> remark; ///< Null in one row of ten
};

std::vector<Record> makeRecords();

/// The row as a table takes it.
automation::ParamArray rowOf(const Record& record);

} // namespace bench
