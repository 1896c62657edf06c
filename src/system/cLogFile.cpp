#include "system/cLogFile.h"

#include "automation/ClassTable.h"
#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "platform/clock.h"
#include "platform/processes.h"
#include "platform/text_files.h"

#include <cmath>

namespace tesela {

using automation::CStr;
using automation::String;
using platform::TextFile;
using platform::TextFileError;
using platform::TextFileMode;

namespace {

constexpr std::int32_t bytesPerKB = 1024;
constexpr platform::DWORD computerNameBuffer = 255;
constexpr platform::DWORD userNameBuffer = 60;
constexpr std::u16string_view lineEnd = u"\r\n";

} // namespace

void cLogFile::Start(const String& cPath, const String& cNombreComponente, bool lClearLog, bool lMarkRecord,
                     std::int32_t nMaxFileSizeKB) {
    component_ = cNombreComponente;
    path_ = cPath + u"\\" + cNombreComponente + u".log";
    if (!lClearLog && nMaxFileSizeKB >= 1) applyCap(nMaxFileSizeKB);
    if (lClearLog) Clear(lMarkRecord, lMarkRecord);
    if (lClearLog || lMarkRecord) {
        WriteLog(u"Componente iniciado", lMarkRecord);
    } else {
        WriteLog({}, lMarkRecord);
    }
}

void cLogFile::applyCap(std::int32_t nMaxFileSizeKB) const {
    std::int64_t size = 0;
    if (platform::fileSize(path_, size) != TextFileError::None) return;
    if (std::nearbyint(static_cast<double>(size) / bytesPerKB) <= nMaxFileSizeKB) return;

    std::u16string text;
    TextFile file;
    if (file.open(path_, TextFileMode::ForReading) != TextFileError::None) return;
    if (file.readAll(text) != TextFileError::None) return;
    file.close();

    // The last characters and one more, wherever that cuts.
    const std::size_t kept = static_cast<std::size_t>(nMaxFileSizeKB) * bytesPerKB + 1;
    if (text.size() > kept) text.erase(0, text.size() - kept);
    if (!text.empty()) {
        std::u16string head = u"(" + CStr(automation::Now()).string() + u" - LOG truncado a " +
                              CStr(nMaxFileSizeKB).string() + u" KB)";
        head.append(lineEnd).append(u"...").append(lineEnd);
        text.insert(0, head);
    }
    if (file.open(path_, TextFileMode::ForWriting, true) == TextFileError::None) file.write(text);
}

void cLogFile::Clear(bool lRegistrarBorrado, bool lMarkRecord) {
    platform::deleteFile(path_, true);
    if (lRegistrarBorrado) WriteLog(u"Fichero .LOG borrado (se reinicia)", lMarkRecord);
}

void cLogFile::WriteLog(const String& cText, bool& lMarkRecord) {
    TextFile file;
    if (file.open(path_, TextFileMode::ForAppending, true) != TextFileError::None) return;
    if (lMarkRecord) {
        file.write(record(cText));
    } else if (!cText.empty()) {
        file.writeLine(cText);
    }
}

std::u16string cLogFile::record(const String& cText) const {
    std::u16string text = u"{BOR}";
    text.append(lineEnd).append(u"Fecha=").append(CStr(automation::Today()));
    text.append(u" Hora=").append(CStr(automation::TimeOfDay())).append(lineEnd);
    text.append(u"Ordenador=").append(ComputerName()).append(lineEnd);
    text.append(u"Usuario=").append(UsuarioActual()).append(lineEnd);
    text.append(cText).append(lineEnd).append(u"{EOR}").append(lineEnd);
    return text;
}

String cLogFile::ComputerName() const {
    char name[computerNameBuffer] = {};
    platform::DWORD size = computerNameBuffer;
    if (!platform::GetComputerNameA(name, &size)) return {};
    return String::fromAnsi({name, size});
}

String cLogFile::UsuarioActual() const {
    char name[userNameBuffer] = {};
    platform::DWORD size = userNameBuffer;
    if (!platform::GetUserNameA(name, &size) || size == 0) return {};
    const std::string_view whole(name, size < userNameBuffer ? size : userNameBuffer);
    return String::fromAnsi(whole.substr(0, whole.find('\0')));
}

bool cLogFile::BeginTimedSection() {
    if (frequency_ > 0) return false;
    if (!platform::QueryPerformanceFrequency(&frequency_) || frequency_ <= 0) {
        frequency_ = 0;
        return false;
    }
    if (!platform::QueryPerformanceCounter(&sectionStart_)) {
        frequency_ = 0;
        return false;
    }
    // Once more: the first reading may have paid for loading the counter.
    platform::QueryPerformanceCounter(&sectionStart_);
    return true;
}

double cLogFile::PeekTimedSection() const {
    if (frequency_ <= 0) return 0;
    platform::LONGLONG now = 0;
    platform::QueryPerformanceCounter(&now);
    return static_cast<double>(now - sectionStart_) / static_cast<double>(frequency_);
}

double cLogFile::EndTimedSection() {
    const double elapsed = PeekTimedSection();
    frequency_ = 0;
    return elapsed;
}

const automation::ClassTable& cLogFile::table() {
    using automation::optional;
    using WriteLogMethod = void (cLogFile::*)(const String&, bool&);
    static const automation::ClassTable table =
        automation::ClassTable::of<cLogFile>("cLogFile")
            .help("An append-only text file of one component, with records, a size cap and a stopwatch.")
            .method("Start", &cLogFile::Start,
                    {"cPath", "cNombreComponente", "lClearLog", optional("lMarkRecord", true),
                     optional("nMaxFileSizeKB", std::int32_t{0})})
            .method("Clear", &cLogFile::Clear,
                    {optional("lRegistrarBorrado", true), optional("lMarkRecord", true)})
            .method("WriteLog", static_cast<WriteLogMethod>(&cLogFile::WriteLog),
                    {"cText", optional("lMarkRecord", true)})
            .method("ComputerName", &cLogFile::ComputerName)
            .method("UsuarioActual", &cLogFile::UsuarioActual)
            .method("BeginTimedSection", &cLogFile::BeginTimedSection)
            .method("PeekTimedSection", &cLogFile::PeekTimedSection)
            .method("EndTimedSection", &cLogFile::EndTimedSection);
    return table;
}

} // namespace tesela
