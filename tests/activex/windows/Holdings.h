#pragma once

#include <algorithm>
#include <array>

#include <windows.h>

namespace support {

/// What the process holds of the system.
struct Holdings {
    DWORD gdi = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    DWORD user = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
    SIZE_T memory = 0;

    /// The run-time of the language has a heap of its own beside that of the process.
    Holdings() {
        std::array<::HANDLE, 64> heaps{};
        const DWORD count = ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
        for (DWORD i = 0; i < std::min<DWORD>(count, heaps.size()); ++i)
            memory += busy(heaps[i]);
    }

private:
    static SIZE_T busy(::HANDLE heap) {
        SIZE_T total = 0;
        ::PROCESS_HEAP_ENTRY entry{};
        while (::HeapWalk(heap, &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) total += entry.cbData;
        return total;
    }
};

} // namespace support
