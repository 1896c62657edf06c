#pragma once
// Where the sample's customers live: towns with the postal codes that belong to them.

#include <span>

namespace sample {

struct Place {
    int firstPostalCode; ///< As a number: 1001 is "01001"
    int postalCodes;     ///< How many consecutive codes the town has
    const char* town;
    const char* province;
    int share; ///< Customers there, in proportion
};

std::span<const Place> places();

/// The three digits with which telephone numbers of a province (1 to 52) begin.
int phonePrefix(int province);

} // namespace sample
