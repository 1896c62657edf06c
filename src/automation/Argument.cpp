#include "automation/Argument.h"

#include "automation/ChangeType.h"
#include "automation/Conversions.h"
#include "automation/LateBound.h"

namespace automation {

bool argumentToBoolean(const Variant& source) {
    return source.type() == VT_BOOL ? source.asBoolean() : CBool(value(source));
}

std::uint8_t argumentToByte(const Variant& source) {
    return source.type() == VT_UI1 ? source.asByte() : CByte(value(source));
}

std::int16_t argumentToInteger(const Variant& source) {
    return source.type() == VT_I2 ? source.asInteger() : CInt(value(source));
}

std::int32_t argumentToLong(const Variant& source) {
    return source.type() == VT_I4 ? source.asLong() : CLng(value(source));
}

float argumentToSingle(const Variant& source) {
    return source.type() == VT_R4 ? source.asSingle() : CSng(value(source));
}

double argumentToDouble(const Variant& source) {
    return source.type() == VT_R8 ? source.asDouble() : CDbl(value(source));
}

Currency argumentToCurrency(const Variant& source) {
    return source.type() == VT_CY ? source.asCurrency() : CCur(value(source));
}

Date argumentToDate(const Variant& source) {
    return source.type() == VT_DATE ? source.asDate() : CDate(value(source));
}

Decimal argumentToDecimal(const Variant& source) {
    return source.type() == VT_DECIMAL ? source.asDecimal() : CDec(value(source));
}

String argumentToString(const Variant& source) {
    return source.isString() ? source.asString() : CStr(value(source));
}

Ref<Object> argumentToObject(const Variant& source) {
    return source.isByRef() ? source.dereferenced().asObject() : source.asObject();
}

Array argumentToArray(const Variant& source) {
    return source.isByRef() ? source.dereferenced().asArray() : source.asArray();
}

Ref<Record> argumentToRecord(const Variant& source) {
    return source.isByRef() ? source.dereferenced().asRecord() : source.asRecord();
}

ParamArray Conversion<ParamArray>::from(const Variant& source) {
    const Array array = argumentToArray(source);
    ParamArray list;
    list.reserve(array.size());
    for (std::size_t place = 0; place < array.size(); ++place)
        list.push_back(array.element(place));
    return list;
}

Variant Conversion<ParamArray>::to(const ParamArray& list) {
    return Array::ofVariants(list);
}

Variant changeType(const Variant& source, VARTYPE type) {
    switch (type) {
    case VT_VARIANT:
        return source.dereferenced();
    case VT_BOOL:
        return argumentToBoolean(source);
    case VT_UI1:
        return argumentToByte(source);
    case VT_I2:
        return argumentToInteger(source);
    case VT_I4:
        return argumentToLong(source);
    case VT_R4:
        return argumentToSingle(source);
    case VT_R8:
        return argumentToDouble(source);
    case VT_CY:
        return argumentToCurrency(source);
    case VT_DATE:
        return argumentToDate(source);
    case VT_DECIMAL:
        return argumentToDecimal(source);
    case VT_BSTR:
        return argumentToString(source);
    case VT_DISPATCH:
        return argumentToObject(source);
    case VT_RECORD:
        return argumentToRecord(source);
    default:
        break;
    }
    Variant plain = source.dereferenced();
    if (plain.type() != type) throwTypeMismatch();
    return plain;
}

} // namespace automation
