#include "automation/windows/Conformance.h"

#include "automation/Error.h"
#include "automation/String.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <utility>

#include <gtest/gtest.h>

#include <windows.h>

namespace tests {

void Conformance::add(ConformanceCase added) {
    ++count_;
    if (added.ours != added.systems) differences_.push_back(std::move(added));
}

namespace {

bool covers(const KnownDifference& known, const ConformanceCase& difference) {
    return (known.function.empty() || known.function == difference.function) && known.covers(difference);
}

/// The entries that are about the system that runs the test.
std::vector<KnownDifference> meantHere(std::vector<KnownDifference> table) {
    constexpr int bits = 8 * sizeof(void*);
    std::erase_if(table, [](const KnownDifference& each) { return each.bits != 0 && each.bits != bits; });
    return isWine() ? table : std::vector<KnownDifference>();
}

std::string described(const ConformanceCase& difference) {
    std::ostringstream text;
    text << difference.function << " " << difference.locale << " ["
         << automation::String(difference.input).utf8() << "] " << exactText(difference.number)
         << ": ours is " << difference.ours << ", the system's " << difference.systems;
    return text.str();
}

} // namespace

bool isWine() {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    return system && GetProcAddress(system, "wine_get_version") != nullptr;
}

void Conformance::check(const std::vector<KnownDifference>& table, std::size_t leastCases) const {
    constexpr std::size_t shownInFull = 40;
    const bool report = std::getenv("TESELA_CONFORMANCE_REPORT") != nullptr;
    const std::vector<KnownDifference> meant = meantHere(table);
    std::vector<std::size_t> covered(meant.size());
    std::size_t unexplained = 0;
    for (const ConformanceCase& difference : differences_) {
        const auto known = std::find_if(meant.begin(), meant.end(),
                                        [&](const auto& entry) { return covers(entry, difference); });
        if (known != meant.end())
            ++covered[static_cast<std::size_t>(known - meant.begin())];
        else if (++unexplained <= shownInFull)
            ADD_FAILURE() << described(difference);
        if (report)
            std::printf("%2td %s\n", known == meant.end() ? -1 : known - meant.begin(),
                        described(difference).c_str());
    }
    EXPECT_EQ(unexplained, 0u) << "differences without a reason";
    EXPECT_GE(count_, leastCases);
    for (std::size_t i = 0; i < meant.size(); ++i)
        EXPECT_NE(covered[i], 0u) << "nothing needs this entry any more: " << meant[i].reason;
    if (!report) return;
    std::printf("%zu cases, %zu differences\n", count_, differences_.size());
    for (std::size_t i = 0; i < meant.size(); ++i)
        std::printf("%6zu  %.*s\n", covered[i], static_cast<int>(meant[i].reason.size()),
                    meant[i].reason.data());
}

std::string outcomeOf(const std::function<std::string()>& call) {
    try {
        return call();
    } catch (const automation::Error& error) {
        return "error " + std::to_string(error.number());
    }
}

std::string exactText(double value) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", value);
    return buffer;
}

std::string exactText(std::int64_t value) {
    return std::to_string(value);
}

} // namespace tests
