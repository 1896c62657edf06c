// The table of values and the byte buffer against what would be used otherwise: a database in memory, plain
// vectors, std::sort, memcpy. `bench_data NAME` measures one.
#include "Tables.h"
#include "measurements.h"
#include "platform/locale.h"

#include <cstring>

int main(int argc, char** argv) {
    platform::overrideUserLocale("es-ES");
    const auto wanted = [&](const char* name) { return argc < 2 || std::strcmp(argv[1], name) == 0; };
    if (wanted("binbuffer_numbers")) bench::measureBufferNumbers();
    if (wanted("binbuffer_bytes")) bench::measureBufferBytes();
    const struct {
        const char* name;
        void (*measure)(bench::Tables&);
    } measurements[] = {{"addrow_bulk", bench::measureAddRow},
                        {"item_get", bench::measureItemGet},
                        {"item_let", bench::measureItemLet},
                        {"qsort_number", bench::measureSortNumber},
                        {"qsort_text", bench::measureSortText},
                        {"qsort_five_keys", bench::measureSortFiveKeys},
                        {"findrow", bench::measureFindRow},
                        {"lookup", bench::measureLookup},
                        {"seekrow", bench::measureSeekRow},
                        {"filter", bench::measureFilter},
                        {"sum", bench::measureSum},
                        {"group_1000", bench::measureGroups},
                        {"fromstring", bench::measureParsing},
                        {"memory", bench::measureMemory}};
    for (const auto& each : measurements) {
        if (!wanted(each.name)) continue;
        static bench::Tables tables; // made for the first that needs it
        each.measure(tables);
    }
}
