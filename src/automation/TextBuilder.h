#pragma once
// Text put together piece by piece in memory of its own; only what outgrows it is allocated.

#include "automation/String.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

namespace automation {

class TextBuilder {
public:
    TextBuilder() = default;
    TextBuilder(const TextBuilder&) = delete;
    TextBuilder& operator=(const TextBuilder&) = delete;

    void add(char16_t unit) {
        if (size_ == capacity_) grow(1);
        data_[size_++] = unit;
    }
    void add(std::u16string_view piece) {
        if (capacity_ - size_ < piece.size()) grow(piece.size());
        std::copy_n(piece.data(), piece.size(), data_ + size_);
        size_ += piece.size();
    }
    /// ASCII digits and letters.
    void addAscii(std::string_view piece) {
        if (capacity_ - size_ < piece.size()) grow(piece.size());
        for (const char unit : piece)
            data_[size_++] = static_cast<char16_t>(unit);
    }
    void add(std::size_t count, char16_t unit) {
        if (capacity_ - size_ < count) grow(count);
        std::fill_n(data_ + size_, count, unit);
        size_ += count;
    }
    /// A number of 0 or more with at least `width` digits.
    void addNumber(int value, int width = 1) {
        char16_t digits[12];
        int count = 0;
        for (; value > 0 || count < std::min(width, 10); value /= 10)
            digits[count++] = static_cast<char16_t>(u'0' + value % 10);
        while (count > 0)
            add(digits[--count]);
    }

    std::size_t size() const noexcept { return size_; }
    std::u16string_view view() const noexcept { return {data_, size_}; }
    String text() const { return String(view()); }

private:
    static constexpr std::size_t ownUnits = 256;

    void grow(std::size_t needed) {
        const std::size_t capacity = std::max(capacity_ * 2, size_ + needed);
        std::unique_ptr<char16_t[]> larger(new char16_t[capacity]);
        std::copy_n(data_, size_, larger.get());
        heap_ = std::move(larger);
        data_ = heap_.get();
        capacity_ = capacity;
    }

    char16_t own_[ownUnits];
    std::unique_ptr<char16_t[]> heap_;
    char16_t* data_ = own_;
    std::size_t size_ = 0;
    std::size_t capacity_ = ownUnits;
};

} // namespace automation
