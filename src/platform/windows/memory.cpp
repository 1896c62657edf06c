#include "platform/memory.h"

namespace platform {

/// Windows gives large pages only to those who may lock memory, and never on advice.
void preferLargePages(void*, std::size_t) {}

} // namespace platform
