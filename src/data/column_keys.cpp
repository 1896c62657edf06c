#include "data/column_keys.h"

#include "data/collation.h"

#include <bit>
#include <cmath>

namespace tesela {

using automation::Variant;

namespace {

constexpr unsigned bit(automation::VARTYPE type) {
    return type < 32 ? 1U << type : 1U << 31;
}

constexpr unsigned nulls = bit(automation::VT_NULL);
constexpr unsigned booleans = bit(automation::VT_BOOL);
constexpr unsigned wholes = booleans | bit(automation::VT_EMPTY) | bit(automation::VT_UI1) |
                            bit(automation::VT_I2) | bit(automation::VT_I4);
// A Double compares with a Single's precision, so the two do not stand in one order.
constexpr unsigned doubles = wholes | bit(automation::VT_DATE) | bit(automation::VT_R8);
constexpr unsigned singles = wholes | bit(automation::VT_DATE) | bit(automation::VT_R4);
constexpr unsigned money = wholes | bit(automation::VT_CY);
constexpr unsigned texts = bit(automation::VT_BSTR);

constexpr bool within(unsigned types, unsigned group) {
    return (types & ~group) == 0;
}

ColumnKind kindOf(unsigned types) {
    if (types == 0) return ColumnKind::Mixed;
    if (types == booleans) return ColumnKind::Boolean;
    if (within(types, wholes)) return ColumnKind::Whole;
    if (within(types, doubles) || within(types, singles)) return ColumnKind::Real;
    if (within(types, money)) return ColumnKind::Money;
    return types == texts ? ColumnKind::Text : ColumnKind::Mixed;
}

std::int32_t wholeOf(const Variant& value) {
    switch (value.type()) {
    case automation::VT_BOOL:
        return value.asBoolean() ? -1 : 0;
    case automation::VT_UI1:
        return value.asByte();
    case automation::VT_I2:
        return value.asInteger();
    case automation::VT_I4:
        return value.asLong();
    default:
        return 0;
    }
}

template <class Unsigned>
void appendNumber(Unsigned number, std::string& key) {
    for (int shift = static_cast<int>(sizeof number) * 8 - 8; shift >= 0; shift -= 8)
        key += static_cast<char>(number >> shift);
}

/// The bits of a number in an order of their own: negative ones reversed below the others.
std::uint64_t orderedBits(double number) {
    constexpr std::uint64_t signBit = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
    return bits & signBit ? ~bits : bits | signBit;
}

std::uint64_t orderedBits(std::int64_t number) {
    return static_cast<std::uint64_t>(number) ^ (std::uint64_t{1} << 63);
}

/// Appends bytes so that none but these begins with them: a 0 becomes 0, 1, and 0, 0 ends them.
void appendEnded(const std::string& bytes, std::string& key) {
    for (const char byte : bytes) {
        key += byte;
        if (byte == '\0') key += '\1';
    }
    key.append(2, '\0');
}

void appendText(const automation::String& text, TextOrder order, std::string& key) {
    std::string bytes;
    if (order == TextOrder::Dictionary) {
        appendSortKey(text, bytes);
    } else {
        for (const char16_t unit : text.view())
            appendNumber(static_cast<std::uint16_t>(unit), bytes);
    }
    appendEnded(bytes, key);
}

} // namespace

ColumnTraits traitsOf(const ColumnValues& values) {
    unsigned types = 0;
    bool isOrdered = true;
    for (std::size_t row = 0; row < values.count; ++row) {
        const Variant& value = values[row];
        types |= bit(value.type());
        if (value.type() == automation::VT_R8 && std::isnan(value.asDouble())) isOrdered = false;
        if (value.type() == automation::VT_R4 && std::isnan(value.asSingle())) isOrdered = false;
        if (value.type() == automation::VT_DATE && std::isnan(value.asDate().value())) isOrdered = false;
    }
    return {isOrdered ? kindOf(types & ~nulls) : ColumnKind::Mixed, (types & nulls) != 0};
}

double realOf(const Variant& value) {
    switch (value.type()) {
    case automation::VT_R8:
        return value.asDouble();
    case automation::VT_R4:
        return static_cast<double>(value.asSingle());
    case automation::VT_DATE:
        return value.asDate().value();
    default:
        return wholeOf(value);
    }
}

void appendKey(const Variant& value, ColumnKind kind, TextOrder order, std::string& key) {
    constexpr std::uint32_t longSign = 0x80000000U;
    switch (kind) {
    case ColumnKind::Boolean:
        key += value.asBoolean() ? '\0' : '\1';
        break;
    case ColumnKind::Whole:
        appendNumber(static_cast<std::uint32_t>(wholeOf(value)) ^ longSign, key);
        break;
    case ColumnKind::Real:
        appendNumber(orderedBits(realOf(value)), key);
        break;
    case ColumnKind::Money:
        appendNumber(orderedBits(value.type() == automation::VT_CY
                                     ? value.asCurrency().scaled()
                                     : automation::Currency::scale * std::int64_t{wholeOf(value)}),
                     key);
        break;
    case ColumnKind::Text:
        appendText(value.asString(), order, key);
        break;
    case ColumnKind::Mixed:
        automation::throwTypeMismatch();
    }
}

} // namespace tesela
