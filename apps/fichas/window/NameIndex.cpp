#include "fichas/window/NameIndex.h"

#include "automation/Conversions.h"
#include "data/collation.h"
#include "platform/locale.h"

#include <algorithm>

namespace fichas {

using automation::String;
using automation::Variant;

namespace {

enum Columns : std::int32_t { name = 1, record };

constexpr std::u16string_view namesOfNames[] = {u"nombre", u"descripci", u"name"};

/// What decides first in the order: the letters, whatever their accents.
std::string lettersOf(const String& text) {
    std::string key;
    tesela::appendSortKey(text, key);
    return key.substr(0, key.find('\0'));
}

} // namespace

std::optional<std::size_t> nameColumn(std::span<const Column> columns) {
    const auto place = [&](auto wanted) -> std::optional<std::size_t> {
        const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
            return column.type == ColumnType::Text && wanted(platform::lowerCase(column.name));
        });
        if (found == columns.end()) return {};
        return static_cast<std::size_t>(found - columns.begin());
    };
    for (const auto start : namesOfNames)
        if (const auto found = place([&](const std::u16string& name) { return name.starts_with(start); }))
            return found;
    return place([](const std::u16string&) { return true; });
}

NameIndex::NameIndex(RecordSource& source, std::size_t column) {
    names_->Dimension2D(name, record, 1, 0);
    names_->BeginAddRows();
    std::vector<Variant> values;
    for (std::int64_t i = 1; source.read(i, values); ++i) {
        if (values[column].isNull()) continue;
        const String upper(platform::upperCase(automation::CStr(values[column])));
        names_->AddRow({Variant(upper), Variant(static_cast<double>(i))});
    }
    names_->EndAddRows();
    names_->QSort(name, tesela::tslMatriz_Sort_Ascending, record, tesela::tslMatriz_Sort_Ascending);
}

std::optional<NameIndex::Found> NameIndex::seek(const String& start) const {
    if (names_->Rows() == 0) return {};
    std::int32_t row = 0;
    const String upper(platform::upperCase(start));
    if (!names_->SeekRow(Variant(upper), name, row, true)) row = std::max(row + 1, names_->FirstRow());
    if (row > names_->LastRow()) return {};
    const Variant found = names_->Item(name, row);
    return Found{static_cast<std::int64_t>(names_->Item(record, row).asDouble()),
                 lettersOf(found.asString()).starts_with(lettersOf(upper))};
}

} // namespace fichas
