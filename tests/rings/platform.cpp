// What a source of the platform ring sees.
#include "platform/gdi.h"

#if __has_include("automation/Variant.h") || __has_include("host/Form.h") ||                                 \
                                                           __has_include("frame/lbl.h") ||                   \
                                                                         __has_include("fichas/DataFile.h")
#error "the platform ring sees what is above it"
#endif
