// What the log writes of date and time, which only the Linux driver lets a test set.
#include "automation/Conversions.h"
#include "platform/linux/headless.h"
#include "platform/text_files.h"
#include "support/Started.h"
#include "support/TemporaryFolder.h"
#include "system/cLogFile.h"

using automation::String;
using namespace tesela;

namespace {

class cLogFileClock : public support::Started {
protected:
    static void setClock(int hour, int minute, int second) {
        platform::SYSTEMTIME time;
        time.wYear = 2024;
        time.wMonth = 2;
        time.wDay = 29;
        time.wHour = static_cast<platform::WORD>(hour);
        time.wMinute = static_cast<platform::WORD>(minute);
        time.wSecond = static_cast<platform::WORD>(second);
        platform::headless::setLocalTime(time);
    }
    std::string content() const {
        platform::TextFile text;
        std::u16string all;
        if (text.open(folder.file(u"prueba.log"), platform::TextFileMode::ForReading) ==
            platform::TextFileError::None)
            text.readAll(all);
        return String(all).utf8();
    }
    /// Logs one record at the present time and gives its line of date and time.
    std::string dateLine() {
        log->Start(folder.path(), u"prueba", true, false);
        log->WriteLog(u"texto");
        const std::string text = content();
        const std::size_t from = text.find("Fecha=");
        return text.substr(from, text.find("\r\n", from) - from);
    }

    support::TemporaryFolder folder;
    automation::Ref<cLogFile> log = automation::make<cLogFile>();
};

} // namespace

TEST_F(cLogFileClock, DateAndTimeAreInTheLocalesDefaultForms) {
    ASSERT_TRUE(platform::headless::active());
    setClock(13, 5, 9);
    EXPECT_EQ("Fecha=29/02/2024 Hora=13:05:09", dateLine());
    setClock(0, 0, 0);
    EXPECT_EQ("Fecha=29/02/2024 Hora=0:00:00", dateLine());
    startIn("en-US");
    setClock(13, 5, 9);
    EXPECT_EQ("Fecha=2/29/2024 Hora=1:05:09 PM", dateLine());
}

TEST_F(cLogFileClock, ACutFileSaysWhenItWasCut) {
    ASSERT_TRUE(platform::headless::active());
    setClock(13, 5, 9);
    folder.write(u"prueba.log", std::string(3000, 'x'));
    log->Start(folder.path(), u"prueba", false, false, 1);
    EXPECT_EQ("(29/02/2024 13:05:09 - LOG truncado a 1 KB)\r\n...\r\n" + std::string(1025, 'x'), content());
}
