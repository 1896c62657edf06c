#include "fichas/CsvFormat.h"

#include <algorithm>
#include <map>
#include <optional>

namespace fichas {

namespace {

/// In order of preference where several give equally even lines: a semicolon or a tab seldom stands within
/// text, a comma is also a decimal separator.
constexpr char16_t separators[] = {u';', u'\t', u'|', u','};

constexpr std::size_t judgedRows = 200;

bool isLineEnd(char16_t c) {
    return c == u'\n' || c == u'\r';
}

/// How well a separator explains the rows.
struct Judgement {
    std::size_t evenRows = 0; ///< Rows with the commonest number of fields
    std::size_t fields = 1;   ///< That number
    bool beats(const Judgement& other) const {
        if ((fields > 1) != (other.fields > 1)) return fields > 1;
        return evenRows > other.evenRows;
    }
};

Judgement judge(const std::vector<CsvRow>& rows) {
    std::map<std::size_t, std::size_t> rowsWith;
    for (const CsvRow& row : rows)
        ++rowsWith[row.size()];
    Judgement best;
    for (const auto& [fields, count] : rowsWith)
        if (count >= best.evenRows) best = {count, fields};
    return best;
}

/// The quote of the first fields that stand between one.
char16_t findQuote(std::u16string_view text) {
    std::size_t doubles = 0;
    std::size_t singles = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c != u'"' && c != u'\'') continue;
        const auto delimits = [&](std::size_t place) {
            return place >= text.size() || isLineEnd(text[place]) ||
                   std::find(std::begin(separators), std::end(separators), text[place]) !=
                       std::end(separators);
        };
        if (i > 0 && !delimits(i - 1)) continue;
        // An apostrophe opens a quotation only where one closes it before the line ends.
        const std::size_t close = text.find(c, i + 1);
        if (c == u'"')
            ++doubles;
        else if (close != std::u16string_view::npos && delimits(close + 1) &&
                 text.substr(i, close - i).find(u'\n') == std::u16string_view::npos)
            ++singles;
    }
    return doubles == 0 && singles > 0 ? u'\'' : u'"';
}

/// What a first line "sep=X" says.
std::optional<char16_t> statedSeparator(std::u16string_view text) {
    constexpr std::u16string_view head = u"sep=";
    if (!text.starts_with(head) || text.size() < head.size() + 2) return std::nullopt;
    if (!isLineEnd(text[head.size() + 1]) || isLineEnd(text[head.size()])) return std::nullopt;
    constexpr char16_t firstNonAscii = 0x80;
    const char16_t stated = text[head.size()];
    return stated < firstNonAscii ? std::optional(stated) : std::nullopt;
}

/// Takes whole characters only, so that a cut at the end is no broken character.
std::u16string decodeHead(std::span<const std::uint8_t> bytes, Encoding encoding) {
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    constexpr std::size_t longestTail = 3;
    constexpr char firstNonAscii = '\x80';
    if (encoding == Encoding::Utf8)
        for (std::size_t i = 0; i < longestTail && !text.empty() && (text.back() & firstNonAscii); ++i)
            text.remove_suffix(1);
    return decode(text, encoding);
}

} // namespace

std::vector<CsvRow> splitLeniently(std::u16string_view text, char16_t separator, char16_t quote, bool isWhole,
                                   std::size_t limit) {
    std::vector<CsvRow> rows;
    CsvRow row;
    std::u16string field;
    bool wasQuoted = false;
    const auto endRow = [&] {
        row.push_back(std::move(field));
        field.clear();
        if (row.size() > 1 || !row[0].empty() || wasQuoted) rows.push_back(row);
        row.clear();
        wasQuoted = false;
    };
    std::size_t i = 0;
    while (i < text.size() && rows.size() < limit) {
        const char16_t c = text[i++];
        if (c == quote && field.empty() && !wasQuoted) {
            wasQuoted = true;
            for (; i < text.size(); ++i) {
                if (text[i] != quote)
                    field += text[i];
                else if (i + 1 < text.size() && text[i + 1] == quote)
                    field += text[i++];
                else
                    break;
            }
            ++i;
        } else if (c == separator) {
            row.push_back(std::move(field));
            field.clear();
            wasQuoted = false;
        } else if (isLineEnd(c)) {
            if (c == u'\r' && i < text.size() && text[i] == u'\n') ++i;
            endRow();
        } else {
            field += c;
        }
    }
    if (isWhole && rows.size() < limit && (!row.empty() || !field.empty() || wasQuoted)) endRow();
    return rows;
}

std::vector<CsvField> findFields(std::u16string_view record, char16_t separator, char16_t quote) {
    std::vector<CsvField> fields;
    bool isInside = false;
    CsvField field;
    for (std::size_t i = 0; i < record.size(); ++i) {
        if (record[i] == quote && (i == field.begin || field.isQuoted)) {
            field.isQuoted = true;
            isInside = !isInside;
        } else if (record[i] == separator && !isInside) {
            field.end = i;
            fields.push_back(field);
            field = {i + 1, i + 1, false};
        }
    }
    field.end = record.size();
    fields.push_back(field);
    return fields;
}

std::u16string fieldText(std::u16string_view record, const CsvField& field, char16_t quote) {
    std::u16string_view written = record.substr(field.begin, field.end - field.begin);
    if (!field.isQuoted) return std::u16string(written);
    written = written.substr(1, written.size() - 2);
    std::u16string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
        text += written[i];
        if (written[i] == quote) ++i; // the second one of a pair
    }
    return text;
}

std::u16string quoted(std::u16string_view text, char16_t quote) {
    std::u16string written(1, quote);
    for (const char16_t c : text)
        written.append(c == quote ? 2 : 1, c);
    return written + quote;
}

CsvFormat findFormat(std::span<const std::uint8_t> head) {
    CsvFormat format;
    const EncodingFound found = findEncoding(head);
    format.encoding = found.encoding;
    format.start = found.markLength;
    const std::u16string text =
        decodeHead(head.subspan(static_cast<std::size_t>(found.markLength)), found.encoding);
    if (const std::optional<char16_t> stated = statedSeparator(text)) {
        const std::size_t end = text.find_first_of(u"\r\n");
        const bool twoUnits = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
        const auto units = static_cast<std::int64_t>(end + (twoUnits ? 2 : 1));
        format.separator = *stated;
        format.start += units * (isUtf16(found.encoding) ? 2 : 1);
        format.firstLine = 2;
        format.quote = findQuote(std::u16string_view(text).substr(static_cast<std::size_t>(units)));
        return format;
    }
    format.quote = findQuote(text);
    Judgement best;
    for (const char16_t separator : separators) {
        std::vector<CsvRow> rows = splitLeniently(text, separator, format.quote, false, judgedRows);
        // A file of one line without an end has no row that is certainly whole.
        if (rows.empty()) rows = splitLeniently(text, separator, format.quote, true, judgedRows);
        const Judgement judgement = judge(rows);
        if (!judgement.beats(best)) continue;
        best = judgement;
        format.separator = separator;
    }
    return format;
}

} // namespace fichas
