// The buffer's bytes as text.

#include "automation/Error.h"
#include "data/cBinBuffer.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace tesela {

using automation::String;

namespace {

constexpr std::size_t bytesInLine = 16;
constexpr std::size_t bytesInHalf = 8;
constexpr std::size_t hexadecimalWidth = 50;
constexpr char unprintable = '\x01'; ///< Stands for bytes below a blank
constexpr char digits[] = "0123456789ABCDEF";

/// The lower 16 bits.
void appendAddress(std::string& text, std::size_t address) {
    for (int shift = 12; shift >= 0; shift -= 4)
        text += digits[address >> shift & 0xF];
}

/// The bytes of a line from the place `from` to the place before `to`, blanks for those before.
void appendHexadecimal(std::string& text, const std::uint8_t* line, std::size_t from, std::size_t to) {
    const std::size_t end = text.size() + hexadecimalWidth;
    text.append(3 * from + (from >= bytesInHalf ? 2 : 0), ' ');
    for (std::size_t i = from; i < to; ++i) {
        text += {digits[line[i] >> 4], digits[line[i] & 0xF], ' '};
        if (i == bytesInHalf - 1) text += "| ";
    }
    text.append(end - text.size(), ' ');
}

void appendCharacters(std::string& text, const std::uint8_t* line, std::size_t from, std::size_t to) {
    text.append(from + (from >= bytesInHalf ? 1 : 0), ' ');
    for (std::size_t i = from; i < to; ++i) {
        text += line[i] < ' ' ? unprintable : static_cast<char>(line[i]);
        if (i == bytesInHalf - 1) text += ' ';
    }
}

} // namespace

cBinBuffer::Range cBinBuffer::rangeOf(std::int32_t start, std::int32_t count) const {
    if (!has(start)) start = 0;
    const std::int32_t most = std::max(nBufferSize - start, 0);
    return {static_cast<std::size_t>(start),
            static_cast<std::size_t>(count > 0 && count <= most ? count : most)};
}

String cBinBuffer::Dump(std::int32_t nStartAddress, std::int32_t nBytesToDump) const {
    const Range range = rangeOf(nStartAddress, nBytesToDump);
    const std::size_t end = range.start + range.count;
    std::string text;
    for (std::size_t at = range.start; at < end;) {
        const std::size_t address = at - at % bytesInLine;
        const std::size_t to = std::min(end - address, bytesInLine);
        appendAddress(text, address);
        text += ": ";
        appendHexadecimal(text, data.data() + address, at - address, to);
        text += "  <=>   ";
        appendCharacters(text, data.data() + address, at - address, to);
        text += "\r\n";
        at = address + bytesInLine;
    }
    return String::fromAnsi(text);
}

String cBinBuffer::ToString(std::int32_t nStartAddress, std::int32_t nBytesToDump) const {
    const Range range = rangeOf(nStartAddress, nBytesToDump);
    return String::fromAnsi({reinterpret_cast<const char*>(data.data()) + range.start, range.count});
}

bool cBinBuffer::FromString(const String& cCadena, bool lAppend) {
    constexpr std::size_t most = std::numeric_limits<std::int32_t>::max();
    const std::string bytes = cCadena.ansi();
    if (lAppend && nBufferSize < 0) automation::throwError(automation::errors::SubscriptOutOfRange);
    const std::size_t start = lAppend ? static_cast<std::size_t>(nBufferSize) : 0;
    if (bytes.size() > most - start) automation::throwError(automation::errors::Overflow);
    const auto size = static_cast<std::int32_t>(start + bytes.size());
    if (lAppend)
        Resize(size, false);
    else
        BufferSize(size);
    std::copy(bytes.begin(), bytes.end(), data.data() + start);
    return !bytes.empty();
}

bool cBinBuffer::WriteString(const String& cTexto, std::int32_t nLongitud) {
    std::string bytes = cTexto.ansi();
    const std::size_t width = nLongitud < 1 ? bytes.size() : static_cast<std::size_t>(nLongitud);
    if (!hasRoom(static_cast<std::int64_t>(width)))
        return failWriting(static_cast<std::int64_t>(width), nCurrentAddress);
    bytes.resize(width, '\0');
    return writeBytes(reinterpret_cast<const std::uint8_t*>(bytes.data()), width);
}

bool cBinBuffer::ReadString(String& cTexto, std::int32_t nLongitud) {
    const std::size_t width = nLongitud < 1 ? cTexto.length() : static_cast<std::size_t>(nLongitud);
    if (!hasRoom(static_cast<std::int64_t>(width)))
        return failReading(static_cast<std::int64_t>(width), nCurrentAddress);
    cTexto = String::fromAnsi({reinterpret_cast<const char*>(atCursor()), width});
    nCurrentAddress += static_cast<std::int32_t>(width);
    return true;
}

} // namespace tesela
