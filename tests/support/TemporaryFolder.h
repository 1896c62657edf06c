#pragma once
// A folder of its own for a test, removed with its files when the test ends.

#include "platform/files.h"
#include "platform/locale.h"
#include "platform/processes.h"

#include <span>
#include <string>
#include <string_view>

namespace support {

/// The bytes of a file; empty for one that is not there.
inline std::string fileBytes(const std::u16string& path) {
    using namespace platform;
    const HANDLE in = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, HANDLE());
    if (in == INVALID_HANDLE_VALUE) return {};
    LONGLONG size = 0;
    GetFileSizeEx(in, &size);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    DWORD moved = 0;
    ReadFile(in, bytes.data(), static_cast<DWORD>(size), &moved, nullptr);
    CloseHandle(in);
    return bytes;
}

class TemporaryFolder {
public:
    TemporaryFolder() {
        static int last = 0;
        char16_t base[300];
        platform::GetTempPathW(300, base);
        const auto process = platform::GetCurrentProcessId();
        path_ = base + platform::wideFromUtf8("tesela-test-" + std::to_string(process) + "-" +
                                              std::to_string(++last));
        platform::CreateDirectoryW(path_.c_str(), nullptr);
    }
    ~TemporaryFolder() {
        for (const auto& name : platform::filesOfFolder(path_)) {
            platform::SetFileAttributesW(file(name).c_str(), platform::FILE_ATTRIBUTE_NORMAL);
            platform::DeleteFileW(file(name).c_str());
        }
        platform::RemoveDirectoryW(path_.c_str());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::u16string& path() const { return path_; }

    /// The path of a file in the folder.
    std::u16string file(std::u16string_view name) const { return path_ + u"\\" + std::u16string(name); }

    /// Both in UTF-8, as the C++ library takes them.
    std::string utf8Path() const { return platform::utf8FromWide(path_); }
    std::string utf8File(std::string_view name) const { return utf8Path() + "/" + std::string(name); }

    /// The same in the ANSI code page.
    std::string ansiFile(std::u16string_view name) const { return platform::ansiFromWide(file(name)); }

    /// Writes a file of these bytes and gives its path.
    std::u16string write(std::u16string_view name, std::string_view bytes) const {
        using namespace platform;
        const HANDLE out = CreateFileW(file(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                       FILE_ATTRIBUTE_NORMAL, HANDLE());
        DWORD moved = 0;
        WriteFile(out, bytes.data(), static_cast<DWORD>(bytes.size()), &moved, nullptr);
        CloseHandle(out);
        return file(name);
    }

    /// The bytes of a file; empty for one that is not there.
    std::string read(std::u16string_view name) const { return fileBytes(file(name)); }

private:
    std::u16string path_;
};

} // namespace support
