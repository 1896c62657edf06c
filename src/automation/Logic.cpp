// Operators on whole numbers: division without decimals, remainders, and the bitwise and logical ones.

#include "automation/Operators.h"

#include "automation/LateBound.h"
#include "automation/Names.h"
#include "automation/Operands.h"

#include <limits>
#include <optional>

namespace automation {

using namespace operands;

namespace {

using Operator = Variant (*)(const Variant&, const Variant&);

Variant onPlainValues(Operator op, const Variant& a, const Variant& b) {
    return op(value(a), value(b));
}

bool anyIndirect(const Variant& a, const Variant& b) {
    return isIndirect(a) || isIndirect(b);
}

Variant wholeAs(std::int64_t result, VARTYPE type) {
    switch (type) {
    case VT_BOOL:
        return result != 0;
    case VT_UI1:
        return static_cast<std::uint8_t>(result);
    case VT_I2:
        return static_cast<std::int16_t>(result);
    default:
        return static_cast<std::int32_t>(result);
    }
}

constexpr unsigned small = Empty | Byte | Boolean | Integer;

VARTYPE quotientResult(unsigned kinds) {
    if (kinds == Byte) return VT_UI1;
    return kinds & ~small ? VT_I4 : VT_I2;
}

/// Both sides as whole numbers. Error 11 for a zero divisor.
struct WholePair {
    WholePair(const Variant& a, const Variant& b) : dividend(longOf(a)), divisor(longOf(b)) {
        if (divisor == 0) throwError(errors::DivisionByZero);
    }
    std::int64_t dividend;
    std::int64_t divisor;
};

/// A text that is the word of a Boolean, in files' form or in the language's.
std::optional<bool> booleanText(const String& text) {
    if (sameName(text, u"True") || sameName(text, u"#TRUE#")) return true;
    if (sameName(text, u"False") || sameName(text, u"#FALSE#")) return false;
    if (sameName(text, CStr(true))) return true;
    if (sameName(text, CStr(false))) return false;
    return std::nullopt;
}

/// The type of a logical result. Among texts and Booleans it is a Boolean; a text beside a number takes
/// the number's type, except where `textsAreLong`.
VARTYPE logicalResult(unsigned kinds, bool textsAreLong) {
    const unsigned known = kinds & ~Null;
    if (textsAreLong && (known & Text)) return VT_I4;
    if (!(known & ~(Boolean | Text))) return VT_BOOL;
    if (known == Byte) return VT_UI1;
    return known & ~(small | Text) ? VT_I4 : VT_I2;
}

using Bits = std::int32_t;

/// The bits of an operand that gives a result of `type`.
Bits bitsOf(const Variant& v, VARTYPE type) {
    if (!v.isString()) return longOf(v);
    const std::optional<bool> word = booleanText(v.asString());
    if (word) return *word ? -1 : 0;
    switch (type) {
    case VT_BOOL:
        return CBool(v) ? -1 : 0;
    case VT_I2:
        return CInt(v);
    default:
        return CLng(v);
    }
}

bool isZero(const Variant& v, VARTYPE type) {
    return v.isString() ? bitsOf(v, type) == 0 : doubleOf(v) == 0;
}

bool isAllOnes(const Variant& v, VARTYPE type) {
    if (v.type() == VT_UI1) return v.asByte() == std::numeric_limits<std::uint8_t>::max();
    return v.isString() ? bitsOf(v, type) == -1 : doubleOf(v) == -1;
}

/// What an operator makes of one Null beside a known operand: the result's bits, or nothing for Null.
using NullRule = std::optional<Bits> (*)(const Variant& known, VARTYPE type);

std::optional<Bits> unknown(const Variant&, VARTYPE) {
    return std::nullopt;
}

std::optional<Bits> zeroDecides(const Variant& known, VARTYPE type) {
    if (isZero(known, type)) return 0;
    return std::nullopt;
}

std::optional<Bits> otherThanZeroDecides(const Variant& known, VARTYPE type) {
    if (isZero(known, type)) return std::nullopt;
    return bitsOf(known, type);
}

std::optional<Bits> otherThanOnesDecides(const Variant& known, VARTYPE type) {
    if (isAllOnes(known, type)) return std::nullopt;
    return ~bitsOf(known, type);
}

struct LogicalRules {
    Bits (*both)(Bits a, Bits b);
    NullRule leftNull;
    NullRule rightNull;
    bool textsAreLong;
};

constexpr LogicalRules andRules = {[](Bits a, Bits b) { return a & b; }, zeroDecides, zeroDecides, false};
constexpr LogicalRules orRules = {[](Bits a, Bits b) { return a | b; }, otherThanZeroDecides,
                                  otherThanZeroDecides, false};
constexpr LogicalRules xorRules = {[](Bits a, Bits b) { return a ^ b; }, unknown, unknown, true};
constexpr LogicalRules eqvRules = {[](Bits a, Bits b) { return ~(a ^ b); }, unknown, unknown, true};
constexpr LogicalRules impRules = {[](Bits a, Bits b) { return ~a | b; }, otherThanZeroDecides,
                                   otherThanOnesDecides, false};

Variant logical(const LogicalRules& rules, const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return logical(rules, value(a), value(b));
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Failure) throwTypeMismatch();
    if (kinds == Null) return Variant::null();
    const VARTYPE type = logicalResult(kinds, rules.textsAreLong);
    if (kinds & Null) {
        const auto decided = a.isNull() ? rules.leftNull(b, type) : rules.rightNull(a, type);
        return decided ? wholeAs(*decided, type) : Variant::null();
    }
    // One after the other: the left operand's error comes first.
    const Bits left = bitsOf(a, type);
    const Bits right = bitsOf(b, type);
    return wholeAs(rules.both(left, right), type);
}

} // namespace

Variant integerDivide(const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return onPlainValues(integerDivide, a, b);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Null) return Variant::null();
    if (kinds & Failure) throwTypeMismatch();
    const WholePair pair(a, b);
    const std::int64_t quotient = pair.dividend / pair.divisor;
    const VARTYPE type = quotientResult(kinds);
    const std::int64_t largest =
        type == VT_I4 ? std::numeric_limits<std::int32_t>::max() : std::numeric_limits<std::int16_t>::max();
    if (quotient > largest) throwError(errors::Overflow);
    return wholeAs(quotient, type);
}

Variant modulo(const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return onPlainValues(modulo, a, b);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Failure) throwTypeMismatch();
    if (kinds & Null) return Variant::null();
    const WholePair pair(a, b);
    const VARTYPE type = kinds & Empty ? VT_I4 : quotientResult(kinds);
    return wholeAs(pair.dividend % pair.divisor, type);
}

Variant logicalNot(const Variant& a) {
    if (isIndirect(a)) return logicalNot(value(a));
    const unsigned kind = kindOf(a);
    if (kind == Null) return a;
    if (kind == Failure) throwTypeMismatch();
    const bool word = kind == Text && booleanText(a.asString());
    const VARTYPE type = word ? VARTYPE{VT_BOOL} : logicalResult(kind, true);
    return wholeAs(~std::int64_t{bitsOf(a, type)}, type);
}

Variant logicalAnd(const Variant& a, const Variant& b) {
    return logical(andRules, a, b);
}

Variant logicalOr(const Variant& a, const Variant& b) {
    return logical(orRules, a, b);
}

Variant logicalXor(const Variant& a, const Variant& b) {
    return logical(xorRules, a, b);
}

Variant logicalEqv(const Variant& a, const Variant& b) {
    return logical(eqvRules, a, b);
}

Variant logicalImp(const Variant& a, const Variant& b) {
    return logical(impRules, a, b);
}

} // namespace automation
