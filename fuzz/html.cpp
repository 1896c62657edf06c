// Marked-up text laid out and measured at several widths; both ways give the same extent.
#include "automation/Error.h"
#include "drawing/cHTML.h"
#include "frame/Globales.h"
#include "input.h"

using automation::Ref;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tesela::EnsureInicio();
    static const Ref<tesela::cCanvas> canvas = [] {
        auto surface = automation::make<tesela::cCanvas>();
        surface->Configure({}, 0, 0, 120, 60, tesela::DCProvider_Auto, false);
        return surface;
    }();
    const std::uint8_t width = fuzz::takeByte(data, size);
    const std::uint8_t options = fuzz::takeByte(data, size);
    const auto html = automation::make<tesela::cHTML>();
    html->Canvas(canvas);
    html->SetMargenes(2, 2, width);
    html->SetBaseFont(u"Verdana", 8, (options & 1) != 0, options >> 2);
    html->MaxLineas(options % 7);
    html->HTMLText(fuzz::text(data, size));
    std::int32_t drawnX = 0, drawnY = 0, measuredX = 0, measuredY = 0;
    try {
        html->Render(false, drawnX, drawnY);
        html->Render(true, measuredX, measuredY);
    } catch (const automation::Error&) {
        return 0; // a size beyond a Long, or a tag behind a bracket of its own
    }
    if (drawnX != measuredX || drawnY != measuredY) __builtin_trap();
    return 0;
}
