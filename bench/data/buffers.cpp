// Byte buffers against plain copies of the same bytes.
#include "../measure.h"
#include "data/cBinBuffer.h"
#include "measurements.h"

#include <cstring>

namespace bench {

namespace {

using tesela::cBinBuffer;

constexpr int numbers = 200'000;
constexpr std::int32_t bytesOfRecord = 4 + 2 + 8 + 8;

/// Records of four numbers, written and read back.
void writeAndRead(cBinBuffer& buffer) {
    buffer.CurrentAddress(0);
    for (std::int32_t i = 0; i < numbers; ++i) {
        buffer.WriteLong(i);
        buffer.WriteInteger(static_cast<std::int16_t>(i));
        buffer.WriteDate(automation::Date(i));
        buffer.WriteCurrency(automation::Currency::fromScaled(i));
    }
    buffer.CurrentAddress(0);
    std::int64_t sum = 0;
    for (std::int32_t i = 0; i < numbers; ++i) {
        std::int32_t whole = 0, part = 0;
        automation::Date date;
        automation::Currency amount;
        buffer.ReadLong(whole);
        buffer.ReadInteger(part);
        buffer.ReadDate(date);
        buffer.ReadCurrency(amount);
        sum += whole + part + amount.scaled();
        keep(date);
    }
    keep(sum);
}

template <class T>
void put(std::uint8_t*& to, T value) {
    std::memcpy(to, &value, sizeof value);
    to += sizeof value;
}

template <class T>
T take(const std::uint8_t*& from) {
    T value;
    std::memcpy(&value, from, sizeof value);
    from += sizeof value;
    return value;
}

void copyNumbers(std::vector<std::uint8_t>& bytes) {
    std::uint8_t* to = bytes.data();
    for (std::int32_t i = 0; i < numbers; ++i) {
        put(to, i);
        put(to, static_cast<std::int16_t>(i));
        put(to, static_cast<double>(i));
        put(to, std::int64_t{i});
    }
    keep(bytes.data());
    const std::uint8_t* from = bytes.data();
    std::int64_t sum = 0;
    for (std::int32_t i = 0; i < numbers; ++i) {
        sum += take<std::int32_t>(from) + take<std::uint16_t>(from);
        keep(take<double>(from));
        sum += take<std::int64_t>(from);
    }
    keep(sum);
}

} // namespace

void measureBufferNumbers() {
    const auto buffer = automation::make<cBinBuffer>();
    buffer->BufferSize(numbers * bytesOfRecord);
    std::vector<std::uint8_t> bytes(std::size_t{numbers} * bytesOfRecord);
    measure("binbuffer_numbers", numbers * 8,
            {{"ours", [&] { writeAndRead(*buffer); }}, {"memcpy", [&] { copyNumbers(bytes); }}}, 15);
}

void measureBufferBytes() {
    constexpr std::int32_t blockSize = 4096, blocks = 2000;
    automation::Array block(automation::VT_UI1, {{0, blockSize}});
    const auto buffer = automation::make<cBinBuffer>();
    buffer->BufferSize(blocks * blockSize);
    std::vector<std::uint8_t> bytes(std::size_t{blocks} * blockSize), taken(blockSize);
    measure("binbuffer_bytes", blocks * 2,
            {{"ours",
              [&] {
                  buffer->CurrentAddress(0);
                  for (int i = 0; i < blocks; ++i)
                      buffer->WriteBinary(block);
                  buffer->CurrentAddress(0);
                  for (int i = 0; i < blocks; ++i)
                      buffer->ReadBinary(block, blockSize);
                  keep(std::as_const(block).bytes().data());
              }},
             {"memcpy",
              [&] {
                  for (int i = 0; i < blocks; ++i)
                      std::memcpy(bytes.data() + std::size_t{blockSize} * i, taken.data(), blockSize);
                  keep(bytes.data());
                  for (int i = 0; i < blocks; ++i) {
                      std::memcpy(taken.data(), bytes.data() + std::size_t{blockSize} * i, blockSize);
                      keep(taken.data());
                  }
              }}},
            15);
}

} // namespace bench
