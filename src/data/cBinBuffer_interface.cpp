#include "data/cBinBuffer.h"

#include "automation/ClassTable.h"

namespace tesela {

const automation::ClassTable& cBinBuffer::table() {
    using automation::optional;
    static const automation::ClassTable table =
        automation::ClassTable::of<cBinBuffer>("cBinBuffer")
            .property("LastError", &cBinBuffer::LastError, &cBinBuffer::LastError)
            .property("BufferSize", &cBinBuffer::BufferSize, &cBinBuffer::BufferSize)
            .method("Resize", &cBinBuffer::Resize, {"nNewSize", optional("lResetPosition", true)})
            .property("BufferOk", &cBinBuffer::BufferOk, &cBinBuffer::BufferOk)
            .property("Raw", &cBinBuffer::Raw, &cBinBuffer::Raw)
            .elements(automation::VT_UI1)
            .property("RawByte", &cBinBuffer::RawByte, &cBinBuffer::RawByte, {"nIndex"})
            .property("CurrentAddress", &cBinBuffer::CurrentAddress, &cBinBuffer::CurrentAddress)
            .get("EndOfBuffer", &cBinBuffer::EndOfBuffer)
            .method("Clear", &cBinBuffer::Clear, {optional("nByteForClear")})
            .method("WriteNumber", &cBinBuffer::WriteNumber, {"nNumero", "nBytes", optional("lBigEndian")})
            .method("WriteByte", &cBinBuffer::WriteByte, {"nNumero"})
            .method("WriteInteger", &cBinBuffer::WriteInteger, {"nNumero", optional("lBigEndian")})
            .method("WriteUnsignedInteger", &cBinBuffer::WriteUnsignedInteger,
                    {"nNumero", optional("lBigEndian")})
            .method("WriteLong", &cBinBuffer::WriteLong, {"nNumero", optional("lBigEndian")})
            .method("WriteUnsignedLong", &cBinBuffer::WriteUnsignedLong, {"nNumero", optional("lBigEndian")})
            .method("WriteCurrency", &cBinBuffer::WriteCurrency, {"nNumero", optional("lBigEndian")})
            .method("WriteDate", &cBinBuffer::WriteDate, {"dFecha", optional("lBigEndian")})
            .method("WriteSmallDateTime", &cBinBuffer::WriteSmallDateTime, {"xFecha", optional("lBigEndian")})
            .method("WriteString", &cBinBuffer::WriteString, {"cTexto", "nLongitud"})
            .method("WriteBinary", &cBinBuffer::WriteBinary,
                    {"aBinArray", optional("nPrimero"), optional("nContador")})
            .elements(automation::VT_UI1)
            .method("WriteBuffer", &cBinBuffer::WriteBuffer,
                    {"oOtroBinBuffer", optional("nPrimero"), optional("nContador")})
            .method("ReadNumber", &cBinBuffer::ReadNumber, {"nNumero", "nBytes", optional("lBigEndian")})
            .method("ReadByte", &cBinBuffer::ReadByte, {"nNumero"})
            .method("ReadInteger", &cBinBuffer::ReadInteger, {"nNumero", optional("lBigEndian")})
            .method("ReadUnsignedInteger", &cBinBuffer::ReadUnsignedInteger,
                    {"nNumero", optional("lBigEndian")})
            .method("ReadLong", &cBinBuffer::ReadLong, {"nNumero", optional("lBigEndian")})
            .method("ReadUnsignedLong", &cBinBuffer::ReadUnsignedLong, {"nNumero", optional("lBigEndian")})
            .method("ReadCurrency", &cBinBuffer::ReadCurrency, {"nNumero", optional("lBigEndian")})
            .method("ReadDate", &cBinBuffer::ReadDate, {"dFecha", optional("lBigEndian")})
            .method("ReadSmallDateTime", &cBinBuffer::ReadSmallDateTime, {"xFecha", optional("lBigEndian")})
            .method("ReadString", &cBinBuffer::ReadString, {"cTexto", "nLongitud"})
            .method("ReadBinary", &cBinBuffer::ReadBinary, {"aBinArray", optional("nBytes")})
            .elements(automation::VT_UI1)
            .method("ReadBuffer", &cBinBuffer::ReadBuffer, {"oOtroBinBuffer", optional("nBytes")})
            .method("Dump", &cBinBuffer::Dump, {optional("nStartAddress"), optional("nBytesToDump")})
            .method("ToString", &cBinBuffer::ToString, {optional("nStartAddress"), optional("nBytesToDump")})
            .method("FromString", &cBinBuffer::FromString, {"cCadena", optional("lAppend")});
    return table;
}

} // namespace tesela
