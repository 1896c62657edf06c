#include "fichas/DataFile.h"

#include "fichas/ByteSource.h"
#include "fichas/CsvSource.h"
#include "platform/locale.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fichas {

using automation::String;

namespace {

class CsvFile final : public DataFile {
public:
    explicit CsvFile(const String& path) : path_(path), name_(fileName(path)) {}

    std::vector<String> tables() const override { return {name_}; }

    std::unique_ptr<RecordSource> open(const String& table) const override {
        if (table != name_)
            throw SourceError(name_.utf8() + ": un archivo CSV no tiene tablas y se ha pedido \"" +
                              table.utf8() + "\"");
        return std::make_unique<CsvSource>(path_.string());
    }

private:
    String path_;
    String name_;
};

bool startsAsDatabase(const String& path) {
    constexpr std::string_view signature("SQLite format 3\0", 16);
    FileBytes bytes(path.string(), path.utf8());
    std::array<std::uint8_t, signature.size()> head{};
    const std::size_t length = bytes.read(0, head);
    return length == head.size() && std::equal(head.begin(), head.end(), signature.begin());
}

bool isNamedAsDatabase(const String& path) {
    const std::u16string name = platform::lowerCase(path);
    for (const std::u16string_view ending : {u".sqlite", u".sqlite3", u".db", u".db3"})
        if (name.ends_with(ending)) return true;
    return false;
}

} // namespace

String fileName(const String& path) {
    const std::size_t separator = path.view().find_last_of(u"/\\");
    return separator == std::u16string_view::npos ? path : path.substring(separator + 1);
}

std::unique_ptr<DataFile> openFile(const String& path) {
    if (startsAsDatabase(path) || isNamedAsDatabase(path)) return openDatabaseFile(path);
    return std::make_unique<CsvFile>(path);
}

} // namespace fichas
