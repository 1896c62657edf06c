#pragma once
// The records of a table of a SQLite database.

#include "automation/Ref.h"
#include "fichas/RecordSource.h"
#include "host/linux/Recordset.h"
#include "platform/linux/database.h"

#include <cstdint>
#include <optional>

namespace fichas {

/// Columns that declare no type have the one that their first values have in common. Numbers without declared
/// decimals show as many as their first values need.
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

    /// Records of a table; those of a view are no one's.
    bool takesChanges() const override { return takesChanges_; }
    /// In one transaction, with the references between tables held to.
    void write(std::int64_t record, const std::vector<automation::Variant>& before,
               const std::vector<Change>& changes) override;

private:
    void describeColumns();
    void judgeColumns();
    automation::Variant asJudged(const automation::Variant& value, std::size_t column) const;
    host::RowKey keyOf(std::int64_t record);
    const platform::Database& writer();
    host::RowSet::Row rowToChange(const host::RowKey& key, const std::vector<automation::Variant>& before);
    void update(const host::RowKey& key, const host::RowSet::Row& former, const std::vector<Change>& changes);

    automation::String path_;
    automation::String name_;
    automation::Ref<host::Recordset> records_;
    std::optional<platform::Database> writer_; ///< Opened for the first change
    std::vector<Column> columns_;
    std::vector<host::FieldType> types_;
    std::int64_t count_ = 0;
    bool isCounted_ = false;
    bool takesChanges_ = false;
};

} // namespace fichas
