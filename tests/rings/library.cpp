// What a source of the library ring sees.
#include "automation/Variant.h"
#include "frame/lbl.h"
#include "host/Form.h"
#include "platform/gdi.h"

#if __has_include("fichas/DataFile.h")
#error "the library sees the programs that use it"
#endif
