#pragma once
// A small picture in a memory context, whose pixels a test can read and set.

#include "platform/gdi.h"

#include <cstdint>
#include <string>

namespace test {

/// A memory context with a bitmap of 1 or 32 bits, black at first.
class Canvas {
public:
    Canvas(int width, int height, int bitsPerPixel = 32)
        : width_(width), height_(height), dc_(platform::CreateCompatibleDC(platform::HDC())) {
        platform::BITMAPINFO info;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biBitCount = static_cast<platform::WORD>(bitsPerPixel);
        info.bmiColors[1] = {0xFF, 0xFF, 0xFF, 0};
        void* bits = nullptr;
        // A plain bitmap of 1 bit is what programs use as a mask; a section has colours of its own.
        bitmap_ = bitsPerPixel == 1 ? platform::CreateBitmap(width, height, 1, 1, nullptr)
                                    : platform::CreateDIBSection(dc_, &info, platform::DIB_RGB_COLORS, &bits,
                                                                 platform::HANDLE(), 0);
        previous_ = platform::SelectObject(dc_, bitmap_);
        platform::PatBlt(dc_, 0, 0, width, height, platform::BLACKNESS);
    }
    ~Canvas() {
        platform::SelectObject(dc_, previous_);
        platform::DeleteObject(bitmap_);
        platform::DeleteDC(dc_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    platform::HDC dc() const { return dc_; }
    platform::HBITMAP bitmap() const { return bitmap_; }
    int width() const { return width_; }
    int height() const { return height_; }

    platform::COLORREF at(int x, int y) const { return platform::GetPixel(dc_, x, y); }
    void set(int x, int y, platform::COLORREF color) const { platform::SetPixel(dc_, x, y, color); }

    /// The picture with "." for black, "#" for white and "+" for every other colour.
    std::string text() const {
        std::string result;
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                const platform::COLORREF color = at(x, y);
                result += color == 0 ? '.' : color == 0xFFFFFF ? '#' : '+';
            }
            result += '\n';
        }
        return result;
    }

private:
    int width_;
    int height_;
    platform::HDC dc_;
    platform::HBITMAP bitmap_;
    platform::HGDIOBJ previous_;
};

} // namespace test
