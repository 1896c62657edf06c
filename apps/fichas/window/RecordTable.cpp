#include "fichas/window/RecordTable.h"

namespace fichas {

using automation::Variant;

namespace {

constexpr std::int32_t recordsInPage = 64;

} // namespace

RecordTable::RecordTable(std::unique_ptr<RecordSource> source) : source_(std::move(source)) {
    page_->Dimension2D(1, static_cast<std::int32_t>(source_->columns().size()), 1, 0);
}

/// Makes the page that the record lies on. A record that cannot be read ends it, if it isn't the one asked
/// for.
void RecordTable::load(std::int64_t record) {
    page_->Clear();
    first_ = record - (record - 1) % recordsInPage;
    page_->BeginAddRows(recordsInPage);
    std::vector<Variant> values;
    try {
        for (std::int32_t i = 0; i < recordsInPage && source_->read(first_ + i, values); ++i)
            page_->AddRow(values);
    } catch (const SourceError&) {
        page_->EndAddRows();
        if (!has(record)) throw;
        return;
    }
    page_->EndAddRows();
}

bool RecordTable::read(std::int64_t record, std::vector<Variant>& values) {
    if (record < 1) return false;
    if (!has(record)) load(record);
    if (!has(record)) return false;
    const auto row = static_cast<std::int32_t>(record - first_) + page_->FirstRow();
    values.clear();
    for (std::int32_t col = page_->FirstCol(); col <= page_->LastCol(); ++col)
        values.push_back(page_->Item(col, row));
    return true;
}

} // namespace fichas
