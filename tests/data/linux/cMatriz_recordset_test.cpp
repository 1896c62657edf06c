// Tables out of the records of a database.

#include "../MatrizTest.h"

#include "host/linux/Recordset.h"
#include "support/TemporaryFolder.h"

using automation::String;
using automation::Variant;
using platform::Database;
using namespace tesela;

namespace {

class cMatrizRecordset_ : public tests::MatrizTest {
protected:
    cMatrizRecordset_() {
        Database(folder.utf8File("a.sqlite"), Database::Access::Create)
            .execute("CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT, amount REAL);"
                     "INSERT INTO t VALUES(1, 'Ñandú', 1.5), (2, NULL, 2), (3, 'oso', NULL)");
        records->Open(u"t", String::fromUtf8(folder.utf8File("a.sqlite")));
    }

    support::TemporaryFolder folder;
    automation::Ref<host::Recordset> records = automation::make<host::Recordset>();
};

} // namespace

TEST_F(cMatrizRecordset_, FieldsAreColumnsAndRecordsRows) {
    EXPECT_TRUE(table->DataFromRecordSet(records));
    EXPECT_EQ("1 Ñandú 1,5, 2 Null 2, 3 oso Null", text());
    EXPECT_EQ("3x3 from 0,0", shape()) << "as the records' own array is numbered";
}

TEST_F(cMatrizRecordset_, AllRecordsAreTakenWhereverTheRecordSetStands) {
    records->MoveLast();
    EXPECT_TRUE(automation::callMethod(*table, u"DataFromRecordSet", Variant(records)).asBoolean());
    EXPECT_EQ(3, table->Rows());
    EXPECT_TRUE(table->DataFromRecordSet(records)) << "again, from behind the last one";
    EXPECT_EQ(3, table->Rows());
}

TEST_F(cMatrizRecordset_, ARecordSetWithoutRecordsGivesNothing) {
    fillColumn({7});
    records->Filter(u"id = 99");
    EXPECT_FALSE(table->DataFromRecordSet(records));
    records->Close();
    EXPECT_FALSE(table->DataFromRecordSet(records));
    EXPECT_EQ("7", text());
}
