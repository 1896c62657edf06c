#include "data/cBinBuffer.h"

#include "automation/Conversions.h"
#include "automation/Error.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace tesela {

using automation::Array;
using automation::Currency;
using automation::Date;
using automation::Ref;
using automation::String;
using automation::Variant;
using automation::VT_UI1;

namespace {

constexpr std::int32_t bytesWithoutRoom = 2; ///< What a buffer of a size below 1 has all the same
constexpr std::size_t unitSize = sizeof(std::uint16_t);
const Currency twoTo31 = Currency::fromScaled(2147483648 * Currency::scale);
const Currency twoTo32 = Currency::fromScaled(4294967296 * Currency::scale);

std::size_t blockSizeOf(std::int32_t bufferSize) {
    return static_cast<std::size_t>(bufferSize < 1 ? bytesWithoutRoom : bufferSize);
}

bool isRow(const Array& array) {
    return array.dimensions() == 1;
}

String wrongWidth(const char16_t* verb) {
    return String(u"Imposible ") + verb + u": un número debe tener 1, 2, 4 u 8 bytes";
}

String unknownType(const char16_t* verb, const Array& array) {
    return String(u"Imposible ") + verb + u": tipo de dato desconocido. VarType=" +
           automation::CStr(static_cast<std::int32_t>(automation::VT_ARRAY | array.elementType()));
}

} // namespace

cBinBuffer::cBinBuffer() : data(1) {}

bool cBinBuffer::fail(String reason) {
    cLastError = std::move(reason);
    lBufferOk = false;
    return false;
}

namespace {

String doesNotFit(const char16_t* reason, std::int32_t size, std::int32_t position, std::int64_t width) {
    return String(reason) + u" BufferSize=" + automation::CStr(size) + u", BufferPos=" +
           automation::CStr(position) + u", DataSize=" + automation::CStr(static_cast<double>(width));
}

} // namespace

bool cBinBuffer::failWriting(std::int64_t width, std::int32_t position) {
    return fail(doesNotFit(u"Imposible escribir: buffer lleno.", nBufferSize, position, width));
}

bool cBinBuffer::failReading(std::int64_t width, std::int32_t position) {
    return fail(
        doesNotFit(u"Imposible leer: se sobrepasaría el final del buffer.", nBufferSize, position, width));
}

// Size, cursor and single bytes

void cBinBuffer::BufferSize(std::int32_t value) {
    data = ByteBlock(blockSizeOf(value));
    nBufferSize = value;
    nCurrentAddress = 0;
    lBufferOk = true;
}

void cBinBuffer::Resize(std::int32_t nNewSize, bool lResetPosition) {
    data.resize(blockSizeOf(nNewSize));
    nBufferSize = nNewSize;
    if (lResetPosition || EndOfBuffer()) nCurrentAddress = 0;
}

Array cBinBuffer::Raw() const {
    return Array::ofBytes({data.data(), data.size()});
}

void cBinBuffer::Raw(const Variant& aNewRaw) {
    if (aNewRaw.type() != (automation::VT_ARRAY | VT_UI1)) return;
    const Array& array = aNewRaw.asArray();
    if (!isRow(array) || array.lower() != 0) return;
    const auto bytes = array.bytes();
    ByteBlock taken(bytes.size());
    std::copy(bytes.begin(), bytes.end(), taken.data());
    data = std::move(taken);
    nBufferSize = static_cast<std::int32_t>(bytes.size());
}

std::uint8_t cBinBuffer::RawByte(std::int32_t nIndex) const {
    return has(nIndex) ? data.data()[nIndex] : std::uint8_t{0};
}

void cBinBuffer::RawByte(std::int32_t nIndex, std::uint8_t value) {
    if (has(nIndex)) data.data()[nIndex] = value;
}

void cBinBuffer::CurrentAddress(std::int32_t value) {
    if (value >= 0 && value <= nBufferSize) nCurrentAddress = value;
}

bool cBinBuffer::Clear(std::uint8_t nByteForClear) {
    if (nBufferSize < 1) return false;
    std::memset(data.data(), nByteForClear, static_cast<std::size_t>(nBufferSize));
    return true;
}

// Numbers and dates

template <class T>
bool cBinBuffer::write(T value, bool bigEndian) {
    constexpr std::int32_t width = sizeof value;
    if (!hasRoom(width)) return failWriting(width, nCurrentAddress);
    std::uint8_t* target = atCursor();
    std::memcpy(target, &value, width);
    if (bigEndian) std::reverse(target, target + width);
    nCurrentAddress += width;
    return true;
}

template <class T>
bool cBinBuffer::read(T& value, bool bigEndian) {
    constexpr std::int32_t width = sizeof value;
    if (!hasRoom(width)) return failReading(width, nCurrentAddress);
    std::uint8_t bytes[width];
    std::memcpy(bytes, atCursor(), width);
    if (bigEndian) std::reverse(bytes, bytes + width);
    std::memcpy(&value, bytes, width);
    nCurrentAddress += width;
    return true;
}

bool cBinBuffer::WriteNumber(Currency nNumero, std::int32_t nBytes, bool lBigEndian) {
    switch (nBytes) {
    case 1:
        return WriteByte(automation::CByte(nNumero));
    case 2:
        return WriteInteger(automation::CInt(nNumero), lBigEndian);
    case 4:
        return WriteLong(automation::CLng(nNumero), lBigEndian);
    case 8:
        return WriteCurrency(nNumero, lBigEndian);
    default:
        return fail(wrongWidth(u"escribir"));
    }
}

bool cBinBuffer::WriteByte(std::uint8_t nNumero) {
    return write(nNumero, false);
}

bool cBinBuffer::WriteInteger(std::int16_t nNumero, bool lBigEndian) {
    return write(nNumero, lBigEndian);
}

bool cBinBuffer::WriteUnsignedInteger(std::int32_t nNumero, bool lBigEndian) {
    return write(static_cast<std::uint16_t>(nNumero), lBigEndian);
}

bool cBinBuffer::WriteLong(std::int32_t nNumero, bool lBigEndian) {
    return write(nNumero, lBigEndian);
}

bool cBinBuffer::WriteUnsignedLong(Currency nNumero, bool lBigEndian) {
    return write(automation::CLng(nNumero < twoTo31 ? nNumero : nNumero - twoTo32), lBigEndian);
}

bool cBinBuffer::WriteCurrency(Currency nNumero, bool lBigEndian) {
    return write(nNumero.scaled(), lBigEndian);
}

bool cBinBuffer::WriteDate(Date dFecha, bool lBigEndian) {
    return write(dFecha.value(), lBigEndian);
}

bool cBinBuffer::WriteSmallDateTime(const SmallDateTime& xFecha, bool lBigEndian) {
    // The unit that does not fit is the one that is told of, but then the other isn't written either.
    if (hasRoom(unitSize) && !hasRoom(2 * unitSize)) return failWriting(unitSize, nCurrentAddress + unitSize);
    return WriteUnsignedInteger(xFecha.nBinary >> 16, lBigEndian) &&
           WriteUnsignedInteger(xFecha.nBinary, lBigEndian);
}

bool cBinBuffer::ReadNumber(Currency& nNumero, std::int32_t nBytes, bool lBigEndian) {
    std::uint8_t byte = 0;
    std::int32_t number = 0;
    bool done = false;
    switch (nBytes) {
    case 1:
        done = ReadByte(byte);
        number = byte;
        break;
    case 2:
        done = ReadInteger(number, lBigEndian);
        break;
    case 4:
        done = ReadLong(number, lBigEndian);
        break;
    case 8:
        return ReadCurrency(nNumero, lBigEndian);
    default:
        return fail(wrongWidth(u"leer"));
    }
    if (done) nNumero = Currency(number);
    return done;
}

bool cBinBuffer::ReadByte(std::uint8_t& nNumero) {
    return read(nNumero, false);
}

bool cBinBuffer::ReadInteger(std::int32_t& nNumero, bool lBigEndian) {
    return ReadUnsignedInteger(nNumero, lBigEndian);
}

bool cBinBuffer::ReadUnsignedInteger(std::int32_t& nNumero, bool lBigEndian) {
    std::uint16_t unit = 0;
    if (!read(unit, lBigEndian)) return false;
    nNumero = unit;
    return true;
}

bool cBinBuffer::ReadLong(std::int32_t& nNumero, bool lBigEndian) {
    return read(nNumero, lBigEndian);
}

bool cBinBuffer::ReadUnsignedLong(Currency& nNumero, bool lBigEndian) {
    std::uint32_t number = 0;
    if (!read(number, lBigEndian)) return false;
    nNumero = Currency::fromScaled(number * Currency::scale);
    return true;
}

bool cBinBuffer::ReadCurrency(Currency& nNumero, bool lBigEndian) {
    std::int64_t scaled = 0;
    if (!read(scaled, lBigEndian)) return false;
    nNumero = Currency::fromScaled(scaled);
    return true;
}

bool cBinBuffer::ReadDate(Date& dFecha, bool lBigEndian) {
    double days = 0;
    if (!read(days, lBigEndian)) return false;
    dFecha = Date(days);
    return true;
}

bool cBinBuffer::ReadSmallDateTime(SmallDateTime& xFecha, bool lBigEndian) {
    if (hasRoom(unitSize) && !hasRoom(2 * unitSize)) return failReading(unitSize, nCurrentAddress + unitSize);
    std::uint16_t days = 0, minutes = 0;
    if (!read(days, lBigEndian) || !read(minutes, lBigEndian)) return false;
    const auto binary = static_cast<std::int32_t>(std::uint32_t{days} << 16 | minutes);
    xFecha = Date2SmallDate(SmallDate2Date(binary));
    return true;
}

// Bytes of arrays and of other buffers

bool cBinBuffer::writeBytes(const std::uint8_t* bytes, std::size_t count) {
    if (!hasRoom(static_cast<std::int64_t>(count)))
        return failWriting(static_cast<std::int64_t>(count), nCurrentAddress);
    if (count != 0) std::memmove(atCursor(), bytes, count);
    nCurrentAddress += static_cast<std::int32_t>(count);
    return true;
}

bool cBinBuffer::WriteBinary(Array& aBinArray, std::int32_t nPrimero, std::int32_t nContador) {
    const std::int64_t lower = isRow(aBinArray) ? aBinArray.lower() : -1;
    if (lower < 0)
        return fail(u"Imposible escribir: el array suministrado debe comenzar por el índice 0 ó 1.");
    if (aBinArray.elementType() != VT_UI1) return fail(unknownType(u"escribir", aBinArray));
    const std::int64_t upper = aBinArray.upper();
    const std::int64_t first = nPrimero >= lower && nPrimero <= upper ? nPrimero : lower;
    const std::int64_t count =
        nContador > 0 && first + nContador - 1 <= upper ? nContador : upper - first + 1;
    const auto bytes = std::as_const(aBinArray).bytes();
    return writeBytes(bytes.data() + (first - lower), static_cast<std::size_t>(count));
}

bool cBinBuffer::WriteBuffer(Ref<cBinBuffer>& oOtroBinBuffer, std::int32_t nPrimero, std::int32_t nContador) {
    if (!oOtroBinBuffer) automation::throwError(automation::errors::ObjectVariableNotSet);
    const cBinBuffer& other = *oOtroBinBuffer;
    const std::int32_t first = other.has(nPrimero) ? nPrimero : 0;
    const std::int32_t most = std::max(other.nBufferSize - first, 0);
    const std::int32_t count = nContador < 1 || nContador > most ? most : nContador;
    return writeBytes(other.data.data() + first, static_cast<std::size_t>(count));
}

bool cBinBuffer::ReadBinary(Array& aBinArray, std::int32_t nBytes) {
    if (nBytes == 0 && (!isRow(aBinArray) || aBinArray.upper() < 1)) nBytes = bytesLeft();
    if (nBytes < 1) {
        if (!isRow(aBinArray) || aBinArray.lower() != 0)
            return fail(u"Imposible leer: el array suministrado debe comenzar por el índice 0.");
        nBytes = aBinArray.upper() + 1;
    }
    if (aBinArray.dimensions() != 0 && aBinArray.elementType() != VT_UI1)
        return fail(unknownType(u"leer", aBinArray));
    if (!hasRoom(nBytes)) return failReading(nBytes, nCurrentAddress);
    const std::span<const std::uint8_t> bytes(atCursor(), static_cast<std::size_t>(nBytes));
    if (isRow(aBinArray) && aBinArray.lower() == 0 && aBinArray.size() == bytes.size())
        std::copy(bytes.begin(), bytes.end(), aBinArray.bytes().begin());
    else
        aBinArray = Array::ofBytes(bytes);
    nCurrentAddress += nBytes;
    return true;
}

bool cBinBuffer::ReadBuffer(Ref<cBinBuffer>& oOtroBinBuffer, std::int32_t nBytes) {
    if (oOtroBinBuffer && nBytes == 0) nBytes = oOtroBinBuffer->BufferSize();
    if (nBytes == 0) nBytes = bytesLeft();
    if (nBytes < 1) return false;
    if (!oOtroBinBuffer) oOtroBinBuffer = automation::make<cBinBuffer>();
    oOtroBinBuffer->BufferSize(nBytes);
    if (!hasRoom(nBytes)) return failReading(nBytes, nCurrentAddress);
    const std::uint8_t* bytes = atCursor();
    nCurrentAddress += nBytes;
    std::memmove(oOtroBinBuffer->data.data(), bytes, static_cast<std::size_t>(nBytes));
    return true;
}

} // namespace tesela
