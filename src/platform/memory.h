#pragma once
// Memory in large blocks.

#include <cstddef>

namespace platform {

/// Tells the system that a block of memory will be used in full, from one end to the other, so that it may be
/// had in larger pages than others. Nothing else changes, and systems that choose by themselves take no
/// notice.
void preferLargePages(void* block, std::size_t size);

} // namespace platform
