// The heap of the control library. All its memory comes from there, that of the compiler's run-time too,
// which keeps some as long as it is loaded. The heap is made before the run-time begins and destroyed after
// it has ended, so that a library that is unloaded leaves no memory in its process. The linker leads the
// calls here.

#include <windows.h>

#include <cstddef>

extern "C" {

BOOL WINAPI DllMainCRTStartup(HINSTANCE module, DWORD reason, LPVOID processEnds);

namespace {

HANDLE heap = nullptr;

} // namespace

/// Where the system enters the library.
BOOL WINAPI LibraryEntry(HINSTANCE module, DWORD reason, LPVOID processEnds) {
    if (reason == DLL_PROCESS_ATTACH) {
        heap = ::HeapCreate(0, 0, 0);
        if (!heap) return FALSE;
    }
    const BOOL done = DllMainCRTStartup(module, reason, processEnds);
    // Where the process ends, modules that end later may still let go of objects.
    const bool unloads = reason == DLL_PROCESS_DETACH && !processEnds;
    if (unloads || (reason == DLL_PROCESS_ATTACH && !done)) ::HeapDestroy(heap);
    return done;
}

// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names

void* __wrap_malloc(std::size_t size) {
    return ::HeapAlloc(heap, 0, size);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    std::size_t total = 0;
    if (__builtin_mul_overflow(count, size, &total)) return nullptr;
    return ::HeapAlloc(heap, HEAP_ZERO_MEMORY, total);
}

void __wrap_free(void* block) {
    if (block) ::HeapFree(heap, 0, block);
}

void* __wrap_realloc(void* block, std::size_t size) {
    if (!block) return __wrap_malloc(size);
    if (size != 0) return ::HeapReAlloc(heap, 0, block, size);
    __wrap_free(block);
    return nullptr;
}

// NOLINTEND(bugprone-reserved-identifier)
}
