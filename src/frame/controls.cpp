#include "frame/controls.h"

#include "field/get.h"
#include "frame/lbl.h"

namespace tesela {

void addControls(host::ControlRegistry& classes) {
    classes.add<lbl>(u"lbl");
    classes.add<get>(u"get");
}

} // namespace tesela
