#pragma once
// Bytes read at any place, without holding them all.

#include "platform/types.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace fichas {

class ByteSource {
public:
    virtual ~ByteSource() = default;
    virtual std::int64_t size() const = 0;

    /// Fills `into` from `offset` on and returns how many bytes there were: fewer only at the end.
    virtual std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) = 0;
};

/// Bytes in memory.
class MemoryBytes final : public ByteSource {
public:
    explicit MemoryBytes(std::string bytes) : bytes_(std::move(bytes)) {}
    std::int64_t size() const override { return static_cast<std::int64_t>(bytes_.size()); }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override;

private:
    std::string bytes_;
};

/// What tells that a file is no longer the one that was read.
struct FileStamp {
    std::int64_t size = 0;
    std::int64_t changed = 0; ///< In the units of the system
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// A file, open while the object lives. Others may go on writing it.
class FileBytes final : public ByteSource {
public:
    /// Throws SourceError for a file that is missing, is a folder or may not be read. `name` is what its
    /// text calls the file.
    FileBytes(const std::u16string& path, const std::string& name);
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;
    ~FileBytes() override;

    std::int64_t size() const override { return size_; }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override;
    FileStamp stamp() const;

private:
    std::string name_;
    platform::HANDLE file_ = platform::INVALID_HANDLE_VALUE;
    std::int64_t size_ = 0;
};

} // namespace fichas
