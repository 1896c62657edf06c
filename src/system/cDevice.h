#pragma once

#include "automation/Argument.h"
#include "automation/Currency.h"
#include "automation/Enumeration.h"
#include "automation/Object.h"
#include "automation/String.h"
#include "automation/Variant.h"
#include "platform/types.h"

#include <cstdint>
#include <limits>

namespace tesela {

/// Combined by addition.
enum Device_AccessModeConstants : std::int32_t {
    Device_AccessMode_GenericRead = std::numeric_limits<std::int32_t>::min(),
    Device_AccessMode_GenericWrite = 1073741824,
};

enum Device_ShareModeConstants : std::int32_t {
    Device_ShareMode_None = 0,
    Device_ShareMode_Read = 1,
    Device_ShareMode_Write = 2,
};

enum Device_CreationDispositionConstants : std::int32_t {
    Device_CreationDisposition_CreateNew = 1,
    Device_CreationDisposition_CreateAlways = 2,
    Device_CreationDisposition_OpenExisting = 3,
    Device_CreationDisposition_OpenAlways = 4,
    Device_CreationDisposition_TruncateExisting = 5,
};

/// Attribute bits of files, combined by addition.
enum Device_AttributesConstants : std::int32_t {
    Device_Attributes_ReadOnly = 1,
    Device_Attributes_Hidden = 2,
    Device_Attributes_System = 4,
    Device_Attributes_Directory = 16,
    Device_Attributes_Archive = 32,
    Device_Attributes_Device = 64,
    Device_Attributes_Normal = 128,
    Device_Attributes_Temporary = 256,
    Device_Attributes_SparseFile = 512,
    Device_Attributes_ReparsePoint = 1024,
};

/// What a position of FSeek counts from.
enum Device_SeekMethodConstants : std::int32_t {
    Device_SeekMethod_Begin = 0,
    Device_SeekMethod_Current = 1,
    Device_SeekMethod_End = 2,
};

const automation::Enumeration& enumerationOf(Device_AccessModeConstants);
const automation::Enumeration& enumerationOf(Device_ShareModeConstants);
const automation::Enumeration& enumerationOf(Device_CreationDispositionConstants);
const automation::Enumeration& enumerationOf(Device_AttributesConstants);
const automation::Enumeration& enumerationOf(Device_SeekMethodConstants);

/// Raw access to a file or device by handle, with 64-bit positions. Positions and sizes are Currency values
/// that hold whole numbers of bytes. Nothing is shown: failures come back as False or -1.
class cDevice : public automation::Object {
public:
    cDevice() = default;
    ~cDevice() override;

    /// Closes what was open and opens a file; True if it is open now.
    bool
    FOpen(const automation::String& cFileName, Device_AccessModeConstants nAccessMode,
          Device_ShareModeConstants nShareMode = Device_ShareMode_None,
          Device_CreationDispositionConstants nCreationDisposition = Device_CreationDisposition_OpenExisting,
          Device_AttributesConstants nFlags = Device_Attributes_Normal);
    /// True if nothing was open or the closing worked.
    bool FClose();

    /// Moves bytes at the present position and returns how many; -1 on failure or when closed.
    std::int32_t FRead(void* xBuff, std::int32_t nBytes);
    std::int32_t FWrite(const void* xBuff, std::int32_t nBytes);
    /// The same for a Byte array or a Byte. Reading fills an array from its first element, never past its
    /// last; writing takes no more than it holds. A reference to a Byte is where a buffer of `nBytes` begins,
    /// as an element of an array is; a Byte of its own is a buffer of one. Any other kind of buffer gives -1.
    std::int32_t FRead(automation::Variant& xBuff, std::int32_t nBytes);
    std::int32_t FWrite(const automation::Variant& xBuff, std::int32_t nBytes);

    /// Moves the position and returns the new one; -1 on failure. A fraction of a byte is rounded, halves to
    /// even.
    automation::Currency FSeek(automation::Currency nNewPos,
                               Device_SeekMethodConstants nModo = Device_SeekMethod_Begin);
    /// -1 on failure.
    automation::Currency GetFileSize() const;
    /// Sets the times that are given, in the user's zone; the others stay. False on failure.
    bool SetFileTimes(const automation::Variant& dCreationTime = automation::Variant::missing(),
                      const automation::Variant& dLastAccessTime = automation::Variant::missing(),
                      const automation::Variant& dLastWriteTime = automation::Variant::missing());

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    std::int32_t readByName(automation::PassedArgument xBuff, std::int32_t nBytes);
    std::int32_t writeByName(const automation::PassedArgument& xBuff, std::int32_t nBytes);
    bool isOpen() const { return handle_ != platform::INVALID_HANDLE_VALUE; }

    platform::HANDLE handle_ = platform::INVALID_HANDLE_VALUE;
};

} // namespace tesela
