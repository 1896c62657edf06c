#pragma once
// What the window shows: records of one table or file, read by their number.

#include "automation/String.h"
#include "automation/Variant.h"

#include <algorithm>
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

/// A record that could not be written; nothing of it was. The text is for the user, in UTF-8.
class WriteError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The record is no longer as it was read: another program has changed it meanwhile.
class ChangedMeanwhile : public WriteError {
public:
    using WriteError::WriteError;
};

constexpr int mostLines = 6; ///< That a field shows of a text

/// The lines of a text; of other values 1.
int countLines(const automation::Variant& value);

enum class ColumnType { Text, Integer, Number, Currency, Date, DateTime, Time, Boolean, Binary };

struct Column {
    automation::String name;
    ColumnType type = ColumnType::Text;
    int decimals = -1;         ///< Of numbers: how many to show; -1 as many as the value has
    int digits = 0;            ///< Of numbers: how many before the decimals; 0 where nothing says
    int length = 0;            ///< Of texts: the most characters; 0 without a limit
    int lines = 1;             ///< Of texts: how many the first values have, up to mostLines
    bool isIdentifier = false; ///< Tells the record from the others, and is not to be changed
    bool isRequired = false;   ///< Takes no Null

    /// Learns from one of the first values how many lines there are.
    void noteLines(const automation::Variant& value) {
        if (type == ColumnType::Text) lines = std::clamp(countLines(value), lines, mostLines);
    }
};

/// Whether two values of a column are one. Null is equal to itself here.
bool isSameValue(const automation::Variant& a, const automation::Variant& b);

/// A new value for a column, counted from 0.
struct Change {
    std::size_t column = 0;
    automation::Variant value;
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

    /// Whether records can be written at all.
    virtual bool takesChanges() const { return false; }

    /// Writes changes of a record, all or none of them. `before` are its values as they were read: where they
    /// are others by now it throws ChangedMeanwhile, and WriteError where the changes can't be written.
    virtual void write(std::int64_t record, const std::vector<automation::Variant>& before,
                       const std::vector<Change>& changes);
};

} // namespace fichas
