#pragma once
// The sample database: four tables of a small wholesaler, with keys, dates, prices, truth values and gaps.

#include <string>

namespace sample {

inline constexpr int customerCount = 3000;
inline constexpr int articleCount = 1200;
inline constexpr int orderCount = 8000;

/// Writes the database to `path`, replacing what is there only when all is written. The bytes depend on
/// nothing but the version of SQLite. Throws platform::DatabaseError.
void writeSampleDatabase(const std::string& path);

} // namespace sample
