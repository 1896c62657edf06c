#pragma once
// Which encoding a text file has, and its bytes as text.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace fichas {

enum class Encoding {
    Undecided, ///< Nothing but ASCII so far: what comes is UTF-8 where it can be read so, else Windows-1252
    Utf8,
    Windows1252,
    Utf16LittleEndian,
    Utf16BigEndian,
};

struct EncodingFound {
    Encoding encoding = Encoding::Undecided;
    int markLength = 0; ///< Bytes of the byte-order mark at the start
};

/// Judges by the byte-order mark or, without one, by the bytes: text whose non-ASCII bytes mostly form
/// UTF-8 sequences is UTF-8 (with what is broken in it left for the reader to find), other text is
/// Windows-1252. `head` may end within a sequence.
EncodingFound findEncoding(std::span<const std::uint8_t> head);

constexpr bool isUtf16(Encoding encoding) {
    return encoding == Encoding::Utf16LittleEndian || encoding == Encoding::Utf16BigEndian;
}

/// The text of whole characters.
std::u16string decode(std::string_view bytes, Encoding encoding);

/// The encoding of a text that lies in a file of an undecided one: `around` are the bytes beside it.
Encoding decided(Encoding encoding, std::string_view around);

/// The bytes of a text in an encoding that is decided; nothing where that has not all of its characters.
std::optional<std::string> encode(std::u16string_view text, Encoding encoding);

/// Checks UTF-8 that comes in pieces.
class Utf8Checker {
public:
    static constexpr std::size_t valid = static_cast<std::size_t>(-1);

    /// The place in `bytes` of the first byte that cannot stand where it stands, or `valid`. A sequence that
    /// the piece cuts goes on in the next one.
    std::size_t check(std::span<const std::uint8_t> bytes);

    /// Whether a sequence has begun that is not yet complete.
    bool isWithinSequence() const { return left_ > 0; }

private:
    bool begin(std::uint8_t lead);

    int left_ = 0;            ///< Continuation bytes still to come
    std::uint8_t low_ = 0x80; ///< The range of the next one
    std::uint8_t high_ = 0xBF;
};

} // namespace fichas
