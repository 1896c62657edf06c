// Comparison and arithmetic held against the system's own functions, over generated values of every pair
// of types and in two locales.

#include "automation/Conversions.h"
#include "automation/Error.h"
#include "automation/Operators.h"

#include "platform/locale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <sstream>
#include <string_view>
#include <vector>

#include <windows.h>

#include <oleauto.h>

namespace {

using automation::Currency;
using automation::Date;
using automation::Decimal;
using automation::Error;
using automation::Variant;

constexpr LCID spanish = 0x0C0A;
constexpr LCID english = 0x0409;

/// The system's form of a value; frees what it holds.
class Native {
public:
    Native() { VariantInit(&raw); }
    explicit Native(const Variant& value) : Native() {
        if (value.isString()) {
            raw.vt = ::VT_BSTR;
            raw.bstrVal = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(value.asString().c_str()),
                                            static_cast<UINT>(value.asString().length()));
        } else {
            // Plain values have the system's own layout.
            std::memcpy(static_cast<void*>(&raw), static_cast<const void*>(&value), sizeof value);
        }
    }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native() { VariantClear(&raw); }

    Variant value() const {
        if (raw.vt == ::VT_BSTR) {
            const auto* text = reinterpret_cast<const char16_t*>(raw.bstrVal);
            return std::u16string_view(text, SysStringLen(raw.bstrVal));
        }
        Variant result;
        std::memcpy(static_cast<void*>(&result), static_cast<const void*>(&raw), sizeof result);
        return result;
    }

    VARIANT raw;
};

/// What an operator gave: a value, or the number of an error.
struct Outcome {
    std::int32_t error = 0;
    Variant value;
};

Outcome ourOutcome(const std::function<Variant()>& action) {
    try {
        return {0, action()};
    } catch (const Error& error) {
        return {error.number(), {}};
    }
}

const char* typeName(const Variant& value) {
    static const std::map<int, const char*> names = {
        {0, "Empty"},    {1, "Null"},     {2, "Integer"}, {3, "Long"},   {4, "Single"},
        {5, "Double"},   {6, "Currency"}, {7, "Date"},    {8, "String"}, {10, "Error"},
        {11, "Boolean"}, {14, "Decimal"}, {17, "Byte"}};
    const auto found = names.find(value.type());
    return found == names.end() ? "?" : found->second;
}

std::string described(const Variant& value) {
    std::ostringstream text;
    text << typeName(value);
    switch (value.type()) {
    case automation::VT_UI1:
        text << " " << int{value.asByte()};
        break;
    case automation::VT_I2:
        text << " " << value.asInteger();
        break;
    case automation::VT_I4:
        text << " " << value.asLong();
        break;
    case automation::VT_R4:
        text << " " << std::hexfloat << value.asSingle();
        break;
    case automation::VT_R8:
        text.precision(17);
        text << " " << value.asDouble();
        break;
    case automation::VT_CY:
        text << " " << value.asCurrency().scaled() << "e-4";
        break;
    case automation::VT_DATE:
        text.precision(17);
        text << " " << value.asDate().value();
        break;
    case automation::VT_BSTR:
        text << " \"" << value.asString().utf8() << "\"";
        break;
    case automation::VT_BOOL:
        text << (value.asBoolean() ? " True" : " False");
        break;
    case automation::VT_DECIMAL:
        text << " " << value.asDecimal().text();
        break;
    default:
        break;
    }
    return text.str();
}

std::string described(const Outcome& outcome) {
    return outcome.error ? "error " + std::to_string(outcome.error) : described(outcome.value);
}

/// The same type and value. `tolerance` is relative and speaks of Doubles.
bool same(const Outcome& a, const Outcome& b, double tolerance) {
    if (a.error || b.error) return a.error == b.error;
    if (a.value.type() != b.value.type()) return false;
    if (a.value.type() == automation::VT_R8) {
        const double x = a.value.asDouble();
        const double y = b.value.asDouble();
        return x == y || std::fabs(x - y) <= tolerance * std::fabs(x);
    }
    if (a.value.isNull() || a.value.isEmpty()) return true;
    return isEqual(a.value, b.value);
}

struct Operation {
    const char* name;
    Variant (*ours)(const Variant&, const Variant&);
    HRESULT(WINAPI* theirs)(VARIANT*, VARIANT*, VARIANT*);
    double tolerance = 0;
    bool isLogical = false;
};

constexpr double lastPlaces = 1e-12; // power functions differ in their last places

const Operation operations[] = {
    {"add", automation::add, VarAdd},
    {"subtract", automation::subtract, VarSub},
    {"multiply", automation::multiply, VarMul},
    {"divide", automation::divide, VarDiv},
    {"integerDivide", automation::integerDivide, VarIdiv},
    {"modulo", automation::modulo, VarMod},
    {"power", automation::power, VarPow, lastPlaces},
    {"concatenate", automation::concatenate, VarCat},
    {"logicalAnd", automation::logicalAnd, VarAnd, 0, true},
    {"logicalOr", automation::logicalOr, VarOr, 0, true},
    {"logicalXor", automation::logicalXor, VarXor, 0, true},
    {"logicalEqv", automation::logicalEqv, VarEqv, 0, true},
    {"logicalImp", automation::logicalImp, VarImp, 0, true},
};

struct UnaryOperation {
    const char* name;
    Variant (*ours)(const Variant&);
    HRESULT(WINAPI* theirs)(VARIANT*, VARIANT*);
};

const UnaryOperation unaryOperations[] = {
    {"negate", automation::negate, VarNeg},
    {"logicalNot", automation::logicalNot, VarNot},
};

/// Edge values of every type, and some at random.
std::vector<Variant> generatedValues(bool commaDecimals) {
    constexpr float singles[] = {0, 1.5f, -2.5f, 0.1f, 3.4e38f, 7};
    constexpr double doubles[] = {0, 0.5, -1.5, 2.5, 0.1, 1e300, 2147483648.0, 7, -3};
    constexpr std::int64_t monies[] = {0, 15000, -22500, std::numeric_limits<std::int64_t>::max(), 1, 70000};
    constexpr double dates[] = {0, 36526.5, -1.25, 2958465, 7};
    std::vector<Variant> values = {Variant(), Variant::null(), true, false};
    for (const int n : {0, 1, -1, 7, 32767, -32768, 300})
        values.emplace_back(static_cast<std::int16_t>(n));
    for (const std::int32_t n : {0, 1, -1, 7, 2147483647, -2147483647 - 1, 65536})
        values.emplace_back(n);
    for (const int n : {0, 1, 7, 200, 255})
        values.emplace_back(static_cast<std::uint8_t>(n));
    for (const float n : singles)
        values.emplace_back(n);
    for (const double n : doubles)
        values.emplace_back(n);
    for (const std::int64_t n : monies)
        values.emplace_back(Currency::fromScaled(n));
    for (const double n : dates)
        values.emplace_back(Date(n));
    for (const char16_t* text : {u"7", u"-12", u"0", u"", u"abc", u"70000"})
        values.emplace_back(text);
    values.emplace_back(commaDecimals ? u"1.234,5" : u"1,234.5");
    for (const char* text :
         {"0", "7", "1.5", "-0.001", "79228162514264337593543950335", "0.3333333333333333333333333333"})
        values.emplace_back(*Decimal::parse(text));

    std::mt19937 random(20240301);
    for (int i = 0; i < 3; ++i) {
        values.emplace_back(static_cast<std::int16_t>(random()));
        values.emplace_back(static_cast<std::int32_t>(random()));
        values.emplace_back(static_cast<double>(static_cast<std::int32_t>(random())) / 1024);
        values.emplace_back(Currency::fromScaled(static_cast<std::int32_t>(random())));
        values.emplace_back(Date(static_cast<double>(random() % 60000) / 8));
    }
    return values;
}

bool hasSeparators(const Variant& value) {
    return value.isString() && value.asString().view().find_first_of(u".,") != std::u16string_view::npos;
}

/// The operand as the system's functions take it. They read texts in the user's locale only, so a text
/// with separators is first made a number by the system in the locale that is tested; for a join, all
/// values become texts that way.
bool prepare(Native& operand, LCID locale, bool asText) {
    if (asText) {
        if (operand.raw.vt == ::VT_NULL) return true;
        return SUCCEEDED(
            VariantChangeTypeEx(&operand.raw, &operand.raw, locale, VARIANT_LOCALBOOL, ::VT_BSTR));
    }
    if (operand.raw.vt != ::VT_BSTR || !std::wcspbrk(operand.raw.bstrVal, L".,")) return true;
    return SUCCEEDED(VariantChangeTypeEx(&operand.raw, &operand.raw, locale, 0, ::VT_R8));
}

std::int32_t wholeOrZero(const Variant& value) {
    try {
        return automation::CLng(value);
    } catch (const Error&) {
        return 0;
    }
}

/// Wine divides the least Long by -1 with a processor instruction that faults.
bool faults(const Operation& operation, const Variant& a, const Variant& b) {
    const bool divides = operation.theirs == VarIdiv || operation.theirs == VarMod;
    return divides && wholeOrZero(a) == std::numeric_limits<std::int32_t>::min() && wholeOrZero(b) == -1;
}

/// A pair that was asked, and both answers. `b` is null for the operators of one operand.
struct Question {
    std::string_view operation;
    const Variant& a;
    const Variant* b;
    Outcome ours;
    Outcome theirs;

    bool has(automation::VARTYPE type) const { return a.type() == type || (b && b->type() == type); }
    bool isOneOf(std::initializer_list<std::string_view> names) const {
        return std::find(names.begin(), names.end(), operation) != names.end();
    }
};

bool isWhole(const Variant& v) {
    switch (v.type()) {
    case automation::VT_EMPTY:
    case automation::VT_UI1:
    case automation::VT_BOOL:
    case automation::VT_I2:
    case automation::VT_I4:
        return true;
    default:
        return false;
    }
}

bool isLargeCurrency(const Variant& v) {
    constexpr std::int64_t exactInDouble = std::int64_t{1} << 53;
    return v.type() == automation::VT_CY && std::abs(v.asCurrency().scaled()) > exactInDouble;
}

bool isOneCurrencyPlaceApart(const Outcome& a, const Outcome& b) {
    if (a.value.type() != automation::VT_CY || b.value.type() != automation::VT_CY) return false;
    return std::abs(a.value.asCurrency().scaled() - b.value.asCurrency().scaled()) == 1;
}

bool isLongDecimal(const Variant& v) {
    return v.type() == automation::VT_DECIMAL && v.asDecimal().scale() == Decimal::maxScale;
}

bool isInfiniteOrNone(const Outcome& outcome) {
    if (outcome.error) return false;
    if (outcome.value.type() == automation::VT_R8) return !std::isfinite(outcome.value.asDouble());
    return outcome.value.type() == automation::VT_R4 && !std::isfinite(outcome.value.asSingle());
}

bool isOnePlaceApart(const Outcome& a, const Outcome& b) {
    if (a.error || b.error || a.value.type() != automation::VT_DECIMAL ||
        b.value.type() != automation::VT_DECIMAL)
        return false;
    const Decimal x = a.value.asDecimal();
    const Decimal gap = x - b.value.asDecimal();
    return Decimal(gap.low(), gap.high(), 0, false) <= Decimal(1, 0, 0, false) && gap.scale() >= x.scale();
}

/// A difference that remains, and why ours stays as it is. All of them are Wine's; none is expected on
/// the system itself.
struct Difference {
    const char* reason;
    bool (*covers)(const Question&);
};

constexpr std::int32_t typeNotSupported = 458;
constexpr std::int32_t unspecifiedFailure = static_cast<std::int32_t>(0x80004005u);

const Difference differences[] = {
    {"Wine refuses Empty as a divisor and error values as a type that it does not know; the language takes "
     "Empty "
     "as 0 and reports a type mismatch",
     [](const Question& q) { return q.theirs.error == typeNotSupported; }},
    {"Wine adds, subtracts, multiplies and compares Currency as Doubles, which lose the last digits and the "
     "ties",
     [](const Question& q) {
         return q.isOneOf({"add", "subtract", "multiply", "compare"}) &&
                (isLargeCurrency(q.a) || isLargeCurrency(*q.b) || isLargeCurrency(q.ours.value) ||
                 (q.operation == "multiply" && isOneCurrencyPlaceApart(q.ours, q.theirs)));
     }},
    {"Wine takes True as 1 beside a Decimal; the language counts it as -1 everywhere",
     [](const Question& q) { return q.has(automation::VT_BOOL) && q.has(automation::VT_DECIMAL); }},
    {"Wine makes a Decimal of all digits of a Double; the system takes 15",
     [](const Question& q) { return q.has(automation::VT_DECIMAL) && q.has(automation::VT_R8); }},
    {"Wine aligns a Decimal of 28 decimals wrongly when the other side has a large whole part",
     [](const Question& q) {
         return q.isOneOf({"add", "subtract"}) && (isLongDecimal(q.a) || isLongDecimal(*q.b));
     }},
    {"Wine cuts the last digit of a Decimal quotient; the system rounds it half to even",
     [](const Question& q) { return q.operation == "divide" && isOnePlaceApart(q.ours, q.theirs); }},
    {"Wine calls 0/0 of Decimals a division by zero; the language has an overflow there",
     [](const Question& q) {
         return q.operation == "divide" && q.has(automation::VT_DECIMAL) && q.ours.error == 6 &&
                q.theirs.error == 11;
     }},
    {"Beyond the range of dates the language gives a Double; Wine gives a Decimal, an overflow or an invalid "
     "Date",
     [](const Question& q) {
         return q.isOneOf({"add", "subtract", "negate"}) && q.has(automation::VT_DATE) &&
                (q.ours.value.type() == automation::VT_R8 || q.theirs.error == 6);
     }},
    {"Wine multiplies Decimals in fewer bits than their product has, and cuts what it rounds",
     [](const Question& q) {
         return q.operation == "multiply" && q.has(automation::VT_DECIMAL) &&
                (q.ours.error == 6 || isLongDecimal(q.a) || isLongDecimal(*q.b));
     }},
    {"Wine lets infinities and not-a-numbers out; the language raises an error",
     [](const Question& q) { return q.ours.error != 0 && isInfiniteOrNone(q.theirs); }},
    {"Wine reports an unspecified failure for a text that is no number",
     [](const Question& q) { return q.ours.error == 13 && q.theirs.error == unspecifiedFailure; }},
    {"Wine wraps around in differences of whole numbers and in the quotient -32768 by -1; the language "
     "widens or "
     "overflows",
     [](const Question& q) {
         return q.isOneOf({"subtract", "integerDivide"}) && isWhole(q.a) && isWhole(*q.b) && !q.theirs.error;
     }},
    {"Wine takes remainders of 64-bit numbers; the language overflows beyond a Long",
     [](const Question& q) { return q.operation == "modulo" && q.ours.error == 6; }},
    {"Wine rounds a negative Currency away from zero before it takes the remainder",
     [](const Question& q) { return q.operation == "modulo" && q.has(automation::VT_CY); }},
    {"Wine does not look at the divisor when Empty is divided",
     [](const Question& q) { return q.operation == "modulo" && q.a.isEmpty() && q.ours.error != 0; }},
    {"Wine writes the exponent form of a Single with a point in every locale",
     [](const Question& q) { return q.operation == "concatenate" && q.has(automation::VT_R4); }},
    {"Wine gives zero for a known left side and Null, or does not look at the known side; the language gives "
     "Null unless the known side is zero",
     [](const Question& q) { return q.operation == "logicalAnd" && q.has(automation::VT_NULL); }},
    {"Wine reads a text on the left side of Or, and beside Empty, as a Boolean whatever is on the right",
     [](const Question& q) {
         return q.operation == "logicalOr" && (q.a.isString() || (q.a.isEmpty() && q.b->isString()));
     }},
    {"Wine reads a text before a number in Xor and Eqv, so that its error comes first",
     [](const Question& q) {
         return q.isOneOf({"logicalXor", "logicalEqv"}) && q.b->isString() && q.ours.error == 6 &&
                q.theirs.error == 13;
     }},
    {"Wine overlooks that a Decimal is beyond a Long when it implies Null",
     [](const Question& q) {
         return q.operation == "logicalImp" && q.a.type() == automation::VT_DECIMAL && q.ours.error == 6;
     }},
};

bool isWine() {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    return system && GetProcAddress(system, "wine_get_version") != nullptr;
}

/// Asks every question of a locale and keeps the count of what was found.
class Examination {
public:
    /// Differences that the table explains are counted in `found`.
    Examination(LCID locale, std::map<const char*, int>& found)
        : locale_(locale), values_(generatedValues(locale == spanish)), found_(found) {
        platform::overrideUserLocale(locale == spanish ? "es-ES" : "en-US");
    }
    Examination(const Examination&) = delete;
    Examination& operator=(const Examination&) = delete;
    ~Examination() { platform::overrideUserLocale(""); }

    void askBinary(const Operation& operation) {
        for (const Variant& a : values_)
            for (const Variant& b : values_)
                askPair(operation, a, b);
    }

    void askUnary(const UnaryOperation& operation) {
        for (const Variant& a : values_) {
            Native operand(a);
            if (!prepare(operand, locale_, false)) continue;
            Native result;
            const HRESULT code = operation.theirs(&operand.raw, &result.raw);
            compareOutcomes({operation.name, a, nullptr, ourOutcome([&] { return operation.ours(a); }),
                             theirOutcome(code, result.value())},
                            0);
        }
    }

    void askComparisons() {
        for (const Variant& a : values_)
            for (const Variant& b : values_)
                askComparison(a, b, automation::TextCompare::Binary, 0, 0);
        for (const char16_t* a : words)
            for (const char16_t* b : words)
                askComparison(a, b, automation::TextCompare::Textual, locale_, NORM_IGNORECASE);
    }

    int cases() const { return cases_; }

private:
    static constexpr const char16_t* words[] = {
        u"",      u"a",    u"A",       u"B", u"árbol", u"ÁRBOL", u"nz", u"ña",          u"Ñu",         u"o",
        u"coche", u"cosa", u"çedilla", u"Z", u"zeta",  u"10",    u"9",  u"calle mayor", u"calle-mayor"};

    static Outcome theirOutcome(HRESULT code, Variant value) {
        if (FAILED(code)) return {Error::numberOf(code), {}};
        return {0, std::move(value)};
    }

    void askPair(const Operation& operation, const Variant& a, const Variant& b) {
        if (faults(operation, a, b)) return;
        Native left(a);
        Native right(b);
        const bool asTexts = operation.theirs == VarCat;
        const bool asTheyAre =
            operation.theirs == VarAdd && (a.isString() || a.isEmpty()) && (b.isString() || b.isEmpty());
        if (operation.isLogical && (hasSeparators(a) || hasSeparators(b))) return;
        if (!asTheyAre && (!prepare(left, locale_, asTexts) || !prepare(right, locale_, asTexts))) return;
        Native result;
        const HRESULT code = operation.theirs(&left.raw, &right.raw, &result.raw);
        compareOutcomes({operation.name, a, &b, ourOutcome([&] { return operation.ours(a, b); }),
                         theirOutcome(code, result.value())},
                        operation.tolerance);
    }

    void askComparison(const Variant& a, const Variant& b, automation::TextCompare text, LCID locale,
                       ULONG flags) {
        Native left(a);
        Native right(b);
        const HRESULT code = VarCmp(&left.raw, &right.raw, locale, flags);
        compareOutcomes({"compare", a, &b,
                         ourOutcome([&] { return Variant(static_cast<std::int32_t>(compare(a, b, text))); }),
                         theirOutcome(code, Variant(std::int32_t{code}))},
                        0);
    }

    void compareOutcomes(const Question& q, double tolerance) {
        ++cases_;
        if (same(q.ours, q.theirs, tolerance)) return;
        static const bool wine = isWine();
        for (const Difference& difference : differences) {
            if (!wine || !difference.covers(q)) continue;
            ++found_[difference.reason];
            return;
        }
        ADD_FAILURE() << q.operation << "(" << described(q.a) << (q.b ? ", " + described(*q.b) : "")
                      << "): ours " << described(q.ours) << ", the system's " << described(q.theirs);
    }

    LCID locale_;
    std::vector<Variant> values_;
    std::map<const char*, int>& found_;
    int cases_ = 0;
};

constexpr int fewestCases = 5000;

TEST(OperatorConformance, AgreesWithTheSystemInSpanishAndEnglish) {
    std::map<const char*, int> found;
    for (const LCID locale : {spanish, english}) {
        SCOPED_TRACE(locale == spanish ? "Spanish" : "English");
        Examination examination(locale, found);
        for (const Operation& operation : operations)
            examination.askBinary(operation);
        for (const UnaryOperation& operation : unaryOperations)
            examination.askUnary(operation);
        examination.askComparisons();
        EXPECT_GE(examination.cases(), fewestCases);
    }
    // An entry that nothing needs any more has to go.
    for (const Difference& difference : differences)
        EXPECT_EQ(found.count(difference.reason) != 0, isWine()) << difference.reason;
}

} // namespace
