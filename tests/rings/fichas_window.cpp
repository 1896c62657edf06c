// What a program sees: all of the rings. The headers that the rings' own checks look for are there to be
// found.
#include "automation/Variant.h"
#include "fichas/DataFile.h"
#include "frame/lbl.h"
#include "host/Form.h"
#include "platform/gdi.h"
