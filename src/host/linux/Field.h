#pragma once

#include "automation/ClassTable.h"
#include "automation/Object.h"
#include "host/linux/RecordCursor.h"

#include <memory>

namespace host {

/// One column of a recordset: what it is, and its value in the present record. It may outlive its recordset;
/// then it raises Error 3704, as it does while the recordset is closed.
class Field final : public automation::Object {
public:
    Field(std::shared_ptr<RecordCursor> cursor, std::size_t column)
        : cursor_(std::move(cursor)), column_(column) {}

    static const automation::ClassTable& table();
    const automation::ClassTable& classTable() const override { return table(); }

    automation::String Name() const { return column().name; }
    /// The default member. Error 3021 where there is no present record.
    automation::Variant Value() const { return cursor_->value(column_); }
    FieldType Type() const { return column().declaration.type; }
    /// The most that a value can take: characters of a text, bytes of another value.
    std::int32_t DefinedSize() const;
    /// What the present value takes: characters of a text, bytes of another value, 0 for Null.
    std::int32_t ActualSize() const;
    /// Digits of a number and how many of them are decimals, as declared; 0 where nothing is.
    std::int32_t Precision() const { return column().declaration.precision; }
    std::int32_t NumericScale() const { return column().declaration.scale; }

private:
    const RecordCursor::Column& column() const;

    std::shared_ptr<RecordCursor> cursor_;
    std::size_t column_;
};

} // namespace host
