#pragma once
// The storage of a byte buffer.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace tesela {

/// A block of bytes, 0 at first. Large blocks take memory only where they are written. What memory cannot
/// hold throws Error 7 and changes nothing.
class ByteBlock {
public:
    explicit ByteBlock(std::size_t size);

    /// Keeps the bytes that stay; those that come are 0.
    void resize(std::size_t size);

    std::size_t size() const noexcept { return size_; }
    std::uint8_t* data() noexcept { return bytes_.get(); }
    const std::uint8_t* data() const noexcept { return bytes_.get(); }

private:
    struct Free {
        void operator()(std::uint8_t* bytes) const noexcept { std::free(bytes); }
    };
    using Bytes = std::unique_ptr<std::uint8_t[], Free>;

    static Bytes zeros(std::size_t size);
    void extend(std::size_t size);

    Bytes bytes_;
    std::size_t size_;
};

} // namespace tesela
