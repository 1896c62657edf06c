// Byte buffers: any sequence of calls does to the bytes, the cursor and the flag what it does to a plain
// model of them.
#include "automation/Error.h"
#include "data/cBinBuffer.h"
#include "input.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <optional>
#include <vector>

using automation::Array;
using automation::Currency;
using automation::Date;
using automation::Ref;
using automation::String;
using tesela::cBinBuffer;

namespace {

using Bytes = std::vector<std::uint8_t>;

void check(bool holds) {
    if (!holds) __builtin_trap();
}

/// What the calls are made of.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool empty() const { return size_ == 0; }
    std::uint8_t byte() { return fuzz::takeByte(data_, size_); }
    bool flag() { return byte() % 2 != 0; }
    std::uint64_t bits(int bytes) {
        std::uint64_t value = 0;
        for (int i = 0; i < bytes; ++i)
            value = value << 8 | byte();
        return value;
    }
    std::int32_t number() { return static_cast<std::int32_t>(bits(4)); }

    /// Mostly small and mostly positive, sometimes at the ends of its range, which a size must not be above.
    std::int32_t position(std::int32_t highest = std::numeric_limits<std::int32_t>::max()) {
        const std::uint8_t value = byte();
        switch (value) {
        case 255:
            return highest;
        case 254:
            return std::numeric_limits<std::int32_t>::min();
        case 253:
            return number() % highest;
        default:
            return value % 64 - 4;
        }
    }
    Bytes list() {
        Bytes taken(byte() % 40);
        for (auto& each : taken)
            each = byte();
        return taken;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

/// The buffer as a list of bytes that knows nothing of words and arrays.
struct Model {
    Bytes bytes{0}; ///< With those that a buffer without room has
    std::int64_t size = 0, cursor = 0;
    bool ok = true;

    static std::size_t lengthFor(std::int64_t size) { return static_cast<std::size_t>(size < 1 ? 2 : size); }

    void resize(std::int64_t newSize, bool reset) {
        bytes.resize(lengthFor(newSize));
        size = newSize;
        if (reset || cursor >= size) cursor = 0;
    }
    void start(std::int64_t newSize) {
        bytes.assign(lengthFor(newSize), 0);
        size = newSize;
        cursor = 0;
        ok = true;
    }
    bool fits(std::int64_t width) {
        if (cursor + width <= size) return true;
        ok = false;
        return false;
    }
    bool write(const Bytes& source) {
        if (!fits(static_cast<std::int64_t>(source.size()))) return false;
        for (const std::uint8_t each : source)
            bytes[static_cast<std::size_t>(cursor++)] = each;
        return true;
    }
    bool writeNumber(std::uint64_t value, int width, bool bigEndian) {
        Bytes parts;
        for (int i = 0; i < width; ++i)
            parts.push_back(static_cast<std::uint8_t>(value >> 8 * (bigEndian ? width - 1 - i : i)));
        return write(parts);
    }
    std::optional<Bytes> read(std::int64_t width) {
        if (!fits(width)) return {};
        const auto first = bytes.begin() + cursor;
        cursor += width;
        return Bytes(first, first + width);
    }
    std::optional<std::uint64_t> readNumber(int width, bool bigEndian) {
        auto parts = read(width);
        if (!parts) return {};
        if (!bigEndian) std::reverse(parts->begin(), parts->end());
        std::uint64_t value = 0;
        for (const std::uint8_t part : *parts)
            value = value << 8 | part;
        return value;
    }
    std::int64_t startOf(std::int64_t start) const { return start >= 0 && start < size ? start : 0; }
    std::int64_t countOf(std::int64_t start, std::int64_t count) const {
        const std::int64_t most = std::max<std::int64_t>(size - start, 0);
        return count > 0 && count <= most ? count : most;
    }
    Bytes part(std::int64_t start, std::int64_t count) const {
        const auto first = bytes.begin() + startOf(start);
        return Bytes(first, first + countOf(startOf(start), count));
    }
};

class Comparison {
public:
    explicit Comparison(Input& input) : in_(input) {}

    void step() {
        static constexpr void (Comparison::*steps[])() = {
            &Comparison::shape,     &Comparison::writeNumber, &Comparison::readNumber,
            &Comparison::writeText, &Comparison::readText,    &Comparison::writeArray,
            &Comparison::readArray, &Comparison::writeBuffer, &Comparison::readBuffer,
            &Comparison::anyWidth,  &Comparison::shortDate,   &Comparison::texts,
        };
        (this->*steps[in_.byte() % std::size(steps)])();
        compare();
    }

private:
    static constexpr std::int32_t largest = 4096;

    void compare() const {
        check(buffer_->BufferSize() == model_.size);
        check(buffer_->CurrentAddress() == model_.cursor);
        check(buffer_->BufferOk() == model_.ok);
        check(buffer_->EndOfBuffer() == (model_.cursor >= model_.size));
        check(model_.ok || !buffer_->LastError().empty());
        const Array raw = buffer_->Raw();
        const auto bytes = raw.bytes();
        check(std::equal(bytes.begin(), bytes.end(), model_.bytes.begin(), model_.bytes.end()));
    }

    void shape() {
        const std::int32_t size = in_.position(largest);
        const bool flag = in_.flag();
        switch (in_.byte() % 6) {
        case 0:
            buffer_->BufferSize(size);
            model_.start(size);
            break;
        case 1:
            buffer_->Resize(size, flag);
            model_.resize(size, flag);
            break;
        case 2:
            buffer_->CurrentAddress(size);
            if (size >= 0 && size <= model_.size) model_.cursor = size;
            break;
        case 3:
            buffer_->BufferOk(flag);
            buffer_->LastError(u"?");
            model_.ok = flag;
            break;
        case 4:
            buffer_->RawByte(size, 77);
            if (size >= 0 && size < model_.size) model_.bytes[static_cast<std::size_t>(size)] = 77;
            check(buffer_->RawByte(size) == (size >= 0 && size < model_.size ? 77 : 0));
            break;
        default:
            raw();
        }
    }

    void raw() {
        const Bytes bytes = in_.list();
        const std::int32_t lower = in_.byte() % 3 - 1;
        buffer_->Raw(Array::ofBytes(bytes, lower));
        if (lower != 0) return;
        model_.bytes = bytes;
        model_.size = static_cast<std::int64_t>(bytes.size());
    }

    void writeNumber() {
        const std::uint64_t value = in_.bits(8);
        const auto low = static_cast<std::int32_t>(value);
        const bool big = in_.flag();
        switch (in_.byte() % 8) {
        case 0:
            return check(buffer_->WriteByte(static_cast<std::uint8_t>(value)) ==
                         model_.writeNumber(value, 1, big));
        case 1:
            return check(buffer_->WriteInteger(static_cast<std::int16_t>(value), big) ==
                         model_.writeNumber(value, 2, big));
        case 2:
            return check(buffer_->WriteUnsignedInteger(low, big) == model_.writeNumber(value, 2, big));
        case 3:
            return check(buffer_->WriteLong(low, big) == model_.writeNumber(value, 4, big));
        case 4: {
            const Currency number = Currency::fromScaled((value & 0xFFFFFFFF) * Currency::scale);
            return check(buffer_->WriteUnsignedLong(number, big) == model_.writeNumber(value, 4, big));
        }
        case 5:
            return check(buffer_->WriteCurrency(Currency::fromScaled(static_cast<std::int64_t>(value)),
                                                big) == model_.writeNumber(value, 8, big));
        case 6:
            return check(buffer_->WriteDate(Date(std::bit_cast<double>(value)), big) ==
                         model_.writeNumber(value, 8, big));
        default:
            return check(buffer_->Clear(static_cast<std::uint8_t>(value)) ==
                         cleared(static_cast<std::uint8_t>(value)));
        }
    }

    bool cleared(std::uint8_t filler) {
        if (model_.size < 1) return false;
        std::fill_n(model_.bytes.begin(), model_.size, filler);
        return true;
    }

    /// A number of any width, most of which there are not; what a type cannot hold moves nothing.
    void anyWidth() {
        const auto number = static_cast<std::int64_t>(in_.bits(8));
        const std::int32_t width = in_.byte() % 10 - 1;
        const bool big = in_.flag();
        const Currency amount =
            Currency::fromScaled(width == 8 ? number : (number >> 24) / Currency::scale * Currency::scale);
        const bool known = width == 1 || width == 2 || width == 4 || width == 8;
        bool done = false;
        try {
            done = buffer_->WriteNumber(amount, width, big);
        } catch (const automation::Error& error) {
            check(error.number() == automation::errors::Overflow && known && width != 8);
            return;
        }
        if (!known) {
            check(!done);
            model_.ok = false;
            return;
        }
        const std::int64_t value = width == 8 ? amount.scaled() : amount.scaled() / Currency::scale;
        check(done == model_.writeNumber(static_cast<std::uint64_t>(value), width, big));
        if (!done) return;
        model_.cursor -= width;
        buffer_->CurrentAddress(static_cast<std::int32_t>(model_.cursor));
        Currency back;
        check(buffer_->ReadNumber(back, width, big));
        model_.cursor += width;
        check(width == 2 ? back.scaled() / Currency::scale == (value & 0xFFFF) : back == amount);
    }

    void readNumber() {
        const bool big = in_.flag();
        std::int32_t number = 0;
        Currency amount;
        switch (in_.byte() % 6) {
        case 0: {
            std::uint8_t byte = 0;
            return agree(buffer_->ReadByte(byte), model_.readNumber(1, big), byte);
        }
        case 1: {
            const bool done =
                in_.flag() ? buffer_->ReadInteger(number, big) : buffer_->ReadUnsignedInteger(number, big);
            return agree(done, model_.readNumber(2, big), static_cast<std::uint64_t>(number));
        }
        case 2: {
            const bool done = buffer_->ReadLong(number, big);
            return agree(done, model_.readNumber(4, big), static_cast<std::uint32_t>(number));
        }
        case 3: {
            const bool done = buffer_->ReadUnsignedLong(amount, big);
            return agree(done, model_.readNumber(4, big),
                         static_cast<std::uint64_t>(amount.scaled() / Currency::scale));
        }
        case 4: {
            const bool done = buffer_->ReadCurrency(amount, big);
            return agree(done, model_.readNumber(8, big), static_cast<std::uint64_t>(amount.scaled()));
        }
        default: {
            Date date;
            const bool done = buffer_->ReadDate(date, big);
            return agree(done, model_.readNumber(8, big), std::bit_cast<std::uint64_t>(date.value()));
        }
        }
    }

    static void agree(bool done, std::optional<std::uint64_t> expected, std::uint64_t read) {
        check(done == expected.has_value() && (!done || read == *expected));
    }

    String text() {
        const Bytes bytes = in_.list();
        return String::fromAnsi({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    static Bytes ansi(const String& text) {
        const std::string bytes = text.ansi();
        return Bytes(bytes.begin(), bytes.end());
    }

    void writeText() {
        const String value = text();
        const std::int32_t length = in_.position();
        Bytes bytes = ansi(value);
        const auto width = length < 1 ? static_cast<std::int64_t>(bytes.size()) : length;
        const bool done = buffer_->WriteString(value, length);
        if (!model_.fits(width)) return check(!done);
        bytes.resize(static_cast<std::size_t>(width));
        check(done == model_.write(bytes));
    }

    void readText() {
        String value = text();
        const std::int32_t length = in_.position();
        const auto expected = model_.read(length < 1 ? static_cast<std::int64_t>(value.length()) : length);
        check(buffer_->ReadString(value, length) == expected.has_value());
        if (expected) check(ansi(value) == *expected);
    }

    void writeArray() {
        const Bytes bytes = in_.list();
        const std::int64_t lower = in_.byte() % 4 - 1;
        const std::int32_t first = in_.position(), count = in_.position();
        Array array = Array::ofBytes(bytes, static_cast<std::int32_t>(lower));
        const bool done = buffer_->WriteBinary(array, first, count);
        if (lower < 0) {
            check(!done);
            model_.ok = false;
            return;
        }
        const auto size = static_cast<std::int64_t>(bytes.size());
        const std::int64_t from = first >= lower && first < lower + size ? first - lower : 0;
        const std::int64_t number = count > 0 && count <= size - from ? count : size - from;
        check(done == model_.write(Bytes(bytes.begin() + from, bytes.begin() + from + number)));
    }

    void readArray() {
        const Bytes before = in_.list();
        const std::int32_t lower = in_.byte() % 3 - 1, bytes = in_.position();
        const std::int64_t upper = lower + static_cast<std::int64_t>(before.size()) - 1;
        Array array = Array::ofBytes(before, lower);
        const bool done = buffer_->ReadBinary(array, bytes);
        std::int64_t wanted = bytes;
        if (wanted == 0 && upper < 1) wanted = model_.size - model_.cursor;
        if (wanted < 1 && lower != 0) {
            check(!done);
            model_.ok = false;
            return;
        }
        const auto expected = model_.read(wanted < 1 ? upper + 1 : wanted);
        check(done == expected.has_value());
        const auto now = std::as_const(array).bytes();
        const Bytes& content = expected ? *expected : before;
        check(std::equal(now.begin(), now.end(), content.begin(), content.end()));
    }

    void writeBuffer() {
        const bool itself = in_.byte() % 4 == 0;
        const Bytes bytes = in_.list();
        const std::int32_t first = in_.position(), count = in_.position();
        Ref<cBinBuffer> other = buffer_;
        Model source = model_;
        if (!itself) {
            other = automation::make<cBinBuffer>();
            other->Raw(Array::ofBytes(bytes));
            source.bytes = bytes;
            source.size = static_cast<std::int64_t>(bytes.size());
        }
        check(buffer_->WriteBuffer(other, first, count) == model_.write(source.part(first, count)));
    }

    void readBuffer() {
        Ref<cBinBuffer> other;
        if (in_.flag()) {
            other = automation::make<cBinBuffer>();
            other->BufferSize(in_.position(largest));
        }
        const std::int32_t bytes = in_.position(largest);
        std::int64_t wanted = bytes == 0 && other ? other->BufferSize() : bytes;
        if (wanted == 0) wanted = model_.size - model_.cursor;
        const bool done = buffer_->ReadBuffer(other, bytes);
        if (wanted < 1) return check(!done);
        const auto expected = model_.read(wanted);
        check(done == expected.has_value() && other && other->BufferSize() == wanted);
        for (std::int32_t i = 0; i < wanted; ++i)
            check(other->RawByte(i) == (expected ? (*expected)[static_cast<std::size_t>(i)] : 0));
    }

    void shortDate() {
        const bool big = in_.flag();
        if (in_.flag()) {
            tesela::SmallDateTime moment;
            moment.nBinary = in_.number();
            const auto value = static_cast<std::uint32_t>(moment.nBinary);
            const bool done = buffer_->WriteSmallDateTime(moment, big);
            if (!model_.fits(4)) return check(!done);
            check(done && model_.writeNumber(value >> 16, 2, big) && model_.writeNumber(value, 2, big));
            return;
        }
        tesela::SmallDateTime moment;
        const bool done = buffer_->ReadSmallDateTime(moment, big);
        if (!model_.fits(4)) return check(!done);
        const auto days = model_.readNumber(2, big), minutes = model_.readNumber(2, big);
        check(done && days && minutes);
        const auto value = static_cast<std::uint32_t>(moment.nBinary);
        if (*minutes < 1440 && (*days != 0 || *minutes > 1)) check(value == (*days << 16 | *minutes));
    }

    void texts() {
        const std::int32_t start = in_.position(), count = in_.position();
        const Bytes part = model_.part(start, count);
        check(ansi(buffer_->ToString(start, count)) == part);
        const std::string dump = buffer_->Dump(start, count).ansi();
        const std::size_t lines = part.empty() ? 0 : (model_.startOf(start) % 16 + part.size() + 15) / 16;
        check(static_cast<std::size_t>(std::count(dump.begin(), dump.end(), '\r')) == lines);
        append();
    }

    void append() {
        const String value = text();
        const bool append = in_.flag();
        const Bytes bytes = ansi(value);
        bool done = false;
        try {
            done = buffer_->FromString(value, append);
        } catch (const automation::Error& error) {
            return check(append && model_.size < 0 &&
                         error.number() == automation::errors::SubscriptOutOfRange);
        }
        const std::int64_t start = append ? model_.size : 0;
        const std::int64_t size = start + static_cast<std::int64_t>(bytes.size());
        append ? model_.resize(size, false) : model_.start(size);
        std::copy(bytes.begin(), bytes.end(), model_.bytes.begin() + start);
        check(done == !bytes.empty());
        if (model_.size > largest) { // or it grows all day
            buffer_->BufferSize(4);
            model_.start(4);
        }
    }

    Input& in_;
    Ref<cBinBuffer> buffer_ = automation::make<cBinBuffer>();
    Model model_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Comparison comparison(input);
    while (!input.empty())
        comparison.step();
    return 0;
}
