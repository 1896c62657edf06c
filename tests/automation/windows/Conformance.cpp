#include "automation/windows/Conformance.h"

#include "automation/Error.h"
#include "automation/String.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include <gtest/gtest.h>

namespace tests {

void Conformance::add(ConformanceCase added) {
    ++count_;
    if (added.ours != added.systems) differences_.push_back(std::move(added));
}

void Conformance::check(const std::vector<KnownDifference>& table, std::size_t leastCases) const {
    constexpr int shownInFull = 40;
    const bool report = std::getenv("TESELA_CONFORMANCE_REPORT") != nullptr;
    std::vector<std::size_t> covered(table.size());
    std::size_t unexplained = 0;
    for (const ConformanceCase& difference : differences_) {
        bool known = false;
        for (std::size_t i = 0; i < table.size() && !known; ++i) {
            known = (table[i].function.empty() || table[i].function == difference.function) &&
                    table[i].covers(difference);
            covered[i] += known ? 1 : 0;
        }
        if (known) continue;
        if (report)
            std::printf("?\t%s\t%s\t[%s]\t%.17g\t%s\t%s\n", difference.function.c_str(),
                        difference.locale.c_str(), automation::String(difference.input).utf8().c_str(),
                        difference.number, difference.ours.c_str(), difference.systems.c_str());
        if (++unexplained > shownInFull) continue;
        ADD_FAILURE() << difference.function << " " << difference.locale << " ["
                      << automation::String(difference.input).utf8() << "] " << difference.number
                      << ": ours is " << difference.ours << ", the system's " << difference.systems;
    }
    EXPECT_EQ(unexplained, 0u) << "differences without a reason";
    EXPECT_GE(count_, leastCases);
    testing::Test::RecordProperty("cases", static_cast<int>(count_));
    testing::Test::RecordProperty("differences", static_cast<int>(differences_.size()));
    if (!report) return;
    std::printf("%zu cases, %zu differences\n", count_, differences_.size());
    for (std::size_t i = 0; i < table.size(); ++i)
        std::printf("%6zu  %.*s\n", covered[i], static_cast<int>(table[i].reason.size()),
                    table[i].reason.data());
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
