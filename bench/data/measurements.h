#pragma once
// What `bench data` measures, each by its name.

#include "../measure.h"

#include <string>
#include <vector>

namespace bench {

/// Measures the first candidate against the others and tells the time of one of its operations.
inline void measure(const std::string& name, double operations, const std::vector<Candidate>& candidates,
                    int rounds = 3) {
    const auto times = interleaved(candidates, rounds);
    for (std::size_t i = 1; i < candidates.size(); ++i)
        ratio(name, candidates[i].name, times[0], times[i]);
    time(name, times[0] / operations);
}

class Tables;

void measureAddRow(Tables& tables);
void measureItemGet(Tables& tables);
void measureItemLet(Tables& tables);
void measureSortNumber(Tables& tables);
void measureSortText(Tables& tables);
void measureSortFiveKeys(Tables& tables);
void measureFindRow(Tables& tables);
void measureLookup(Tables& tables);
void measureSeekRow(Tables& tables);
void measureFilter(Tables& tables);
void measureSum(Tables& tables);
void measureGroups(Tables& tables);
void measureParsing(Tables& tables);
void measureMemory(Tables& tables);
void measureBufferNumbers();
void measureBufferBytes();

} // namespace bench
