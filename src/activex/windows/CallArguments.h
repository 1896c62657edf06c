#pragma once

#include "activex/windows/System.h"

#include <array>
#include <vector>

namespace activex {

/// The arguments of a call by name as they come from a program, turned for the member table: in their order,
/// the left-out ones missing, the new value of a property last. Variables passed by reference to parameters
/// that are by reference take back what the member wrote.
class CallArguments {
public:
    /// `member` may be null where the member is not known beforehand; then all arguments are values. Throws
    /// automation::Error 448 for a named argument that is none.
    CallArguments(const ::DISPPARAMS& parameters, const automation::Member* member, bool writes);

    automation::Arguments arguments() const { return {{values_, count_}, {}}; }
    void writeBack() const;

private:
    void reserve(std::size_t count);
    void place(std::size_t position, const ::VARIANT& argument, const automation::Member* member);

    static constexpr std::size_t few = 6;
    std::array<automation::Variant, few> fewValues_;
    std::array<automation::Variant, few> fewVariables_;
    std::array<const ::VARIANT*, few> fewSources_{};
    std::vector<automation::Variant> manyValues_;
    std::vector<automation::Variant> manyVariables_;
    std::vector<const ::VARIANT*> manySources_;
    automation::Variant* values_ = fewValues_.data();
    automation::Variant* variables_ = fewVariables_.data(); ///< Where by-reference arguments stand
    const ::VARIANT** sources_ = fewSources_.data();        ///< Null for those that are values
    std::size_t count_ = 0;
};

} // namespace activex
