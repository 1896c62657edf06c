// CSV files: opened, counted, and each of the first and last records read.
#include "fichas/ByteSource.h"
#include "fichas/CsvSource.h"
#include "input.h"

#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        fichas::CsvSource source(
            std::make_unique<fichas::MemoryBytes>(std::string(reinterpret_cast<const char*>(data), size)),
            "fuzz.csv");
        const std::int64_t records = source.count();
        std::vector<automation::Variant> values;
        for (std::int64_t record = 1; record <= records && record <= 20; ++record)
            if (!source.read(record, values) || values.size() != source.columns().size()) __builtin_trap();
        if (records > 0 && !source.read(records, values)) __builtin_trap();
        if (source.read(records + 1, values) || source.read(0, values)) __builtin_trap();
    } catch (const fichas::SourceError&) {
    }
    return 0;
}
