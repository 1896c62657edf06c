#include "platform/linux/png_file.h"

#include <png.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace platform::driver {

namespace {

constexpr int bytesPerPixel = 3;

void rowToRgb(const Surface& surface, int y, std::vector<std::uint8_t>& out) {
    const std::uint8_t* row = surface.bits + static_cast<std::ptrdiff_t>(y) * surface.stride;
    for (int x = 0; x < surface.width; ++x) {
        std::uint8_t* rgb = &out[static_cast<std::size_t>(x) * bytesPerPixel];
        if (surface.bitsPerPixel == 1) {
            rgb[0] = rgb[1] = rgb[2] = (row[x / 8] >> (7 - x % 8) & 1) ? 0xFF : 0x00;
        } else {
            const std::uint8_t* pixel = row + static_cast<std::ptrdiff_t>(x) * 4;
            rgb[0] = pixel[2];
            rgb[1] = pixel[1];
            rgb[2] = pixel[0];
        }
    }
}

/// libpng reports an error with longjmp, so everything that must be destroyed lives in the caller.
bool writeImage(std::FILE* file, const Surface& surface, std::vector<std::uint8_t>& row) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    if (!png) return false;
    png_infop info = png_create_info_struct(png);
    if (!info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, static_cast<png_uint_32>(surface.width), static_cast<png_uint_32>(surface.height),
                 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < surface.height; ++y) {
        rowToRgb(surface, y, row);
        png_write_row(png, row.data());
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

} // namespace

bool savePng(const std::string& path, const Surface& surface) {
    if (!surface.bits || surface.width <= 0 || surface.height <= 0) return false;
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    std::vector<std::uint8_t> row(static_cast<std::size_t>(surface.width) * bytesPerPixel);
    const bool written = writeImage(file, surface, row);
    return std::fclose(file) == 0 && written;
}

std::string pngOf(const Surface& surface) {
    if (!surface.bits || surface.width <= 0 || surface.height <= 0) return {};
    const auto stride = static_cast<std::size_t>(surface.width) * bytesPerPixel;
    std::vector<std::uint8_t> rgb(stride * static_cast<std::size_t>(surface.height));
    std::vector<std::uint8_t> row(stride);
    for (int y = 0; y < surface.height; ++y) {
        rowToRgb(surface, y, row);
        std::copy(row.begin(), row.end(), rgb.begin() + static_cast<std::ptrdiff_t>(stride) * y);
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(surface.width);
    image.height = static_cast<png_uint_32>(surface.height);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string file(size, '\0');
    if (!png_image_write_to_memory(&image, file.data(), &size, 0, rgb.data(), 0, nullptr)) return {};
    file.resize(size);
    return file;
}

} // namespace platform::driver
