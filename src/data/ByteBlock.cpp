#include "data/ByteBlock.h"

#include "automation/Error.h"

#include <algorithm>
#include <cstring>

namespace tesela {

ByteBlock::Bytes ByteBlock::zeros(std::size_t size) {
    Bytes bytes(static_cast<std::uint8_t*>(std::calloc(std::max<std::size_t>(size, 1), 1)));
    if (!bytes) automation::throwError(automation::errors::OutOfMemory);
    return bytes;
}

ByteBlock::ByteBlock(std::size_t size) : bytes_(zeros(size)), size_(size) {}

/// Grows by less than the block has, in place where there is room, or shrinks it.
void ByteBlock::extend(std::size_t size) {
    auto* grown = static_cast<std::uint8_t*>(std::realloc(bytes_.get(), std::max<std::size_t>(size, 1)));
    if (!grown) automation::throwError(automation::errors::OutOfMemory);
    static_cast<void>(bytes_.release()); // realloc took it
    bytes_.reset(grown);
    if (size > size_) std::memset(grown + size_, 0, size - size_);
}

void ByteBlock::resize(std::size_t size) {
    if (size / 2 <= size_) {
        extend(size);
    } else {
        Bytes larger = zeros(size);
        std::memcpy(larger.get(), bytes_.get(), size_);
        bytes_ = std::move(larger);
    }
    size_ = size;
}

} // namespace tesela
