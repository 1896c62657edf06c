// The brushes of the system colours: made once, never deleted, not counted.

#include "platform/linux/gdi_objects.h"
#include "platform/system_look.h"

#include <map>

namespace platform {

using namespace driver;

HBRUSH GetSysColorBrush(int index) {
    static std::map<int, HBRUSH> brushes;
    if (index < COLOR_SCROLLBAR || index > COLOR_MENUBAR) return {};
    HBRUSH& brush = brushes[index];
    if (!brush) {
        auto made = std::make_unique<Brush>();
        made->data = {BS_SOLID, GetSysColor(index), 0};
        made->stock = true;
        brush = HBRUSH(addObject(std::move(made)));
    }
    return brush;
}

} // namespace platform
