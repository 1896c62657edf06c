#include "platform/linux/rows.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace platform::driver {

namespace {

constexpr std::uint32_t colorMask = 0x00FFFFFF;
constexpr std::uint32_t allBits = ~0u;

void copyBits(const std::uint8_t* from, int fromX, std::uint8_t* to, int toX, int count) {
    std::vector<std::uint8_t> aligned(static_cast<std::size_t>((toX & 7) + count) / 8 + 1);
    alignBits(from, fromX, aligned.data(), toX & 7, count);
    std::uint8_t* out = to + (toX >> 3);
    const int end = (toX & 7) + count;
    for (int byte = 0; byte * 8 < end; ++byte) {
        int mask = 0xFF;
        if (byte == 0) mask &= 0xFF >> (toX & 7);
        if (end - byte * 8 < 8) mask &= 0xFF << (8 - (end - byte * 8));
        const std::size_t index = static_cast<std::size_t>(byte);
        out[byte] = static_cast<std::uint8_t>((out[byte] & ~mask) | (aligned[index] & mask));
    }
}

std::uint32_t nibbleAt(const std::uint8_t* row, int x) {
    return (x & 1) != 0 ? row[x >> 1] & 0x0Fu : row[x >> 1] >> 4u;
}

void putNibble(std::uint8_t* row, int x, std::uint32_t value) {
    std::uint8_t& byte = row[x >> 1];
    byte = static_cast<std::uint8_t>((x & 1) != 0 ? (byte & 0xF0) | (value & 0x0F)
                                                  : (byte & 0x0F) | (value & 0x0F) << 4);
}

inline std::uint32_t valueIn(const std::uint8_t* row, int bitsPerPixel, int x) {
    switch (bitsPerPixel) {
    case 1:
        return bitAt(row, x) ? allBits : 0;
    case 4:
        return nibbleAt(row, x);
    case 8:
        return row[x];
    case 16:
        return reinterpret_cast<const std::uint16_t*>(row)[x];
    case 24:
        row += 3 * static_cast<std::ptrdiff_t>(x);
        return row[0] | static_cast<std::uint32_t>(row[1]) << 8 | static_cast<std::uint32_t>(row[2]) << 16;
    default:
        return reinterpret_cast<const std::uint32_t*>(row)[x];
    }
}

inline void putValue(std::uint8_t* row, int bitsPerPixel, int x, std::uint32_t value) {
    switch (bitsPerPixel) {
    case 1:
        putBit(row, x, (value & 1) != 0);
        break;
    case 4:
        putNibble(row, x, value);
        break;
    case 8:
        row[x] = static_cast<std::uint8_t>(value);
        break;
    case 16:
        reinterpret_cast<std::uint16_t*>(row)[x] = static_cast<std::uint16_t>(value);
        break;
    case 24:
        row += 3 * static_cast<std::ptrdiff_t>(x);
        row[0] = static_cast<std::uint8_t>(value);
        row[1] = static_cast<std::uint8_t>(value >> 8);
        row[2] = static_cast<std::uint8_t>(value >> 16);
        break;
    default:
        reinterpret_cast<std::uint32_t*>(row)[x] = value;
        break;
    }
}

/// Calls `apply` with the number of bits as a constant, so that its loops need not ask for it.
template <class Apply>
void withDepth(int bitsPerPixel, Apply apply) {
    switch (bitsPerPixel) {
    case 1:
        return apply(std::integral_constant<int, 1>());
    case 4:
        return apply(std::integral_constant<int, 4>());
    case 8:
        return apply(std::integral_constant<int, 8>());
    case 16:
        return apply(std::integral_constant<int, 16>());
    case 24:
        return apply(std::integral_constant<int, 24>());
    default:
        return apply(std::integral_constant<int, 32>());
    }
}

/// Bits from values, whole bytes at once.
void writeBits(std::uint8_t* row, int x, int count, const std::uint32_t* in) {
    constexpr int bitsOfByte = 8;
    for (; count > 0 && (x & 7) != 0; --count)
        putBit(row, x++, (*in++ & 1) != 0);
    for (; count >= bitsOfByte; count -= bitsOfByte, x += bitsOfByte) {
        unsigned byte = 0;
        for (int bit = 0; bit < bitsOfByte; ++bit)
            byte = byte << 1 | (*in++ & 1);
        row[x >> 3] = static_cast<std::uint8_t>(byte);
    }
    for (; count > 0; --count)
        putBit(row, x++, (*in++ & 1) != 0);
}

/// The last colour of a row is mostly the next one too: it is translated once.
template <class Translate>
void translateRow(std::uint32_t* pixels, int count, Translate translate) {
    std::uint32_t last = 0;
    std::uint32_t translated = 0;
    for (int i = 0; i < count; ++i) {
        if (i == 0 || pixels[i] != last) {
            last = pixels[i];
            translated = translate(last);
        }
        pixels[i] = translated;
    }
}

} // namespace

bool haveSameFormat(const Surface& a, const Surface& b) {
    if (a.bitsPerPixel != b.bitsPerPixel) return false;
    if (a.format == b.format) return true;
    return a.format && b.format && *a.format == *b.format;
}

std::uint32_t valueAt(const Surface& surface, int x, int y) {
    return valueIn(rowOf(surface, y), surface.bitsPerPixel, x);
}

void readValues(const Surface& surface, int x, int y, int count, std::uint32_t* out) {
    const std::uint8_t* row = rowOf(surface, y);
    if (surface.bitsPerPixel == 32) {
        std::memcpy(out, row + std::ptrdiff_t{4} * x, static_cast<std::size_t>(count) * 4);
        return;
    }
    withDepth(surface.bitsPerPixel, [=](auto bits) {
        for (int i = 0; i < count; ++i)
            out[i] = valueIn(row, bits, x + i);
    });
}

void writeValues(const Surface& surface, int x, int y, int count, const std::uint32_t* in) {
    std::uint8_t* row = rowOf(surface, y);
    if (surface.bitsPerPixel == 32) {
        std::memcpy(row + std::ptrdiff_t{4} * x, in, static_cast<std::size_t>(count) * 4);
        return;
    }
    if (surface.bitsPerPixel == 1) {
        writeBits(row, x, count, in);
        return;
    }
    withDepth(surface.bitsPerPixel, [=](auto bits) {
        for (int i = 0; i < count; ++i)
            putValue(row, bits, x + i, in[i]);
    });
}

void changeRectangle(const Surface& surface, const RECT& r, Masks masks) {
    for (int y = r.top; y < r.bottom; ++y) {
        if (surface.bitsPerPixel == 32) {
            applyMasks(row32(surface, y) + r.left, static_cast<std::size_t>(r.right - r.left), masks);
        } else if (surface.bitsPerPixel == 1) {
            applyMasksToBits(rowOf(surface, y), r.left, r.right, masks);
        } else if (surface.bitsPerPixel == 8 && masks.keep == 0) {
            std::memset(rowOf(surface, y) + r.left, static_cast<int>(masks.flip & 0xFF),
                        static_cast<std::size_t>(r.right - r.left));
        } else {
            for (int x = r.left; x < r.right; ++x)
                maskPixel(surface, x, y, masks);
        }
    }
}

void changePixel(const Surface& surface, int x, int y, Masks masks) {
    std::uint8_t* row = rowOf(surface, y);
    const std::uint32_t value = valueIn(row, surface.bitsPerPixel, x);
    putValue(row, surface.bitsPerPixel, x, (value & masks.keep) ^ masks.flip);
}

void alignBits(const std::uint8_t* from, int fromX, std::uint8_t* out, int toX, int count) {
    if (count <= 0) return;
    const int shift = (fromX & 7) - (toX & 7);
    const int lastBit = fromX + count - 1;
    const std::uint8_t* source = from + (fromX >> 3);
    const std::uint8_t* const lastByte = from + (lastBit >> 3);
    std::uint8_t* target = out + (toX >> 3);
    const int bytes = ((toX & 7) + count + 7) / 8;
    if (shift == 0) {
        std::memcpy(target, source, static_cast<std::size_t>(bytes));
        return;
    }
    // Each target byte straddles two source bytes; bytes beyond the row count as 0.
    const int left = shift > 0 ? shift : shift + 8;
    if (shift < 0) --source;
    for (int i = 0; i < bytes; ++i, ++source) {
        const bool hasHigh = i > 0 || shift > 0;
        const unsigned high = hasHigh ? *source : 0u;
        const unsigned low = source + 1 <= lastByte ? source[1] : 0u;
        target[i] = static_cast<std::uint8_t>(high << left | low >> (8 - left));
    }
}

void copyRow(const Surface& from, int fromX, int fromY, const Surface& to, int toX, int toY, int count) {
    const int bits = from.bitsPerPixel;
    if (bits == 1) {
        copyBits(rowOf(from, fromY), fromX, rowOf(to, toY), toX, count);
    } else if (bits == 4) {
        std::vector<std::uint32_t> values(static_cast<std::size_t>(count));
        readValues(from, fromX, fromY, count, values.data());
        writeValues(to, toX, toY, count, values.data());
    } else {
        const std::ptrdiff_t bytes = bits / 8;
        std::memmove(rowOf(to, toY) + toX * bytes, rowOf(from, fromY) + fromX * bytes,
                     static_cast<std::size_t>(count * bytes));
    }
}

void readRow(const Surface& from, int x, int y, int count, const TwoColors& bits, std::uint32_t* out) {
    readValues(from, x, y, count, out);
    if (from.bitsPerPixel == 1) {
        const std::uint32_t at0 = colorOfValue(from, 0, bits);
        const std::uint32_t at1 = colorOfValue(from, allBits, bits);
        for (int i = 0; i < count; ++i)
            out[i] = out[i] != 0 ? at1 : at0;
    } else if (from.format) {
        from.format->colorsOf(out, static_cast<std::size_t>(count));
    }
}

void writeRow(const Surface& to, int x, int y, int count, const TwoColors& bits, const std::uint32_t* in,
              ColorSearch search) {
    if (!to.format && to.bitsPerPixel != 1) {
        writeValues(to, x, y, count, in);
        return;
    }
    std::vector<std::uint32_t> values(in, in + count);
    if (to.format && to.bitsPerPixel != 1 && !to.format->hasTable()) {
        to.format->copiedValuesOf(values.data(), values.size());
    } else {
        const bool isCopied = to.format && to.bitsPerPixel != 1 && search == ColorSearch::ByCubes;
        translateRow(values.data(), count, [&](std::uint32_t color) {
            color &= colorMask;
            return isCopied ? to.format->copiedValueOf(color) : valueOfColor(to, color, bits);
        });
    }
    writeValues(to, x, y, count, values.data());
}

std::uint32_t colorOfValue(const Surface& surface, std::uint32_t value, const TwoColors& bits) {
    if (surface.bitsPerPixel == 1)
        return surface.format ? surface.format->colorOf(value & 1) : bits[value & 1];
    return surface.format ? surface.format->colorOf(value) : value & colorMask;
}

std::uint32_t valueOfColor(const Surface& surface, std::uint32_t color, const TwoColors& bits) {
    if (surface.bitsPerPixel == 1) {
        const std::uint32_t bit =
            surface.format ? surface.format->valueOf(color)
                           : static_cast<std::uint32_t>(nearestOf(bits.data(), bits.size(), color));
        return bit != 0 ? allBits : 0;
    }
    return surface.format ? surface.format->valueOf(color) : color & colorMask;
}

} // namespace platform::driver
