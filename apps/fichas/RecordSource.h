#pragma once
// What the window shows: records of one table or file, read by their number.

#include "automation/String.h"
#include "automation/Variant.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace fichas {

/// A file that cannot be shown, or not beyond some line. The text is for the user, in UTF-8: it names the
/// file, the line where there is one, and says what is wrong.
class SourceError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

enum class ColumnType { Text, Integer, Number, Currency, Date, DateTime, Time, Boolean, Binary };

struct Column {
    automation::String name;
    ColumnType type = ColumnType::Text;
    int decimals = -1; ///< Of numbers: how many to show; -1 as many as the value has
};

/// Records in a fixed order, numbered from 1. Nothing holds them all in memory.
class RecordSource {
public:
    virtual ~RecordSource() = default;

    /// The table's or the file's name, for the title.
    virtual automation::String name() const = 0;
    virtual const std::vector<Column>& columns() const = 0;

    /// How many records are known to be there so far, and whether that is all of them.
    virtual std::int64_t knownCount() const = 0;
    virtual bool countIsFinal() const = 0;

    /// Goes on counting for a moment, to be called while the user does nothing. Throws SourceError where
    /// the file turns out to be broken.
    virtual void countOn() = 0;

    /// All records there are; counts to the end if need be.
    virtual std::int64_t count() = 0;

    /// The values of a record, one a column: Null where there is none, and a String where the value is not
    /// of its column's type. False, with `values` untouched, where there is no such record.
    virtual bool read(std::int64_t record, std::vector<automation::Variant>& values) = 0;
};

} // namespace fichas
