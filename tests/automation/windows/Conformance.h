#pragma once
// Results of this library beside those of the system, and the differences that are known and meant.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tests {

/// One call that both sides answer. Results are texts: a value as it is written exactly, or "error 13".
struct ConformanceCase {
    std::string function;
    std::string locale;
    std::u16string input; ///< The text that is read, or the pattern of a format
    double number = 0;    ///< The number that is written or formatted, if any
    std::string ours;
    std::string systems;
};

/// A kind of difference of Wine's: which cases it covers and why they stay. An empty function stands for all.
/// None is expected on the system itself.
struct KnownDifference {
    std::string_view function;
    bool (*covers)(const ConformanceCase& difference);
    std::string_view reason;
    int bits = 0; ///< 32 or 64 if it is about Wine of one width alone, else 0
};

/// Collects cases and tells the differences that no entry of the table covers.
class Conformance {
public:
    void add(ConformanceCase added);

    /// Cases compared so far.
    std::size_t count() const { return count_; }

    /// Fails the running test for each difference that the table does not cover, the first ones in full, and
    /// for each entry that covers none. With TESELA_CONFORMANCE_REPORT in the environment all differences are
    /// printed, each behind the index of its entry, and how many each entry covered.
    void check(const std::vector<KnownDifference>& table, std::size_t leastCases) const;

private:
    std::size_t count_ = 0;
    std::vector<ConformanceCase> differences_;
};

/// Whether the system is Wine.
bool isWine();

/// "error 13" for an Error that `call` throws, else what it gives.
std::string outcomeOf(const std::function<std::string()>& call);

/// 17 significant digits, so that different doubles have different texts.
std::string exactText(double value);
std::string exactText(std::int64_t value);

} // namespace tests
