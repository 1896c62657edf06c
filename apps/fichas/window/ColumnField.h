#pragma once

#include "fichas/RecordSource.h"
#include "field/get.h"
#include "host/Form.h"

#include <optional>

namespace fichas {

/// A column of the record in a field of its type; a point of time has a second field for its hour. A column
/// of texts with several lines has a field of as many, where Ctrl+Enter begins another one. A value that the
/// field could not give back as it was (another type's, more lines, bytes) is shown as plain text.
class ColumnField {
public:
    /// Makes the fields on the form, empty and without a place. They go with the form, or with remove().
    ColumnField(host::Form& form, const Column& column, const automation::String& table, short index);
    ColumnField(const ColumnField&) = delete;
    ColumnField& operator=(const ColumnField&) = delete;
    ~ColumnField() = default;
    void remove(host::Form& form);

    tesela::get& field() const { return *field_; }
    /// Null for columns without one.
    tesela::get* hour() const { return hour_; }
    bool has(const host::Control* control) const {
        return control && (control == field_ || control == hour_);
    }

    /// Shows a value. With `isLocked` it can only be read.
    void show(const automation::Variant& value, bool isLocked);
    bool isLocked() const { return isLocked_; }
    /// Takes another value for the one that was shown; the texts stay as the user has left them.
    void rebase(const automation::Variant& value);

    /// What follows may be asked while neither of the fields has the focus.

    /// Whether the user has made another value of it.
    bool isChanged() const;
    /// The value as it stands now; what was shown, where nothing was changed.
    automation::Variant value() const;
    /// What is wrong with the value as it stands, for the user; empty where nothing is.
    automation::String fault();

    /// The same of a field that has the focus and is about to lose it. Completes dates and hours.
    automation::String faultOnLeaving(tesela::get& field);

private:
    struct Part {
        automation::String shown;   ///< The text that show() has left
        automation::String atFocus; ///< The text when the focus came
        bool isBlank = false;       ///< The text that is being typed is none
    };

    void prepare(tesela::get& field, Part& part);
    void dress(bool asText);
    void dressAsNumber();
    void write(const automation::Variant& value);
    void breakLine();
    bool canShowLines(const automation::Variant& value) const;
    automation::String storedText(const automation::String& text) const;
    bool fitsColumn(const automation::Variant& value) const;
    bool givesBack(const automation::Variant& value) const;
    bool isNumber() const;
    bool hasDay() const;
    std::optional<automation::Variant> read() const;
    bool isMultiLine() const { return !isText_ && column_.type == ColumnType::Text && column_.lines > 1; }
    std::optional<automation::Variant> readNumber(const automation::String& text) const;
    std::optional<automation::Variant> readMoment(const automation::String& text) const;
    automation::String faultOfEntry(tesela::get& field);
    automation::String wrongValue(const automation::String& text) const;

    Column column_;
    tesela::get* field_ = nullptr;
    tesela::get* hour_ = nullptr;
    Part part_;
    Part hourPart_;
    automation::Variant value_ = automation::Variant::null(); ///< As it was shown
    bool isText_ = true;
    bool isDressed_ = false;
    bool isLocked_ = false;
};

} // namespace fichas
