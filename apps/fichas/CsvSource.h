#pragma once
// The records of a CSV file.

#include "fichas/ByteSource.h"
#include "fichas/CsvIndex.h"
#include "fichas/CsvValues.h"
#include "fichas/RecordSource.h"

#include <memory>
#include <optional>
#include <string>

namespace fichas {

class CsvSource final : public RecordSource {
public:
    /// Looks at the start of the file only: its format, its columns and whether its first lines are sound.
    /// Throws SourceError. `name` is the file's name in UTF-8.
    CsvSource(std::unique_ptr<ByteSource> bytes, std::string name);

    automation::String name() const override;
    const std::vector<Column>& columns() const override { return columns_.columns; }
    std::int64_t knownCount() const override;
    bool countIsFinal() const override { return index_->isComplete(); }
    void countOn() override;
    std::int64_t count() override;
    bool read(std::int64_t record, std::vector<automation::Variant>& values) override;

    const CsvFormat& format() const { return format_; }
    bool hasHeader() const { return columns_.hasHeader; }

private:
    std::unique_ptr<ByteSource> bytes_;
    std::string name_;
    CsvFormat format_;
    std::optional<CsvIndex> index_;
    CsvColumns columns_;
};

} // namespace fichas
