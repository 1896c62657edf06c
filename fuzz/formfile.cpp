// Forms as text: what is read is written, and what is written is read again and comes out the same.
#include "host/FormFile.h"
#include "automation/Error.h"
#include "host/Form.h"
#include "input.h"

namespace {

automation::Ref<host::Form> read(const automation::String& text) {
    static const host::ControlRegistry classes;
    auto form = automation::make<host::Form>();
    host::FormFile::read(*form, text, classes, u"fuzz.frm");
    return form;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const auto form = read(fuzz::text(data, size));
        const automation::String written = host::FormFile::text(*form);
        const auto again = read(written);
        if (host::FormFile::text(*again) != written) __builtin_trap();
        form->unload();
        again->unload();
    } catch (const automation::Error&) {
    }
    return 0;
}
