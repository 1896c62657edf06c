#pragma once
// A file that is written anew.

#include "platform/types.h"

#include <cstdint>
#include <span>
#include <string>

namespace fichas {

/// The new content of a file. It grows in a file beside it, named like it, and takes its place in one step
/// when it is whole; whoever looks before sees the former file. Whatever fails throws a WriteError with the
/// reason for the user, and leaves the former file as it is and nothing beside it.
class FileRewrite {
public:
    explicit FileRewrite(std::u16string path);
    /// Whether the user may write the file.
    static bool isAllowed(const std::u16string& path);

    FileRewrite(const FileRewrite&) = delete;
    FileRewrite& operator=(const FileRewrite&) = delete;
    ~FileRewrite();

    void write(std::span<const std::uint8_t> bytes);
    /// Sees to it that all lies on the disk, and puts it in the place of the former file.
    void finish();

private:
    void close();

    std::u16string path_;
    std::u16string beside_;
    platform::HANDLE file_ = platform::INVALID_HANDLE_VALUE;
    bool isThere_ = false; ///< The file beside
};

} // namespace fichas
