#include "host/linux/Fields.h"

#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "platform/locale.h"

namespace host {

const automation::ClassTable& Fields::table() {
    static const automation::ClassTable table = automation::ClassTable::of<Fields>("Fields")
                                                    .get("Item", &Fields::Item, {"Index"})
                                                    .defaultMember()
                                                    .get("Count", &Fields::Count);
    return table;
}

std::int32_t Fields::Count() const {
    return cursor_->isOpen() ? static_cast<std::int32_t>(cursor_->columns().size()) : 0;
}

std::size_t Fields::find(const automation::Variant& index) const {
    const auto& columns = cursor_->columns();
    const automation::Variant plain = automation::value(index);
    if (plain.isString()) {
        const std::u16string wanted = platform::lowerCase(plain.asString());
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (platform::lowerCase(columns[i].name) == wanted) return i;
    } else {
        const std::int32_t place = automation::CLng(plain);
        if (place >= 0 && place < Count()) return static_cast<std::size_t>(place);
    }
    throwRecordsetError(recordsetErrors::ItemNotFound);
}

automation::Ref<Field> Fields::Item(const automation::Variant& index) const {
    const std::size_t place = find(index);
    if (made_.size() <= place) made_.resize(cursor_->columns().size());
    if (!made_[place]) made_[place] = automation::make<Field>(cursor_, place);
    return made_[place];
}

} // namespace host
