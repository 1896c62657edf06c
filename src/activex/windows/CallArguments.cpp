#include "activex/windows/CallArguments.h"

#include "activex/windows/Values.h"

#include <algorithm>

namespace activex {

using automation::Member;
using automation::Variant;

CallArguments::CallArguments(const ::DISPPARAMS& parameters, const Member* member, bool writes) {
    const ::UINT named = parameters.cNamedArgs;
    const ::UINT all = parameters.cArgs;
    if (named > all) automation::throwError(automation::errors::WrongArgumentCount);
    // The new value of a property is named, if the caller keeps to the rules, or else the last one.
    const bool valueNamed = writes && named > 0 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    const ::UINT firstNamed = valueNamed ? 1 : 0;
    const std::size_t positional = all - named;
    std::size_t needed = positional;
    constexpr ::DISPID mostArguments = 255;
    for (::UINT i = firstNamed; i < named; ++i) {
        const ::DISPID position = parameters.rgdispidNamedArgs[i];
        if (position < 0 || position > mostArguments)
            automation::throwError(automation::errors::NamedArgumentNotFound);
        needed = std::max(needed, static_cast<std::size_t>(position) + 1);
    }
    reserve(needed + (valueNamed ? 1 : 0));
    for (std::size_t i = 0; i < needed; ++i)
        values_[i] = Variant::missing();
    for (std::size_t i = 0; i < positional; ++i)
        place(i, parameters.rgvarg[all - 1 - i], member);
    for (::UINT i = firstNamed; i < named; ++i)
        place(static_cast<std::size_t>(parameters.rgdispidNamedArgs[i]), parameters.rgvarg[i], member);
    if (valueNamed) values_[needed] = fromSystem(parameters.rgvarg[0]);
}

void CallArguments::reserve(std::size_t count) {
    count_ = count;
    if (count <= few) return;
    manyValues_.resize(count);
    manyVariables_.resize(count);
    manySources_.resize(count);
    values_ = manyValues_.data();
    variables_ = manyVariables_.data();
    sources_ = manySources_.data();
}

void CallArguments::place(std::size_t position, const ::VARIANT& argument, const Member* member) {
    const bool wanted =
        member && position < member->parameters.size() &&
        (member->parameters[position].byReference || member->parameters[position].type.record);
    const bool writable = (argument.vt & VT_BYREF) != 0 || argument.vt == VT_RECORD;
    if (!wanted || !writable) {
        values_[position] = fromSystem(argument);
        return;
    }
    variables_[position] = fromSystem(argument);
    if (variables_[position].isMissing()) {
        values_[position] = Variant::missing();
        return;
    }
    values_[position] = Variant::byRef(variables_[position]);
    sources_[position] = &argument;
}

void CallArguments::writeBack() const {
    for (std::size_t i = 0; i < count_; ++i) {
        if (!sources_[i]) continue;
        if (sources_[i]->vt & VT_BYREF)
            storeThrough(*sources_[i], variables_[i]);
        else
            storeRecord(*variables_[i].asRecord(), sources_[i]->pvRecord, sources_[i]->pRecInfo);
    }
}

} // namespace activex
