#include "platform/memory.h"

#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace platform {

void preferLargePages(void* block, std::size_t size) {
    static const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    const std::size_t skipped = (page - begin % page) % page; // advice is for whole pages
    if (size <= skipped) return;
    madvise(static_cast<char*>(block) + skipped, size - skipped, MADV_HUGEPAGE);
}

} // namespace platform
