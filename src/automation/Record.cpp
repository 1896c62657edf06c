#include "automation/Record.h"

#include "automation/Names.h"

namespace automation {

const RecordTable::Field* RecordTable::find(std::u16string_view name) const {
    for (const Field& field : fields_)
        if (sameName(field.name, name)) return &field;
    return nullptr;
}

Variant Record::field(std::u16string_view name) const {
    const RecordTable::Field* found = table().find(name);
    if (!found) throwError(errors::MemberNotSupported);
    return found->get(structure());
}

void Record::putField(std::u16string_view name, const Variant& value) {
    const RecordTable::Field* found = table().find(name);
    if (!found) throwError(errors::MemberNotSupported);
    found->put(structure(), value);
}

} // namespace automation
