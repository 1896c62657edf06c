// A source of the platform ring that stays in it: it must compile.
#include "platform/gdi.h"
