// Text to numbers: no text may do more than give a number or an automation error.
#include "automation/Numbers.h"
#include "automation/Conversions.h"
#include "automation/Error.h"
#include "automation/Variant.h"
#include "input.h"

using automation::Variant;

namespace {

template <class F>
void attempt(F conversion) {
    try {
        conversion();
    } catch (const automation::Error&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::chooseLocale(fuzz::takeByte(data, size));
    const std::u16string text = fuzz::text(data, size);
    const Variant value(text);
    bool read = false;
    attempt([&] {
        automation::CDbl(value);
        read = true;
    });
    if (read && !automation::IsNumeric(value)) __builtin_trap();
    attempt([&] { automation::CLng(value); });
    attempt([&] { automation::CInt(value); });
    attempt([&] { automation::CByte(value); });
    attempt([&] { automation::CCur(value); });
    attempt([&] { automation::CDec(value); });
    attempt([&] { automation::CBool(value); });
    attempt([&] { automation::CSng(value); });
    return 0;
}
