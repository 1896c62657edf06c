#include "platform/linux/handle_table.h"

#include <array>

namespace platform::driver {

constinit std::array<Object*, slotLimit> slotObjects{};

namespace {

constexpr std::uint32_t slotMask = slotLimit - 1;
constexpr std::uint32_t minimumFreeSlots = 256; ///< Freed slots rest so long that generations wrap slowly
constexpr std::size_t kindCount = static_cast<std::size_t>(HandleKind::Icon) + 1;

constexpr std::array<const char*, kindCount> kindNames = {
    "None", "DeviceContext", "Bitmap", "Brush", "Pen", "Font", "Region", "Palette", "MetaFile", "Icon"};

/// The freed slots in the order in which they were freed.
class FreeSlots {
public:
    std::uint32_t count() const { return count_; }
    void add(std::uint32_t slot) {
        slots_[(first_ + count_++) & slotMask] = static_cast<std::uint16_t>(slot);
    }
    std::uint32_t take() {
        --count_;
        return slots_[first_++ & slotMask];
    }

private:
    std::array<std::uint16_t, slotLimit> slots_{};
    std::uint32_t first_ = 0;
    std::uint32_t count_ = 0;
};

constinit std::uint32_t usedSlots = 0; ///< Those that ever had an object
constinit FreeSlots freeSlots;
constinit std::array<std::uint16_t, slotLimit> lastGenerations{};
constinit std::array<std::uint32_t, kindCount> counts{};

std::uint32_t takeSlot() {
    if (usedSlots < slotLimit && freeSlots.count() < minimumFreeSlots) return usedSlots++;
    return freeSlots.count() == 0 ? slotLimit : freeSlots.take();
}

/// The slot's next generation, which is never 0.
std::uint32_t nextGeneration(std::uint32_t slot) {
    std::uint16_t& generation = lastGenerations[slot];
    if (++generation == 0) generation = 1;
    return generation;
}

} // namespace

std::uint32_t addObject(std::unique_ptr<Object> object) {
    const std::uint32_t slot = takeSlot();
    if (slot == slotLimit) return 0;
    object->handle = nextGeneration(slot) << slotBits | slot;
    if (!object->stock) ++counts[static_cast<std::size_t>(object->kind)];
    slotObjects[slot] = object.release();
    return slotObjects[slot]->handle;
}

void destroyObject(Object& object) {
    const std::uint32_t slot = object.handle & slotMask;
    --counts[static_cast<std::size_t>(object.kind)];
    slotObjects[slot] = nullptr;
    freeSlots.add(slot);
    // The destructor may end other objects; this one's slot is done with by then.
    const std::unique_ptr<Object> last(&object);
}

void deleteObject(Object& object) {
    if (object.stock) return;
    if (object.selections > 0) {
        object.dying = true;
    } else {
        destroyObject(object);
    }
}

std::uint32_t handleCount(HandleKind kind) {
    return counts[static_cast<std::size_t>(kind)];
}

std::uint32_t handleCount() {
    std::uint32_t sum = 0;
    for (const std::uint32_t count : counts)
        sum += count;
    return sum;
}

std::string describeHandles() {
    std::string text;
    for (std::size_t kind = 0; kind < kindCount; ++kind) {
        const std::uint32_t count = counts[kind];
        if (count == 0) continue;
        if (!text.empty()) text += ", ";
        text += std::string(kindNames[kind]) + " " + std::to_string(count);
    }
    return text;
}

} // namespace platform::driver
