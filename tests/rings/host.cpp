// What a source of the host ring sees.
#include "automation/Variant.h"
#include "host/Form.h"
#include "platform/gdi.h"

#if __has_include("frame/lbl.h") || __has_include("fichas/DataFile.h")
#error "the host ring sees what is above it"
#endif
