// Text to dates: what is read lies in the calendar, and its own text reads back as the same moment.
#include "automation/Conversions.h"
#include "automation/Date.h"
#include "automation/Error.h"
#include "automation/Variant.h"
#include "input.h"

#include <cmath>

using automation::Variant;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::chooseLocale(fuzz::takeByte(data, size));
    const Variant value(fuzz::text(data, size));
    if (!automation::IsDate(value)) return 0;
    const automation::Date date = automation::CDate(value);
    if (!date.isValid()) __builtin_trap();
    const automation::Date again = automation::CDate(Variant(automation::CStr(Variant(date))));
    if (std::fabs(again.value() - date.value()) > 1.5 / 86400) {
        // Short dates have years of four digits in the three locales, so nothing else may be lost.
        __builtin_trap();
    }
    return 0;
}
