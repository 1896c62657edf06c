#include "automation/String.h"

#include "platform/locale.h"

#include <cstring>
#include <limits>
#include <new>

namespace automation {

String::Data* String::allocate(std::size_t length) {
    constexpr std::size_t longest = std::numeric_limits<std::int32_t>::max() / sizeof(char16_t) - 1;
    if (length > longest) throw std::bad_alloc();
    void* block = ::operator new(sizeof(Data) + (length + 1) * sizeof(char16_t));
    auto* data = new (block) Data{1, static_cast<std::uint32_t>(length)};
    data->text()[length] = u'\0';
    return data;
}

String::Data* String::allocate(std::u16string_view text) {
    Data* data = allocate(text.size());
    std::memcpy(data->text(), text.data(), text.size() * sizeof(char16_t));
    return data;
}

void String::destroy() noexcept {
    ::operator delete(data_);
}

String String::fromUtf8(std::string_view bytes) {
    return String(platform::wideFromUtf8(bytes));
}

String String::fromAnsi(std::string_view bytes) {
    return String(platform::wideFromAnsi(bytes));
}

String String::repeat(char16_t unit, std::size_t count) {
    if (count == 0) return {};
    Data* data = allocate(count);
    std::char_traits<char16_t>::assign(data->text(), count, unit);
    return String(data);
}

String String::substring(std::size_t start, std::size_t count) const {
    if (start >= length()) return {};
    if (start == 0 && count >= length()) return *this;
    return String(view().substr(start, count));
}

String String::right(std::size_t count) const {
    return count >= length() ? *this : String(view().substr(length() - count));
}

String String::replaced(std::u16string_view what, std::u16string_view with) const {
    if (what.empty()) return *this;
    std::size_t found = find(what);
    if (found == npos) return *this;
    std::u16string result;
    std::size_t copied = 0;
    for (; found != npos; found = find(what, copied)) {
        result.append(view().substr(copied, found - copied)).append(with);
        copied = found + what.size();
    }
    result.append(view().substr(copied));
    return String(result);
}

int String::compare(std::u16string_view other) const noexcept {
    const int order = view().compare(other);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

std::string String::utf8() const {
    return platform::utf8FromWide(view());
}

std::string String::ansi() const {
    return platform::ansiFromWide(view());
}

String String::concat(std::u16string_view head, std::u16string_view tail) {
    if (head.empty() && tail.empty()) return {};
    Data* data = allocate(head.size() + tail.size());
    std::memcpy(data->text(), head.data(), head.size() * sizeof(char16_t));
    std::memcpy(data->text() + head.size(), tail.data(), tail.size() * sizeof(char16_t));
    return String(data);
}

String operator+(const String& a, const String& b) {
    if (b.empty()) return a;
    if (a.empty()) return b;
    return String::concat(a.view(), b.view());
}

} // namespace automation
