#pragma once

#include "activex/ExportedClass.h"
#include "automation/Record.h"

#include <vector>

namespace activex {

/// The enumerations and records that the exported classes use, each once, in the order of their first use;
/// a record comes after those that its fields use.
class InterfaceTypes {
public:
    InterfaceTypes();

    const std::vector<const automation::Enumeration*>& enumerations() const { return enumerations_; }
    const std::vector<const automation::RecordTable*>& records() const { return records_; }
    /// The record of that identifier, or null.
    const automation::RecordTable* record(const Guid& id) const;

private:
    void add(const automation::TypeDescription& type);
    void add(const automation::Enumeration& enumeration);
    void add(const automation::RecordTable& record);

    std::vector<const automation::Enumeration*> enumerations_;
    std::vector<const automation::RecordTable*> records_;
};

/// The one instance.
const InterfaceTypes& interfaceTypes();

} // namespace activex
