#pragma once
// A memory context with a bitmap of 32 bits whose words can be read.

#include "platform/gdi.h"

#include <cstdint>

namespace platform::driver {

class WordSheet {
public:
    WordSheet(int width, int height) : dc_(CreateCompatibleDC({})) {
        constexpr WORD wordBits = 32;
        BITMAPINFO info;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biBitCount = wordBits;
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, {}, 0);
        former_ = SelectObject(dc_, bitmap_);
    }
    ~WordSheet() {
        SelectObject(dc_, former_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    WordSheet(const WordSheet&) = delete;
    WordSheet& operator=(const WordSheet&) = delete;

    HDC dc() const { return dc_; }
    /// Top row first; null where there was no memory for them.
    std::uint32_t* words() const { return static_cast<std::uint32_t*>(bits_); }

private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ former_;
    void* bits_ = nullptr;
};

} // namespace platform::driver
