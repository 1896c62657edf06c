#include "platform/linux/x11_extras.h"

#include "platform/linux/x11_server.h"

namespace platform::driver {

namespace {

/// A connection of its own; nullptr on Wayland.
X11Server* connection() {
    static const std::unique_ptr<X11Server> one = X11Server::connect();
    return one.get();
}

} // namespace

bool ringBell() {
    if (!connection()) return false;
    connection()->ringBell();
    return true;
}

void lockKeys(const BYTE* states) {
    if (connection()) connection()->lockKeys(states);
}

} // namespace platform::driver
