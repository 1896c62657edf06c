#include "Tables.h"

namespace bench {

automation::Ref<tesela::cMatriz> makeTable() {
    auto table = automation::make<tesela::cMatriz>();
    table->Dimension2D(1, columnCount, 1, 0);
    return table;
}

Tables::Tables() : table_(makeTable()) {
    table_->BeginAddRows(rowCount);
    for (const Record& record : records_)
        table_->AddRow(rowOf(record));
    table_->EndAddRows();
    sqlite_.insert(records_);
}

void Tables::renew(const tesela::cMatriz& source) {
    copy_ = nullptr; // so that there is one copy at a time
    copy_ = source.Clone();
}

std::vector<automation::ParamArray> Tables::rows() const {
    std::vector<automation::ParamArray> rows;
    rows.reserve(records_.size());
    for (const Record& record : records_)
        rows.push_back(rowOf(record));
    return rows;
}

} // namespace bench
