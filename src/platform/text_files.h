#pragma once
// The scripting file-system object: text files opened, read whole or by line, and written, with the errors
// that automation programs know.

#include "platform/files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// The numbers are automation's own.
enum class TextFileError {
    None = 0,
    InvalidCall = 5,
    OutOfMemory = 7,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyExists = 58,
    DiskFull = 61,
    PastEndOfFile = 62,
    PermissionDenied = 70,
    PathNotFound = 76,
};

enum class TextFileMode { ForReading = 1, ForWriting = 2, ForAppending = 8 };
enum class TextFileFormat { Unicode = -1, Ansi = 0, Default = -2 }; ///< Default is Ansi

/// An open text file. It shares reading with others while it reads, and nothing while it writes. Every
/// operation on a closed one, or against its mode, gives BadFileMode.
class TextFile {
public:
    TextFile() = default;
    ~TextFile();
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;
    TextFile(TextFile&& other) noexcept;
    TextFile& operator=(TextFile&& other) noexcept;

    /// Opens the file; writing empties it, appending goes to its end. `create` makes a missing one. Closes
    /// first what was open.
    TextFileError open(std::u16string_view path, TextFileMode mode, bool create = false,
                       TextFileFormat format = TextFileFormat::Default);

    bool isOpen() const { return file_ != INVALID_HANDLE_VALUE; }

    /// All text from the present position on; PastEndOfFile when none is left.
    TextFileError readAll(std::u16string& text);

    /// The next line without its end (LF or CR LF); PastEndOfFile when none is left.
    TextFileError readLine(std::u16string& line);

    /// True when nothing is left to read, and for a closed file.
    bool atEndOfStream();

    TextFileError write(std::u16string_view text);

    /// The text and CR LF, in one write.
    TextFileError writeLine(std::u16string_view text = {});

    void close();

private:
    bool fill();
    std::u16string decode(std::string_view bytes) const;

    HANDLE file_ = INVALID_HANDLE_VALUE;
    TextFileMode mode_ = TextFileMode::ForReading;
    bool unicode_ = false;
    std::string pending_; ///< Bytes read from the file and not yet given out, from `next_` on
    std::size_t next_ = 0;
};

/// True for an existing file; folders are none.
bool fileExists(std::u16string_view path);

/// Size in bytes.
TextFileError fileSize(std::u16string_view path, std::int64_t& size);

/// Deletes the file, or all files of a folder whose name matches when the last part of the path has "*" or
/// "?"; FileNotFound when there is none. Read-only files are deleted only by `force`.
TextFileError deleteFile(std::u16string_view path, bool force = false);

} // namespace platform
