// What a source of the automation ring sees.
#include "automation/Variant.h"
#include "platform/locale.h"

#if __has_include("host/Form.h") || __has_include("frame/lbl.h") || __has_include("fichas/DataFile.h")
#error "the automation ring sees what is above it"
#endif
