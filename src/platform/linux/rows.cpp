#include "platform/linux/rows.h"

#include <cstring>

namespace platform::driver {

namespace {

constexpr std::uint32_t colorMask = 0x00FFFFFF;

int squaredDistance(std::uint32_t a, std::uint32_t b) {
    int sum = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const int difference = static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
        sum += difference * difference;
    }
    return sum;
}

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

} // namespace

int nearestColor(const ColorTable& colors, std::uint32_t color) {
    return squaredDistance(colors[1], color) < squaredDistance(colors[0], color) ? 1 : 0;
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
    if (from.bitsPerPixel == 32) {
        std::memmove(row32(to, toY) + toX, row32(from, fromY) + fromX, static_cast<std::size_t>(count) * 4);
    } else {
        copyBits(rowOf(from, fromY), fromX, rowOf(to, toY), toX, count);
    }
}

void readRow(const Surface& from, int x, int y, int count, const ColorTable& colors, std::uint32_t* out) {
    if (from.bitsPerPixel == 32) {
        std::memcpy(out, row32(from, y) + x, static_cast<std::size_t>(count) * 4);
        return;
    }
    const std::uint8_t* row = rowOf(from, y);
    for (int i = 0; i < count; ++i)
        out[i] = colors[bitAt(row, x + i) ? 1 : 0];
}

void writeRow(const Surface& to, int x, int y, int count, const ColorTable& colors, const std::uint32_t* in) {
    if (to.bitsPerPixel == 32) {
        std::memcpy(row32(to, y) + x, in, static_cast<std::size_t>(count) * 4);
        return;
    }
    std::uint8_t* row = rowOf(to, y);
    for (int i = 0; i < count; ++i)
        putBit(row, x + i, nearestColor(colors, in[i] & colorMask) == 1);
}

} // namespace platform::driver
