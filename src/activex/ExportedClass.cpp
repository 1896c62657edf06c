#include "activex/ExportedClass.h"

#include "automation/Names.h"
#include "data/cBinBuffer.h"
#include "data/cFecha.h"
#include "data/cMatriz.h"
#include "drawing/cCanvas.h"
#include "drawing/cHTML.h"
#include "field/get.h"
#include "frame/enumerations.h"
#include "frame/lbl.h"
#include "host/Control.h"
#include "system/cDevice.h"
#include "system/cKeyboard.h"
#include "system/cLogFile.h"

#include <algorithm>
#include <array>
#include <concepts>

namespace activex {

namespace {

template <class C>
ExportedClass exported(const Guid& id) {
    return {id, &C::table, []() -> automation::Ref<automation::Object> { return automation::make<C>(); },
            std::derived_from<C, host::Control>};
}

template <class E>
const automation::Enumeration& enumeration() {
    return enumerationOf(E());
}

} // namespace

// Programs remember these numbers: a line is added with a new one and never changed. The class's own number
// is followed by that of its interface and that of its events, so a new one is drawn at random.
std::span<const ExportedClass> exportedClasses() {
    static const ExportedClass classes[] = {
        exported<tesela::lbl>(Guid::parse("005a2e3c-010c-46f3-80ad-34323d9f2e77")),
        exported<tesela::get>(Guid::parse("ba6ade3c-823c-485c-b301-27755adf7d35")),
        exported<tesela::cCanvas>(Guid::parse("2be9ca44-ed73-4406-b92f-7af656a85ff9")),
        exported<tesela::cHTML>(Guid::parse("1e9e039b-0edc-4ced-9d4d-3cc9268a1f33")),
        exported<tesela::cFecha>(Guid::parse("cfe57c10-eb09-49d7-99e5-fdcc34aab4a0")),
        exported<tesela::cMatriz>(Guid::parse("c18c5bb0-3d5e-478a-8265-277745bf5907")),
        exported<tesela::cBinBuffer>(Guid::parse("e2b1ab83-85fe-4ec8-af4a-4b5961035afb")),
        exported<tesela::cLogFile>(Guid::parse("813bb1e5-9095-49ef-af41-7b3d5d3dc29a")),
        exported<tesela::cDevice>(Guid::parse("cdef3d67-f77c-42c9-b3b6-7d21b10b6b41")),
        exported<tesela::cKeyboard>(Guid::parse("43fd20fb-f2fb-4cba-b596-033ac9cffcc0")),
    };
    return classes;
}

const Guid libraryId = Guid::parse("9c00e9bd-6f73-4e7c-b3b3-1e3c8ab12bcd");

std::span<const EnumerationSource> looseEnumerations() {
    static constexpr EnumerationSource sources[] = {
        enumeration<tesela::tslAppearanceConstants>,
        enumeration<tesela::tslCtlUserDrawnModeConstants>,
    };
    return sources;
}

bool ExportedClass::hasEvents() const {
    const auto& members = table().members();
    return std::any_of(members.begin(), members.end(), [](const automation::Member& member) {
        return member.kind == automation::MemberKind::Event;
    });
}

std::u16string ExportedClass::interfaceName() const {
    return u"_" + table().name().string();
}

std::u16string ExportedClass::eventsName() const {
    return u"__" + table().name().string();
}

const ExportedClass* exportedClass(const Guid& id) {
    for (const ExportedClass& each : exportedClasses())
        if (each.id == id) return &each;
    return nullptr;
}

const ExportedClass* exportedClass(std::u16string_view name) {
    for (const ExportedClass& each : exportedClasses())
        if (automation::sameName(each.table().name(), name)) return &each;
    return nullptr;
}

const ExportedClass* exportedClass(const automation::ClassTable& table) {
    for (const ExportedClass& each : exportedClasses())
        if (&each.table() == &table) return &each;
    return nullptr;
}

Guid typeId(std::u16string_view name) {
    return Guid::ofName(libraryId, name);
}

std::u16string plainName(std::u16string_view name) {
    static constexpr std::u16string_view accented = u"áéíóúüñÁÉÍÓÚÜÑ";
    static constexpr std::u16string_view plain = u"aeiouunAEIOUUN";
    std::u16string result(name);
    for (char16_t& unit : result) {
        const std::size_t place = accented.find(unit);
        if (place != accented.npos) unit = plain[place];
    }
    return result;
}

} // namespace activex
