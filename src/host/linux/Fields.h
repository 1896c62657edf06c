#pragma once

#include "automation/ClassTable.h"
#include "automation/Object.h"
#include "host/linux/Field.h"

#include <memory>
#include <vector>

namespace host {

/// The columns of a recordset in their order.
class Fields final : public automation::Object {
public:
    explicit Fields(std::shared_ptr<RecordCursor> cursor) : cursor_(std::move(cursor)) {}

    static const automation::ClassTable& table();
    const automation::ClassTable& classTable() const override { return table(); }

    /// 0 while the recordset is closed.
    std::int32_t Count() const;
    /// By index from 0 or by name in any case; the first of several columns with one name. The default
    /// member. Error 3265 where there is no such column, 3704 while the recordset is closed.
    automation::Ref<Field> Item(const automation::Variant& index) const;

    /// Place of the column that `index` names.
    std::size_t find(const automation::Variant& index) const;

private:
    std::shared_ptr<RecordCursor> cursor_;
    mutable std::vector<automation::Ref<Field>> made_; ///< Each column's field, made when first asked for
};

} // namespace host
