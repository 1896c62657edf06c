#pragma once
// Where the records of a CSV file start. The file is looked through from the front, a piece at a time and
// never twice, and judged on the way: what is wrong with it comes out as a SourceError with the line.

#include "fichas/ByteSource.h"
#include "fichas/CsvFormat.h"
#include "fichas/RecordSource.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace fichas {

/// A record's bytes and the number of the line where it starts.
struct CsvExtent {
    std::int64_t begin = 0;
    std::int64_t end = 0; ///< Without its line end
    std::int64_t line = 0;
};

class CsvIndex {
public:
    /// Every so manieth record is remembered; those between are found from there.
    static constexpr std::int64_t stride = 64;

    /// A longer record is taken for an unclosed quote or for no CSV at all.
    static constexpr std::int64_t longestRecord = 16 << 20;

    /// `name` is what errors call the file.
    CsvIndex(ByteSource& bytes, const CsvFormat& format, std::string name);

    /// Records found so far, a header among them.
    std::int64_t found() const { return records_; }
    bool isComplete() const { return complete_; }

    /// Looks through about `byteCount` more bytes. Throws SourceError for a broken file, each time anew.
    void advance(std::int64_t byteCount);

    /// The record counted from 0, looking as far ahead as needed; nothing when there are fewer.
    std::optional<CsvExtent> find(std::int64_t record);

    /// The fields of a record in order.
    CsvRow fields(const CsvExtent& extent);

    /// What lies in the file of a record.
    std::string bytesOf(const CsvExtent& extent);

    /// The bytes come from elsewhere now, and there a record that was found before is longer, or shorter, by
    /// so many bytes and lines.
    void moveOn(ByteSource& bytes, std::int64_t record, std::int64_t byteCount, std::int64_t lineCount);

    /// How many fields each record has; 0 before the first has been found.
    int fieldCount() const { return fieldCount_; }

    /// "name, línea 12: what"
    [[noreturn]] void fail(std::int64_t line, const std::string& what) const;

private:
    enum class Place { FieldStart, Plain, Quoted, AfterQuote };

    /// The way through the file, at a point between two units.
    struct Walk {
        std::int64_t offset = 0;
        std::int64_t line = 1;
        Place place = Place::FieldStart;
        bool afterReturn = false; ///< A line feed here belongs to the line end before it
        bool inRecord = false;
        int fields = 0; ///< Separators of the present record
        CsvExtent record;
        std::int64_t quoteLine = 0; ///< Where the last quote opened
    };

    template <class Unit>
    struct Piece {
        const Unit* data;
        std::size_t length;
    };

    void build(std::int64_t byteCount);
    std::size_t readPiece(std::int64_t offset, std::vector<std::uint8_t>& into);
    void finish();
    void noteRecord(const CsvExtent& record, int fields);

    // A sink takes each record with its number of fields and tells whether to stop there.
    template <class Sink>
    bool walkBytes(Walk& at, const std::uint8_t* data, std::size_t length, Sink&& sink) const;
    template <class Unit, class Sink>
    bool walk(Walk& at, Piece<Unit> piece, Sink&& sink) const;
    template <class Unit>
    std::size_t skipRun(const Walk& at, Piece<Unit> piece, std::size_t from) const;
    template <class Sink>
    bool step(Walk& at, char16_t unit, Sink&& sink) const;
    template <class Sink>
    bool endLine(Walk& at, char16_t unit, Sink&& sink) const;
    template <class Sink>
    bool endRecord(Walk& at, Sink&& sink) const;
    void requireSaneLength(const Walk& at) const;

    ByteSource* bytes_;
    CsvFormat format_;
    std::string name_;
    int unitSize_ = 1;
    std::array<bool, 128> stopsPlain_{};  ///< Units that end a run outside quotes
    std::array<bool, 128> stopsQuoted_{}; ///< And inside

    Walk front_;
    Utf8Checker utf8_;
    std::int64_t records_ = 0;
    int fieldCount_ = 0;
    bool complete_ = false;
    std::vector<CsvExtent> marks_; ///< Starts of the records 0, stride, 2 * stride ...

    std::optional<SourceError> broken_;

    std::vector<std::uint8_t> frontPiece_;
    std::vector<std::uint8_t> piece_; ///< What was last read to find a record between two marks
    std::int64_t pieceOffset_ = 0;
};

} // namespace fichas
