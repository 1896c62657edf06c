#pragma once
// The enumerations of the data-entry field.

#include "automation/Enumeration.h"

#include <cstdint>

namespace tesela {

/// Which ends of a text lose their blanks when the field is left; the values are bits.
enum tslAutoTrimConstants : std::int32_t {
    tslAutoTrim_NO = 0,
    tslAutoTrim_Left = 1,
    tslAutoTrim_Right = 2,
    tslAutoTrim_Both = 3,
};

/// The case that typed letters take.
enum tslMayusculasConstants : std::int32_t {
    tslMayusculasNoFilter = 0,
    tslMayusculasUCase = 1,
    tslMayusculasLCase = 2,
    tslMayusculasProper = 3,
};

/// When the whole text is selected as the focus comes.
enum tslSeleccionadoConstants : std::int32_t {
    tslSeleccionadoNunca = 0,
    tslSeleccionadoNumeros = 1,
    tslSeleccionadoSiempre = 2,
};

/// The way in which the focus travels through a form.
enum tslForwardFocusConstants : std::int32_t {
    tslForwardFocus_Unknown = 0,
    tslForwardFocus_Forward = 1,
    tslForwardFocus_Backward = -1,
};

const automation::Enumeration& enumerationOf(tslAutoTrimConstants);
const automation::Enumeration& enumerationOf(tslMayusculasConstants);
const automation::Enumeration& enumerationOf(tslSeleccionadoConstants);
const automation::Enumeration& enumerationOf(tslForwardFocusConstants);

} // namespace tesela
