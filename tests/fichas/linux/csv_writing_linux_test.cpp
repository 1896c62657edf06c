// What a CSV file that may not be written, or is gone, does: Wine, as root, writes it all the same.
#include "fichas/CsvSource.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace fichas;
using automation::Variant;

namespace {

/// Why a name is not written into a record; empty where it is.
std::string refusal(CsvSource& source) {
    std::vector<Variant> before;
    if (!source.read(1, before)) return "nothing to read";
    try {
        source.write(1, before, {{1, Variant(u"Eva")}});
    } catch (const WriteError& error) {
        return error.what();
    }
    return {};
}

TEST(CsvWritingOnLinux, AFileThatOnlyMayBeReadTakesNoChanges) {
    const support::TemporaryFolder folder;
    const std::string content = "id;nombre\n1;Ana\n";
    const std::u16string path = folder.write(u"datos.csv", content);
    CsvSource source(path);
    EXPECT_TRUE(source.takesChanges());
    platform::SetFileAttributesW(path.c_str(), platform::FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(refusal(source), "no se tiene permiso para cambiar el archivo o su carpeta");
    EXPECT_EQ(folder.read(u"datos.csv"), content);
    CsvSource later(path);
    EXPECT_FALSE(later.takesChanges());
    EXPECT_EQ(refusal(later), "estos registros sólo se pueden leer");
}

TEST(CsvWritingOnLinux, AFileThatIsGoneDoesNotComeBack) {
    const support::TemporaryFolder folder;
    CsvSource source(folder.write(u"datos.csv", "id;nombre\n1;Ana\n"));
    platform::DeleteFileW(folder.file(u"datos.csv").c_str());
    EXPECT_EQ(refusal(source), "datos.csv: no existe el archivo");
    EXPECT_TRUE(platform::filesOfFolder(folder.path()).empty());
}

} // namespace
