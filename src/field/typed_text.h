#pragma once
// What typed or pasted text becomes in a field of each type, and what it means.

#include "automation/Date.h"
#include "automation/String.h"
#include "field/field_enumerations.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tesela {

/// A text with the caret in it, counted from 0, which moves with what is dropped in front of it.
struct TypedText {
    automation::String text;
    std::int32_t caret = 0;
};

automation::String inCase(const automation::String& text, tslMayusculasConstants letterCase);
/// Blanks taken off the ends that the bits name.
automation::String trimmed(const automation::String& text, std::int32_t autoTrim);

/// Whether a decimal separator at the beginning gets a 0 before it.
enum class LeadingZero { Yes, No };

/// Only a sign in front, digits and one decimal separator stay.
TypedText filterNumber(const TypedText& typed, std::u16string_view decimalSeparator,
                       LeadingZero zero = LeadingZero::Yes);
/// Only a sign in front, digits, blanks and separators stay.
TypedText filterDate(const TypedText& typed, std::u16string_view dateSeparator);

/// How dates are typed, and what completes them.
struct DateEntry {
    automation::String separator;
    automation::String order; ///< "0" month first, "2" year first, else day first
    automation::Date today;
    std::int32_t completingYear = -1; ///< -1 is today's
};

/// Whether nothing but separators and blanks was typed.
bool isBlankDate(std::u16string_view text, std::u16string_view separator);
/// The date so many days from today that a sign and a number name; nothing for other texts. Error 5 or 6
/// outside of the calendar.
std::optional<automation::Date> relativeDate(std::u16string_view text, automation::Date today);
/// The date that three parts make, with a blank middle (the present month) or a blank last part (the
/// completing year). Nothing for a day that there isn't and for years before 1753.
std::optional<automation::Date> typedDate(std::u16string_view text, const DateEntry& entry);

/// The time of hours and minutes; midnight for a blank text, nothing for what is no time.
struct TypedTime {
    bool blank = false;
    automation::Date time;
};
std::optional<TypedTime> typedTime(std::u16string_view text, std::u16string_view timeSeparator);

/// A list of whole codes and ranges of them, such as "1, 5-9, 20-".
class CodeList {
public:
    enum class Fault {
        None,
        TwoDashes,      ///< Two in one element
        NoBounds,       ///< A range without numbers
        EqualElements,  //
        ElementInRange, ///< Of the range that follows
        RangeOverElement,
        RangesOverlap,
    };

    /// The text with single commas between its elements and no blank at a dash.
    static automation::String normalised(std::u16string_view text);
    /// Reads a normalised text. Error 6 for a number beyond a Long.
    explicit CodeList(std::u16string_view text);

    Fault fault() const { return fault_; }
    /// Where the faulty element stands in the text, from 0.
    std::int32_t faultStart() const { return faultStart_; }
    std::int32_t faultLength() const { return faultLength_; }
    /// The list in ascending order with ", " between its elements.
    automation::String text() const;
    /// What to tell the user; empty without a fault.
    static automation::String message(Fault fault);

private:
    /// `to` is 0 in a single code and the highest Long in a range without end.
    struct Row {
        std::int32_t from = 0;
        std::int32_t to = 0;
        std::int32_t start = 0;
        std::int32_t length = 0;
        bool isRange() const { return to != 0; }
        bool contains(std::int32_t code) const { return code >= from && code <= to; }
    };

    bool add(std::u16string_view element, std::int32_t start, std::int32_t length);
    bool addRange(std::u16string_view element, std::size_t dash, Row row);
    static Fault between(const Row& first, const Row& second);
    void sort();
    void check();
    void mark(Fault fault, const Row& row);

    std::vector<Row> rows_;
    Fault fault_ = Fault::None;
    std::int32_t faultStart_ = 0;
    std::int32_t faultLength_ = 0;
};

} // namespace tesela
