#include "system/cDevice.h"

#include "automation/ClassTable.h"
#include "automation/Conversions.h"
#include "platform/files.h"

#include <algorithm>
#include <cstdlib>

namespace tesela {

using automation::Currency;
using automation::Variant;

namespace {

constexpr std::int32_t failure = -1;
constexpr automation::VARTYPE byteArray = automation::VT_ARRAY | automation::VT_UI1;
constexpr automation::VARTYPE byteReference = automation::VT_BYREF | automation::VT_UI1;

/// A number of bytes as a Currency; the failure for one that is beyond the type.
Currency wholeCurrency(std::int64_t bytes) {
    std::int64_t scaled = 0;
    if (__builtin_mul_overflow(bytes, Currency::scale, &scaled)) return Currency(failure);
    return Currency::fromScaled(scaled);
}

/// The whole number nearest to a Currency, halves to even.
std::int64_t wholeNumber(Currency value) {
    constexpr std::int64_t half = Currency::scale / 2;
    const std::int64_t whole = value.scaled() / Currency::scale;
    const std::int64_t rest = value.scaled() % Currency::scale;
    const bool away = std::abs(rest) > half || (std::abs(rest) == half && whole % 2 != 0);
    return away ? whole + (rest < 0 ? -1 : 1) : whole;
}

/// The instant of a date and time of the user's zone; false for a date that the platform's times lack.
bool fileTimeOf(const Variant& value, platform::FILETIME& time) {
    const automation::DateParts parts = automation::CDate(value).split();
    platform::SYSTEMTIME calendar;
    calendar.wYear = static_cast<platform::WORD>(parts.year);
    calendar.wMonth = static_cast<platform::WORD>(parts.month);
    calendar.wDay = static_cast<platform::WORD>(parts.day);
    calendar.wHour = static_cast<platform::WORD>(parts.hour);
    calendar.wMinute = static_cast<platform::WORD>(parts.minute);
    calendar.wSecond = static_cast<platform::WORD>(parts.second);
    platform::FILETIME local;
    return platform::SystemTimeToFileTime(&calendar, &local) &&
           platform::LocalFileTimeToFileTime(&local, &time);
}

} // namespace

cDevice::~cDevice() {
    FClose();
}

bool cDevice::FOpen(const automation::String& cFileName, Device_AccessModeConstants nAccessMode,
                    Device_ShareModeConstants nShareMode,
                    Device_CreationDispositionConstants nCreationDisposition,
                    Device_AttributesConstants nFlags) {
    FClose();
    handle_ = platform::CreateFileA(cFileName.ansi().c_str(), static_cast<platform::DWORD>(nAccessMode),
                                    static_cast<platform::DWORD>(nShareMode), nullptr,
                                    static_cast<platform::DWORD>(nCreationDisposition),
                                    static_cast<platform::DWORD>(nFlags), {});
    return isOpen();
}

bool cDevice::FClose() {
    const bool closed = !isOpen() || platform::CloseHandle(handle_);
    handle_ = platform::INVALID_HANDLE_VALUE;
    return closed;
}

std::int32_t cDevice::FRead(void* xBuff, std::int32_t nBytes) {
    platform::DWORD moved = 0;
    if (!isOpen() || nBytes < 0 ||
        !platform::ReadFile(handle_, xBuff, static_cast<platform::DWORD>(nBytes), &moved, nullptr))
        return failure;
    return static_cast<std::int32_t>(moved);
}

std::int32_t cDevice::FWrite(const void* xBuff, std::int32_t nBytes) {
    platform::DWORD moved = 0;
    if (!isOpen() || nBytes < 0 ||
        !platform::WriteFile(handle_, xBuff, static_cast<platform::DWORD>(nBytes), &moved, nullptr))
        return failure;
    return static_cast<std::int32_t>(moved);
}

std::int32_t cDevice::FRead(Variant& xBuff, std::int32_t nBytes) {
    if (xBuff.type() == byteReference) return FRead(xBuff.reference(), nBytes);
    if (xBuff.isByRef()) {
        Variant buffer = xBuff.dereferenced();
        const std::int32_t moved = FRead(buffer, nBytes);
        if (moved > 0) xBuff.storeThrough(buffer);
        return moved;
    }
    if (xBuff.type() == automation::VT_UI1) {
        std::uint8_t byte = xBuff.asByte();
        const std::int32_t moved = FRead(&byte, std::min(nBytes, 1));
        xBuff = byte;
        return moved;
    }
    if (xBuff.type() != byteArray) return failure;
    const auto bytes = xBuff.arrayForWriting().bytes();
    return FRead(bytes.data(), std::min(nBytes, static_cast<std::int32_t>(bytes.size())));
}

std::int32_t cDevice::FWrite(const Variant& xBuff, std::int32_t nBytes) {
    if (xBuff.type() == byteReference) return FWrite(xBuff.reference(), nBytes);
    if (xBuff.isByRef()) return FWrite(xBuff.dereferenced(), nBytes);
    if (xBuff.type() == automation::VT_UI1) {
        const std::uint8_t byte = xBuff.asByte();
        return FWrite(&byte, std::min(nBytes, 1));
    }
    if (xBuff.type() != byteArray) return failure;
    const auto bytes = xBuff.asArray().bytes();
    return FWrite(bytes.data(), std::min(nBytes, static_cast<std::int32_t>(bytes.size())));
}

std::int32_t cDevice::readByName(automation::PassedArgument xBuff, std::int32_t nBytes) {
    return FRead(xBuff.value, nBytes);
}

std::int32_t cDevice::writeByName(const automation::PassedArgument& xBuff, std::int32_t nBytes) {
    return FWrite(xBuff.value, nBytes);
}

Currency cDevice::FSeek(Currency nNewPos, Device_SeekMethodConstants nModo) {
    platform::LONGLONG position = 0;
    if (!isOpen() || !platform::SetFilePointerEx(handle_, wholeNumber(nNewPos), &position,
                                                 static_cast<platform::DWORD>(nModo)))
        return wholeCurrency(failure);
    return wholeCurrency(position);
}

Currency cDevice::GetFileSize() const {
    platform::LONGLONG size = 0;
    if (!isOpen() || !platform::GetFileSizeEx(handle_, &size)) return wholeCurrency(failure);
    return wholeCurrency(size);
}

bool cDevice::SetFileTimes(const Variant& dCreationTime, const Variant& dLastAccessTime,
                           const Variant& dLastWriteTime) {
    if (!isOpen()) return false;
    const Variant* const given[] = {&dCreationTime, &dLastAccessTime, &dLastWriteTime};
    platform::FILETIME times[std::size(given)];
    const platform::FILETIME* set[std::size(given)] = {};
    try {
        for (std::size_t i = 0; i < std::size(given); ++i) {
            if (given[i]->isMissing() || given[i]->isEmpty()) continue;
            if (!fileTimeOf(*given[i], times[i])) return false;
            set[i] = &times[i];
        }
    } catch (const automation::Error&) {
        return false; // no date
    }
    return platform::SetFileTime(handle_, set[0], set[1], set[2]) != 0;
}

const automation::ClassTable& cDevice::table() {
    using automation::optional;
    static const automation::ClassTable table =
        automation::ClassTable::of<cDevice>("cDevice")
            .help("Raw access to a file or device by handle, with 64-bit positions.")
            .method("FOpen", &cDevice::FOpen,
                    {"cFileName", "nAccessMode", optional("nShareMode", Device_ShareMode_None),
                     optional("nCreationDisposition", Device_CreationDisposition_OpenExisting),
                     optional("nFlags", Device_Attributes_Normal)})
            .method("FClose", &cDevice::FClose)
            .method("FRead", &cDevice::readByName, {"xBuff", "nBytes"})
            .method("FWrite", &cDevice::writeByName, {"xBuff", "nBytes"})
            .method("FSeek", &cDevice::FSeek, {"nNewPos", optional("nModo", Device_SeekMethod_Begin)})
            .method("GetFileSize", &cDevice::GetFileSize)
            .method("SetFileTimes", &cDevice::SetFileTimes,
                    {optional("dCreationTime"), optional("dLastAccessTime"), optional("dLastWriteTime")});
    return table;
}

const automation::Enumeration& enumerationOf(Device_AccessModeConstants) {
    static const automation::Enumeration table(
        "Device_AccessModeConstants", {
                                          {"Device_AccessMode_GenericRead", Device_AccessMode_GenericRead},
                                          {"Device_AccessMode_GenericWrite", Device_AccessMode_GenericWrite},
                                      });
    return table;
}

const automation::Enumeration& enumerationOf(Device_ShareModeConstants) {
    static const automation::Enumeration table("Device_ShareModeConstants",
                                               {
                                                   {"Device_ShareMode_None", Device_ShareMode_None},
                                                   {"Device_ShareMode_Read", Device_ShareMode_Read},
                                                   {"Device_ShareMode_Write", Device_ShareMode_Write},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(Device_CreationDispositionConstants) {
    static const automation::Enumeration table(
        "Device_CreationDispositionConstants",
        {
            {"Device_CreationDisposition_CreateNew", Device_CreationDisposition_CreateNew},
            {"Device_CreationDisposition_CreateAlways", Device_CreationDisposition_CreateAlways},
            {"Device_CreationDisposition_OpenExisting", Device_CreationDisposition_OpenExisting},
            {"Device_CreationDisposition_OpenAlways", Device_CreationDisposition_OpenAlways},
            {"Device_CreationDisposition_TruncateExisting", Device_CreationDisposition_TruncateExisting},
        });
    return table;
}

const automation::Enumeration& enumerationOf(Device_AttributesConstants) {
    static const automation::Enumeration table(
        "Device_AttributesConstants", {
                                          {"Device_Attributes_ReadOnly", Device_Attributes_ReadOnly},
                                          {"Device_Attributes_Hidden", Device_Attributes_Hidden},
                                          {"Device_Attributes_System", Device_Attributes_System},
                                          {"Device_Attributes_Directory", Device_Attributes_Directory},
                                          {"Device_Attributes_Archive", Device_Attributes_Archive},
                                          {"Device_Attributes_Device", Device_Attributes_Device},
                                          {"Device_Attributes_Normal", Device_Attributes_Normal},
                                          {"Device_Attributes_Temporary", Device_Attributes_Temporary},
                                          {"Device_Attributes_SparseFile", Device_Attributes_SparseFile},
                                          {"Device_Attributes_ReparsePoint", Device_Attributes_ReparsePoint},
                                      });
    return table;
}

const automation::Enumeration& enumerationOf(Device_SeekMethodConstants) {
    static const automation::Enumeration table("Device_SeekMethodConstants",
                                               {
                                                   {"Device_SeekMethod_Begin", Device_SeekMethod_Begin},
                                                   {"Device_SeekMethod_Current", Device_SeekMethod_Current},
                                                   {"Device_SeekMethod_End", Device_SeekMethod_End},
                                               });
    return table;
}

} // namespace tesela
