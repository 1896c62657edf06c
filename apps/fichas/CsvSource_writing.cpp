// How a record gets into its CSV file: the file is made anew with other text in the fields concerned.

#include "fichas/CsvSource.h"

#include <algorithm>
#include <functional>
#include <span>
#include <utility>

namespace fichas {

using automation::Variant;

namespace {

constexpr const char* changedMeanwhile = "otro programa ha cambiado este registro en el archivo";

bool haveSameNames(const CsvColumns& a, const CsvColumns& b) {
    return a.hasHeader == b.hasHeader &&
           std::ranges::equal(a.columns, b.columns, {}, &Column::name, &Column::name);
}

std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

/// Goes on with the file as it is now, if another program has changed it.
void CsvSource::followFile() {
    if (FileBytes(path_, name_).stamp() == stamp_) return;
    CsvSource now(path_);
    if (!haveSameNames(columns_, now.columns_))
        throw WriteError("otro programa ha cambiado las columnas del archivo");
    if (countIsFinal()) now.count();
    now.columns_ = columns_; // what the values were read by
    *this = std::move(now);
}

/// The record's place, where it still is what was read.
CsvExtent CsvSource::recordToChange(std::int64_t record, const std::vector<Variant>& before) {
    std::vector<Variant> present;
    if (!read(record, present)) throw WriteError("otro programa ha borrado este registro del archivo");
    if (!std::ranges::equal(present, before, isSameValue)) throw WriteError(changedMeanwhile);
    return *index_->find(indexOf(record));
}

void CsvSource::learnHabits() {
    if (!habits_.empty()) return;
    for (std::size_t c = 0; c < columns_.columns.size(); ++c)
        habits_.emplace_back(columns_.columns[c].type, columns_.decimalSeparators[c]);
    const std::vector<CsvExtent> extents = firstRecords();
    for (std::size_t i = columns_.hasHeader ? 1 : 0; i < extents.size(); ++i) {
        const std::u16string record = decode(index_->bytesOf(extents[i]), format_.encoding);
        const std::vector<CsvField> fields = findFields(record, format_.separator, format_.quote);
        for (std::size_t c = 0; c < std::min(fields.size(), habits_.size()); ++c)
            habits_[c].take(fieldText(record, fields[c], format_.quote), fields[c].isQuoted);
    }
}

/// The new text of a field, with quotes where it needs some or others of its column have them.
std::u16string CsvSource::writtenField(std::u16string_view record, const CsvField& former,
                                       const Change& change) const {
    const CsvHabits& habits = habits_[change.column];
    const std::u16string text = habits.text(change.value, fieldText(record, former, format_.quote));
    const std::u16string special{format_.separator, format_.quote, u'\r', u'\n'};
    const bool wasNothing = former.begin == former.end;
    const bool isBlankLine = text.empty() && columns_.columns.size() == 1;
    const bool needsQuotes = text.find_first_of(special) != std::u16string::npos || isBlankLine;
    return former.isQuoted || needsQuotes || (wasNothing && habits.quotes()) ? quoted(text, format_.quote)
                                                                             : text;
}

std::u16string CsvSource::changedRecord(const std::u16string& former,
                                        const std::vector<Change>& changes) const {
    std::u16string record = former;
    std::vector<Change> fromTheEnd = changes;
    std::ranges::sort(fromTheEnd, std::greater(), &Change::column);
    const std::vector<CsvField> fields = findFields(former, format_.separator, format_.quote);
    for (const Change& change : fromTheEnd) {
        const CsvField& field = fields[change.column];
        record.replace(field.begin, field.end - field.begin, writtenField(former, field, change));
    }
    return record;
}

/// The bytes of a record, which must read as what was meant.
std::string CsvSource::encoded(const std::u16string& record, std::string_view former,
                               const std::vector<Change>& changes) const {
    const auto bytes = encode(record, decided(format_.encoding, former));
    if (!bytes || decode(*bytes, format_.encoding) != record)
        throw WriteError("la codificación del archivo no tiene todos los caracteres que se han tecleado");
    const auto rows = splitLeniently(record, format_.separator, format_.quote, true, 2);
    for (const Change& change : changes)
        if (rows.size() != 1 || rows[0].size() != columns_.columns.size() ||
            !isSameValue(columns_.value(change.column, rows[0][change.column]), change.value))
            throw WriteError(columns_.columns[change.column].name.utf8() +
                             ": el archivo no puede guardar este valor");
    return *bytes;
}

void CsvSource::copy(std::int64_t begin, std::int64_t end, FileRewrite& into) {
    std::vector<std::uint8_t> piece(std::size_t{1} << 20);
    while (begin < end) {
        const auto wanted = std::min<std::int64_t>(end - begin, static_cast<std::int64_t>(piece.size()));
        const std::size_t length =
            bytes_->read(begin, std::span(piece).first(static_cast<std::size_t>(wanted)));
        if (length == 0) throw WriteError(changedMeanwhile);
        into.write(std::span(piece).first(length));
        begin += static_cast<std::int64_t>(length);
    }
}

void CsvSource::openAgain() {
    auto file = std::make_unique<FileBytes>(path_, name_);
    stamp_ = file->stamp();
    bytes_ = std::move(file);
}

/// Makes the file anew with other bytes in the place of a record.
void CsvSource::store(const CsvExtent& extent, std::string_view bytes) {
    FileRewrite file(path_);
    copy(0, extent.begin, file);
    file.write(bytesOf(bytes));
    copy(extent.end, bytes_->size(), file);
    if (FileBytes(path_, name_).stamp() != stamp_) throw WriteError(changedMeanwhile);
    file.finish();
    openAgain();
}

void CsvSource::write(std::int64_t record, const std::vector<Variant>& before,
                      const std::vector<Change>& changes) {
    if (!takesChanges_) RecordSource::write(record, before, changes);
    try {
        followFile();
        learnHabits();
        const CsvExtent extent = recordToChange(record, before);
        const std::string former = index_->bytesOf(extent);
        const std::u16string formerText = decode(former, format_.encoding);
        const std::u16string text = changedRecord(formerText, changes);
        const std::string bytes = encoded(text, former, changes);
        store(extent, bytes);
        index_->moveOn(*bytes_, indexOf(record),
                       static_cast<std::int64_t>(bytes.size()) - static_cast<std::int64_t>(former.size()),
                       countLines(Variant(text)) - countLines(Variant(formerText)));
    } catch (const SourceError& error) {
        throw WriteError(error.what());
    }
}

} // namespace fichas
