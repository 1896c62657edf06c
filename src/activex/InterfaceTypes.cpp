#include "activex/InterfaceTypes.h"

#include <algorithm>

namespace activex {

InterfaceTypes::InterfaceTypes() {
    for (const ExportedClass& each : exportedClasses()) {
        for (const automation::Member& member : each.table().members()) {
            for (const automation::Parameter& parameter : member.parameters)
                add(parameter.type);
            add(member.result);
        }
    }
    for (const EnumerationSource source : looseEnumerations())
        add(source());
}

const automation::RecordTable* InterfaceTypes::record(const Guid& id) const {
    for (const automation::RecordTable* each : records_)
        if (typeId(each->name()) == id) return each;
    return nullptr;
}

void InterfaceTypes::add(const automation::TypeDescription& type) {
    if (type.enumeration) add(type.enumeration());
    if (type.record) add(type.record());
}

void InterfaceTypes::add(const automation::Enumeration& enumeration) {
    if (std::find(enumerations_.begin(), enumerations_.end(), &enumeration) == enumerations_.end())
        enumerations_.push_back(&enumeration);
}

void InterfaceTypes::add(const automation::RecordTable& record) {
    if (std::find(records_.begin(), records_.end(), &record) != records_.end()) return;
    for (const automation::RecordTable::Field& field : record.fields())
        add(field.type);
    records_.push_back(&record);
}

const InterfaceTypes& interfaceTypes() {
    static const InterfaceTypes types;
    return types;
}

} // namespace activex
