#pragma once
// The place in the rows of an open recordset and the values of the row there, which the recordset shares
// with its fields.

#include "automation/String.h"
#include "automation/Variant.h"
#include "host/linux/ColumnValue.h"
#include "host/linux/RowSet.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace host {

/// Numbers of the errors that a recordset raises.
namespace recordsetErrors {
inline constexpr std::int32_t InvalidArgument = 3001;
inline constexpr std::int32_t NoCurrentRecord = 3021;
inline constexpr std::int32_t ItemNotFound = 3265;
inline constexpr std::int32_t ObjectClosed = 3704;
inline constexpr std::int32_t ObjectOpen = 3705;
inline constexpr std::int32_t RecordDeleted = static_cast<std::int32_t>(0x80040E23u);
inline constexpr std::int32_t DatabaseFailure = static_cast<std::int32_t>(0x80004005u);
} // namespace recordsetErrors

/// Throws the error with its text; the source is "Recordset".
[[noreturn]] void throwRecordsetError(std::int32_t number);

/// Runs `work` and turns what the database complains about into an automation::Error.
template <class F>
auto withDatabaseErrors(F&& work) {
    try {
        return work();
    } catch (const platform::DatabaseError& error) {
        throw automation::Error(recordsetErrors::DatabaseFailure, automation::String::fromUtf8(error.what()),
                                u"Recordset");
    }
}

class RecordCursor {
public:
    struct Column {
        automation::String name;
        FieldDeclaration declaration;
    };

    /// Starts on the first row, or at both ends of an empty set.
    void open(std::unique_ptr<SourceRows> rows);
    /// Goes through those rows that meet a condition of SQL, in an order of SQL, from the first one on. Both
    /// empty are all rows as they are.
    void select(const std::string& condition, const std::string& order);
    /// The condition of SQL for the rows of these bookmarks.
    std::string conditionOf(const std::vector<std::int64_t>& bookmarks) const;
    void close();
    bool isOpen() const { return source_ != nullptr; }

    /// Error 3704 while closed.
    const std::vector<Column>& columns() const;
    RowSet& rows() const;

    /// 0 before the first row; one past the last row after it.
    std::int64_t position() const { return position_; }
    bool isBefore() const { return isOpen() && position_ == 0; }
    bool isAfter() const { return isOpen() && isPastEnd_; }
    bool isOnRow() const { return isOpen() && position_ > 0 && !isPastEnd_; }

    /// Goes to a row or, where there is none, before the first or after the last.
    void moveTo(std::int64_t position);
    void moveToEnd();

    /// The present row's value. Errors 3704 closed, 3021 on no row, 0x80040E23 when the row has been deleted.
    const automation::Variant& value(std::size_t column);

private:
    void load();

    std::unique_ptr<SourceRows> source_;
    std::unique_ptr<RowSet> selected_; ///< Null while all rows are gone through as they are
    std::vector<Column> columns_;
    std::int64_t position_ = 0;
    bool isPastEnd_ = false;
    bool isLoaded_ = false;
    std::vector<automation::Variant> values_;
};

} // namespace host
