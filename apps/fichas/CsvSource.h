#pragma once
// The records of a CSV file.

#include "fichas/ByteSource.h"
#include "fichas/CsvHabits.h"
#include "fichas/CsvIndex.h"
#include "fichas/CsvValues.h"
#include "fichas/FileRewrite.h"
#include "fichas/RecordSource.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fichas {

/// Both look at the start of the file only: its format, its columns and whether its first lines are sound.
/// They throw SourceError.
///
/// A record is written by making the file anew with nothing changed but the fields concerned, each in the
/// form that its column has, in the file's encoding. If another program has changed the file meanwhile, the
/// record must still be there under its number, as it was read.
class CsvSource final : public RecordSource {
public:
    explicit CsvSource(const std::u16string& path);
    /// A file that can only be read; `name` is its name in UTF-8.
    CsvSource(std::unique_ptr<ByteSource> bytes, std::string name);

    automation::String name() const override;
    const std::vector<Column>& columns() const override { return columns_.columns; }
    std::int64_t knownCount() const override;
    bool countIsFinal() const override { return index_->isComplete(); }
    void countOn() override;
    std::int64_t count() override;
    bool read(std::int64_t record, std::vector<automation::Variant>& values) override;

    /// Whether the file may be written.
    bool takesChanges() const override { return takesChanges_; }
    void write(std::int64_t record, const std::vector<automation::Variant>& before,
               const std::vector<Change>& changes) override;

    const CsvFormat& format() const { return format_; }
    bool hasHeader() const { return columns_.hasHeader; }

private:
    void lookAtStart();
    std::vector<CsvExtent> firstRecords();
    /// The record's place in the index, which counts a header.
    std::int64_t indexOf(std::int64_t record) const { return record - (columns_.hasHeader ? 0 : 1); }
    // Writing: CsvSource_writing.cpp
    void followFile();
    void learnHabits();
    CsvExtent recordToChange(std::int64_t record, const std::vector<automation::Variant>& before);
    std::u16string writtenField(std::u16string_view record, const CsvField& former,
                                const Change& change) const;
    std::u16string changedRecord(const std::u16string& former, const std::vector<Change>& changes) const;
    std::string encoded(const std::u16string& record, std::string_view former,
                        const std::vector<Change>& changes) const;
    void copy(std::int64_t begin, std::int64_t end, FileRewrite& into);
    void store(const CsvExtent& extent, std::string_view bytes);
    void openAgain();

    std::u16string path_; ///< Empty where there is none
    std::unique_ptr<ByteSource> bytes_;
    std::string name_;
    CsvFormat format_;
    std::optional<CsvIndex> index_;
    CsvColumns columns_;
    bool takesChanges_ = false;
    FileStamp stamp_;
    std::vector<CsvHabits> habits_; ///< Of each column; learnt for the first change
};

} // namespace fichas
