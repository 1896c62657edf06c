#include "platform/linux/x11_painter.h"

#include <sys/ipc.h>
#include <sys/shm.h>

#include <bit>
#include <cstring>

namespace platform::driver {

namespace {

constexpr int WordBits = 32;

/// One colour's share of a pixel: 8 bits spread over the bits of a mask.
unsigned long inMask(std::uint32_t level, unsigned long mask) {
    if (!mask) return 0;
    const int low = std::countr_zero(mask);
    const unsigned long full = mask >> low;
    return ((level * full + 127) / 255) << low;
}

} // namespace

bool isNative(const XImage& image) {
    constexpr bool LittleEndian = std::endian::native == std::endian::little;
    return image.bits_per_pixel == WordBits && image.red_mask == 0xFF0000 && image.green_mask == 0xFF00 &&
           image.blue_mask == 0xFF && (image.byte_order == LSBFirst) == LittleEndian;
}

X11Painter::X11Painter(const X11Server& server) : server_(server) {
    mayShare_ = XShmQueryExtension(server.display());
}

X11Painter::~X11Painter() {
    if (image_) XFree(image_);
    endShared();
    if (context_) XFreeGC(server_.display(), context_);
}

void X11Painter::show(const Surface& picture, const RECT& part, ::Window window, POINT at) {
    waitUntilRead();
    if (!makeImage(widthOf(part), heightOf(part))) return;
    fill(picture, part);
    ::Display* display = server_.display();
    if (!context_) context_ = XCreateGC(display, window, 0, nullptr);
    lastShown_ = NextRequest(display);
    const auto width = static_cast<unsigned>(image_->width);
    const auto height = static_cast<unsigned>(image_->height);
    if (mayShare_)
        XShmPutImage(display, window, context_, image_, 0, 0, at.x, at.y, width, height, 0);
    else
        XPutImage(display, window, context_, image_, 0, 0, at.x, at.y, width, height);
}

/// The picture's head anew for each size: its pixels lie in memory that only grows.
bool X11Painter::makeImage(int width, int height) {
    if (image_) XFree(image_);
    const XVisualInfo& visual = server_.visual();
    image_ = XCreateImage(server_.display(), visual.visual, static_cast<unsigned>(visual.depth), ZPixmap, 0,
                          nullptr, static_cast<unsigned>(width), static_cast<unsigned>(height), WordBits, 0);
    if (!image_) return false;
    const std::size_t bytes =
        static_cast<std::size_t>(image_->bytes_per_line) * static_cast<std::size_t>(height);
    if (mayShare_ && !makeShared(bytes)) mayShare_ = false;
    if (!mayShare_ && own_.size() < bytes) own_.resize(bytes);
    image_->data = mayShare_ ? segment_.shmaddr : own_.data();
    image_->obdata = mayShare_ ? reinterpret_cast<XPointer>(&segment_) : nullptr;
    return true;
}

bool X11Painter::makeShared(std::size_t bytes) {
    if (sharedBytes_ >= bytes) return true;
    endShared();
    if (!attach(bytes)) return false;
    sharedBytes_ = bytes;
    return true;
}

/// The segment is marked for its end at once: it goes with the last of the two that use it.
bool X11Painter::attach(std::size_t bytes) {
    segment_ = {};
    segment_.shmid = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
    if (segment_.shmid < 0) return false;
    void* address = shmat(segment_.shmid, nullptr, 0);
    const bool mapped = address != reinterpret_cast<void*>(-1);
    segment_.shmaddr = mapped ? static_cast<char*>(address) : nullptr;
    const bool attached = mapped && server_.accepts([&] { XShmAttach(server_.display(), &segment_); });
    shmctl(segment_.shmid, IPC_RMID, nullptr);
    if (mapped && !attached) shmdt(address);
    return attached;
}

void X11Painter::endShared() {
    if (!sharedBytes_) return;
    XShmDetach(server_.display(), &segment_);
    XSync(server_.display(), 0);
    shmdt(segment_.shmaddr);
    sharedBytes_ = 0;
}

/// What the server has not read yet must not be written over.
void X11Painter::waitUntilRead() {
    if (mayShare_ && lastShown_ > LastKnownRequestProcessed(server_.display())) XSync(server_.display(), 0);
}

void X11Painter::fill(const Surface& picture, const RECT& part) {
    const bool native = isNative(*image_);
    for (int y = 0; y < image_->height; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(
                              picture.bits + static_cast<std::ptrdiff_t>(part.top + y) * picture.stride) +
                          part.left;
        if (native) {
            std::memcpy(image_->data + static_cast<std::ptrdiff_t>(y) * image_->bytes_per_line, row,
                        static_cast<std::size_t>(image_->width) * sizeof *row);
            continue;
        }
        for (int x = 0; x < image_->width; ++x)
            XPutPixel(image_, x, y,
                      inMask(row[x] >> 16 & 0xFF, image_->red_mask) |
                          inMask(row[x] >> 8 & 0xFF, image_->green_mask) |
                          inMask(row[x] & 0xFF, image_->blue_mask));
    }
}

} // namespace platform::driver
