#include "fichas/CsvSource.h"

#include "fichas/DataFile.h"

#include <algorithm>

namespace fichas {

namespace {

constexpr std::size_t headLength = std::size_t{256} << 10; ///< Judged for the format
constexpr std::int64_t judgedRecords = 1000;               ///< Judged for the columns
constexpr std::int64_t countingStep = 4 << 20; ///< Bytes looked through at a time while nothing happens
constexpr std::int64_t firstLook = 1 << 20;    ///< Bytes looked through before the first record shows

} // namespace

CsvSource::CsvSource(std::unique_ptr<ByteSource> bytes, std::string name)
    : bytes_(std::move(bytes)), name_(std::move(name)) {
    lookAtStart();
}

CsvSource::CsvSource(const std::u16string& path)
    : path_(path), name_(fileName(path).utf8()), takesChanges_(FileRewrite::isAllowed(path)) {
    auto file = std::make_unique<FileBytes>(path, automation::String(path).utf8());
    stamp_ = file->stamp();
    bytes_ = std::move(file);
    lookAtStart();
}

void CsvSource::lookAtStart() {
    std::vector<std::uint8_t> head(headLength);
    head.resize(bytes_->read(0, head));
    format_ = findFormat(head);
    index_.emplace(*bytes_, format_, name_);
    index_->advance(firstLook);
    std::vector<CsvRow> rows;
    for (const CsvExtent& extent : firstRecords())
        rows.push_back(index_->fields(extent));
    if (rows.empty()) throw SourceError(name_ + ", línea 1: el archivo está vacío");
    columns_ = findColumns(rows, format_.separator);
    for (std::size_t i = columns_.hasHeader ? 1 : 0; i < rows.size(); ++i)
        for (std::size_t c = 0; c < columns_.columns.size(); ++c)
            columns_.columns[c].noteLines(columns_.value(c, rows[i][c]));
}

/// Those that the columns are judged by, a header among them.
std::vector<CsvExtent> CsvSource::firstRecords() {
    std::vector<CsvExtent> extents;
    for (std::int64_t next = 0; next < judgedRecords; ++next) {
        // What has not been looked through need not be judged either, but for a first record.
        if (next > 0 && next >= index_->found()) break;
        const auto extent = index_->find(next);
        if (!extent) break;
        extents.push_back(*extent);
    }
    return extents;
}

automation::String CsvSource::name() const {
    return automation::String::fromUtf8(name_);
}

std::int64_t CsvSource::knownCount() const {
    return std::max<std::int64_t>(index_->found() - (columns_.hasHeader ? 1 : 0), 0);
}

void CsvSource::countOn() {
    index_->advance(countingStep);
}

std::int64_t CsvSource::count() {
    while (!index_->isComplete())
        index_->advance(countingStep);
    return knownCount();
}

bool CsvSource::read(std::int64_t record, std::vector<automation::Variant>& values) {
    if (record < 1) return false;
    const auto extent = index_->find(indexOf(record));
    if (!extent) return false;
    const CsvRow row = index_->fields(*extent);
    values.clear();
    for (std::size_t c = 0; c < columns_.columns.size(); ++c)
        values.push_back(columns_.value(c, row[c]));
    return true;
}

} // namespace fichas
