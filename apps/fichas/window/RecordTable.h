#pragma once
// The records of a source as the window takes them: through tables.

#include "data/cMatriz.h"
#include "fichas/RecordSource.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace fichas {

/// Keeps the records around the one that was read last in a table, so that going on and back asks the source
/// only now and then. Errors of the source are thrown when the record concerned is read, and not before.
class RecordTable {
public:
    explicit RecordTable(std::unique_ptr<RecordSource> source);

    RecordSource& source() const { return *source_; }

    /// As the source's own: False, with `values` untouched, where there is no such record.
    bool read(std::int64_t record, std::vector<automation::Variant>& values);

    /// What is read next comes from the source.
    void forget() { page_->Clear(); }

private:
    bool has(std::int64_t record) const { return record >= first_ && record - first_ < page_->Rows(); }
    void load(std::int64_t record);

    std::unique_ptr<RecordSource> source_;
    automation::Ref<tesela::cMatriz> page_ = automation::make<tesela::cMatriz>();
    std::int64_t first_ = 1; ///< The record in the table's first row
};

} // namespace fichas
