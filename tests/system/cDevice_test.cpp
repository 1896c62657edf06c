#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/text_files.h"
#include "support/MemberNames.h"
#include "support/Started.h"
#include "system/cDevice.h"

using automation::Currency;
using automation::Date;
using automation::String;
using automation::Variant;
using namespace tesela;

namespace {

class cDevice_ : public support::Started {
protected:
    cDevice_() {
        char16_t temporary[300] = {};
        platform::GetTempPathW(300, temporary);
        file = String(temporary) + u"tesela-device-" +
               automation::CStr(static_cast<std::int32_t>(platform::GetCurrentProcessId())) + u".bin";
        platform::deleteFile(file, true);
    }
    ~cDevice_() override {
        device->FClose();
        platform::deleteFile(file, true);
    }
    bool openNew() {
        return device->FOpen(file, readWrite, Device_ShareMode_None, Device_CreationDisposition_CreateAlways);
    }

    struct Times {
        Date read, written;
    };
    /// Of the file as it lies on the disk, in the user's zone.
    Times times() const {
        const platform::HANDLE handle = platform::CreateFileA(file.ansi().c_str(), platform::GENERIC_READ, 0,
                                                              nullptr, platform::OPEN_EXISTING, 0, {});
        platform::FILETIME read, written;
        EXPECT_TRUE(platform::GetFileTime(handle, nullptr, &read, &written));
        platform::CloseHandle(handle);
        return {dateOf(read), dateOf(written)};
    }
    static Date dateOf(const platform::FILETIME& time) {
        platform::FILETIME local;
        platform::SYSTEMTIME calendar;
        EXPECT_TRUE(platform::FileTimeToLocalFileTime(&time, &local));
        EXPECT_TRUE(platform::FileTimeToSystemTime(&local, &calendar));
        return Date::join(calendar.wYear, calendar.wMonth, calendar.wDay, calendar.wHour, calendar.wMinute,
                          calendar.wSecond);
    }

    static constexpr auto readWrite = static_cast<Device_AccessModeConstants>(Device_AccessMode_GenericRead |
                                                                              Device_AccessMode_GenericWrite);
    String file;
    automation::Ref<cDevice> device = automation::make<cDevice>();
};

} // namespace

TEST_F(cDevice_, ABadPathFailsAndClosingIsFine) {
    EXPECT_FALSE(device->FOpen(u"no\\such\\folder\\file.bin", Device_AccessMode_GenericRead));
    EXPECT_TRUE(device->FClose());
}

TEST_F(cDevice_, AClosedDeviceMovesNothing) {
    char byte = 0;
    EXPECT_EQ(-1, device->FRead(&byte, 1));
    EXPECT_EQ(-1, device->FWrite(&byte, 1));
    EXPECT_EQ(Currency(-1), device->FSeek(Currency(0)));
    EXPECT_EQ(Currency(-1), device->GetFileSize());
    EXPECT_FALSE(device->SetFileTimes(Variant(Date::join(2020, 1, 1))));
}

TEST_F(cDevice_, BytesGoAndComeBack) {
    ASSERT_TRUE(openNew());
    EXPECT_EQ(10, device->FWrite("0123456789", 10));
    EXPECT_EQ(Currency(10), device->GetFileSize());
    EXPECT_EQ(Currency(4), device->FSeek(Currency(4)));
    char bytes[8] = {};
    EXPECT_EQ(3, device->FRead(bytes, 3));
    EXPECT_STREQ("456", bytes);
    EXPECT_EQ(Currency(5), device->FSeek(Currency(-2), Device_SeekMethod_Current));
    EXPECT_EQ(Currency(9), device->FSeek(Currency(-1), Device_SeekMethod_End));
    EXPECT_EQ(1, device->FRead(bytes, 5));
    EXPECT_EQ(0, device->FRead(bytes, 5)) << "at the end";
    EXPECT_EQ(Currency(-1), device->FSeek(Currency(-1)));
    EXPECT_EQ(-1, device->FRead(bytes, -1));
    EXPECT_TRUE(device->FClose());
    EXPECT_TRUE(device->FClose());
}

TEST_F(cDevice_, PositionsGoBeyond4Gigabytes) {
    ASSERT_TRUE(openNew());
    const Currency far = Currency::fromScaled(6'000'000'000LL * Currency::scale);
    EXPECT_EQ(far, device->FSeek(far));
    EXPECT_EQ(Currency(0), device->GetFileSize());
}

TEST_F(cDevice_, AFractionOfAByteIsRoundedHalfToEven) {
    ASSERT_TRUE(openNew());
    const struct {
        double asked;
        std::int32_t position;
    } cases[] = {{2.4, 2}, {2.5, 2}, {2.5001, 3}, {2.6, 3}, {3.5, 4}};
    for (const auto& each : cases)
        EXPECT_EQ(Currency(each.position), device->FSeek(Currency::fromDouble(each.asked))) << each.asked;
    device->FSeek(Currency(10));
    EXPECT_EQ(Currency(6), device->FSeek(Currency::fromDouble(-3.5), Device_SeekMethod_Current));
}

TEST_F(cDevice_, PositionsBeyondTheirTypeFail) {
    ASSERT_TRUE(openNew());
    const Currency greatest = Currency::fromScaled(922337203685477LL * Currency::scale);
    device->FSeek(greatest); // some disks go as far, others refuse
    EXPECT_EQ(Currency(-1), device->FSeek(greatest, Device_SeekMethod_Current));
}

TEST_F(cDevice_, OpeningInVainClosesTheFirstFileToo) {
    ASSERT_TRUE(openNew());
    EXPECT_FALSE(device->FOpen(u"no\\such\\folder\\file.bin", Device_AccessMode_GenericRead));
    EXPECT_EQ(Currency(-1), device->GetFileSize());
    EXPECT_TRUE(automation::make<cDevice>()->FOpen(file, readWrite)) << "nobody holds it";
}

TEST_F(cDevice_, TheEndOfADeviceClosesItsFile) {
    ASSERT_TRUE(openNew());
    EXPECT_FALSE(automation::make<cDevice>()->FOpen(file, readWrite)) << "it is not shared";
    device = automation::make<cDevice>();
    EXPECT_TRUE(device->FOpen(file, readWrite));
}

TEST_F(cDevice_, OpeningAgainClosesTheFirstFile) {
    ASSERT_TRUE(openNew());
    device->FWrite("x", 1);
    ASSERT_TRUE(device->FOpen(file, Device_AccessMode_GenericRead)) << "no sharing with itself";
    EXPECT_EQ(Currency(1), device->GetFileSize());
}

TEST_F(cDevice_, Dispositions) {
    EXPECT_FALSE(device->FOpen(file, readWrite)) << "there is none yet";
    EXPECT_TRUE(device->FOpen(file, readWrite, Device_ShareMode_None, Device_CreationDisposition_CreateNew));
    device->FWrite("abc", 3);
    device->FClose();
    EXPECT_FALSE(device->FOpen(file, readWrite, Device_ShareMode_None, Device_CreationDisposition_CreateNew));
    EXPECT_TRUE(device->FOpen(file, readWrite, Device_ShareMode_None, Device_CreationDisposition_OpenAlways));
    EXPECT_EQ(Currency(3), device->GetFileSize());
    EXPECT_TRUE(
        device->FOpen(file, readWrite, Device_ShareMode_None, Device_CreationDisposition_TruncateExisting));
    EXPECT_EQ(Currency(0), device->GetFileSize());
}

TEST_F(cDevice_, ByteArraysBoundWhatIsMoved) {
    ASSERT_TRUE(openNew());
    device->FWrite("0123456789", 10);
    device->FSeek(Currency(0));
    Variant buffer(automation::Array(automation::VT_UI1, {{1, 4}}));
    EXPECT_EQ(4, device->FRead(buffer, 10));
    EXPECT_EQ('3', buffer.asArray()(4).asByte());
    EXPECT_EQ(4, device->FWrite(buffer, 99));
    Variant text(u"no buffer");
    EXPECT_EQ(-1, device->FRead(text, 1));
    EXPECT_EQ(-1, device->FWrite(Variant(text), 1));
}

TEST_F(cDevice_, AByteByReferenceIsWhereTheBufferBegins) {
    ASSERT_TRUE(openNew());
    std::uint8_t out[] = {10, 20, 30, 40, 50};
    EXPECT_EQ(3, automation::callMethod(*device, u"FWrite", Variant::byRef(out[1]), Variant(std::int32_t{3}))
                     .asLong());
    EXPECT_EQ(Currency(3), device->GetFileSize());
    device->FSeek(Currency(0));
    std::uint8_t in[5] = {1, 2, 3, 4, 5};
    EXPECT_EQ(
        3,
        automation::callMethod(*device, u"FRead", Variant::byRef(in[1]), Variant(std::int32_t{3})).asLong());
    EXPECT_EQ((std::vector<std::uint8_t>{1, 20, 30, 40, 5}), std::vector<std::uint8_t>(in, in + 5));
}

TEST_F(cDevice_, AByteOfItsOwnIsABufferOfOne) {
    ASSERT_TRUE(openNew());
    Variant byte(std::uint8_t{7});
    EXPECT_EQ(1, device->FWrite(byte, 4));
    EXPECT_EQ(Currency(1), device->GetFileSize());
    device->FSeek(Currency(0));
    Variant read(std::uint8_t{0});
    EXPECT_EQ(
        1,
        automation::callMethod(*device, u"FRead", Variant::byRef(read), Variant(std::int32_t{4})).asLong());
    EXPECT_EQ(7, read.asByte());
    EXPECT_EQ(0, device->FRead(read, 4)) << "at the end";
    EXPECT_EQ(7, read.asByte());
}

TEST_F(cDevice_, AnArrayByNameIsFilledInPlace) {
    ASSERT_TRUE(openNew());
    device->FWrite("abcdef", 6);
    device->FSeek(Currency(0));
    automation::Array bytes(automation::VT_UI1, {{1, 4}});
    const automation::Array copy = bytes;
    EXPECT_EQ(
        4,
        automation::callMethod(*device, u"FRead", Variant::byRef(bytes), Variant(std::int32_t{9})).asLong());
    EXPECT_EQ('a', bytes(1).asByte());
    EXPECT_EQ('d', bytes(4).asByte());
    EXPECT_EQ(0, copy(1).asByte()) << "a copy keeps its own bytes";
    std::int32_t number = 0;
    EXPECT_EQ(
        -1,
        automation::callMethod(*device, u"FRead", Variant::byRef(number), Variant(std::int32_t{1})).asLong());
}

// The time of creation is not read back: there are disks that keep the one they gave the file themselves.

TEST_F(cDevice_, TimesAreSetAsGiven) {
    ASSERT_TRUE(openNew());
    const Date created = Date::join(2019, 1, 2, 3, 4, 5);
    const Date read = Date::join(2020, 3, 4, 5, 6, 7);
    const Date written = Date::join(2021, 5, 6, 7, 8, 9);
    EXPECT_TRUE(device->SetFileTimes(Variant(created), Variant(read), Variant(written)));
    device->FClose();
    EXPECT_EQ(read.value(), times().read.value());
    EXPECT_EQ(written.value(), times().written.value());
}

TEST_F(cDevice_, TimesThatAreNotGivenStay) {
    const Date first = Date::join(2021, 5, 6, 7, 8, 9);
    const Date second = Date::join(2022, 8, 9, 10, 11, 12);
    const Date third = Date::join(2023, 11, 12, 13, 14, 15);
    ASSERT_TRUE(openNew());
    EXPECT_TRUE(device->SetFileTimes(Variant(first), Variant(first), Variant(first)));
    EXPECT_TRUE(device->SetFileTimes(Variant::missing(), Variant(second)));
    device->FClose();
    EXPECT_EQ(second.value(), times().read.value());
    EXPECT_EQ(first.value(), times().written.value());
    ASSERT_TRUE(device->FOpen(file, readWrite));
    EXPECT_TRUE(device->SetFileTimes(Variant::missing(), Variant::missing(), Variant(third)));
    EXPECT_TRUE(device->SetFileTimes(Variant(first)));
    device->FClose();
    EXPECT_EQ(second.value(), times().read.value());
    EXPECT_EQ(third.value(), times().written.value());
}

TEST_F(cDevice_, WhatIsNoDateSetsNoTime) {
    ASSERT_TRUE(openNew());
    EXPECT_FALSE(device->SetFileTimes(Variant(u"mañana")));
    EXPECT_TRUE(device->SetFileTimes());
}

TEST_F(cDevice_, TheInterfaceStandsInItsOrder) {
    const std::vector<std::string> order{"FOpen", "FClose",      "FRead",       "FWrite",
                                         "FSeek", "GetFileSize", "SetFileTimes"};
    EXPECT_EQ(order, tests::memberNames(cDevice::table()));
}

TEST_F(cDevice_, AnswersByName) {
    EXPECT_TRUE(automation::callMethod(*device, u"fopen", Variant(file), Variant(std::int32_t{readWrite}),
                                       Variant(std::int32_t{0}), Variant(std::int32_t{2}))
                    .asBoolean());
    EXPECT_EQ(3, automation::callMethod(*device, u"FWrite", Variant(automation::Array::ofBytes({{1, 2, 3}})),
                                        Variant(std::int32_t{3}))
                     .asLong());
    EXPECT_EQ(Currency(3), automation::callMethod(*device, u"GetFileSize").asCurrency());
}
