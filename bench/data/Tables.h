#pragma once
// The same rows as all that is measured has them.

#include "SqliteTable.h"
#include "data/cMatriz.h"
#include "records.h"

#include <vector>

namespace bench {

class Tables {
public:
    Tables();

    /// Numbered from 1; the rows that it has are not to be changed.
    tesela::cMatriz& table() { return *table_; }
    /// A copy that may be changed; `renew` makes it again, of another table if one is given.
    tesela::cMatriz& copy() { return *copy_; }
    void renew() { renew(*table_); }
    void renew(const tesela::cMatriz& source);

    const std::vector<Record>& records() const { return records_; }
    /// The rows' values, made as they are measured.
    std::vector<automation::ParamArray> rows() const;
    SqliteTable& sqlite() { return sqlite_; }

private:
    std::vector<Record> records_ = makeRecords();
    automation::Ref<tesela::cMatriz> table_ = automation::make<tesela::cMatriz>();
    automation::Ref<tesela::cMatriz> copy_;
    SqliteTable sqlite_;
};

/// A table of the records' columns, numbered from 1, without rows.
automation::Ref<tesela::cMatriz> makeTable();

} // namespace bench
