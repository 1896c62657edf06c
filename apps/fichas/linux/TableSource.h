#pragma once
// The records of a table of a SQLite database.

#include "automation/Ref.h"
#include "fichas/RecordSource.h"
#include "host/linux/Recordset.h"

#include <cstdint>

namespace fichas {

class TableSource final : public RecordSource {
public:
    /// Throws SourceError for a file or a table that cannot be read.
    TableSource(const automation::String& path, const automation::String& table);

    automation::String name() const override { return name_; }
    const std::vector<Column>& columns() const override { return columns_; }
    /// Counting is one step of SQLite's, left for a quiet moment.
    std::int64_t knownCount() const override { return count_; }
    bool countIsFinal() const override { return isCounted_; }
    void countOn() override { count(); }
    std::int64_t count() override;
    bool read(std::int64_t record, std::vector<automation::Variant>& values) override;

private:
    automation::String name_;
    automation::Ref<host::Recordset> records_;
    std::vector<Column> columns_;
    std::int64_t count_ = 0;
    bool isCounted_ = false;
};

} // namespace fichas
