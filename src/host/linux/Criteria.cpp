#include "host/linux/Criteria.h"

#include "automation/Characters.h"
#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/DateText.h"
#include "automation/Error.h"
#include "automation/Locale.h"
#include "host/linux/RecordCursor.h"
#include "platform/linux/collation.h"
#include "platform/locale.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace host {

using automation::Date;
using automation::isAsciiLetter;
using automation::isDigit;
using automation::String;
using platform::DatabaseValue;

namespace {

// -------------------------------------------------------------------------- values that SQL compares

/// Days in a straight line.
double linear(Date date) {
    return date.dayNumber() + static_cast<double>(date.secondOfDay()) / Date::secondsPerDay;
}

/// The texts as SQL's functions give them; what is no text stays.
DatabaseValue folded(const DatabaseValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (!text) return value;
    return platform::utf8FromWide(platform::upperCase(platform::wideFromUtf8(*text)));
}

DatabaseValue dictionaryPlace(const DatabaseValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text ? DatabaseValue(platform::driver::sortKey(platform::wideFromUtf8(*text))) : value;
}

/// The moment that a stored value means, NULL where it means none.
DatabaseValue moment(const DatabaseValue& value) {
    const automation::Variant date = columnValue(value, FieldType::DateTime);
    if (date.type() != automation::VT_DATE) return std::monostate{};
    return linear(date.asDate());
}

std::string call(const char* function, const std::string& argument) {
    return std::string(function) + "(" + argument + ")";
}

std::string sqlText(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text)
        quoted.append(c == '\'' ? 2 : 1, c);
    return quoted + "'";
}

std::string sqlBytes(const platform::Bytes& bytes) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text = "x'";
    for (const std::uint8_t byte : bytes)
        text.append({digits[byte >> 4], digits[byte & 0xF]});
    return text + "'";
}

std::string sqlNumber(double number) {
    char digits[64];
    return {digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr};
}

bool isTextType(FieldType type) {
    return type == FieldType::Text || type == FieldType::Variant;
}

bool isDateType(FieldType type) {
    return type == FieldType::Date || type == FieldType::Time || type == FieldType::DateTime;
}

/// What orders the values of a column.
std::string orderedValue(const CriteriaColumn& column) {
    if (isTextType(column.type)) return call("tesela_diccionario", column.expression);
    if (isDateType(column.type)) return call("tesela_momento", column.expression);
    return column.expression;
}

// ------------------------------------------------------------------------------------- reading words

bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool isNameCharacter(char16_t c) {
    return isDigit(c) || isAsciiLetter(c) || c == u'_' || c == u'$' || c >= 0x80;
}

/// A value that a column is compared with.
struct Literal {
    enum class Kind { Text, Number, Date, Boolean, Null };
    Kind kind = Kind::Null;
    std::u16string text; ///< Of a text, and the digits of a number
    double number = 0;   ///< Of a number; of a date its place; of a Boolean 0 or -1
};

class CriteriaReader {
public:
    CriteriaReader(const String& criteria, const std::vector<CriteriaColumn>& columns)
        : criteria_(criteria), rest_(criteria_), columns_(columns) {}

    std::string filter() {
        std::string condition = joined(0);
        if (!atEnd()) fail();
        return condition;
    }

    std::string comparison() {
        std::string condition = clause();
        if (!atEnd()) fail();
        return condition;
    }

    std::string order() {
        std::string terms;
        while (!atEnd()) {
            if (!terms.empty()) {
                if (!takeSign(u",")) fail();
                terms += ", ";
            }
            terms += orderedValue(column());
            if (takeWord(u"desc"))
                terms += " DESC";
            else
                takeWord(u"asc");
        }
        return terms;
    }

private:
    [[noreturn]] void fail() const {
        throw automation::Error(recordsetErrors::InvalidArgument, u"El criterio no es válido: " + criteria_,
                                u"Recordset");
    }

    void skipBlanks() {
        while (!rest_.empty() && isBlank(rest_.front()))
            rest_.remove_prefix(1);
    }
    bool atEnd() {
        skipBlanks();
        return rest_.empty();
    }
    bool takeSign(std::u16string_view sign) {
        skipBlanks();
        if (!rest_.starts_with(sign)) return false;
        rest_.remove_prefix(sign.size());
        return true;
    }
    std::u16string_view word() const {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), isNameCharacter);
        return rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    }
    /// A word of the language, given in small letters.
    bool takeWord(std::u16string_view wanted) {
        skipBlanks();
        const std::u16string_view found = word();
        if (platform::lowerCase(found) != wanted) return false;
        rest_.remove_prefix(found.size());
        return true;
    }
    /// What stands before the closing sign, which goes too.
    std::u16string_view takeUntil(char16_t closing) {
        const std::size_t end = rest_.find(closing);
        if (end == rest_.npos) fail();
        const std::u16string_view inside = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        return inside;
    }

    const CriteriaColumn& column() {
        std::u16string_view name;
        if (takeSign(u"[")) {
            name = takeUntil(u']');
        } else {
            skipBlanks();
            name = word();
            rest_.remove_prefix(name.size());
        }
        if (name.empty()) fail();
        const std::u16string wanted = platform::lowerCase(name);
        for (const CriteriaColumn& each : columns_)
            if (platform::lowerCase(each.name) == wanted) return each;
        throwRecordsetError(recordsetErrors::ItemNotFound);
    }

    std::string joined(int depth) {
        std::string condition = operand(depth);
        while (true) {
            const char* join = takeWord(u"and") ? " AND " : takeWord(u"or") ? " OR " : nullptr;
            if (!join) return condition;
            condition.insert(0, "(").append(join).append(operand(depth)).append(")");
        }
    }

    std::string operand(int depth) {
        constexpr int deepest = 64;
        if (!takeSign(u"(")) return clause();
        if (depth == deepest) fail();
        std::string condition = joined(depth + 1);
        if (!takeSign(u")")) fail();
        return condition;
    }

    std::string clause() {
        const CriteriaColumn& subject = column();
        if (takeWord(u"like")) return likeness(subject, literal());
        for (const char16_t* sign : {u"=", u"<>", u"<=", u">=", u"<", u">"})
            if (takeSign(sign)) return comparisonOf(subject, String(sign).utf8(), literal());
        fail();
    }

    // --------------------------------------------------------------------------------------- literals

    Literal literal() {
        if (takeSign(u"'")) return quotedText();
        if (takeSign(u"#")) return date(takeUntil(u'#'));
        if (takeWord(u"null")) return {};
        if (takeWord(u"true")) return {Literal::Kind::Boolean, {}, -1};
        if (takeWord(u"false")) return {Literal::Kind::Boolean, {}, 0};
        return number();
    }

    /// Behind the opening quote; a doubled one inside stands for itself.
    Literal quotedText() {
        Literal found{Literal::Kind::Text, std::u16string(takeUntil(u'\'')), 0};
        while (rest_.starts_with(u'\'')) {
            rest_.remove_prefix(1);
            found.text += u'\'';
            found.text += takeUntil(u'\'');
        }
        if (found.text.find(u'\0') != found.text.npos) fail(); // it would end the statement
        return found;
    }

    Literal date(std::u16string_view text) const {
        constexpr platform::LCID monthFirst = 0x0409; // English of the United States
        static const automation::Locale locale(monthFirst);
        Date found;
        if (!automation::readDate(text, locale, automation::Now().split().year, found)) fail();
        return {Literal::Kind::Date, {}, linear(found)};
    }

    Literal number() {
        skipBlanks();
        std::string digits;
        for (const char16_t c : rest_) {
            const bool afterExponent = !digits.empty() && (digits.back() == 'e' || digits.back() == 'E');
            const bool isSign = c == u'-' && (digits.empty() || afterExponent);
            if (!isDigit(c) && c != u'.' && c != u'e' && c != u'E' && !isSign) break;
            digits += static_cast<char>(c);
        }
        Literal found{Literal::Kind::Number, {digits.begin(), digits.end()}, 0};
        const char* end = digits.data() + digits.size();
        const auto [stop, error] = std::from_chars(digits.data(), end, found.number);
        if (digits.empty() || stop != end || error != std::errc()) fail();
        rest_.remove_prefix(digits.size());
        if (!rest_.empty() && isNameCharacter(rest_.front())) fail();
        return found;
    }

    // ------------------------------------------------------------------------------------ comparisons

    std::string comparisonOf(const CriteriaColumn& subject, const std::string& sign,
                             const Literal& value) const {
        if (value.kind == Literal::Kind::Null) return nullness(subject, sign);
        switch (subject.type) {
        case FieldType::Binary:
            fail();
        case FieldType::Boolean:
            return "((" + subject.expression + " <> 0) " + sign + (truth(value) ? " 1)" : " 0)");
        case FieldType::Date:
        case FieldType::Time:
        case FieldType::DateTime:
            return momentComparison(subject, sign, value);
        case FieldType::Text:
            if (value.kind == Literal::Kind::Date || value.kind == Literal::Kind::Boolean) fail();
            return textComparison(subject, sign, value.text);
        case FieldType::Variant:
            if (value.kind == Literal::Kind::Text) return textComparison(subject, sign, value.text);
            if (value.kind == Literal::Kind::Date) return momentComparison(subject, sign, value);
            [[fallthrough]];
        default:
            return "(" + subject.expression + " " + sign + " " + numberText(value) + " AND typeof(" +
                   subject.expression + ") IN ('integer', 'real'))";
        }
    }

    std::string nullness(const CriteriaColumn& subject, const std::string& sign) const {
        if (sign != "=" && sign != "<>") fail();
        return "(" + subject.expression + (sign == "=" ? " IS NULL)" : " IS NOT NULL)");
    }

    std::string momentComparison(const CriteriaColumn& subject, const std::string& sign,
                                 const Literal& value) const {
        double place = value.number;
        if (value.kind == Literal::Kind::Text)
            place = converted([&] { return linear(automation::dateFromText(value.text)); });
        return "(" + call("tesela_momento", subject.expression) + " " + sign + " " + sqlNumber(place) + ")";
    }

    std::string textComparison(const CriteriaColumn& subject, const std::string& sign,
                               const std::u16string& text) const {
        if (sign == "=" || sign == "<>")
            return "(" + call("tesela_mayusculas", subject.expression) + " " + sign + " " + capitals(text) +
                   ")";
        return "(" + call("tesela_diccionario", subject.expression) + " " + sign + " " +
               sqlBytes(platform::driver::sortKey(text)) + ")";
    }

    std::string likeness(const CriteriaColumn& subject, const Literal& value) const {
        if (value.kind != Literal::Kind::Text || !isTextType(subject.type)) fail();
        const auto isWildcard = [](char16_t c) { return c == u'*' || c == u'%'; };
        std::u16string_view pattern = value.text;
        const bool opens = pattern.size() > 1 && isWildcard(pattern.front());
        if (opens) pattern.remove_prefix(1);
        const bool closes = !pattern.empty() && isWildcard(pattern.back());
        if (closes) pattern.remove_suffix(1);
        if ((opens && !closes) || std::any_of(pattern.begin(), pattern.end(), isWildcard)) fail();
        const std::string place =
            "instr(" + call("tesela_mayusculas", subject.expression) + ", " + capitals(pattern) + ")";
        if (opens) return "(" + place + " > 0)";
        if (closes) return "(" + place + " = 1)";
        return textComparison(subject, "=", value.text);
    }

    static std::string capitals(std::u16string_view text) {
        return sqlText(platform::utf8FromWide(platform::upperCase(text)));
    }

    bool truth(const Literal& value) const {
        if (value.kind != Literal::Kind::Text) return value.number != 0;
        return converted([&] { return automation::CBool(String(value.text)); });
    }

    /// The digits of a number as they are written, so that none is lost.
    std::string numberText(const Literal& value) const {
        if (value.kind == Literal::Kind::Number) return String(value.text).utf8();
        if (value.kind != Literal::Kind::Text) return sqlNumber(value.number);
        return converted([&] { return sqlNumber(automation::CDbl(String(value.text))); });
    }

    /// Runs a conversion of the value; one that cannot be made makes the criteria wrong.
    template <class F>
    auto converted(F&& conversion) const -> decltype(conversion()) {
        try {
            return conversion();
        } catch (const automation::Error&) {
            fail();
        }
    }

    const String criteria_;
    std::u16string_view rest_;
    const std::vector<CriteriaColumn>& columns_;
};

} // namespace

void defineCriteriaFunctions(const platform::Database& database) {
    database.define("tesela_mayusculas", folded);
    database.define("tesela_diccionario", dictionaryPlace);
    database.define("tesela_momento", moment);
}

std::string filterCondition(const String& criteria, const std::vector<CriteriaColumn>& columns) {
    return CriteriaReader(criteria, columns).filter();
}

std::string findCondition(const String& criteria, const std::vector<CriteriaColumn>& columns) {
    return CriteriaReader(criteria, columns).comparison();
}

std::string orderTerms(const String& columnsInOrder, const std::vector<CriteriaColumn>& columns) {
    return CriteriaReader(columnsInOrder, columns).order();
}

} // namespace host
