#pragma once
// The user's locale as the conversions need it: separators, patterns and names, read once and kept until
// the locale changes.

#include "platform/types.h"

#include <array>
#include <string>
#include <string_view>

namespace automation {

/// Order of day, month and year in the locale's short dates.
enum class DateOrder : int { MonthDayYear = 0, DayMonthYear = 1, YearMonthDay = 2 };

/// One locale's strings and choices. Months are counted from 0 (January), days from 0 (Sunday).
class Locale {
public:
    /// The user's locale now. Cheap: one comparison of the locale's generation, unless it has changed.
    /// The reference is good until the locale changes.
    static const Locale& user();

    /// Reads all strings of `id` from the system.
    explicit Locale(platform::LCID id);

    platform::LCID id = 0;

    std::u16string decimal;   ///< Decimal separator of numbers
    std::u16string thousands; ///< Group separator of numbers
    std::u16string list;      ///< List separator
    int groupSize = 3;        ///< Digits in a group; 0 for none
    int decimals = 2;         ///< Decimals of a number when a format does not say
    bool leadingZero = true;  ///< "0.5" rather than ".5"
    int negativeNumberForm = 1;

    std::u16string currencySymbol;
    std::u16string currencyDecimal;
    std::u16string currencyThousands;
    int currencyDecimals = 2;
    int positiveCurrencyForm = 0; ///< 0 to 3
    int negativeCurrencyForm = 1; ///< 0 to 15

    std::u16string dateSeparator;
    std::u16string timeSeparator;
    std::u16string shortDate;  ///< Pattern in the system's letters, "dd/MM/yyyy"
    std::u16string longDate;   ///< "dddd, d' de 'MMMM' de 'yyyy"
    std::u16string timeFormat; ///< "H:mm:ss"
    DateOrder dateOrder = DateOrder::MonthDayYear;
    bool hours24 = false;
    std::u16string morning;   ///< "AM"; may be empty
    std::u16string afternoon; ///< "PM"; may be empty
    int firstDayOfWeek = 1;   ///< 1 is Sunday ... 7 Saturday
    int firstWeekOfYear = 1;  ///< 1: week of 1 January, 2: first with four days, 3: first full week

    std::array<std::u16string, 7> dayNames;
    std::array<std::u16string, 7> shortDayNames;
    std::array<std::u16string, 12> monthNames;
    std::array<std::u16string, 12> shortMonthNames;

    std::u16string_view trueText;  ///< "Verdadero", "True": the language's own word
    std::u16string_view falseText; ///< "Falso", "False"
    std::u16string_view yesText;   ///< "Sí", "Yes"
    std::u16string_view noText;    ///< "No"
    std::u16string_view onText;    ///< "Activado", "On"
    std::u16string_view offText;   ///< "Desactivado", "Off"
};

} // namespace automation
