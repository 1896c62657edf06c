#include "platform/linux/kernel_objects.h"

#include "platform/files.h"

#include <mutex>
#include <vector>

namespace platform {
namespace driver {
namespace {

// A handle is the generation, the slot and two zero bits, as the platform's kernel handles are multiples of
// four; the highest bit stays clear.
constexpr std::uint32_t spareBits = 2;
constexpr std::uint32_t slotBits = 16;
constexpr std::uint32_t slotCount = 1u << slotBits;
constexpr std::uint32_t generations = 1u << (31 - spareBits - slotBits);

struct Slot {
    std::shared_ptr<KernelObject> object;
    std::uint32_t generation = 1;
};

struct Table {
    std::mutex guard;
    std::vector<Slot> slots;
    std::vector<std::uint32_t> free;
    int open = 0;

    Slot* find(HANDLE handle) {
        const std::uint32_t slot = handle.value >> spareBits & (slotCount - 1);
        const std::uint32_t generation = handle.value >> (spareBits + slotBits);
        const bool spare = (handle.value & ((1u << spareBits) - 1)) != 0;
        if (spare || slot >= slots.size() || slots[slot].generation != generation) return nullptr;
        return slots[slot].object ? &slots[slot] : nullptr;
    }
};

Table& table() {
    static Table only;
    return only;
}

} // namespace

HANDLE addKernelObject(std::shared_ptr<KernelObject> object) {
    Table& t = table();
    const std::lock_guard lock(t.guard);
    if (t.free.empty()) {
        if (t.slots.size() == slotCount) {
            SetLastError(ERROR_TOO_MANY_OPEN_FILES);
            return INVALID_HANDLE_VALUE;
        }
        t.free.push_back(static_cast<std::uint32_t>(t.slots.size()));
        t.slots.emplace_back();
    }
    const std::uint32_t slot = t.free.back();
    t.free.pop_back();
    t.slots[slot].object = std::move(object);
    ++t.open;
    return HANDLE(t.slots[slot].generation << (spareBits + slotBits) | slot << spareBits);
}

std::shared_ptr<KernelObject> kernelObject(HANDLE handle) {
    Table& t = table();
    const std::lock_guard lock(t.guard);
    if (const Slot* slot = t.find(handle)) return slot->object;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

int openKernelHandles() {
    Table& t = table();
    const std::lock_guard lock(t.guard);
    return t.open;
}

} // namespace driver

BOOL CloseHandle(HANDLE handle) {
    auto& t = driver::table();
    std::shared_ptr<driver::KernelObject> closing; // ends after the table is free again
    const std::lock_guard lock(t.guard);
    auto* slot = t.find(handle);
    if (!slot) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE_;
    }
    closing = std::move(slot->object);
    slot->object.reset();
    slot->generation = slot->generation + 1 < driver::generations ? slot->generation + 1 : 1;
    t.free.push_back(handle.value >> driver::spareBits & (driver::slotCount - 1));
    --t.open;
    return TRUE_;
}

} // namespace platform
