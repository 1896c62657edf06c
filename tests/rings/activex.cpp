// What a source of the control library's outer face sees.
#include "activex/ExportedClass.h"
#include "frame/lbl.h"
#include "host/Form.h"

#if __has_include("fichas/DataFile.h")
#error "the control library sees the programs that use it"
#endif
