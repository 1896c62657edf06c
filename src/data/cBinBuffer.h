#pragma once

#include "automation/Array.h"
#include "automation/Currency.h"
#include "automation/Date.h"
#include "automation/Object.h"
#include "automation/String.h"
#include "automation/Variant.h"
#include "data/ByteBlock.h"
#include "frame/CodigoUsoConjunto.h"

#include <cstdint>

namespace tesela {

/// Bytes of a fixed number with a cursor, to build binary records and to take them apart. Writes and reads
/// work at the cursor and move it on; numbers are little-endian unless `lBigEndian` says otherwise. What does
/// not fit changes neither bytes nor cursor: the result is False, `LastError` has the reason in words, and
/// `BufferOk` stays False until it or the size is set. Positions count bytes from 0.
///
/// Numbers that the type to be written cannot hold throw Error 6, sizes that memory cannot hold Error 7;
/// neither changes anything.
class cBinBuffer : public automation::Object {
public:
    cBinBuffer();

    /// Why something failed the last time; success leaves it.
    automation::String LastError() const { return cLastError; }
    void LastError(automation::String value) { cLastError = std::move(value); }
    /// False since something failed.
    bool BufferOk() const { return lBufferOk; }
    void BufferOk(bool value) { lBufferOk = value; }

    /// Bytes in use. Setting it drops the content and sets the cursor to 0; sizes below 1 leave no room.
    std::int32_t BufferSize() const { return nBufferSize; }
    void BufferSize(std::int32_t value);
    /// Another size with the content kept, zeros at the end. The cursor goes to 0 if told to, or when it
    /// would not stand on a byte.
    void Resize(std::int32_t nNewSize, bool lResetPosition = true);

    /// A copy of all bytes, from 0. A buffer without room has some all the same.
    automation::Array Raw() const;
    /// Takes the bytes of an array of bytes from 0, and its size; passes over anything else. The cursor
    /// stays, so that it may come to lie past the end.
    void Raw(const automation::Variant& aNewRaw);
    /// 0 outside of the buffer, where writing does nothing.
    std::uint8_t RawByte(std::int32_t nIndex) const;
    void RawByte(std::int32_t nIndex, std::uint8_t value);

    /// The cursor, 0 to `BufferSize`; other values are passed over.
    std::int32_t CurrentAddress() const { return nCurrentAddress; }
    void CurrentAddress(std::int32_t value);
    bool EndOfBuffer() const { return nCurrentAddress >= nBufferSize; }

    /// Fills all bytes; False when there are none. The cursor stays.
    bool Clear(std::uint8_t nByteForClear = 0);

    /// A whole number of 1, 2, 4 or 8 bytes; one of 8 is a Currency with its four decimals.
    bool WriteNumber(automation::Currency nNumero, std::int32_t nBytes, bool lBigEndian = false);
    bool WriteByte(std::uint8_t nNumero);
    bool WriteInteger(std::int16_t nNumero, bool lBigEndian = false);
    /// The low 16 bits.
    bool WriteUnsignedInteger(std::int32_t nNumero, bool lBigEndian = false);
    bool WriteLong(std::int32_t nNumero, bool lBigEndian = false);
    /// -2147483648 to 4294967295 in 4 bytes; 4294967296 and its next 2147483647 numbers begin again at 0.
    bool WriteUnsignedLong(automation::Currency nNumero, bool lBigEndian = false);
    /// 8 bytes, ten-thousandths.
    bool WriteCurrency(automation::Currency nNumero, bool lBigEndian = false);
    /// 8 bytes, the days as a floating-point number.
    bool WriteDate(automation::Date dFecha, bool lBigEndian = false);
    /// Two units of 16 bits, days and minutes, each in that order of bytes.
    bool WriteSmallDateTime(const SmallDateTime& xFecha, bool lBigEndian = false);
    /// `nLongitud` bytes in the ANSI code page, cut or filled up with NULs; below 1: as long as the text.
    bool WriteString(const automation::String& cTexto, std::int32_t nLongitud);
    /// Bytes of an array from one that is `nPrimero`, or the first where it has no such one: `nContador` of
    /// them, or all that follow when that is below 1 or too many.
    bool WriteBinary(automation::Array& aBinArray, std::int32_t nPrimero = 0, std::int32_t nContador = 0);
    /// The same of another buffer's bytes, whose cursor stays. Error 91 for Nothing.
    bool WriteBuffer(automation::Ref<cBinBuffer>& oOtroBinBuffer, std::int32_t nPrimero = 0,
                     std::int32_t nContador = 0);

    // Where nothing can be read the variable stays as it was.

    /// Numbers of 1 and 2 bytes have no sign, those of 4 and 8 have one.
    bool ReadNumber(automation::Currency& nNumero, std::int32_t nBytes, bool lBigEndian = false);
    bool ReadByte(std::uint8_t& nNumero);
    /// 0 to 65535: the sign is not made of the highest bit, so that the number needs a Long. A variable of 16
    /// bits in a late-bound call takes numbers up to 32767, others are Error 6 there.
    bool ReadInteger(std::int32_t& nNumero, bool lBigEndian = false);
    bool ReadUnsignedInteger(std::int32_t& nNumero, bool lBigEndian = false);
    bool ReadLong(std::int32_t& nNumero, bool lBigEndian = false);
    bool ReadUnsignedLong(automation::Currency& nNumero, bool lBigEndian = false);
    bool ReadCurrency(automation::Currency& nNumero, bool lBigEndian = false);
    bool ReadDate(automation::Date& dFecha, bool lBigEndian = false);
    bool ReadSmallDateTime(SmallDateTime& xFecha, bool lBigEndian = false);
    /// `nLongitud` bytes; below 1: as many as the variable's text has characters.
    bool ReadString(automation::String& cTexto, std::int32_t nLongitud);
    /// `nBytes` bytes as an array from 0. When that is below 1: as many as the array has, or all that are
    /// left for one that has no byte but the first or none. An array of that kind has to start at 0.
    bool ReadBinary(automation::Array& aBinArray, std::int32_t nBytes = 0);
    /// Fills another buffer, a new one for Nothing, with `nBytes` bytes, and sets its size to that; 0: as
    /// many as it has, or all that are left when it has none. Its content is lost even when nothing can be
    /// read.
    bool ReadBuffer(automation::Ref<cBinBuffer>& oOtroBinBuffer, std::int32_t nBytes = 0);

    // A start outside of the buffer is its begin, a count below 1 or past the end is up to the end.

    /// Hexadecimal and text, a line for 16 bytes.
    automation::String Dump(std::int32_t nStartAddress = 0, std::int32_t nBytesToDump = 0) const;
    /// The bytes as text of the ANSI code page.
    automation::String ToString(std::int32_t nStartAddress = 0, std::int32_t nBytesToDump = 0) const;
    /// Takes a text in the ANSI code page as its content, or appends it; the cursor does not move over it.
    /// False for an empty text, which empties the buffer all the same. Error 6 when the size would pass
    /// 2147483647, Error 9 for appending to a size below 0.
    bool FromString(const automation::String& cCadena, bool lAppend = false);

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    /// Part of the buffer's bytes.
    struct Range {
        std::size_t start, count;
    };
    Range rangeOf(std::int32_t start, std::int32_t count) const;

    template <class T>
    bool write(T value, bool bigEndian);
    template <class T>
    bool read(T& value, bool bigEndian);
    /// `bytes` may be the buffer's own.
    bool writeBytes(const std::uint8_t* bytes, std::size_t count);
    bool hasRoom(std::int64_t width) const { return nCurrentAddress + width <= nBufferSize; }
    std::int32_t bytesLeft() const { return nBufferSize - nCurrentAddress; }
    bool has(std::int32_t index) const { return index >= 0 && index < nBufferSize; }
    const std::uint8_t* atCursor() const { return data.data() + nCurrentAddress; }
    std::uint8_t* atCursor() { return data.data() + nCurrentAddress; }

    bool fail(automation::String reason);
    bool failWriting(std::int64_t width, std::int32_t position);
    bool failReading(std::int64_t width, std::int32_t position);

    ByteBlock data;
    std::int32_t nBufferSize = 0;
    std::int32_t nCurrentAddress = 0;
    automation::String cLastError;
    bool lBufferOk = true;
};

} // namespace tesela
