#include "frame/controls.h"

#include "frame/lbl.h"

namespace tesela {

void addControls(host::ControlRegistry& classes) {
    classes.add<lbl>(u"lbl");
}

} // namespace tesela
