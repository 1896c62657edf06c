#pragma once
// The table of all drawing objects. A handle holds a slot number and the slot's generation, so that the
// handle of an object that is gone never finds the next one in its slot. Generations start at 1: every
// handle is above 65535, out of the range of the small values that callers may pass instead of a brush.

#include "platform/linux/handles.h"
#include "platform/types.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace platform::driver {

/// What a handle stands for. An object that is selected into a context outlives its deletion until the last
/// context lets it go; until then its handle stays good.
struct Object {
    explicit Object(HandleKind k) : kind(k) {}
    virtual ~Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    const HandleKind kind;
    bool stock = false; ///< Never deleted, never counted
    bool dying = false; ///< Deleted while selected
    int selections = 0;
    std::uint32_t handle = 0;
};

/// Memory for objects that are made and ended with every drawing: what is given back waits for the next one.
template <class Type>
class Pooled {
public:
    static void* operator new(std::size_t size) {
        if (count() == 0) return ::operator new(size);
        return waiting()[--count()];
    }
    static void operator delete(void* memory) {
        if (count() == most) {
            ::operator delete(memory);
        } else {
            waiting()[count()++] = memory;
        }
    }

private:
    static constexpr std::size_t most = 32;
    static void** waiting() {
        static void* blocks[most];
        return blocks;
    }
    static std::size_t& count() {
        static std::size_t number = 0;
        return number;
    }
};

/// Enters an object; 0 when the table is full.
std::uint32_t addObject(std::unique_ptr<Object> object);

inline constexpr std::uint32_t slotBits = 16;
inline constexpr std::uint32_t slotLimit = 1u << slotBits;

/// The objects by their slots; null where there is none. Every handle names a slot of these, so that looking
/// one up takes no test of its range.
extern std::array<Object*, slotLimit> slotObjects;

/// The object of a live handle, or null.
inline Object* findObject(std::uint32_t handle) {
    Object* object = slotObjects[handle & (slotLimit - 1)];
    return object && object->handle == handle ? object : nullptr;
}

/// The object of a live handle of the right kind, or null.
template <class Type, class Kind>
Type* find(Handle<Kind> handle) {
    Object* object = findObject(handle.value);
    return object && object->kind == Type::objectKind ? static_cast<Type*>(object) : nullptr;
}

/// Deletes the object now, or marks it when it is selected. Stock objects stay.
void deleteObject(Object& object);

/// Ends an object that nothing selects any more.
void destroyObject(Object& object);

/// Counts a selection, and ends one: a dying object goes with its last selection.
inline void retainObject(Object& object) {
    ++object.selections;
}
inline void releaseObject(Object& object) {
    if (--object.selections == 0 && object.dying) destroyObject(object);
}

} // namespace platform::driver
