#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "host/App.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/text_files.h"
#include "support/Desk.h"
#include "support/MemberNames.h"
#include "support/Started.h"
#include "system/cLogFile.h"

using automation::String;
using automation::Variant;
using namespace tesela;

namespace {

class cLogFile_ : public support::Started {
protected:
    cLogFile_() {
        char16_t temporary[300] = {};
        platform::GetTempPathW(300, temporary);
        folder = String(temporary).string() + u"tesela-log-" +
                 automation::CStr(static_cast<std::int32_t>(platform::GetCurrentProcessId())).string();
        platform::CreateDirectoryW(folder.c_str(), nullptr);
        file = folder + u"\\prueba.log";
        platform::deleteFile(file, true);
    }
    ~cLogFile_() override {
        platform::deleteFile(folder + u"\\*.log", true);
        platform::RemoveDirectoryW(folder.c_str());
    }

    std::u16string content() const {
        platform::TextFile text;
        std::u16string all;
        if (text.open(file, platform::TextFileMode::ForReading) == platform::TextFileError::None)
            text.readAll(all);
        return all;
    }
    void fill(std::size_t characters) const {
        platform::TextFile text;
        ASSERT_EQ(platform::TextFileError::None, text.open(file, platform::TextFileMode::ForWriting, true));
        std::u16string body;
        for (std::size_t i = 0; i < characters; ++i)
            body.push_back(static_cast<char16_t>(u'a' + i % 26));
        ASSERT_EQ(platform::TextFileError::None, text.write(body));
    }
    std::u16string record(std::u16string_view text) const {
        return u"{BOR}\r\nFecha=" + automation::CStr(automation::Today()).string() + u" Hora=" + hour +
               u"\r\nOrdenador=" + log->ComputerName().string() + u"\r\nUsuario=" +
               log->UsuarioActual().string() + u"\r\n" + std::u16string(text) + u"\r\n{EOR}\r\n";
    }
    /// The content with each time of the day replaced, so that it can be compared.
    std::u16string timeless() const {
        std::u16string text = content();
        for (std::size_t at = 0; (at = text.find(u"Hora=", at)) != std::u16string::npos; at += 5)
            text.replace(at + 5, text.find(u"\r\n", at) - at - 5, hour);
        return text;
    }

    const std::u16string hour = u"?";
    std::u16string folder, file;
    automation::Ref<cLogFile> log = automation::make<cLogFile>();
};

} // namespace

TEST_F(cLogFile_, StartWritesARecord) {
    log->Start(folder, u"prueba", false);
    EXPECT_EQ(String(record(u"Componente iniciado")).utf8(), String(timeless()).utf8());
}

TEST_F(cLogFile_, TheTimeOfARecordIsTheLocalesOwn) {
    log->Start(folder, u"prueba", false);
    const std::u16string text = content();
    const std::size_t from = text.find(u"Hora=") + 5;
    const String time(text.substr(from, text.find(u"\r\n", from) - from));
    EXPECT_TRUE(automation::IsDate(time)) << time.utf8();
    EXPECT_LT(automation::CDate(time).value(), 1.0) << time.utf8();
}

TEST_F(cLogFile_, WithoutMarkStartOnlyCreatesTheFile) {
    log->Start(folder, u"prueba", false, false);
    EXPECT_TRUE(platform::fileExists(file));
    EXPECT_TRUE(content().empty());
}

TEST_F(cLogFile_, AFolderThatEndsInABackslashGetsAnotherOne) {
    log->Start(folder + u"\\", u"prueba", false, false);
    bool unmarked = false;
    log->WriteLog(u"doble", unmarked);
    EXPECT_TRUE(platform::fileExists(folder + u"\\\\prueba.log"));
    EXPECT_EQ("doble\r\n", String(content()).utf8()) << "the same file";
}

TEST_F(cLogFile_, BeforeItsStartItIsQuiet) {
    log->WriteLog(u"perdido");
    log->Clear();
    EXPECT_FALSE(platform::fileExists(file));
}

TEST_F(cLogFile_, StartCanClear) {
    fill(100);
    log->Start(folder, u"prueba", true, false);
    EXPECT_EQ("Componente iniciado\r\n", String(content()).utf8());
    log->Start(folder, u"prueba", true, true);
    EXPECT_EQ(String(record(u"Fichero .LOG borrado (se reinicia)") + record(u"Componente iniciado")).utf8(),
              String(timeless()).utf8());
}

TEST_F(cLogFile_, AFileThatIsClearedIsNotCutFirst) {
    fill(5000);
    log->Start(folder, u"prueba", true, false, 2);
    EXPECT_EQ("Componente iniciado\r\n", String(content()).utf8());
}

TEST_F(cLogFile_, AReadOnlyFileIsClearedByForce) {
    fill(10);
    log->Start(folder, u"prueba", false, false);
    ASSERT_TRUE(platform::SetFileAttributesW(file.c_str(), platform::FILE_ATTRIBUTE_READONLY));
    log->Clear(false);
    EXPECT_FALSE(platform::fileExists(file));
}

TEST_F(cLogFile_, RecordsAndLinesAreAppended) {
    log->Start(folder, u"prueba", false, false);
    bool unmarked = false;
    log->WriteLog(u"una línea: ñ €", unmarked);
    log->WriteLog({}, unmarked);
    log->WriteLog(u"dos\r\nlíneas");
    log->WriteLog({});
    EXPECT_EQ(String(u"una línea: ñ €\r\n" + record(u"dos\r\nlíneas") + record(u"")).utf8(),
              String(timeless()).utf8());
}

TEST_F(cLogFile_, AFileAtTheCapIsNotCut) {
    fill(2 * 1024);
    log->Start(folder, u"prueba", false, false, 2);
    EXPECT_EQ(2 * 1024u, content().size());
    fill(2 * 1024 + 512); // 2.5 KB rounds to 2
    log->Start(folder, u"prueba", false, false, 2);
    EXPECT_EQ(2 * 1024u + 512u, content().size());
}

TEST_F(cLogFile_, ALargerFileKeepsItsEnd) {
    const std::size_t size = 2 * 1024 + 513;
    fill(size);
    const std::u16string before = content();
    log->Start(folder, u"prueba", false, false, 2);
    const std::u16string after = content();
    const std::u16string kept = before.substr(size - 2 * 1024 - 1);
    ASSERT_EQ(2 * 1024u + 1, kept.size());
    ASSERT_GT(after.size(), kept.size());
    EXPECT_EQ(kept, after.substr(after.size() - kept.size()));
    const std::u16string head = after.substr(0, after.size() - kept.size());
    EXPECT_EQ(u'(', head.front());
    EXPECT_NE(std::u16string::npos, head.find(u" - LOG truncado a 2 KB)\r\n...\r\n"));
    const std::size_t dash = head.find(u" - LOG");
    EXPECT_TRUE(automation::IsDate(String(head.substr(1, dash - 1))));
}

TEST_F(cLogFile_, ACapBelow1IsNoCap) {
    fill(5000);
    log->Start(folder, u"prueba", false, false, 0);
    log->Start(folder, u"prueba", false, false, -1);
    EXPECT_EQ(5000u, content().size());
}

TEST_F(cLogFile_, ClearSaysSoIfAsked) {
    fill(10);
    log->Start(folder, u"prueba", false, false);
    log->Clear(false);
    EXPECT_FALSE(platform::fileExists(file));
    log->Clear(true, false);
    EXPECT_EQ("Fichero .LOG borrado (se reinicia)\r\n", String(content()).utf8());
}

TEST_F(cLogFile_, AnUnreachableFolderIsQuiet) {
    log->Start(folder + u"\\no\\existe", u"prueba", true, true, 10);
    log->WriteLog(u"perdido");
    log->Clear();
    EXPECT_FALSE(platform::fileExists(folder + u"\\no\\existe\\prueba.log"));
}

TEST_F(cLogFile_, ASecondWriterLosesItsEntryWithoutWaiting) {
    log->Start(folder, u"prueba", false, false);
    {
        platform::TextFile other;
        ASSERT_EQ(platform::TextFileError::None, other.open(file, platform::TextFileMode::ForAppending));
        bool unmarked = false;
        log->WriteLog(u"perdido", unmarked);
    }
    EXPECT_TRUE(content().empty());
}

TEST_F(cLogFile_, TimedSections) {
    support::Desk desk;
    EXPECT_EQ(0, log->EndTimedSection());
    EXPECT_EQ(0, log->PeekTimedSection());
    EXPECT_TRUE(log->BeginTimedSection());
    EXPECT_FALSE(log->BeginTimedSection());
    desk.advance(20);
    const double first = log->PeekTimedSection();
    EXPECT_GE(first, 0.015);
    EXPECT_FALSE(log->BeginTimedSection()) << "the first start is kept";
    EXPECT_GE(log->PeekTimedSection(), first);
    EXPECT_GE(log->EndTimedSection(), first);
    EXPECT_EQ(0, log->PeekTimedSection());
    EXPECT_TRUE(log->BeginTimedSection());
}

TEST_F(cLogFile_, RecordsNameTheComputerAndTheUser) {
    EXPECT_FALSE(log->ComputerName().empty());
    EXPECT_FALSE(log->UsuarioActual().empty());
}

TEST_F(cLogFile_, TheInterfaceStandsInItsOrder) {
    const std::vector<std::string> order{"Start",
                                         "Clear",
                                         "WriteLog",
                                         "ComputerName",
                                         "UsuarioActual",
                                         "BeginTimedSection",
                                         "PeekTimedSection",
                                         "EndTimedSection"};
    EXPECT_EQ(order, tests::memberNames(cLogFile::table()));
}

TEST_F(cLogFile_, AnswersByName) {
    automation::callMethod(*log, u"start", Variant(folder), Variant(u"prueba"), Variant(false),
                           Variant(false));
    automation::callMethod(*log, u"WRITELOG", Variant(u"tarde"), Variant(false));
    EXPECT_EQ("tarde\r\n", String(content()).utf8());
    EXPECT_THROW(automation::callMethod(*log, u"Start", Variant(folder)), automation::Error);
    EXPECT_TRUE(automation::callMethod(*log, u"BeginTimedSection").asBoolean());
}

namespace {

/// `file` is the library's own log, which begins empty.
class LibraryLog : public cLogFile_ {
protected:
    LibraryLog() {
        file = host::App::Path().string() + u"\\TeselaCtl.log";
        platform::deleteFile(file, true);
    }
    ~LibraryLog() override { platform::deleteFile(file, true); }

    std::u16string recordsOfAStart() const {
        return record(u"Componente iniciado") + record(u"Procedimiento de inicio realizado con éxito");
    }
};

} // namespace

TEST_F(LibraryLog, EachStartBeginsAndEndsWithARecord) {
    ProcedimientoInicio();
    EXPECT_EQ(String(recordsOfAStart()).utf8(), String(timeless()).utf8());
    ProcedimientoInicio();
    EXPECT_EQ(String(recordsOfAStart() + recordsOfAStart()).utf8(), String(timeless()).utf8());
    globales().oLogFile->WriteLog(u"una incidencia");
    EXPECT_EQ(String(recordsOfAStart() + recordsOfAStart() + record(u"una incidencia")).utf8(),
              String(timeless()).utf8());
}

TEST_F(LibraryLog, TheNextStartCutsItAt1024KB) {
    constexpr std::size_t cap = 1024 * 1024;
    fill(cap + 513); // more than half a KB above it
    const std::u16string before = content();
    ProcedimientoInicio();
    const std::u16string after = timeless();
    const std::u16string end = before.substr(before.size() - cap - 1) + recordsOfAStart();
    ASSERT_GT(after.size(), end.size());
    EXPECT_TRUE(after.ends_with(end));
    const std::u16string head = after.substr(0, after.size() - end.size());
    EXPECT_TRUE(head.ends_with(u" - LOG truncado a 1024 KB)\r\n...\r\n")) << String(head).utf8();
}

TEST_F(LibraryLog, IsKeptWholeUpTo1024KB) {
    constexpr std::size_t cap = 1024 * 1024;
    fill(cap);
    const std::u16string before = content();
    ProcedimientoInicio();
    EXPECT_TRUE(timeless() == before + recordsOfAStart());
}
