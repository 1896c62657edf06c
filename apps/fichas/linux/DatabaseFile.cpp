#include "fichas/DataFile.h"
#include "fichas/linux/TableSource.h"
#include "platform/linux/database.h"
#include "platform/locale.h"

namespace fichas {

using automation::String;

namespace {

class DatabaseFile final : public DataFile {
public:
    explicit DatabaseFile(const String& path) : path_(path) {
        try {
            for (const platform::TableInfo& table : platform::Database(path.utf8()).tables())
                tables_.push_back(String::fromUtf8(table.name));
        } catch (const platform::DatabaseError& error) {
            throw SourceError(error.what());
        }
        if (tables_.empty()) throw SourceError(path.utf8() + ": la base de datos no tiene ninguna tabla");
    }

    std::vector<String> tables() const override { return tables_; }

    std::unique_ptr<RecordSource> open(const String& table) const override {
        for (const String& known : tables_)
            if (platform::lowerCase(known) == platform::lowerCase(table))
                return std::make_unique<TableSource>(path_, known);
        std::string names;
        for (const String& known : tables_)
            names += (names.empty() ? "" : ", ") + known.utf8();
        throw SourceError(path_.utf8() + ": no hay ninguna tabla \"" + table.utf8() + "\"; hay " + names);
    }

private:
    String path_;
    std::vector<String> tables_;
};

} // namespace

std::unique_ptr<DataFile> openDatabaseFile(const String& path) {
    return std::make_unique<DatabaseFile>(path);
}

} // namespace fichas
