// Arrays and records between the library and the system.

#include "activex/windows/ComPointer.h"
#include "activex/windows/TypeInformation.h"
#include "activex/windows/Values.h"

#include <cstring>
#include <vector>

namespace activex {

using automation::Array;
using automation::Bound;
using automation::Record;
using automation::RecordTable;
using automation::Ref;
using automation::Variant;

namespace {

/// The library's element type for a system's one.
VARTYPE elementFor(VARTYPE element) {
    switch (element) {
    case VT_UI1:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BSTR:
    case VT_BOOL:
    case VT_ERROR:
    case VT_DISPATCH:
    case VT_DECIMAL:
    case VT_VARIANT:
        return element;
    case VT_I1:
        return VT_I2;
    case VT_UI2:
    case VT_INT:
    case VT_UI4:
    case VT_UINT:
        return VT_I4;
    case VT_UNKNOWN:
        return VT_DISPATCH;
    case VT_I8:
    case VT_UI8:
        return VT_VARIANT;
    default:
        automation::throwError(automation::errors::TypeNotSupported);
    }
}

/// Types whose elements lie in memory here as they do there.
bool isPlain(VARTYPE element) {
    switch (element) {
    case VT_UI1:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BOOL:
    case VT_ERROR:
        return true;
    default:
        return false;
    }
}

/// The elements of a system's array, held still while it is read or written.
class Elements {
public:
    explicit Elements(::SAFEARRAY* array) : array_(array) { check(::SafeArrayAccessData(array, &data_)); }
    Elements(const Elements&) = delete;
    Elements& operator=(const Elements&) = delete;
    ~Elements() { ::SafeArrayUnaccessData(array_); }

    void* data() const { return data_; }
    void* at(std::size_t place) const {
        return static_cast<char*>(data_) + place * ::SafeArrayGetElemsize(array_);
    }

private:
    ::SAFEARRAY* array_;
    void* data_ = nullptr;
};

std::vector<Bound> boundsOf(::SAFEARRAY* array) {
    std::vector<Bound> bounds(::SafeArrayGetDim(array));
    for (::UINT i = 0; i < bounds.size(); ++i) {
        ::LONG lower = 0;
        ::LONG upper = -1;
        check(::SafeArrayGetLBound(array, i + 1, &lower));
        check(::SafeArrayGetUBound(array, i + 1, &upper));
        bounds[i] = {static_cast<std::int32_t>(lower),
                     static_cast<std::uint32_t>(static_cast<std::int64_t>(upper) - lower + 1)};
    }
    return bounds;
}

/// A value that refers to an element of the type.
::VARIANT elementReference(VARTYPE element, void* memory) {
    ::VARIANT reference;
    ::VariantInit(&reference);
    reference.vt = static_cast<VARTYPE>(VT_BYREF | element);
    reference.byref = memory;
    return reference;
}

/// A value that refers to the field of a record in memory.
::VARIANT fieldReference(const RecordTable::Field& field, void* record, ::IRecordInfo& info) {
    ::VARIANT reference;
    ::VariantInit(&reference);
    void* elements = nullptr;
    check(info.GetFieldNoCopy(record, wide(plainName(field.name).c_str()), &reference, &elements));
    reference.vt |= VT_BYREF;
    return reference;
}

Array recordsFromSystem(::SAFEARRAY* array) {
    ComPointer<::IRecordInfo> info;
    check(::SafeArrayGetRecordInfo(array, info.out()));
    Array result(VT_VARIANT, boundsOf(array));
    const Elements elements(array);
    for (std::size_t i = 0; i < result.size(); ++i)
        result.putElement(i, Variant(fromSystem(elements.at(i), info.get())));
    return result;
}

} // namespace

Array fromSystem(::SAFEARRAY* array, VARTYPE element) {
    if (element == VT_RECORD && array) return recordsFromSystem(array);
    const VARTYPE own = elementFor(element);
    if (!array) return Array(own);
    Array result(own, boundsOf(array));
    if (result.size() == 0) return result;
    const Elements elements(array);
    if (own == element && isPlain(element)) {
        std::memcpy(result.data(), elements.data(), result.size() * ::SafeArrayGetElemsize(array));
        return result;
    }
    for (std::size_t i = 0; i < result.size(); ++i)
        result.putElement(i, fromSystem(elementReference(element, elements.at(i))));
    return result;
}

::SAFEARRAY* toSystem(const Array& array) {
    if (array.dimensions() == 0) return nullptr;
    std::vector<::SAFEARRAYBOUND> bounds;
    for (const Bound& bound : array.bounds())
        bounds.push_back({bound.count, bound.lower});
    const VARTYPE element = array.elementType() == VT_RECORD ? automation::VT_VARIANT : array.elementType();
    ::SAFEARRAY* result = ::SafeArrayCreate(element, static_cast<::UINT>(bounds.size()), bounds.data());
    if (!result) throw std::bad_alloc();
    try {
        const Elements elements(result);
        if (array.size() != 0 && isPlain(element))
            std::memcpy(elements.data(), array.data(), array.size() * ::SafeArrayGetElemsize(result));
        else
            for (std::size_t i = 0; i < array.size(); ++i)
                storeThrough(elementReference(element, elements.at(i)), array.element(i));
    } catch (...) {
        ::SafeArrayDestroy(result);
        throw;
    }
    return result;
}

Ref<Record> fromSystem(void* record, ::IRecordInfo* info) {
    ::GUID id{};
    if (!info || !record) automation::throwTypeMismatch();
    check(info->GetGuid(&id));
    const RecordTable* table = interfaceTypes().record(fromNative(id));
    if (!table) automation::throwTypeMismatch();
    Ref<Record> result = table->create();
    for (const RecordTable::Field& field : table->fields()) {
        result->putField(field.name, fromSystem(fieldReference(field, record, *info)));
    }
    return result;
}

void storeRecord(const Record& record, void* memory, ::IRecordInfo* info) {
    if (!info || !memory) automation::throwTypeMismatch();
    for (const RecordTable::Field& field : record.table().fields()) {
        storeThrough(fieldReference(field, memory, *info), record.field(field.name));
    }
}

void toSystem(const Record& record, ::VARIANT& target) {
    ::VariantInit(&target);
    ComPointer<::ITypeInfo> type = typeInformation(typeId(record.table().name()));
    ComPointer<::IRecordInfo> info;
    check(type ? ::GetRecordInfoFromTypeInfo(type.get(), info.out()) : TYPE_E_ELEMENTNOTFOUND);
    void* memory = info->RecordCreate();
    if (!memory) throw std::bad_alloc();
    try {
        storeRecord(record, memory, info.get());
    } catch (...) {
        info->RecordDestroy(memory);
        throw;
    }
    target.vt = VT_RECORD;
    target.pvRecord = memory;
    target.pRecInfo = info.detach();
}

} // namespace activex
