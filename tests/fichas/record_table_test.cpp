#include "fichas/window/RecordTable.h"

#include "FakeSource.h"
#include "support/Started.h"

using automation::Variant;
using fichas::ColumnType;
using fichas::RecordTable;

namespace {

class RecordTableTest : public support::Started {
protected:
    /// Records whose values are their number and twice that.
    RecordTable tableOf(std::int32_t records) {
        std::vector<std::vector<Variant>> rows;
        for (std::int32_t i = 1; i <= records; ++i)
            rows.push_back({Variant(i), Variant(2 * i)});
        auto source = std::make_unique<tests::FakeSource>(
            std::vector<fichas::Column>{{u"uno", ColumnType::Integer}, {u"dos", ColumnType::Integer}}, rows);
        source_ = source.get();
        return RecordTable(std::move(source));
    }

    tests::FakeSource* source_ = nullptr;
    std::vector<Variant> values_;
};

} // namespace

TEST_F(RecordTableTest, EachRecordIsReadWhateverTheWayToIt) {
    RecordTable table = tableOf(1000);
    for (const std::int64_t record : {1, 2, 64, 65, 63, 1000, 999, 500, 128, 129, 1}) {
        ASSERT_TRUE(table.read(record, values_)) << record;
        ASSERT_EQ(2u, values_.size());
        EXPECT_EQ(record, values_[0].asLong());
        EXPECT_EQ(2 * record, values_[1].asLong());
    }
}

TEST_F(RecordTableTest, RecordsThatThereAreNotLeaveTheValues) {
    RecordTable table = tableOf(65);
    ASSERT_TRUE(table.read(65, values_));
    for (const std::int64_t record : {66, 1000, 0, -1, -64})
        EXPECT_FALSE(table.read(record, values_)) << record;
    EXPECT_EQ(65, values_[0].asLong());
    RecordTable none = tableOf(0);
    EXPECT_FALSE(none.read(1, values_));
}

TEST_F(RecordTableTest, NeighboursAreNotReadAgain) {
    RecordTable table = tableOf(1000);
    table.read(100, values_);
    const int reads = source_->reads;
    for (std::int64_t record = 90; record <= 110; ++record)
        EXPECT_TRUE(table.read(record, values_));
    EXPECT_EQ(reads, source_->reads);
}

TEST_F(RecordTableTest, AFaultBehindTheRecordIsMetOnlyWhenItIsReached) {
    RecordTable table = tableOf(1000);
    source_->brokenFrom = 10;
    EXPECT_TRUE(table.read(1, values_));
    EXPECT_TRUE(table.read(9, values_));
    EXPECT_THROW(table.read(10, values_), fichas::SourceError);
    EXPECT_EQ(9, values_[0].asLong());
    EXPECT_TRUE(table.read(9, values_));
    EXPECT_THROW(table.read(100, values_), fichas::SourceError);
}
