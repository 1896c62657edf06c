// What programs filter, search and sort by: what is accepted is sound SQL.
#include "host/linux/Criteria.h"
#include "automation/Error.h"
#include "input.h"

#include <vector>

namespace {

/// An empty table with a column of each type.
const platform::Database& database() {
    static const platform::Database one = [] {
        platform::Database made(":memory:", platform::Database::Access::Create);
        made.execute("CREATE TABLE t(a, b, c, d, e, f)");
        host::defineCriteriaFunctions(made);
        return made;
    }();
    return one;
}

const std::vector<host::CriteriaColumn>& columns() {
    using host::FieldType;
    static const std::vector<host::CriteriaColumn> all = {
        {u"a", FieldType::Integer, "t.a"},  {u"b", FieldType::Text, "t.b"},
        {u"c", FieldType::DateTime, "t.c"}, {u"d", FieldType::Boolean, "t.d"},
        {u"e", FieldType::Variant, "t.e"},  {u"f", FieldType::Binary, "t.f"}};
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest = 2000; // SQLite's own limits lie above
    if (size > longest) return 0;
    const bool isOrder = fuzz::takeByte(data, size) % 2 != 0;
    const automation::String criteria(fuzz::text(data, size));
    std::string sql;
    try {
        sql = isOrder ? " ORDER BY " + host::orderTerms(criteria + u", a", columns())
                      : " WHERE " + host::filterCondition(criteria, columns());
    } catch (const automation::Error&) {
        return 0;
    }
    database().prepare("SELECT 1 FROM t" + sql).run();
    return 0;
}
