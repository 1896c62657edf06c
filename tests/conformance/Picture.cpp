#include "conformance/Picture.h"

#include <istream>
#include <ostream>
#include <stdexcept>

namespace conformance {

namespace {

void putNumber(std::ostream& out, std::uint64_t value) {
    while (value >= 0x80) {
        out.put(static_cast<char>(value | 0x80));
        value >>= 7;
    }
    out.put(static_cast<char>(value));
}

std::uint64_t takeNumber(std::istream& in) {
    std::uint64_t value = 0;
    for (int shift = 0; shift < 64; shift += 7) {
        const int byte = in.get();
        if (byte < 0) throw std::runtime_error("the results are cut short");
        value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
        if (byte < 0x80) return value;
    }
    throw std::runtime_error("the results are damaged");
}

void putText(std::ostream& out, const std::string& text) {
    putNumber(out, text.size());
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

std::string takeText(std::istream& in) {
    std::string text(takeNumber(in), '\0');
    if (!in.read(text.data(), static_cast<std::streamsize>(text.size())))
        throw std::runtime_error("the results are cut short");
    return text;
}

/// How many pixels from `at` on are the same as those `distance` before them.
std::size_t repeated(const std::vector<std::uint32_t>& pixels, std::size_t at, std::size_t distance) {
    if (at < distance) return 0;
    std::size_t end = at;
    while (end < pixels.size() && pixels[end] == pixels[end - distance])
        ++end;
    return end - at;
}

void putPixels(std::ostream& out, const Picture& picture) {
    const std::vector<std::uint32_t>& pixels = picture.pixels;
    const std::size_t width = static_cast<std::size_t>(picture.width);
    for (std::size_t at = 0; at < pixels.size();) {
        const std::size_t above = repeated(pixels, at, width);
        const std::size_t run = 1 + repeated(pixels, at + 1, 1);
        if (above >= run) {
            putNumber(out, above * 2);
            at += above;
        } else {
            putNumber(out, run * 2 + 1);
            putNumber(out, pixels[at]);
            at += run;
        }
    }
}

void takePixels(std::istream& in, Picture& picture) {
    const std::size_t width = static_cast<std::size_t>(picture.width);
    const std::size_t total = width * static_cast<std::size_t>(picture.height);
    while (picture.pixels.size() < total) {
        const std::uint64_t token = takeNumber(in);
        const std::size_t count = token / 2;
        if (count > total - picture.pixels.size()) throw std::runtime_error("the results are damaged");
        if (token % 2 == 1) {
            picture.pixels.insert(picture.pixels.end(), count, static_cast<std::uint32_t>(takeNumber(in)));
        } else {
            if (picture.pixels.size() < width) throw std::runtime_error("the results are damaged");
            for (std::size_t i = 0; i < count; ++i)
                picture.pixels.push_back(picture.pixels[picture.pixels.size() - width]);
        }
    }
}

} // namespace

void writeResult(std::ostream& out, const Result& result) {
    putText(out, result.script);
    putText(out, result.shown);
    putNumber(out, result.pictures.size());
    for (const Picture& picture : result.pictures) {
        putText(out, picture.name);
        putNumber(out, static_cast<std::uint64_t>(picture.width));
        putNumber(out, static_cast<std::uint64_t>(picture.height));
        putPixels(out, picture);
    }
}

bool readResult(std::istream& in, Result& result) {
    if (in.peek() < 0) return false;
    result = {takeText(in), takeText(in), {}};
    result.pictures.resize(takeNumber(in));
    for (Picture& picture : result.pictures) {
        picture.name = takeText(in);
        picture.width = static_cast<int>(takeNumber(in));
        picture.height = static_cast<int>(takeNumber(in));
        takePixels(in, picture);
    }
    return true;
}

} // namespace conformance
