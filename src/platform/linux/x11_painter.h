#pragma once
// Brings pixels of ours onto windows of the X server: through memory that both share where they run on one
// machine, else through the connection.

#include "platform/linux/x11_server.h"

#include <X11/extensions/XShm.h>

namespace platform::driver {

/// Whether the pixels of an image of the server are made as ours.
bool isNative(const XImage& image);

class X11Painter {
public:
    explicit X11Painter(const X11Server& server);
    ~X11Painter();
    X11Painter(const X11Painter&) = delete;
    X11Painter& operator=(const X11Painter&) = delete;

    /// Copies a part of a picture to a place in the window.
    void show(const Surface& picture, const RECT& part, ::Window window, POINT at);

private:
    bool makeImage(int width, int height);
    bool makeShared(std::size_t bytes);
    bool attach(std::size_t bytes);
    void endShared();
    void waitUntilRead();
    void fill(const Surface& picture, const RECT& part);

    const X11Server& server_;
    XShmSegmentInfo segment_{};
    std::size_t sharedBytes_ = 0;
    bool mayShare_ = true;
    std::vector<char> own_; ///< Where nothing can be shared
    XImage* image_ = nullptr;
    unsigned long lastShown_ = 0; ///< The request that reads the shared memory
    GC context_ = nullptr;
};

} // namespace platform::driver
