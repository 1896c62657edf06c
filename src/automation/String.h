#pragma once
// The text type of the automation values: immutable UTF-16, counted.

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace automation {

/// Other forms of UTF-16 text: literals, views, standard strings.
template <class T>
concept TextLike = std::convertible_to<const T&, std::u16string_view>;

/// Counted, immutable text of UTF-16 units. A copy shares the characters and costs one increment; the
/// empty text takes no memory. One pointer wide. The counts are plain integers: a String and its copies
/// belong to one thread. Positions are zero-based and count units.
class String {
public:
    static constexpr std::size_t npos = std::u16string_view::npos;

    constexpr String() noexcept = default;
    /// A null pointer gives the empty text.
    String(const char16_t* text) : String(text ? std::u16string_view(text) : std::u16string_view()) {}
    String(std::u16string_view text) : data_(text.empty() ? nullptr : allocate(text)) {}
    String(const std::u16string& text) : String(std::u16string_view(text)) {}
    String(const String& other) noexcept : data_(other.data_) { retain(); }
    String(String&& other) noexcept : data_(other.data_) { other.data_ = nullptr; }
    ~String() { release(); }

    String& operator=(const String& other) noexcept {
        other.retain();
        release();
        data_ = other.data_;
        return *this;
    }
    String& operator=(String&& other) noexcept {
        std::swap(data_, other.data_);
        return *this;
    }

    /// From UTF-8; malformed bytes become U+FFFD.
    static String fromUtf8(std::string_view bytes);
    /// From bytes of the system's ANSI code page, one character a byte.
    static String fromAnsi(std::string_view bytes);
    /// `count` copies of `unit`.
    static String repeat(char16_t unit, std::size_t count);

    std::size_t length() const noexcept { return data_ ? data_->length : 0; }
    bool empty() const noexcept { return data_ == nullptr; }
    /// The units, NUL-terminated; never null.
    const char16_t* c_str() const noexcept { return data_ ? data_->text() : u""; }
    std::u16string_view view() const noexcept { return {c_str(), length()}; }
    operator std::u16string_view() const noexcept { return view(); }
    /// The unit at `position`, which must be below `length`.
    char16_t operator[](std::size_t position) const noexcept { return c_str()[position]; }

    /// At most `count` units from `start`; the empty text when `start` lies past the end.
    String substring(std::size_t start, std::size_t count = npos) const;
    String left(std::size_t count) const { return substring(0, count); }
    String right(std::size_t count) const;
    /// Position of the first occurrence at or after `from`, or `npos`. The empty text is found at `from`.
    std::size_t find(std::u16string_view text, std::size_t from = 0) const { return view().find(text, from); }
    /// All occurrences of `what`, from the left, replaced; an empty `what` changes nothing.
    String replaced(std::u16string_view what, std::u16string_view with) const;

    /// -1, 0 or 1 by the values of the units.
    int compare(std::u16string_view other) const noexcept;

    std::string utf8() const;
    /// Bytes of the system's ANSI code page; what it lacks becomes its best fit or "?".
    std::string ansi() const;
    std::u16string string() const { return std::u16string(view()); }

    String& operator+=(std::u16string_view tail) { return *this = concat(view(), tail); }
    static String concat(std::u16string_view head, std::u16string_view tail);

    friend bool operator==(const String& a, const String& b) noexcept {
        return a.data_ == b.data_ || a.view() == b.view();
    }
    template <TextLike T>
    friend bool operator==(const String& a, const T& b) noexcept {
        return a.view() == std::u16string_view(b);
    }
    friend std::strong_ordering operator<=>(const String& a, const String& b) noexcept {
        return a.compare(b) <=> 0;
    }
    template <TextLike T>
    friend std::strong_ordering operator<=>(const String& a, const T& b) noexcept {
        return a.compare(std::u16string_view(b)) <=> 0;
    }
    friend String operator+(const String& a, const String& b);
    template <TextLike T>
    friend String operator+(const String& a, const T& b) {
        return concat(a, std::u16string_view(b));
    }
    template <TextLike T>
    friend String operator+(const T& a, const String& b) {
        return concat(std::u16string_view(a), b);
    }

private:
    // The units and a final NUL follow the header in the same block.
    struct Data {
        std::uint32_t count;
        std::uint32_t length;
        char16_t* text() { return reinterpret_cast<char16_t*>(this + 1); }
    };

    explicit String(Data* data) noexcept : data_(data) {}
    static Data* allocate(std::size_t length);
    static Data* allocate(std::u16string_view text);
    void retain() const noexcept {
        if (data_) ++data_->count;
    }
    void release() noexcept {
        if (data_ && --data_->count == 0) destroy();
    }
    void destroy() noexcept;

    Data* data_ = nullptr;
};

static_assert(sizeof(String) == sizeof(void*));

} // namespace automation

template <>
struct std::hash<automation::String> {
    std::size_t operator()(const automation::String& text) const noexcept {
        return std::hash<std::u16string_view>()(text.view());
    }
};
