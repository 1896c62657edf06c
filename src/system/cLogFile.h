#pragma once

#include "automation/Object.h"
#include "automation/String.h"

#include <cstdint>
#include <string>

namespace tesela {

/// An append-only text file of one component, with optional self-describing records, a size cap that is
/// applied at start and a stopwatch. Each record opens, writes and closes the file, so a crash loses nothing
/// that was logged and several programs may share the file. Logging never raises: what cannot be written is
/// lost in silence.
class cLogFile : public automation::Object {
public:
    /// Names the file `cPath` + "\" + `cNombreComponente` + ".log", cuts it to its last `nMaxFileSizeKB` KB
    /// (1 or more) or clears it, and writes the start record.
    void Start(const automation::String& cPath, const automation::String& cNombreComponente, bool lClearLog,
               bool lMarkRecord = true, std::int32_t nMaxFileSizeKB = 0);

    /// Deletes the file, and says so in the new one if `lRegistrarBorrado`.
    void Clear(bool lRegistrarBorrado = true, bool lMarkRecord = true);

    /// Appends a record between "{BOR}" and "{EOR}" with date, computer and user, or without the mark one
    /// line if there is text. Creates the file in any case.
    void WriteLog(const automation::String& cText, bool& lMarkRecord);
    void WriteLog(const automation::String& cText) {
        bool lMarkRecord = true;
        WriteLog(cText, lMarkRecord);
    }

    automation::String ComputerName() const;
    automation::String UsuarioActual() const;

    /// Starts the stopwatch; False, changing nothing, if it runs already.
    bool BeginTimedSection();
    /// Seconds since its start, 0 if it does not run.
    double PeekTimedSection() const;
    /// The same, and stops it.
    double EndTimedSection();

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    void applyCap(std::int32_t nMaxFileSizeKB) const;
    std::u16string record(const automation::String& cText) const;

    automation::String component_;
    automation::String path_;
    std::int64_t frequency_ = 0; ///< Steps a second; 0 while no section is open
    std::int64_t sectionStart_ = 0;
};

} // namespace tesela
