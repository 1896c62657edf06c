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

/// An operand of the logical operators: a text becomes a Boolean or a number.
Variant logicalOperand(const Variant& v) {
    if (!v.isString()) return v;
    if (const std::optional<bool> word = booleanText(v.asString())) return *word;
    return longOf(v);
}

VARTYPE logicalResult(unsigned kinds) {
    const unsigned known = kinds & ~Null;
    if (known == Boolean) return VT_BOOL;
    if (known == Byte) return VT_UI1;
    return known & ~small ? VT_I4 : VT_I2;
}

/// What a logical operator makes of one Null: the bits of the known side tell, or nothing does.
using Bits = std::int32_t;
using NullRule = std::optional<Bits> (*)(Bits known);

struct LogicalRules {
    Bits (*both)(Bits a, Bits b);
    NullRule leftNull;
    NullRule rightNull;
};

std::optional<Bits> unknown(Bits) {
    return std::nullopt;
}
std::optional<Bits> zeroDecides(Bits known) {
    return known == 0 ? std::optional<Bits>(0) : std::nullopt;
}
std::optional<Bits> otherwiseDecides(Bits known) {
    return known != 0 ? std::optional<Bits>(known) : std::nullopt;
}
std::optional<Bits> falseDecides(Bits known) {
    return otherwiseDecides(~known);
}

constexpr LogicalRules andRules = {[](Bits a, Bits b) { return a & b; }, zeroDecides, zeroDecides};
constexpr LogicalRules orRules = {[](Bits a, Bits b) { return a | b; }, otherwiseDecides, otherwiseDecides};
constexpr LogicalRules xorRules = {[](Bits a, Bits b) { return a ^ b; }, unknown, unknown};
constexpr LogicalRules eqvRules = {[](Bits a, Bits b) { return ~(a ^ b); }, unknown, unknown};
constexpr LogicalRules impRules = {[](Bits a, Bits b) { return ~a | b; }, otherwiseDecides, falseDecides};

Variant logical(const LogicalRules& rules, const Variant& left, const Variant& right) {
    if (isIndirect(left) || isIndirect(right)) return logical(rules, value(left), value(right));
    const Variant a = logicalOperand(left);
    const Variant b = logicalOperand(right);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Failure) throwTypeMismatch();
    if (kinds == Null) return Variant::null();
    const VARTYPE type = logicalResult(kinds);
    if (!(kinds & Null)) return wholeAs(rules.both(longOf(a), longOf(b)), type);
    const std::optional<Bits> decided = a.isNull() ? rules.leftNull(longOf(b)) : rules.rightNull(longOf(a));
    return decided ? wholeAs(*decided, type) : Variant::null();
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
    const Variant operand = logicalOperand(a);
    const unsigned kind = kindOf(operand);
    if (kind == Null) return operand;
    if (kind == Failure) throwTypeMismatch();
    return wholeAs(~std::int64_t{longOf(operand)}, logicalResult(kind));
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
