#pragma once
// Memory contexts that end with their scope.

#include "platform/gdi.h"

namespace tesela {

/// A memory context like another one.
class MemoryContext {
public:
    explicit MemoryContext(platform::HDC like) : dc_(platform::CreateCompatibleDC(like)) {}
    ~MemoryContext() {
        if (dc_) platform::DeleteDC(dc_);
    }
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    operator platform::HDC() const { return dc_; }

private:
    platform::HDC dc_;
};

/// A memory context with somebody's bitmap selected.
class SelectedBitmap {
public:
    SelectedBitmap(platform::HDC like, platform::HBITMAP bitmap)
        : context_(like), former_(platform::SelectObject(context_, bitmap)) {}
    ~SelectedBitmap() { platform::SelectObject(context_, former_); }
    operator platform::HDC() const { return context_; }

private:
    MemoryContext context_;
    platform::HGDIOBJ former_;
};

/// A memory context with a bitmap that ends with it.
class MemorySurface {
public:
    MemorySurface(platform::HDC like, platform::HBITMAP bitmap) : bitmap_(bitmap), selected_(like, bitmap_) {}
    operator platform::HDC() const { return selected_; }

private:
    /// Ended after the context has let it go.
    class OwnedBitmap {
    public:
        explicit OwnedBitmap(platform::HBITMAP bitmap) : bitmap_(bitmap) {}
        ~OwnedBitmap() { platform::DeleteObject(bitmap_); }
        OwnedBitmap(const OwnedBitmap&) = delete;
        OwnedBitmap& operator=(const OwnedBitmap&) = delete;
        operator platform::HBITMAP() const { return bitmap_; }

    private:
        platform::HBITMAP bitmap_;
    };

    OwnedBitmap bitmap_;
    SelectedBitmap selected_;
};

} // namespace tesela
