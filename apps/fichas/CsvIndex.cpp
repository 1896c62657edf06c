#include "fichas/CsvIndex.h"

#include <algorithm>
#include <cstring>

namespace fichas {

namespace {

constexpr std::size_t pieceLength = std::size_t{256} << 10;
constexpr std::size_t seekLength = std::size_t{64} << 10; ///< Read at once on the way from a mark to a record

bool isLineEnd(char16_t unit) {
    return unit == u'\n' || unit == u'\r';
}

std::string fieldsInWords(int fields) {
    return std::to_string(fields) + (fields == 1 ? " campo" : " campos");
}

} // namespace

CsvIndex::CsvIndex(ByteSource& bytes, const CsvFormat& format, std::string name)
    : bytes_(&bytes), format_(format), name_(std::move(name)), unitSize_(isUtf16(format.encoding) ? 2 : 1) {
    for (const char16_t unit : {u'\0', u'\r', u'\n'})
        stopsPlain_[unit] = stopsQuoted_[unit] = true;
    stopsPlain_[format_.separator] = true;
    stopsQuoted_[format_.quote] = true;
    front_.offset = format_.start;
    front_.line = format_.firstLine;
}

void CsvIndex::fail(std::int64_t line, const std::string& what) const {
    throw SourceError(name_ + ", línea " + std::to_string(line) + ": " + what);
}

// ---------------------------------------------------------------------------------- the way through

template <class Sink>
bool CsvIndex::endRecord(Walk& at, Sink&& sink) const {
    at.record.end = at.offset;
    const int fields = at.fields + 1;
    at.fields = 0;
    at.inRecord = false;
    at.place = Place::FieldStart;
    return sink(at.record, fields);
}

template <class Sink>
bool CsvIndex::endLine(Walk& at, char16_t unit, Sink&& sink) const {
    // A blank line is no record.
    const bool stop = at.inRecord && at.place != Place::Quoted && endRecord(at, sink);
    at.afterReturn = unit == u'\r';
    ++at.line;
    return stop;
}

template <class Sink>
bool CsvIndex::step(Walk& at, char16_t unit, Sink&& sink) const {
    if (unit == 0) fail(at.line, "hay un carácter nulo: no es un archivo de texto");
    const bool completesLineEnd = at.afterReturn && unit == u'\n';
    at.afterReturn = false;
    if (completesLineEnd) return false;
    if (isLineEnd(unit)) return endLine(at, unit, sink);
    if (!at.inRecord) {
        at.inRecord = true;
        at.record = {at.offset, at.offset, at.line};
    }
    if (at.place == Place::Quoted) {
        if (unit == format_.quote) at.place = Place::AfterQuote;
    } else if (unit == format_.separator) {
        ++at.fields;
        at.place = Place::FieldStart;
    } else if (unit == format_.quote && at.place != Place::Plain) {
        // At the start of a field, or the second of a doubled quote.
        if (at.place == Place::FieldStart) at.quoteLine = at.line;
        at.place = Place::Quoted;
    } else if (at.place == Place::AfterQuote) {
        fail(at.line, "hay texto después de las comillas de cierre");
    } else {
        at.place = Place::Plain;
    }
    return false;
}

/// The place of the next unit that matters: most units lie in runs of plain or quoted text.
template <class Unit>
std::size_t CsvIndex::skipRun(const Walk& at, Piece<Unit> piece, std::size_t from) const {
    if (at.afterReturn || (at.place != Place::Plain && at.place != Place::Quoted)) return from;
    const auto& stops = at.place == Place::Plain ? stopsPlain_ : stopsQuoted_;
    while (from < piece.length && (piece.data[from] >= stops.size() || !stops[piece.data[from]]))
        ++from;
    return from;
}

template <class Unit, class Sink>
bool CsvIndex::walk(Walk& at, Piece<Unit> piece, Sink&& sink) const {
    const std::int64_t base = at.offset;
    const auto offsetOf = [&](std::size_t i) { return base + static_cast<std::int64_t>(i * sizeof(Unit)); };
    for (std::size_t i = skipRun(at, piece, 0); i < piece.length; i = skipRun(at, piece, i + 1)) {
        at.offset = offsetOf(i);
        if (step(at, piece.data[i], sink)) {
            at.offset = offsetOf(i + 1);
            return true;
        }
    }
    at.offset = offsetOf(piece.length);
    requireSaneLength(at);
    return false;
}

template <class Sink>
bool CsvIndex::walkBytes(Walk& at, const std::uint8_t* data, std::size_t length, Sink&& sink) const {
    if (unitSize_ == 1) return walk(at, Piece<std::uint8_t>{data, length}, sink);
    const std::u16string units = decode({reinterpret_cast<const char*>(data), length}, format_.encoding);
    return walk(at, Piece<char16_t>{units.data(), units.size()}, sink);
}

void CsvIndex::requireSaneLength(const Walk& at) const {
    if (!at.inRecord || at.offset - at.record.begin <= longestRecord) return;
    if (at.place == Place::Quoted) fail(at.quoteLine, "comillas sin cerrar");
    fail(at.record.line, "la línea es demasiado larga");
}

// ------------------------------------------------------------------------------------- looking ahead

std::size_t CsvIndex::readPiece(std::int64_t offset, std::vector<std::uint8_t>& into) {
    const std::size_t length = bytes_->read(offset, into);
    return length - length % static_cast<std::size_t>(unitSize_);
}

void CsvIndex::noteRecord(const CsvExtent& record, int fields) {
    if (fieldCount_ == 0) fieldCount_ = fields;
    if (fields != fieldCount_)
        fail(record.line,
             "hay " + fieldsInWords(fields) + " y en la primera línea " + fieldsInWords(fieldCount_));
    if (records_ % stride == 0) marks_.push_back(record);
    ++records_;
}

void CsvIndex::finish() {
    if (utf8_.isWithinSequence()) fail(front_.line, "hay caracteres que no son UTF-8");
    if (front_.inRecord && front_.place == Place::Quoted) fail(front_.quoteLine, "comillas sin cerrar");
    if (front_.inRecord)
        endRecord(front_, [&](const CsvExtent& record, int fields) {
            noteRecord(record, fields);
            return false;
        });
    complete_ = true;
    frontPiece_ = {};
}

void CsvIndex::build(std::int64_t byteCount) {
    const std::int64_t goal = front_.offset + byteCount;
    frontPiece_.resize(pieceLength);
    while (!complete_ && front_.offset < goal) {
        const std::size_t length = readPiece(front_.offset, frontPiece_);
        if (length == 0) {
            finish();
            return;
        }
        std::size_t sound = length;
        if (format_.encoding == Encoding::Utf8)
            sound = std::min(sound, utf8_.check(std::span(frontPiece_).first(length)));
        walkBytes(front_, frontPiece_.data(), sound, [&](const CsvExtent& record, int fields) {
            noteRecord(record, fields);
            return false;
        });
        if (sound < length) fail(front_.line, "hay caracteres que no son UTF-8");
    }
}

void CsvIndex::advance(std::int64_t byteCount) {
    if (broken_) throw *broken_;
    try {
        build(byteCount);
    } catch (const SourceError& error) {
        broken_ = error;
        throw;
    }
}

// ------------------------------------------------------------------------------------------- reading

std::optional<CsvExtent> CsvIndex::find(std::int64_t record) {
    while (records_ <= record && !complete_)
        advance(pieceLength);
    if (record < 0 || records_ <= record) return std::nullopt;
    const CsvExtent& mark = marks_[static_cast<std::size_t>(record / stride)];
    Walk at;
    at.offset = mark.begin;
    at.line = mark.line;
    std::int64_t toPass = record % stride;
    CsvExtent found;
    const auto sink = [&](const CsvExtent& each, int) {
        found = each;
        return toPass-- == 0;
    };
    while (true) {
        const auto pieceEnd = pieceOffset_ + static_cast<std::int64_t>(piece_.size());
        if (at.offset < pieceOffset_ || at.offset >= pieceEnd) {
            piece_.resize(seekLength);
            pieceOffset_ = at.offset;
            piece_.resize(readPiece(at.offset, piece_));
            if (piece_.empty()) break;
        }
        const auto from = static_cast<std::size_t>(at.offset - pieceOffset_);
        if (walkBytes(at, piece_.data() + from, piece_.size() - from, sink)) return found;
    }
    // Only the last record may lack a line end.
    if (at.inRecord) endRecord(at, sink);
    if (toPass >= 0) fail(mark.line, "el archivo ha cambiado mientras se leía");
    return found;
}

std::string CsvIndex::bytesOf(const CsvExtent& extent) {
    std::string raw(static_cast<std::size_t>(extent.end - extent.begin), '\0');
    const std::size_t length =
        bytes_->read(extent.begin, {reinterpret_cast<std::uint8_t*>(raw.data()), raw.size()});
    if (length < raw.size()) fail(extent.line, "el archivo ha cambiado mientras se leía");
    return raw;
}

void CsvIndex::moveOn(ByteSource& bytes, std::int64_t record, std::int64_t byteCount,
                      std::int64_t lineCount) {
    bytes_ = &bytes;
    piece_.clear();
    const auto first = static_cast<std::size_t>(record / stride) + 1;
    for (std::size_t i = first; i < marks_.size(); ++i) {
        marks_[i].begin += byteCount;
        marks_[i].end += byteCount;
        marks_[i].line += lineCount;
    }
    for (std::int64_t* place : {&front_.offset, &front_.record.begin, &front_.record.end})
        *place += byteCount;
    for (std::int64_t* line : {&front_.line, &front_.record.line, &front_.quoteLine})
        *line += lineCount;
}

CsvRow CsvIndex::fields(const CsvExtent& extent) {
    const std::u16string text = decode(bytesOf(extent), format_.encoding);
    std::vector<CsvRow> rows = splitLeniently(text, format_.separator, format_.quote, true, 1);
    CsvRow row = rows.empty() ? CsvRow() : std::move(rows.front());
    row.resize(static_cast<std::size_t>(std::max(fieldCount_, 1)));
    return row;
}

} // namespace fichas
