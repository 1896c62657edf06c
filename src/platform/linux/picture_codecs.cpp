// PNG, JPEG and GIF by the libraries of the system.

#include "platform/picture_readers.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <memory>

#include <gif_lib.h>
#include <jerror.h>
#include <jpeglib.h>
#include <png.h>

namespace platform::driver {
namespace {

// A header may state any size; more pixels than these to a byte no encoder of the format can pack.
constexpr std::size_t mostPngPixelsPerByte = std::size_t{1032} * 8;
constexpr std::size_t mostJpegPixelsPerByte = std::size_t{64} * 8 * 4;
constexpr std::size_t mostGifPixelsPerByte = 4096;

PictureError checkSize(std::int64_t width, std::int64_t height, std::size_t fileSize,
                       std::size_t mostPerByte) {
    if (const auto error = checkPictureSize(width, height); error != PictureError::None) return error;
    const auto pixels = static_cast<std::size_t>(width * height);
    return pixels / mostPerByte > fileSize ? PictureError::Corrupt : PictureError::None;
}

void allocate(PictureData& picture, std::int64_t width, std::int64_t height) {
    picture.width = static_cast<int>(width);
    picture.height = static_cast<int>(height);
    picture.argb.resize(static_cast<std::size_t>(width * height));
}

} // namespace

PictureError decodePng(PictureBytes file, PictureData& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const std::unique_ptr<png_image, void (*)(png_image*)> owner(&image, png_image_free);
    if (!png_image_begin_read_from_memory(&image, file.data(), file.size())) return PictureError::Corrupt;
    if (const auto error = checkSize(image.width, image.height, file.size(), mostPngPixelsPerByte);
        error != PictureError::None)
        return error;
    picture.hasAlpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    image.format = PNG_FORMAT_BGRA;
    allocate(picture, image.width, image.height);
    if (!png_image_finish_read(&image, nullptr, picture.argb.data(), 0, nullptr))
        return PictureError::Corrupt;
    return PictureError::None;
}

namespace {

/// libjpeg's own errors jump back; its warnings about data that end early or make no sense count as errors.
struct JpegErrors {
    jpeg_error_mgr manager;
    std::jmp_buf back;
};

[[noreturn]] void leaveJpeg(j_common_ptr info) {
    std::longjmp(reinterpret_cast<JpegErrors*>(info->err)->back, 1);
}

void noteJpeg(j_common_ptr info, int level) {
    if (level >= 0) return;
    const int code = info->err->msg_code;
    if (code == JWRN_JPEG_EOF || code == JWRN_HIT_MARKER || code == JWRN_HUFF_BAD_CODE) leaveJpeg(info);
}

/// Each scan of a progressive file goes over the whole picture, however few bytes it has; encoders write a
/// dozen. The largest pictures may have three times as many.
void limitJpegScans(j_common_ptr common) {
    constexpr std::int64_t mostScans = 500;
    constexpr std::int64_t mostPixelsOfScans = std::int64_t{1} << 31;
    const auto* info = reinterpret_cast<j_decompress_ptr>(common);
    const std::int64_t pixels = std::int64_t{info->image_width} * info->image_height;
    if (info->input_scan_number > std::min(mostScans, mostPixelsOfScans / pixels)) leaveJpeg(common);
}

/// Pixels of four inks, stored inverted as image editors write them.
void fromInks(const std::uint8_t* inks, std::uint32_t* out, unsigned width) {
    for (unsigned x = 0; x < width; ++x, inks += 4) {
        const std::uint32_t red = inks[0] * inks[3] / 255u;
        const std::uint32_t green = inks[1] * inks[3] / 255u;
        const std::uint32_t blue = inks[2] * inks[3] / 255u;
        out[x] = 0xFF000000 | red << 16 | green << 8 | blue;
    }
}

struct JpegJob {
    jpeg_decompress_struct info{};
    JpegErrors errors{};
    jpeg_progress_mgr progress{};
    std::vector<std::uint8_t> row;
    PictureError result = PictureError::Corrupt;
};

void readJpegRows(JpegJob& job, PictureData& picture) {
    auto& info = job.info;
    while (info.output_scanline < info.output_height) {
        std::uint32_t* out = picture.argb.data() + std::size_t{info.output_scanline} * info.output_width;
        JSAMPROW target = job.row.empty() ? reinterpret_cast<JSAMPROW>(out) : job.row.data();
        if (jpeg_read_scanlines(&info, &target, 1) == 1 && !job.row.empty())
            fromInks(job.row.data(), out, info.output_width);
    }
    jpeg_finish_decompress(&info);
}

/// All that has a destructor lives in the caller: an error jumps out of here.
void runJpeg(JpegJob& job, PictureBytes file, PictureData& picture) {
    auto& info = job.info;
    if (setjmp(job.errors.back) != 0) {
        if (job.result == PictureError::None) job.result = PictureError::Corrupt;
        return;
    }
    jpeg_create_decompress(&info);
    job.progress.progress_monitor = limitJpegScans;
    info.progress = &job.progress;
    jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&info, TRUE);
    job.result = checkSize(info.image_width, info.image_height, file.size(), mostJpegPixelsPerByte);
    if (job.result != PictureError::None) return;
    const bool inks = info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
    info.out_color_space = inks ? JCS_CMYK : JCS_EXT_BGRA;
    jpeg_start_decompress(&info);
    allocate(picture, info.output_width, info.output_height);
    if (inks) job.row.resize(std::size_t{info.output_width} * 4);
    readJpegRows(job, picture);
}

} // namespace

PictureError decodeJpeg(PictureBytes file, PictureData& picture) {
    JpegJob job;
    job.info.err = jpeg_std_error(&job.errors.manager);
    job.errors.manager.error_exit = leaveJpeg;
    job.errors.manager.emit_message = noteJpeg;
    runJpeg(job, file, picture);
    jpeg_destroy_decompress(&job.info);
    return job.result;
}

namespace {

struct GifSource {
    PictureBytes bytes;
    std::size_t at = 0;
};

int readGif(GifFileType* gif, GifByteType* buffer, int size) {
    auto& source = *static_cast<GifSource*>(gif->UserData);
    const std::size_t count = std::min(static_cast<std::size_t>(size), source.bytes.size() - source.at);
    std::memcpy(buffer, source.bytes.data() + source.at, count);
    source.at += count;
    return static_cast<int>(count);
}

struct CloseGif {
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

/// Reads the blocks up to the first image's description; the colour that its control block makes transparent
/// is noted.
bool findGifImage(GifFileType* gif, int& transparent) {
    for (;;) {
        GifRecordType type = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(gif, &type) == GIF_ERROR || type == TERMINATE_RECORD_TYPE) return false;
        if (type == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(gif) != GIF_ERROR;
        if (type != EXTENSION_RECORD_TYPE) return false;
        int code = 0;
        GifByteType* block = nullptr;
        if (DGifGetExtension(gif, &code, &block) == GIF_ERROR) return false;
        GraphicsControlBlock control{};
        if (block && code == GRAPHICS_EXT_FUNC_CODE &&
            DGifExtensionToGCB(block[0], block + 1, &control) != GIF_ERROR)
            transparent = control.TransparentColor;
        while (block) {
            if (DGifGetExtensionNext(gif, &block) == GIF_ERROR) return false;
        }
    }
}

std::vector<std::uint32_t> gifPalette(const GifFileType* gif, int transparent) {
    constexpr std::size_t colours = 256;
    std::vector<std::uint32_t> palette(colours, 0xFF000000);
    const ColorMapObject* map = gif->Image.ColorMap ? gif->Image.ColorMap : gif->SColorMap;
    for (int i = 0; map && i < map->ColorCount; ++i) {
        const GifColorType& c = map->Colors[i];
        palette[static_cast<std::size_t>(i)] =
            0xFF000000 | std::uint32_t{c.Red} << 16 | std::uint32_t{c.Green} << 8 | c.Blue;
    }
    if (transparent >= 0) palette[static_cast<std::size_t>(transparent)] &= 0x00FFFFFF;
    return palette;
}

/// The rows in the order in which the file has them.
std::vector<int> gifRows(int height, bool interlaced) {
    std::vector<int> rows;
    if (!interlaced) {
        for (int y = 0; y < height; ++y)
            rows.push_back(y);
        return rows;
    }
    constexpr struct { int first, step; } passes[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    for (const auto& pass : passes) {
        for (int y = pass.first; y < height; y += pass.step)
            rows.push_back(y);
    }
    return rows;
}

} // namespace

PictureError decodeGif(PictureBytes file, PictureData& picture) {
    GifSource source{file};
    int failure = 0;
    const std::unique_ptr<GifFileType, CloseGif> gif(DGifOpen(&source, readGif, &failure));
    int transparent = NO_TRANSPARENT_COLOR;
    if (!gif || !findGifImage(gif.get(), transparent)) return PictureError::Corrupt;
    const GifImageDesc& image = gif->Image;
    if (const auto error = checkSize(image.Width, image.Height, file.size(), mostGifPixelsPerByte);
        error != PictureError::None)
        return error;
    const auto palette = gifPalette(gif.get(), transparent);
    picture.hasAlpha = transparent >= 0;
    allocate(picture, image.Width, image.Height);
    std::vector<GifPixelType> line(static_cast<std::size_t>(image.Width));
    for (const int y : gifRows(image.Height, image.Interlace)) {
        if (DGifGetLine(gif.get(), line.data(), image.Width) == GIF_ERROR) return PictureError::Corrupt;
        std::uint32_t* out = picture.argb.data() + static_cast<std::size_t>(y) * line.size();
        std::transform(line.begin(), line.end(), out, [&](GifPixelType index) { return palette[index]; });
    }
    return PictureError::None;
}

} // namespace platform::driver
