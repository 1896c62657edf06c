#include "data/cBinBuffer.h"

#include "automation/Error.h"
#include "automation/LateBound.h"
#include "support/ErrorOf.h"
#include "support/MemberNames.h"
#include "support/Started.h"

#include <cmath>
#include <limits>

using automation::Array;
using automation::Currency;
using automation::Date;
using automation::Ref;
using automation::String;
using automation::Variant;
using automation::VT_UI1;
using tesela::cBinBuffer;
using tesela::SmallDateTime;
using tests::errorOf;

namespace {

constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();

using Bytes = std::vector<std::uint8_t>;

/// The bytes in use.
Bytes contentOf(const cBinBuffer& buffer) {
    const Array raw = buffer.Raw();
    const auto bytes = raw.bytes();
    return {bytes.begin(), bytes.begin() + std::max(buffer.BufferSize(), 0)};
}

Ref<cBinBuffer> bufferOf(const Bytes& bytes) {
    auto buffer = automation::make<cBinBuffer>();
    buffer->Raw(Array::ofBytes(bytes));
    return buffer;
}

Array arrayOf(const Bytes& bytes, std::int32_t lower = 0) {
    return Array::ofBytes(bytes, lower);
}

Bytes bytesOf(const Array& array) {
    const auto bytes = array.bytes();
    return {bytes.begin(), bytes.end()};
}

class cBinBuffer_ : public support::Started {
protected:
    /// A buffer of that size, all of it `filler`.
    cBinBuffer& sized(std::int32_t size, std::uint8_t filler = 0) {
        buffer->BufferSize(size);
        buffer->Clear(filler);
        return *buffer;
    }

    Ref<cBinBuffer> buffer = automation::make<cBinBuffer>();
};

} // namespace

// Size, cursor and flags

TEST_F(cBinBuffer_, ANewOneHasNoRoomAndOneByte) {
    EXPECT_EQ(0, buffer->BufferSize());
    EXPECT_EQ(0, buffer->CurrentAddress());
    EXPECT_TRUE(buffer->LastError().empty());
    EXPECT_TRUE(buffer->BufferOk());
    EXPECT_TRUE(buffer->EndOfBuffer());
    EXPECT_EQ(0, buffer->Raw().lower());
    EXPECT_EQ(0, buffer->Raw().upper());
    EXPECT_FALSE(buffer->WriteByte(1));
}

TEST_F(cBinBuffer_, ItsSizeIsSetWithZerosAndTheCursorAtTheBegin) {
    sized(4, 0xEE).CurrentAddress(3);
    buffer->BufferSize(6);
    EXPECT_EQ(Bytes(6), contentOf(*buffer));
    EXPECT_EQ(0, buffer->CurrentAddress());
    EXPECT_EQ(5, buffer->Raw().upper());
}

TEST_F(cBinBuffer_, ASizeBelow1KeepsTwoBytesAndNoRoom) {
    for (const std::int32_t size : {0, -1, -5, least}) {
        SCOPED_TRACE(size);
        buffer->BufferSize(size);
        EXPECT_EQ(size, buffer->BufferSize());
        EXPECT_EQ(1, buffer->Raw().upper());
        EXPECT_TRUE(buffer->EndOfBuffer());
        EXPECT_FALSE(buffer->WriteByte(7));
        std::uint8_t byte = 3;
        EXPECT_FALSE(buffer->ReadByte(byte));
        EXPECT_EQ(3, byte);
        EXPECT_FALSE(buffer->Clear());
        EXPECT_EQ("", buffer->Dump().utf8());
        EXPECT_EQ("", buffer->ToString().utf8());
        EXPECT_EQ(0, buffer->RawByte(0));
        buffer->CurrentAddress(0);
        EXPECT_EQ(0, buffer->CurrentAddress());
        Array array = arrayOf({1, 2});
        EXPECT_FALSE(buffer->WriteBinary(array));
        buffer->Resize(size, false);
        EXPECT_EQ(0, buffer->CurrentAddress());
        EXPECT_FALSE(buffer->BufferOk());
    }
}

TEST_F(cBinBuffer_, HugeSizesAreHadOrRefusedWhole) {
    sized(3, 9);
    const auto change = [&](bool keeping) {
        return errorOf([&] { keeping ? buffer->Resize(most) : buffer->BufferSize(most); });
    };
    for (const bool keeping : {true, false}) {
        const std::int32_t error = change(keeping);
        if (error == 0) {
            EXPECT_EQ(most, buffer->BufferSize());
            buffer->CurrentAddress(most - 1);
            EXPECT_TRUE(buffer->WriteByte(5));
            EXPECT_FALSE(buffer->WriteByte(5)) << "the cursor at the last position that there is";
            EXPECT_FALSE(buffer->WriteDate(Date(1)));
            EXPECT_EQ(5, buffer->RawByte(most - 1));
            EXPECT_EQ(automation::errors::Overflow, errorOf([&] { buffer->FromString(u"ab", true); }));
            EXPECT_EQ(most, buffer->BufferSize());
        } else {
            EXPECT_EQ(automation::errors::OutOfMemory, error);
            EXPECT_EQ(Bytes(3, 9), contentOf(*buffer)) << "as it was";
        }
    }
}

TEST_F(cBinBuffer_, ResizingKeepsWhatStays) {
    sized(4, 7).CurrentAddress(2);
    buffer->Resize(6);
    EXPECT_EQ((Bytes{7, 7, 7, 7, 0, 0}), contentOf(*buffer));
    EXPECT_EQ(0, buffer->CurrentAddress());
    buffer->Resize(40);
    EXPECT_EQ(7, buffer->RawByte(3));
    EXPECT_EQ(0, buffer->RawByte(39));
    buffer->Resize(3);
    EXPECT_EQ((Bytes{7, 7, 7}), contentOf(*buffer));
}

TEST_F(cBinBuffer_, ResizingLeavesTheCursorOnlyOnAByteAndOnlyIfTold) {
    sized(8).CurrentAddress(4);
    buffer->Resize(6, false);
    EXPECT_EQ(4, buffer->CurrentAddress());
    buffer->Resize(5, false);
    EXPECT_EQ(4, buffer->CurrentAddress()) << "the last byte";
    buffer->Resize(4, false);
    EXPECT_EQ(0, buffer->CurrentAddress()) << "at the end";
    sized(8).CurrentAddress(7);
    buffer->Resize(2, false);
    EXPECT_EQ(0, buffer->CurrentAddress()) << "past the end";
    sized(8).CurrentAddress(7);
    buffer->Resize(100, true);
    EXPECT_EQ(0, buffer->CurrentAddress());
}

TEST_F(cBinBuffer_, TheCursorGoesNoFurtherThanTheEnd) {
    sized(4).CurrentAddress(4);
    EXPECT_EQ(4, buffer->CurrentAddress());
    EXPECT_TRUE(buffer->EndOfBuffer());
    for (const std::int32_t wrong : {5, -1, most, least}) {
        buffer->CurrentAddress(wrong);
        EXPECT_EQ(4, buffer->CurrentAddress()) << wrong;
    }
    buffer->CurrentAddress(3);
    EXPECT_FALSE(buffer->EndOfBuffer());
}

TEST_F(cBinBuffer_, AFailureIsRememberedThroughSuccesses) {
    sized(2);
    EXPECT_FALSE(buffer->WriteLong(1));
    EXPECT_FALSE(buffer->BufferOk());
    EXPECT_TRUE(buffer->WriteByte(1));
    EXPECT_FALSE(buffer->BufferOk());
    EXPECT_EQ("Imposible escribir: buffer lleno. BufferSize=2, BufferPos=0, DataSize=4",
              buffer->LastError().utf8());
    buffer->BufferOk(true);
    EXPECT_TRUE(buffer->BufferOk());
    EXPECT_FALSE(buffer->LastError().empty());
    EXPECT_FALSE(buffer->WriteLong(1));
    buffer->Resize(9);
    EXPECT_FALSE(buffer->BufferOk()) << "resizing is no start";
    buffer->BufferSize(9);
    EXPECT_TRUE(buffer->BufferOk());
    EXPECT_FALSE(buffer->LastError().empty()) << "the text is never cleared";
    buffer->LastError(u"otro");
    EXPECT_EQ("otro", buffer->LastError().utf8());
}

// Raw bytes

TEST_F(cBinBuffer_, RawIsACopy) {
    sized(2, 1);
    Array raw = buffer->Raw();
    raw.bytes()[0] = 99;
    EXPECT_EQ(1, buffer->RawByte(0));
    buffer->Raw(raw);
    raw.bytes()[0] = 55;
    EXPECT_EQ(99, buffer->RawByte(0));
}

TEST_F(cBinBuffer_, RawTakesTheSizeOfAnArrayAndLeavesTheCursor) {
    sized(8).CurrentAddress(6);
    buffer->Raw(arrayOf({1, 2, 3}));
    EXPECT_EQ(3, buffer->BufferSize());
    EXPECT_EQ(6, buffer->CurrentAddress());
    EXPECT_TRUE(buffer->EndOfBuffer());
    EXPECT_FALSE(buffer->WriteByte(1)) << "the cursor lies past the end";
    std::uint8_t byte = 0;
    EXPECT_FALSE(buffer->ReadByte(byte));
    Array none;
    EXPECT_FALSE(buffer->ReadBinary(none)) << "less than nothing is left";
    EXPECT_EQ((Bytes{1, 2, 3}), contentOf(*buffer));
    buffer->CurrentAddress(2);
    EXPECT_TRUE(buffer->ReadByte(byte));
    EXPECT_EQ(3, byte);
}

TEST_F(cBinBuffer_, RawPassesOverWhatIsNoArrayOfBytesFrom0) {
    sized(2, 4);
    const Variant refused[] = {arrayOf({1, 2, 3}, 1),
                               arrayOf({1, 2, 3}, -1),
                               Array::of({1, 2, 3}),
                               Array(VT_UI1),
                               Array(VT_UI1, {{0, 2}, {0, 2}}),
                               Variant(u"abc"),
                               Variant(),
                               Variant::null()};
    for (const Variant& value : refused) {
        buffer->Raw(value);
        EXPECT_EQ((Bytes{4, 4}), contentOf(*buffer));
    }
    buffer->Raw(arrayOf({}));
    EXPECT_EQ(0, buffer->BufferSize());
}

TEST_F(cBinBuffer_, SingleBytesAreReachedWithinTheSizeOnly) {
    sized(2);
    buffer->RawByte(1, 200);
    EXPECT_EQ(200, buffer->RawByte(1));
    for (const std::int32_t outside : {-1, 2, most, least}) {
        buffer->RawByte(outside, 9);
        EXPECT_EQ(0, buffer->RawByte(outside)) << outside;
    }
    EXPECT_EQ((Bytes{0, 200}), contentOf(*buffer));
    EXPECT_TRUE(buffer->BufferOk());
}

TEST_F(cBinBuffer_, ClearingFillsAndLeavesTheCursor) {
    sized(3).CurrentAddress(2);
    EXPECT_TRUE(buffer->Clear(0xAB));
    EXPECT_EQ(Bytes(3, 0xAB), contentOf(*buffer));
    EXPECT_EQ(2, buffer->CurrentAddress());
    EXPECT_TRUE(buffer->Clear());
    EXPECT_EQ(Bytes(3), contentOf(*buffer));
}

// Numbers

TEST_F(cBinBuffer_, NumbersAreLittleEndianUnlessToldOtherwise) {
    sized(64);
    EXPECT_TRUE(buffer->WriteByte(0xFE));
    EXPECT_TRUE(buffer->WriteInteger(0x1234));
    EXPECT_TRUE(buffer->WriteInteger(0x1234, true));
    EXPECT_TRUE(buffer->WriteLong(0x12345678));
    EXPECT_TRUE(buffer->WriteLong(0x12345678, true));
    EXPECT_TRUE(buffer->WriteCurrency(Currency::fromScaled(0x0102030405060708)));
    EXPECT_TRUE(buffer->WriteCurrency(Currency::fromScaled(0x0102030405060708), true));
    EXPECT_TRUE(buffer->WriteDate(Date(1.0)));
    EXPECT_TRUE(buffer->WriteDate(Date(1.0), true));
    const Bytes expected{0xFE, 0x34, 0x12, 0x12, 0x34, 0x78, 0x56, 0x34, 0x12, 0x12, 0x34, 0x56, 0x78, 8, 7,
                         6,    5,    4,    3,    2,    1,    1,    2,    3,    4,    5,    6,    7,    8, 0,
                         0,    0,    0,    0,    0,    0xF0, 0x3F, 0x3F, 0xF0, 0,    0,    0,    0,    0, 0};
    EXPECT_EQ(static_cast<std::int32_t>(expected.size()), buffer->CurrentAddress());
    buffer->Resize(buffer->CurrentAddress());
    EXPECT_EQ(expected, contentOf(*buffer));
}

TEST_F(cBinBuffer_, NumbersComeBackInBothOrders) {
    const double days[] = {0, 45351.75, -53688.00001157408, 2958465.999988426};
    const std::int32_t longs[] = {0, 1, -1, most, least, 0x01020304};
    const std::int64_t amounts[] = {
        0,        1, -1, std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min(),
        123456789};
    for (const bool bigEndian : {false, true}) {
        sized(256);
        for (const double day : days)
            ASSERT_TRUE(buffer->WriteDate(Date(day), bigEndian));
        for (const std::int32_t number : longs)
            ASSERT_TRUE(buffer->WriteLong(number, bigEndian));
        for (const std::int64_t amount : amounts)
            ASSERT_TRUE(buffer->WriteCurrency(Currency::fromScaled(amount), bigEndian));
        buffer->CurrentAddress(0);
        for (const double day : days) {
            Date read;
            ASSERT_TRUE(buffer->ReadDate(read, bigEndian));
            EXPECT_EQ(day, read.value());
        }
        for (const std::int32_t number : longs) {
            std::int32_t read = 5;
            ASSERT_TRUE(buffer->ReadLong(read, bigEndian));
            EXPECT_EQ(number, read);
        }
        for (const std::int64_t amount : amounts) {
            Currency read;
            ASSERT_TRUE(buffer->ReadCurrency(read, bigEndian));
            EXPECT_EQ(amount, read.scaled());
        }
    }
}

TEST_F(cBinBuffer_, IntegersAreReadWithoutTheirSign) {
    sized(4);
    buffer->WriteInteger(-1);
    buffer->WriteInteger(-32768, true);
    buffer->CurrentAddress(0);
    std::int32_t number = 0;
    EXPECT_TRUE(buffer->ReadInteger(number));
    EXPECT_EQ(65535, number);
    EXPECT_TRUE(buffer->ReadInteger(number, true));
    EXPECT_EQ(32768, number);
}

TEST_F(cBinBuffer_, UnsignedIntegersAreTheLowHalf) {
    sized(8);
    for (const std::int32_t number : {0x12345678, -1, 65535, 65536})
        EXPECT_TRUE(buffer->WriteUnsignedInteger(number));
    buffer->CurrentAddress(0);
    for (const std::int32_t expected : {0x5678, 65535, 65535, 0}) {
        std::int32_t number = 1;
        EXPECT_TRUE(buffer->ReadUnsignedInteger(number));
        EXPECT_EQ(expected, number);
    }
}

TEST_F(cBinBuffer_, UnsignedLongsReachTo4294967295) {
    const std::int64_t numbers[] = {0, 1, 2147483647, 2147483648, 4294967295};
    for (const std::int64_t number : numbers)
        for (const bool bigEndian : {false, true}) {
            sized(4);
            EXPECT_TRUE(buffer->WriteUnsignedLong(Currency::fromScaled(number * Currency::scale), bigEndian));
            buffer->CurrentAddress(0);
            Currency read;
            EXPECT_TRUE(buffer->ReadUnsignedLong(read, bigEndian));
            EXPECT_EQ(number * Currency::scale, read.scaled());
        }
    EXPECT_EQ(Bytes(4, 0xFF), contentOf(*buffer));
    buffer->CurrentAddress(0);
    EXPECT_TRUE(buffer->WriteUnsignedLong(Currency(-1)));
    EXPECT_EQ(Bytes(4, 0xFF), contentOf(*buffer)) << "a negative number as it is";
}

TEST_F(cBinBuffer_, NumbersOf1And2And4And8Bytes) {
    sized(15);
    const Currency amount = Currency::fromScaled(655367777);
    EXPECT_TRUE(buffer->WriteNumber(Currency(200), 1));
    EXPECT_TRUE(buffer->WriteNumber(Currency(-2), 2));
    EXPECT_TRUE(buffer->WriteNumber(Currency(-70000), 4));
    EXPECT_TRUE(buffer->WriteNumber(amount, 8));
    buffer->CurrentAddress(0);
    Currency number;
    EXPECT_TRUE(buffer->ReadNumber(number, 1));
    EXPECT_EQ(Currency(200), number);
    EXPECT_TRUE(buffer->ReadNumber(number, 2));
    EXPECT_EQ(Currency(65534), number);
    EXPECT_TRUE(buffer->ReadNumber(number, 4));
    EXPECT_EQ(Currency(-70000), number);
    EXPECT_TRUE(buffer->ReadNumber(number, 8));
    EXPECT_EQ(amount, number);
    EXPECT_TRUE(buffer->EndOfBuffer());
}

TEST_F(cBinBuffer_, NumbersOfTwoBytesInTheOtherOrder) {
    sized(6);
    EXPECT_TRUE(buffer->WriteNumber(Currency(0x0102), 2, true));
    EXPECT_TRUE(buffer->WriteNumber(Currency(0x01020304), 4, true));
    EXPECT_EQ((Bytes{1, 2, 1, 2, 3, 4}), contentOf(*buffer));
    buffer->CurrentAddress(0);
    Currency number;
    EXPECT_TRUE(buffer->ReadNumber(number, 2, true));
    EXPECT_EQ(Currency(0x0102), number);
}

TEST_F(cBinBuffer_, OtherWidthsFail) {
    sized(16, 3);
    for (const std::int32_t width : {3, 0, -1, 5, 16, most, least}) {
        Currency number(77);
        EXPECT_FALSE(buffer->WriteNumber(Currency(1), width));
        EXPECT_EQ("Imposible escribir: un número debe tener 1, 2, 4 u 8 bytes", buffer->LastError().utf8());
        EXPECT_FALSE(buffer->ReadNumber(number, width));
        EXPECT_EQ("Imposible leer: un número debe tener 1, 2, 4 u 8 bytes", buffer->LastError().utf8());
        EXPECT_EQ(Currency(77), number);
    }
    EXPECT_FALSE(buffer->BufferOk());
    EXPECT_EQ(Bytes(16, 3), contentOf(*buffer));
    EXPECT_EQ(0, buffer->CurrentAddress());
}

TEST_F(cBinBuffer_, NumbersThatTheTypeCannotHoldAreErrors) {
    sized(8, 1);
    const auto overflow = automation::errors::Overflow;
    EXPECT_EQ(overflow, errorOf([&] { buffer->WriteNumber(Currency(256), 1); }));
    EXPECT_EQ(overflow, errorOf([&] { buffer->WriteNumber(Currency(-1), 1); }));
    EXPECT_EQ(overflow, errorOf([&] { buffer->WriteNumber(Currency(40000), 2); }));
    EXPECT_EQ(overflow, errorOf([&] { buffer->WriteNumber(Currency::fromScaled(21474836480000), 4); }));
    EXPECT_EQ(overflow,
              errorOf([&] { buffer->WriteUnsignedLong(Currency::fromScaled(42949672960000 * 2)); }));
    EXPECT_EQ(overflow, errorOf([&] { buffer->WriteUnsignedLong(Currency::fromScaled(-21474836490000)); }));
    EXPECT_EQ(Bytes(8, 1), contentOf(*buffer));
    EXPECT_EQ(0, buffer->CurrentAddress());
    EXPECT_TRUE(buffer->WriteNumber(Currency::fromScaled(25000), 1)) << "half to even";
    EXPECT_EQ(2, buffer->RawByte(0));
}

TEST_F(cBinBuffer_, WhatEndsExactlyAtTheEndFitsAndOneByteMoreDoesNot) {
    const struct {
        std::int32_t width;
        bool (*write)(cBinBuffer&);
        bool (*read)(cBinBuffer&);
    } kinds[] = {
        {1, [](cBinBuffer& b) { return b.WriteByte(1); },
         [](cBinBuffer& b) {
             std::uint8_t value = 0;
             return b.ReadByte(value);
         }},
        {2, [](cBinBuffer& b) { return b.WriteInteger(1); },
         [](cBinBuffer& b) {
             std::int32_t value = 0;
             return b.ReadInteger(value);
         }},
        {2, [](cBinBuffer& b) { return b.WriteUnsignedInteger(1, true); },
         [](cBinBuffer& b) {
             std::int32_t value = 0;
             return b.ReadUnsignedInteger(value, true);
         }},
        {4, [](cBinBuffer& b) { return b.WriteLong(1); },
         [](cBinBuffer& b) {
             std::int32_t value = 0;
             return b.ReadLong(value);
         }},
        {4, [](cBinBuffer& b) { return b.WriteUnsignedLong(Currency(1)); },
         [](cBinBuffer& b) {
             Currency value;
             return b.ReadUnsignedLong(value);
         }},
        {8, [](cBinBuffer& b) { return b.WriteCurrency(Currency(1)); },
         [](cBinBuffer& b) {
             Currency value;
             return b.ReadCurrency(value);
         }},
        {8, [](cBinBuffer& b) { return b.WriteDate(Date(1)); },
         [](cBinBuffer& b) {
             Date value;
             return b.ReadDate(value);
         }},
        {8, [](cBinBuffer& b) { return b.WriteNumber(Currency(1), 8); },
         [](cBinBuffer& b) {
             Currency value;
             return b.ReadNumber(value, 8);
         }},
        {5, [](cBinBuffer& b) { return b.WriteString(u"abcde", 0); },
         [](cBinBuffer& b) {
             String text;
             return b.ReadString(text, 5);
         }},
    };
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.width);
        sized(10, 0xEE).CurrentAddress(10 - kind.width);
        EXPECT_TRUE(kind.write(*buffer));
        EXPECT_EQ(10, buffer->CurrentAddress());
        buffer->CurrentAddress(10 - kind.width);
        EXPECT_TRUE(kind.read(*buffer));
        EXPECT_EQ(10, buffer->CurrentAddress());

        sized(10, 0xEE).CurrentAddress(11 - kind.width);
        const std::string numbers = " BufferSize=10, BufferPos=" + std::to_string(11 - kind.width) +
                                    ", DataSize=" + std::to_string(kind.width);
        EXPECT_FALSE(kind.write(*buffer));
        EXPECT_EQ("Imposible escribir: buffer lleno." + numbers, buffer->LastError().utf8());
        EXPECT_FALSE(kind.read(*buffer));
        EXPECT_EQ("Imposible leer: se sobrepasaría el final del buffer." + numbers,
                  buffer->LastError().utf8());
        EXPECT_EQ(11 - kind.width, buffer->CurrentAddress());
        EXPECT_EQ(Bytes(10, 0xEE), contentOf(*buffer));
    }
}

TEST_F(cBinBuffer_, WhatCannotBeReadLeavesTheVariable) {
    sized(0);
    std::uint8_t byte = 1;
    std::int32_t number = 2;
    Currency amount(3);
    Date date(4);
    String text = u"five";
    SmallDateTime moment;
    moment.nBinary = 6;
    Array array = arrayOf({7, 7});
    EXPECT_FALSE(buffer->ReadByte(byte));
    EXPECT_FALSE(buffer->ReadInteger(number));
    EXPECT_FALSE(buffer->ReadUnsignedInteger(number));
    EXPECT_FALSE(buffer->ReadLong(number));
    EXPECT_FALSE(buffer->ReadUnsignedLong(amount));
    EXPECT_FALSE(buffer->ReadCurrency(amount));
    EXPECT_FALSE(buffer->ReadNumber(amount, 4));
    EXPECT_FALSE(buffer->ReadDate(date));
    EXPECT_FALSE(buffer->ReadString(text, 0));
    EXPECT_FALSE(buffer->ReadSmallDateTime(moment));
    EXPECT_FALSE(buffer->ReadBinary(array, most));
    EXPECT_EQ(1, byte);
    EXPECT_EQ(2, number);
    EXPECT_EQ(Currency(3), amount);
    EXPECT_EQ(Date(4), date);
    EXPECT_EQ("five", text.utf8());
    EXPECT_EQ(6, moment.nBinary);
    EXPECT_EQ((Bytes{7, 7}), bytesOf(array));
}

// Dates of four bytes

TEST_F(cBinBuffer_, ShortDatesAreTwoUnitsEachInTheGivenOrder) {
    const SmallDateTime moment = tesela::Date2SmallDate(Date::join(2024, 2, 29, 7, 5, 9));
    for (const bool bigEndian : {false, true}) {
        sized(4);
        EXPECT_TRUE(buffer->WriteSmallDateTime(moment, bigEndian));
        // Day 45,349 from 1900 is B125 hexadecimal, minute 425 is 01A9.
        EXPECT_EQ(bigEndian ? (Bytes{0xB1, 0x25, 0x01, 0xA9}) : (Bytes{0x25, 0xB1, 0xA9, 0x01}),
                  contentOf(*buffer));
        buffer->CurrentAddress(0);
        SmallDateTime read;
        EXPECT_TRUE(buffer->ReadSmallDateTime(read, bigEndian));
        EXPECT_EQ(moment.nBinary, read.nBinary);
        EXPECT_EQ(Date::join(2024, 2, 29), read.dFecha);
        EXPECT_EQ(moment.dHora, read.dHora);
        EXPECT_EQ(Date::join(2024, 2, 29, 7, 5, 0).value(), read.dFullDate.value());
        EXPECT_EQ(4, buffer->CurrentAddress());
    }
}

TEST_F(cBinBuffer_, ShortDatesOfTheWholeRangeComeBack) {
    sized(4);
    for (std::int32_t day = 0; day < 65536; day += 7) {
        SmallDateTime moment, read;
        const std::int32_t minute = day % 1440;
        moment.nBinary =
            static_cast<std::int32_t>(static_cast<std::uint32_t>(day) << 16 | static_cast<unsigned>(minute));
        if (moment.nBinary == 0) continue;
        buffer->CurrentAddress(0);
        ASSERT_TRUE(buffer->WriteSmallDateTime(moment));
        buffer->CurrentAddress(0);
        ASSERT_TRUE(buffer->ReadSmallDateTime(read));
        ASSERT_EQ(moment.nBinary, read.nBinary) << day;
        ASSERT_EQ(day + 2, read.dFecha.value());
    }
}

TEST_F(cBinBuffer_, ShortDatesOf0And1AreTheEmptyDate) {
    for (const std::int32_t binary : {0, 1}) {
        SmallDateTime moment, read;
        moment.nBinary = binary;
        sized(4);
        EXPECT_TRUE(buffer->WriteSmallDateTime(moment));
        buffer->CurrentAddress(0);
        EXPECT_TRUE(buffer->ReadSmallDateTime(read));
        EXPECT_EQ(tesela::FechaEspecial(tesela::tslDateEmpty), read.dFullDate);
        EXPECT_EQ(0, read.nBinary);
    }
}

TEST_F(cBinBuffer_, ShortDatesThatDoNotFitMoveNothing) {
    SmallDateTime moment;
    moment.nBinary = 0x12345678;
    const struct {
        std::int32_t size;
        const char* position;
    } cases[] = {{0, "0"}, {1, "0"}, {2, "2"}, {3, "2"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.size);
        sized(each.size, 9);
        const std::string numbers =
            " BufferSize=" + std::to_string(each.size) + ", BufferPos=" + each.position + ", DataSize=2";
        EXPECT_FALSE(buffer->WriteSmallDateTime(moment));
        EXPECT_EQ("Imposible escribir: buffer lleno." + numbers, buffer->LastError().utf8());
        EXPECT_FALSE(buffer->ReadSmallDateTime(moment));
        EXPECT_EQ("Imposible leer: se sobrepasaría el final del buffer." + numbers,
                  buffer->LastError().utf8());
        EXPECT_EQ(0, buffer->CurrentAddress());
        EXPECT_EQ(Bytes(static_cast<std::size_t>(each.size), 9), contentOf(*buffer));
    }
}

// Texts

TEST_F(cBinBuffer_, TextsAreCutOrFilledUp) {
    sized(6, 0xEE);
    EXPECT_TRUE(buffer->WriteString(u"AB", 4));
    EXPECT_TRUE(buffer->WriteString(u"ABCD", 2));
    EXPECT_EQ((Bytes{'A', 'B', 0, 0, 'A', 'B'}), contentOf(*buffer));
}

TEST_F(cBinBuffer_, ALengthBelow1IsTheTexts) {
    sized(8);
    EXPECT_TRUE(buffer->WriteString(u"ñá€", 0));
    EXPECT_TRUE(buffer->WriteString(u"xy", -3));
    EXPECT_TRUE(buffer->WriteString(u"", 0));
    EXPECT_EQ((Bytes{0xF1, 0xE1, 0x80, 'x', 'y', 0, 0, 0}), contentOf(*buffer));
    EXPECT_EQ(5, buffer->CurrentAddress());
    buffer->CurrentAddress(0);
    String text = u"123";
    EXPECT_TRUE(buffer->ReadString(text, 0));
    EXPECT_EQ("ñá€", text.utf8());
    text = u"12";
    EXPECT_TRUE(buffer->ReadString(text, -9));
    EXPECT_EQ("xy", text.utf8());
    text = {};
    EXPECT_TRUE(buffer->ReadString(text, 0));
    EXPECT_EQ(5, buffer->CurrentAddress());
    EXPECT_TRUE(buffer->ReadString(text, 2));
    EXPECT_EQ(String(std::u16string(2, u'\0')), text) << "NULs are kept";
}

TEST_F(cBinBuffer_, TextsThatDoNotFitAreRefusedWhole) {
    sized(3, 1);
    String text = u"abcd";
    EXPECT_FALSE(buffer->WriteString(text, 0));
    EXPECT_FALSE(buffer->WriteString(text, most));
    EXPECT_EQ("Imposible escribir: buffer lleno. BufferSize=3, BufferPos=0, DataSize=2147483647",
              buffer->LastError().utf8());
    EXPECT_FALSE(buffer->ReadString(text, 0));
    EXPECT_FALSE(buffer->ReadString(text, most));
    EXPECT_EQ("abcd", text.utf8());
    EXPECT_EQ(Bytes(3, 1), contentOf(*buffer));
}

TEST_F(cBinBuffer_, FromStringTakesTheSizeOfTheText) {
    sized(9, 7).CurrentAddress(5);
    buffer->BufferOk(false);
    EXPECT_TRUE(buffer->FromString(u"año"));
    EXPECT_EQ((Bytes{'a', 0xF1, 'o'}), contentOf(*buffer));
    EXPECT_EQ(0, buffer->CurrentAddress());
    EXPECT_TRUE(buffer->BufferOk());
    EXPECT_FALSE(buffer->FromString(u""));
    EXPECT_EQ(0, buffer->BufferSize());
}

TEST_F(cBinBuffer_, FromStringAppendsAtTheEnd) {
    sized(3, 'x').CurrentAddress(2);
    EXPECT_TRUE(buffer->FromString(u"yz", true));
    EXPECT_EQ("xxxyz", buffer->ToString().utf8());
    EXPECT_EQ(2, buffer->CurrentAddress());
    buffer->CurrentAddress(5);
    EXPECT_TRUE(buffer->FromString(u"w", true));
    EXPECT_EQ(5, buffer->CurrentAddress()) << "the end of before is a byte now";
    buffer->CurrentAddress(6);
    EXPECT_FALSE(buffer->FromString(u"", true));
    EXPECT_EQ(0, buffer->CurrentAddress()) << "the end is still the end";
    EXPECT_EQ("xxxyzw", buffer->ToString().utf8());
    buffer->BufferSize(-4);
    EXPECT_EQ(automation::errors::SubscriptOutOfRange, errorOf([&] { buffer->FromString(u"abc", true); }));
    EXPECT_EQ(-4, buffer->BufferSize());
    EXPECT_TRUE(buffer->FromString(u"abc"));
    EXPECT_EQ("abc", buffer->ToString().utf8());
}

TEST_F(cBinBuffer_, ToStringGivesAPart) {
    buffer->FromString(u"abcdef");
    EXPECT_EQ("abcdef", buffer->ToString().utf8());
    EXPECT_EQ("cdef", buffer->ToString(2).utf8());
    EXPECT_EQ("cd", buffer->ToString(2, 2).utf8());
    EXPECT_EQ("cdef", buffer->ToString(2, 4).utf8());
    EXPECT_EQ("cdef", buffer->ToString(2, 5).utf8()) << "a count past the end";
    EXPECT_EQ("cdef", buffer->ToString(2, -1).utf8());
    EXPECT_EQ("f", buffer->ToString(5, most).utf8());
    for (const std::int32_t outside : {6, -1, most, least})
        EXPECT_EQ("abc", buffer->ToString(outside, 3).utf8()) << outside;
    buffer->CurrentAddress(6);
    EXPECT_EQ("abcdef", buffer->ToString().utf8()) << "whatever the cursor";
}

// Arrays and buffers

TEST_F(cBinBuffer_, ArraysAreWrittenFromAnyOfTheirBounds) {
    for (const std::int32_t lower : {0, 1, 5, 1000}) {
        SCOPED_TRACE(lower);
        Array array = arrayOf({10, 11, 12, 13}, lower);
        const auto written = [&](std::int32_t first, std::int32_t count) {
            sized(8);
            EXPECT_TRUE(buffer->WriteBinary(array, first, count));
            buffer->Resize(buffer->CurrentAddress());
            return contentOf(*buffer);
        };
        EXPECT_EQ((Bytes{10, 11, 12, 13}), written(lower, 0));
        EXPECT_EQ((Bytes{12, 13}), written(lower + 2, 0));
        EXPECT_EQ((Bytes{12}), written(lower + 2, 1));
        EXPECT_EQ((Bytes{13}), written(lower + 3, 1));
        EXPECT_EQ((Bytes{12, 13}), written(lower + 2, 3)) << "more than there are";
        EXPECT_EQ((Bytes{12, 13}), written(lower + 2, -7));
        EXPECT_EQ((Bytes{12, 13}), written(lower + 2, most));
        EXPECT_EQ((Bytes{10, 11}), written(lower + 4, 2)) << "no such first one";
        EXPECT_EQ((Bytes{10, 11}), written(lower - 1, 2));
        EXPECT_EQ((Bytes{10, 11, 12, 13}), written(least, least));
        EXPECT_EQ((Bytes{10, 11, 12, 13}), bytesOf(array));
    }
}

TEST_F(cBinBuffer_, ArraysBelow0OrWithoutBoundsAreNotWritten) {
    const Array refused[] = {arrayOf({1, 2}, -1), Array(VT_UI1), Array(), arrayOf({1}, least),
                             Array(VT_UI1, {{0, 2}, {0, 2}})};
    for (const Array& each : refused) {
        Array array = each;
        sized(8, 3);
        EXPECT_FALSE(buffer->WriteBinary(array));
        EXPECT_EQ("Imposible escribir: el array suministrado debe comenzar por el índice 0 ó 1.",
                  buffer->LastError().utf8());
        EXPECT_FALSE(buffer->BufferOk());
        EXPECT_EQ(Bytes(8, 3), contentOf(*buffer));
    }
}

TEST_F(cBinBuffer_, ArraysOfOtherTypesAreNotKnown) {
    sized(8, 3);
    Array values = Array::of({1, 2}), longs(automation::VT_I4, {{0, 2}});
    EXPECT_FALSE(buffer->WriteBinary(values));
    EXPECT_EQ("Imposible escribir: tipo de dato desconocido. VarType=8204", buffer->LastError().utf8());
    EXPECT_FALSE(buffer->ReadBinary(longs));
    EXPECT_EQ("Imposible leer: tipo de dato desconocido. VarType=8195", buffer->LastError().utf8());
    EXPECT_FALSE(buffer->BufferOk());
    EXPECT_EQ(0, buffer->CurrentAddress());
    EXPECT_EQ(Bytes(8, 3), contentOf(*buffer));
}

TEST_F(cBinBuffer_, ArraysThatDoNotFitAreRefusedWhole) {
    sized(3, 3).CurrentAddress(1);
    Array array = arrayOf({1, 2, 3});
    EXPECT_FALSE(buffer->WriteBinary(array));
    EXPECT_EQ("Imposible escribir: buffer lleno. BufferSize=3, BufferPos=1, DataSize=3",
              buffer->LastError().utf8());
    EXPECT_EQ(1, buffer->CurrentAddress());
    EXPECT_TRUE(buffer->WriteBinary(array, 1));
    EXPECT_EQ((Bytes{3, 2, 3}), contentOf(*buffer));
    Array empty = arrayOf({});
    EXPECT_TRUE(buffer->WriteBinary(empty)) << "nothing fits anywhere";
}

TEST_F(cBinBuffer_, ArraysAreReadWithTheNumberOfBytesGiven) {
    buffer = bufferOf({1, 2, 3, 4, 5});
    Array array = arrayOf({9}, 7);
    EXPECT_TRUE(buffer->ReadBinary(array, 3));
    EXPECT_EQ(0, array.lower());
    EXPECT_EQ((Bytes{1, 2, 3}), bytesOf(array));
    EXPECT_EQ(3, buffer->CurrentAddress());
    EXPECT_FALSE(buffer->ReadBinary(array, 3));
    EXPECT_EQ("Imposible leer: se sobrepasaría el final del buffer. BufferSize=5, BufferPos=3, DataSize=3",
              buffer->LastError().utf8());
    EXPECT_EQ((Bytes{1, 2, 3}), bytesOf(array));
}

TEST_F(cBinBuffer_, ArraysAreReadInTheirOwnSize) {
    buffer = bufferOf({1, 2, 3, 4, 5});
    Array array = arrayOf({0, 0});
    for (const std::int32_t bytes : {0, -1}) {
        EXPECT_TRUE(buffer->ReadBinary(array, bytes));
        EXPECT_EQ(2, static_cast<int>(array.size()));
    }
    EXPECT_EQ((Bytes{3, 4}), bytesOf(array));
    EXPECT_FALSE(buffer->ReadBinary(array)) << "one byte is left";
}

TEST_F(cBinBuffer_, ArraysWithoutASecondByteTakeAllThatIsLeft) {
    const Array begun[] = {Array(), Array(VT_UI1), arrayOf({9}), arrayOf({9, 9}, -1), arrayOf({})};
    for (const Array& each : begun) {
        Array array = each;
        buffer = bufferOf({1, 2, 3, 4, 5});
        buffer->CurrentAddress(2);
        EXPECT_TRUE(buffer->ReadBinary(array));
        EXPECT_EQ((Bytes{3, 4, 5}), bytesOf(array));
        EXPECT_EQ(0, array.lower());
        EXPECT_TRUE(buffer->EndOfBuffer());
    }
}

TEST_F(cBinBuffer_, ArraysHaveToBeginAt0WhenNoNumberIsGiven) {
    const Array refused[] = {arrayOf({8, 8}, 1), arrayOf({8, 8, 8}, 2)};
    for (const Array& each : refused) {
        Array array = each;
        buffer = bufferOf({1, 2, 3});
        EXPECT_FALSE(buffer->ReadBinary(array));
        EXPECT_EQ("Imposible leer: el array suministrado debe comenzar por el índice 0.",
                  buffer->LastError().utf8());
        EXPECT_FALSE(buffer->BufferOk());
        EXPECT_TRUE(buffer->ReadBinary(array, 2)) << "with a number it is made anew";
    }
    Array none;
    EXPECT_FALSE(buffer->ReadBinary(none, -1));
    EXPECT_EQ("Imposible leer: el array suministrado debe comenzar por el índice 0.",
              buffer->LastError().utf8());
}

TEST_F(cBinBuffer_, NothingLeftIsNoArrayButAFailure) {
    buffer = bufferOf({1});
    buffer->CurrentAddress(1);
    Array one = arrayOf({9});
    EXPECT_FALSE(buffer->ReadBinary(one));
    EXPECT_EQ("Imposible leer: se sobrepasaría el final del buffer. BufferSize=1, BufferPos=1, DataSize=1",
              buffer->LastError().utf8());
    Array none;
    EXPECT_FALSE(buffer->ReadBinary(none));
    EXPECT_EQ("Imposible leer: el array suministrado debe comenzar por el índice 0.",
              buffer->LastError().utf8());
}

TEST_F(cBinBuffer_, BuffersAreWrittenWholeOrInPart) {
    auto other = bufferOf({20, 21, 22, 23});
    other->CurrentAddress(3);
    const auto written = [&](std::int32_t first, std::int32_t count) {
        sized(8);
        EXPECT_TRUE(buffer->WriteBuffer(other, first, count));
        buffer->Resize(buffer->CurrentAddress());
        return contentOf(*buffer);
    };
    EXPECT_EQ((Bytes{20, 21, 22, 23}), written(0, 0));
    EXPECT_EQ((Bytes{22, 23}), written(2, 0));
    EXPECT_EQ((Bytes{21, 22}), written(1, 2));
    EXPECT_EQ((Bytes{21, 22, 23}), written(1, 3));
    EXPECT_EQ((Bytes{21, 22, 23}), written(1, 4));
    EXPECT_EQ((Bytes{21, 22, 23}), written(1, most));
    EXPECT_EQ((Bytes{20, 21}), written(4, 2)) << "no such first one";
    EXPECT_EQ((Bytes{20}), written(-1, 1));
    EXPECT_EQ((Bytes{20, 21, 22, 23}), written(least, least));
    EXPECT_EQ(3, other->CurrentAddress());
}

TEST_F(cBinBuffer_, WritingABufferThatIsTooLongOrEmptyOrNothing) {
    sized(3, 1);
    auto other = bufferOf({1, 2, 3, 4});
    EXPECT_FALSE(buffer->WriteBuffer(other));
    EXPECT_EQ("Imposible escribir: buffer lleno. BufferSize=3, BufferPos=0, DataSize=4",
              buffer->LastError().utf8());
    EXPECT_EQ(Bytes(3, 1), contentOf(*buffer));
    for (const std::int32_t size : {0, -3}) {
        other->BufferSize(size);
        EXPECT_TRUE(buffer->WriteBuffer(other));
        EXPECT_EQ(0, buffer->CurrentAddress());
    }
    Ref<cBinBuffer> nothing;
    EXPECT_EQ(automation::errors::ObjectVariableNotSet, errorOf([&] { buffer->WriteBuffer(nothing); }));
}

TEST_F(cBinBuffer_, ABufferIsWrittenIntoItselfAsItWas) {
    buffer = bufferOf({1, 2, 3, 4, 5, 6});
    buffer->CurrentAddress(2);
    EXPECT_TRUE(buffer->WriteBuffer(buffer, 0, 4));
    EXPECT_EQ((Bytes{1, 2, 1, 2, 3, 4}), contentOf(*buffer));
}

TEST_F(cBinBuffer_, BuffersAreReadIntoANewOne) {
    buffer = bufferOf({1, 2, 3, 4, 5});
    Ref<cBinBuffer> other;
    EXPECT_TRUE(buffer->ReadBuffer(other, 2));
    ASSERT_TRUE(other);
    EXPECT_EQ((Bytes{1, 2}), contentOf(*other));
    EXPECT_EQ(0, other->CurrentAddress());
    EXPECT_EQ(2, buffer->CurrentAddress());
    Ref<cBinBuffer> rest;
    EXPECT_TRUE(buffer->ReadBuffer(rest));
    EXPECT_EQ((Bytes{3, 4, 5}), contentOf(*rest));
    Ref<cBinBuffer> none;
    EXPECT_FALSE(buffer->ReadBuffer(none)) << "nothing is left";
    EXPECT_FALSE(none);
    EXPECT_FALSE(buffer->ReadBuffer(none, -1));
    EXPECT_FALSE(none);
    EXPECT_TRUE(buffer->BufferOk()) << "that is no failure";
}

TEST_F(cBinBuffer_, BuffersAreReadInTheirOwnSize) {
    buffer = bufferOf({1, 2, 3, 4, 5});
    auto other = bufferOf({9, 9});
    other->CurrentAddress(2);
    other->BufferOk(false);
    EXPECT_TRUE(buffer->ReadBuffer(other));
    EXPECT_EQ((Bytes{1, 2}), contentOf(*other));
    EXPECT_EQ(0, other->CurrentAddress());
    EXPECT_TRUE(other->BufferOk());
    other->BufferSize(0);
    EXPECT_TRUE(buffer->ReadBuffer(other));
    EXPECT_EQ((Bytes{3, 4, 5}), contentOf(*other)) << "all that is left for one without a size";
}

TEST_F(cBinBuffer_, ABufferThatCannotBeReadIsEmptyInTheSizeAskedFor) {
    buffer = bufferOf({1, 2, 3});
    auto other = bufferOf({9, 9});
    EXPECT_FALSE(buffer->ReadBuffer(other, 4));
    EXPECT_EQ("Imposible leer: se sobrepasaría el final del buffer. BufferSize=3, BufferPos=0, DataSize=4",
              buffer->LastError().utf8());
    EXPECT_EQ(Bytes(4), contentOf(*other));
    EXPECT_TRUE(other->BufferOk());
    EXPECT_EQ(0, buffer->CurrentAddress());
}

TEST_F(cBinBuffer_, ABufferReadIntoItselfIsCleared) {
    buffer = bufferOf({1, 2, 3});
    EXPECT_TRUE(buffer->ReadBuffer(buffer, 2));
    EXPECT_EQ(Bytes(2), contentOf(*buffer));
}

// Dumps

TEST_F(cBinBuffer_, DumpOfAWholeLine) {
    buffer->FromString(u"0123456789ABCDEF");
    EXPECT_EQ("0000: 30 31 32 33 34 35 36 37 | 38 39 41 42 43 44 45 46   <=>   01234567 89ABCDEF\r\n",
              buffer->Dump().utf8());
}

TEST_F(cBinBuffer_, DumpOfAnIncompleteLineKeepsTheColumns) {
    buffer->FromString(u"año\t€");
    EXPECT_EQ("0000: 61 F1 6F 09 80 " + std::string(35, ' ') + "  <=>   año\x01€\r\n", buffer->Dump().utf8());
    buffer->FromString(u"01234567");
    EXPECT_EQ("0000: 30 31 32 33 34 35 36 37 | " + std::string(24, ' ') + "  <=>   01234567 \r\n",
              buffer->Dump().utf8());
}

TEST_F(cBinBuffer_, DumpFromTheMiddleOfALineBeginsWithBlanks) {
    buffer->FromString(u"0123456789ABCDEF0123456789ABCDEF012");
    EXPECT_EQ("0000: " + std::string(9, ' ') +
                  "33 34 35 36 37 | 38 39 41 42 43 44 45 46   <=>      34567 89ABCDEF\r\n"
                  "0010: 30 31 32 33 34 35 36 37 | 38 39 41 42 43 44 45 46   <=>   01234567 89ABCDEF\r\n"
                  "0020: 30 31 32 " +
                  std::string(41, ' ') + "  <=>   012\r\n",
              buffer->Dump(3).utf8());
    EXPECT_EQ("0010: " + std::string(26, ' ') + "38 39 " + std::string(18, ' ') + "  <=>   " +
                  std::string(9, ' ') + "89\r\n",
              buffer->Dump(24, 2).utf8())
        << "eight bytes are missing";
    EXPECT_EQ("0010: " + std::string(47, ' ') + "46   <=>   " + std::string(16, ' ') + "F\r\n",
              buffer->Dump(31, 1).utf8());
    EXPECT_EQ("0000: " + std::string(21, ' ') + "37 | " + std::string(24, ' ') + "  <=>   " +
                  std::string(7, ' ') + "7 \r\n",
              buffer->Dump(7, 1).utf8());
}

TEST_F(cBinBuffer_, DumpOfAPart) {
    sized(70000, '.');
    const std::string line = buffer->Dump(16, 16).utf8();
    EXPECT_EQ("0010: 2E", line.substr(0, 8));
    EXPECT_EQ("1160: ", buffer->Dump(69999).utf8().substr(0, 6)) << "the lower half of 11160";
    buffer->FromString(u"abc");
    const std::string whole = buffer->Dump().utf8();
    for (const std::int32_t outside : {3, -1, most, least})
        EXPECT_EQ(whole, buffer->Dump(outside).utf8()) << outside;
    EXPECT_EQ(buffer->Dump(1).utf8(), buffer->Dump(1, 3).utf8()) << "a count past the end";
    EXPECT_EQ(buffer->Dump(1).utf8(), buffer->Dump(1, -2).utf8());
    EXPECT_NE(buffer->Dump(1).utf8(), buffer->Dump(1, 1).utf8());
}

// By name

TEST_F(cBinBuffer_, TheInterfaceStandsInItsOrder) {
    const std::vector<std::string> order{"LastError",
                                         "BufferSize",
                                         "Resize",
                                         "BufferOk",
                                         "Raw",
                                         "RawByte",
                                         "CurrentAddress",
                                         "EndOfBuffer",
                                         "Clear",
                                         "WriteNumber",
                                         "WriteByte",
                                         "WriteInteger",
                                         "WriteUnsignedInteger",
                                         "WriteLong",
                                         "WriteUnsignedLong",
                                         "WriteCurrency",
                                         "WriteDate",
                                         "WriteSmallDateTime",
                                         "WriteString",
                                         "WriteBinary",
                                         "WriteBuffer",
                                         "ReadNumber",
                                         "ReadByte",
                                         "ReadInteger",
                                         "ReadUnsignedInteger",
                                         "ReadLong",
                                         "ReadUnsignedLong",
                                         "ReadCurrency",
                                         "ReadDate",
                                         "ReadSmallDateTime",
                                         "ReadString",
                                         "ReadBinary",
                                         "ReadBuffer",
                                         "Dump",
                                         "ToString",
                                         "FromString"};
    EXPECT_EQ(order, tests::memberNames(cBinBuffer::table()));
}

TEST_F(cBinBuffer_, ProgramsFrameAMessageByName) {
    using automation::callMethod;
    automation::letProperty(*buffer, u"BufferSize", 11);
    EXPECT_TRUE(callMethod(*buffer, u"WriteNumber", 513, 2, true).asBoolean());
    EXPECT_TRUE(callMethod(*buffer, u"WriteString", u"hola", 5).asBoolean());
    SmallDateTime moment = tesela::Date2SmallDate(Date::join(2024, 2, 29));
    EXPECT_TRUE(callMethod(*buffer, u"WriteSmallDateTime", automation::toVariant(moment)).asBoolean());
    EXPECT_TRUE(automation::getProperty(*buffer, u"EndOfBuffer").asBoolean());
    automation::letProperty(*buffer, u"CurrentAddress", 0);
    std::int32_t number = 0;
    EXPECT_TRUE(callMethod(*buffer, u"ReadUnsignedInteger", Variant::byRef(number), true).asBoolean());
    EXPECT_EQ(513, number);
    String text;
    EXPECT_TRUE(callMethod(*buffer, u"ReadString", Variant::byRef(text), 4).asBoolean());
    EXPECT_EQ("hola", text.utf8());
    EXPECT_EQ(2, automation::getProperty(*buffer, u"RawByte", 0).asByte());
    EXPECT_EQ(10, automation::getProperty(*buffer, u"Raw").asArray().upper());
}

TEST_F(cBinBuffer_, VariablesOf16BitsTakeNumbersThatFitThem) {
    sized(4);
    buffer->WriteInteger(32767);
    buffer->WriteInteger(-1);
    buffer->CurrentAddress(0);
    std::int16_t number = 0;
    EXPECT_TRUE(automation::callMethod(*buffer, u"ReadInteger", Variant::byRef(number)).asBoolean());
    EXPECT_EQ(32767, number);
    EXPECT_EQ(automation::errors::Overflow,
              errorOf([&] { automation::callMethod(*buffer, u"ReadInteger", Variant::byRef(number)); }));
    EXPECT_EQ(32767, number);
}

TEST_F(cBinBuffer_, ArraysAndBuffersComeBackByReference) {
    buffer = bufferOf({1, 2, 3});
    Variant array{Array(VT_UI1)}, other = Variant::nothing();
    EXPECT_TRUE(automation::callMethod(*buffer, u"ReadBinary", Variant::byRef(array), 1).asBoolean());
    EXPECT_EQ((Bytes{1}), bytesOf(array.asArray()));
    EXPECT_TRUE(automation::callMethod(*buffer, u"ReadBuffer", Variant::byRef(other)).asBoolean());
    EXPECT_EQ(2, automation::getProperty(*other.asObject(), u"BufferSize").asLong());
}
