#include "platform/linux/handle_table.h"

#include <array>
#include <deque>
#include <vector>

namespace platform::driver {

namespace {

constexpr std::uint32_t slotBits = 16;
constexpr std::uint32_t slotMask = (1u << slotBits) - 1;
constexpr std::size_t slotLimit = 1u << slotBits;
constexpr std::size_t minimumFreeSlots = 256; ///< Freed slots rest so long that generations wrap slowly
constexpr std::size_t kindCount = static_cast<std::size_t>(HandleKind::Icon) + 1;

constexpr std::array<const char*, kindCount> kindNames = {
    "None", "DeviceContext", "Bitmap", "Brush", "Pen", "Font", "Region", "Palette", "MetaFile", "Icon"};

struct Slot {
    std::unique_ptr<Object> object;
    std::uint16_t generation = 1;
};

struct Table {
    std::vector<Slot> slots;
    std::deque<std::uint32_t> freeSlots;
    std::array<std::uint32_t, kindCount> counts{};
};

Table& table() {
    // Never destroyed: contexts of windows may be released during the program's last moments.
    static Table* const instance = new Table;
    return *instance;
}

std::uint32_t takeSlot(Table& t) {
    if (t.slots.size() < slotLimit && t.freeSlots.size() < minimumFreeSlots) {
        t.slots.emplace_back();
        return static_cast<std::uint32_t>(t.slots.size() - 1);
    }
    if (t.freeSlots.empty()) return slotLimit;
    const std::uint32_t slot = t.freeSlots.front();
    t.freeSlots.pop_front();
    return slot;
}

void destroy(Object& object) {
    Table& t = table();
    const std::uint32_t index = object.handle & slotMask;
    Slot& slot = t.slots[index];
    --t.counts[static_cast<std::size_t>(object.kind)];
    if (++slot.generation == 0) slot.generation = 1;
    t.freeSlots.push_back(index);
    // The destructor may release other objects and so change the table; the slot is done with by then.
    const std::unique_ptr<Object> last = std::move(slot.object);
}

} // namespace

std::uint32_t addObject(std::unique_ptr<Object> object) {
    Table& t = table();
    const std::uint32_t index = takeSlot(t);
    if (index == slotLimit) return 0;
    Slot& slot = t.slots[index];
    object->handle = static_cast<std::uint32_t>(slot.generation) << slotBits | index;
    if (!object->stock) ++t.counts[static_cast<std::size_t>(object->kind)];
    slot.object = std::move(object);
    return slot.object->handle;
}

Object* findObject(std::uint32_t handle) {
    Table& t = table();
    const std::uint32_t index = handle & slotMask;
    if (index >= t.slots.size()) return nullptr;
    Slot& slot = t.slots[index];
    return slot.object && slot.object->handle == handle ? slot.object.get() : nullptr;
}

void deleteObject(Object& object) {
    if (object.stock) return;
    if (object.selections > 0) {
        object.dying = true;
    } else {
        destroy(object);
    }
}

void retainObject(Object& object) {
    ++object.selections;
}

void releaseObject(Object& object) {
    if (--object.selections == 0 && object.dying) destroy(object);
}

std::uint32_t handleCount(HandleKind kind) {
    return table().counts[static_cast<std::size_t>(kind)];
}

std::uint32_t handleCount() {
    std::uint32_t sum = 0;
    for (const std::uint32_t count : table().counts)
        sum += count;
    return sum;
}

std::string describeHandles() {
    std::string text;
    for (std::size_t kind = 0; kind < kindCount; ++kind) {
        const std::uint32_t count = table().counts[kind];
        if (count == 0) continue;
        if (!text.empty()) text += ", ";
        text += std::string(kindNames[kind]) + " " + std::to_string(count);
    }
    return text;
}

} // namespace platform::driver
