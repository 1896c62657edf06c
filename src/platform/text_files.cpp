// Written on the platform's own file operations, so that it behaves the same on each system.

#include "platform/text_files.h"

#include "platform/locale.h"

#include <algorithm>
#include <utility>

namespace platform {
namespace {

constexpr DWORD chunkSize = 64 * 1024;
constexpr std::string_view unicodeMark = "\xFF\xFE";
constexpr std::u16string_view lineEnd = u"\r\n";

TextFileError textError(DWORD code) {
    switch (code) {
    case ERROR_SUCCESS:
        return TextFileError::None;
    case ERROR_FILE_NOT_FOUND:
        return TextFileError::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
        return TextFileError::PathNotFound;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return TextFileError::FileAlreadyExists;
    case ERROR_DISK_FULL:
        return TextFileError::DiskFull;
    case ERROR_NOT_ENOUGH_MEMORY:
        return TextFileError::OutOfMemory;
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_PARAMETER:
    case ERROR_FILENAME_EXCED_RANGE:
        return TextFileError::InvalidCall;
    default:
        return TextFileError::PermissionDenied;
    }
}

/// How a file is opened for a mode.
struct Opening {
    DWORD access;
    DWORD share;
    DWORD disposition;
};

Opening openingOf(TextFileMode mode, bool create) {
    switch (mode) {
    case TextFileMode::ForWriting:
        return {GENERIC_WRITE, 0, create ? CREATE_ALWAYS : TRUNCATE_EXISTING};
    case TextFileMode::ForAppending:
        return {FILE_APPEND_DATA, 0, create ? OPEN_ALWAYS : OPEN_EXISTING};
    case TextFileMode::ForReading:
        break;
    }
    return {GENERIC_READ, FILE_SHARE_READ, create ? OPEN_ALWAYS : OPEN_EXISTING};
}

bool isFolder(std::u16string_view path) {
    const DWORD attributes = GetFileAttributesW(std::u16string(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// "*" stands for any characters, "?" for one; case does not count.
bool matches(std::u16string_view name, std::u16string_view pattern) {
    std::size_t n = 0, p = 0;
    std::size_t star = std::u16string_view::npos, resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (star != std::u16string_view::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', p) == std::u16string_view::npos;
}

TextFileError deleteOne(const std::u16string& path, bool force) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return textError(GetLastError());
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return TextFileError::FileNotFound;
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly && force) SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    if (DeleteFileW(path.c_str())) return TextFileError::None;
    const TextFileError error = textError(GetLastError());
    if (readOnly && force) SetFileAttributesW(path.c_str(), attributes);
    return error;
}

} // namespace

TextFile::~TextFile() {
    close();
}

TextFile::TextFile(TextFile&& other) noexcept {
    *this = std::move(other);
}

TextFile& TextFile::operator=(TextFile&& other) noexcept {
    if (this == &other) return *this;
    close();
    file_ = std::exchange(other.file_, INVALID_HANDLE_VALUE);
    mode_ = other.mode_;
    unicode_ = other.unicode_;
    pending_ = std::move(other.pending_);
    next_ = std::exchange(other.next_, 0);
    return *this;
}

TextFileError TextFile::open(std::u16string_view path, TextFileMode mode, bool create,
                             TextFileFormat format) {
    close();
    if (path.empty()) return TextFileError::InvalidCall;
    const Opening opening = openingOf(mode, create);
    file_ = CreateFileW(std::u16string(path).c_str(), opening.access, opening.share, nullptr,
                        opening.disposition, FILE_ATTRIBUTE_NORMAL, HANDLE());
    if (file_ == INVALID_HANDLE_VALUE) return textError(GetLastError());
    mode_ = mode;
    unicode_ = format == TextFileFormat::Unicode;
    LONGLONG size = 0;
    if (mode == TextFileMode::ForReading) {
        if (unicode_ && fill() && std::string_view(pending_).starts_with(unicodeMark))
            next_ = unicodeMark.size();
    } else if (unicode_ && GetFileSizeEx(file_, &size) && size == 0) {
        return write(u"\xFEFF");
    }
    return TextFileError::None;
}

bool TextFile::fill() {
    pending_.erase(0, next_);
    next_ = 0;
    const std::size_t before = pending_.size();
    pending_.resize(before + chunkSize);
    DWORD moved = 0;
    const bool read = ReadFile(file_, pending_.data() + before, chunkSize, &moved, nullptr) && moved > 0;
    pending_.resize(before + (read ? moved : 0));
    return read;
}

std::u16string TextFile::decode(std::string_view bytes) const {
    if (!unicode_) return wideFromAnsi(bytes);
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto low = static_cast<unsigned char>(bytes[2 * i]);
        const auto high = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(low | high << 8);
    }
    return text;
}

bool TextFile::atEndOfStream() {
    if (!isOpen() || mode_ != TextFileMode::ForReading) return true;
    return next_ == pending_.size() && !fill();
}

TextFileError TextFile::readAll(std::u16string& text) {
    if (!isOpen() || mode_ != TextFileMode::ForReading) return TextFileError::BadFileMode;
    if (atEndOfStream()) return TextFileError::PastEndOfFile;
    while (fill()) {
    }
    text = decode(std::string_view(pending_).substr(next_));
    pending_.clear();
    next_ = 0;
    return TextFileError::None;
}

TextFileError TextFile::readLine(std::u16string& line) {
    if (!isOpen() || mode_ != TextFileMode::ForReading) return TextFileError::BadFileMode;
    if (atEndOfStream()) return TextFileError::PastEndOfFile;
    const std::string_view end = unicode_ ? std::string_view("\n\0", 2) : std::string_view("\n");
    std::size_t found = std::string::npos;
    std::size_t from = 0; // counted from next_, which fill() moves
    for (;;) {
        found = pending_.find(end, next_ + from);
        // A UTF-16 line end lies at an even distance from the beginning of the line.
        while (unicode_ && found != std::string::npos && (found - next_) % 2 != 0)
            found = pending_.find(end, found + 1);
        if (found != std::string::npos) break;
        from = pending_.size() - next_;
        from -= std::min<std::size_t>(from, end.size() - 1);
        if (!fill()) break;
    }
    const bool ended = found != std::string::npos;
    const std::size_t stop = ended ? found : pending_.size();
    line = decode(std::string_view(pending_).substr(next_, stop - next_));
    if (ended && !line.empty() && line.back() == u'\r') line.pop_back();
    next_ = ended ? found + end.size() : stop;
    return TextFileError::None;
}

TextFileError TextFile::write(std::u16string_view text) {
    if (!isOpen() || mode_ == TextFileMode::ForReading) return TextFileError::BadFileMode;
    std::string bytes;
    if (unicode_) {
        for (const char16_t c : text) {
            bytes += static_cast<char>(c & 0xFF);
            bytes += static_cast<char>(c >> 8);
        }
    } else {
        bytes = ansiFromWide(text);
    }
    DWORD moved = 0;
    const bool written = WriteFile(file_, bytes.data(), static_cast<DWORD>(bytes.size()), &moved, nullptr);
    return written ? TextFileError::None : textError(GetLastError());
}

TextFileError TextFile::writeLine(std::u16string_view text) {
    return write(std::u16string(text).append(lineEnd));
}

void TextFile::close() {
    if (isOpen()) CloseHandle(file_);
    file_ = INVALID_HANDLE_VALUE;
    pending_.clear();
    next_ = 0;
}

bool fileExists(std::u16string_view path) {
    const DWORD attributes = GetFileAttributesW(std::u16string(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

TextFileError fileSize(std::u16string_view path, std::int64_t& size) {
    if (isFolder(path)) return TextFileError::FileNotFound;
    const DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(std::u16string(path).c_str(), FILE_READ_ATTRIBUTES, shareAll, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, HANDLE());
    if (file == INVALID_HANDLE_VALUE) return textError(GetLastError());
    LONGLONG bytes = 0;
    const bool known = GetFileSizeEx(file, &bytes);
    const TextFileError error = known ? TextFileError::None : textError(GetLastError());
    CloseHandle(file);
    if (known) size = bytes;
    return error;
}

TextFileError deleteFile(std::u16string_view path, bool force) {
    const std::size_t slash = path.find_last_of(u"\\/");
    const std::size_t nameAt = slash == std::u16string_view::npos ? 0 : slash + 1;
    const std::u16string pattern = upperCase(path.substr(nameAt));
    if (pattern.find_first_of(u"*?") == std::u16string::npos) return deleteOne(std::u16string(path), force);
    const std::u16string folder(path.substr(0, nameAt));
    bool any = false;
    for (const auto& name : filesOfFolder(folder)) {
        if (!matches(upperCase(name), pattern)) continue;
        any = true;
        if (const auto error = deleteOne(folder + name, force); error != TextFileError::None) return error;
    }
    return any ? TextFileError::None : TextFileError::FileNotFound;
}

} // namespace platform
