// Patterns of Format over values of each type.
#include "automation/Format.h"
#include "automation/Date.h"
#include "automation/Error.h"
#include "automation/Variant.h"
#include "input.h"

#include <cstring>

using automation::Variant;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::chooseLocale(fuzz::takeByte(data, size));
    const std::uint8_t kind = fuzz::takeByte(data, size);
    std::uint8_t raw[8] = {};
    for (std::uint8_t& byte : raw)
        byte = fuzz::takeByte(data, size);
    double number = 0;
    std::memcpy(&number, raw, sizeof number);
    const std::u16string pattern = fuzz::text(data, size);
    Variant value;
    switch (kind % 5) {
    case 0:
        value = Variant(number);
        break;
    case 1:
        value = Variant(automation::Date(number));
        break;
    case 2:
        value = Variant(pattern);
        break;
    case 3:
        value = Variant(static_cast<std::int32_t>(raw[0]) - 128);
        break;
    default:
        break;
    }
    try {
        automation::Format(value, pattern);
    } catch (const automation::Error&) {
    }
    return 0;
}
