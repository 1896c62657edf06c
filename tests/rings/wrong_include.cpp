// A source of the platform ring that reaches upwards: it must not compile.
#include "host/Form.h"
