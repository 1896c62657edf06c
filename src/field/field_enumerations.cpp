#include "field/field_enumerations.h"

namespace tesela {

using automation::Enumeration;

const Enumeration& enumerationOf(tslAutoTrimConstants) {
    static const Enumeration table("tslAutoTrimConstants", {
                                                               {"tslAutoTrim_NO", tslAutoTrim_NO},
                                                               {"tslAutoTrim_Left", tslAutoTrim_Left},
                                                               {"tslAutoTrim_Right", tslAutoTrim_Right},
                                                               {"tslAutoTrim_Both", tslAutoTrim_Both},
                                                           });
    return table;
}

const Enumeration& enumerationOf(tslMayusculasConstants) {
    static const Enumeration table("tslMayusculasConstants",
                                   {
                                       {"tslMayusculasNoFilter", tslMayusculasNoFilter},
                                       {"tslMayusculasUCase", tslMayusculasUCase},
                                       {"tslMayusculasLCase", tslMayusculasLCase},
                                       {"tslMayusculasProper", tslMayusculasProper},
                                   });
    return table;
}

const Enumeration& enumerationOf(tslSeleccionadoConstants) {
    static const Enumeration table("tslSeleccionadoConstants",
                                   {
                                       {"tslSeleccionadoNunca", tslSeleccionadoNunca},
                                       {"tslSeleccionadoNumeros", tslSeleccionadoNumeros},
                                       {"tslSeleccionadoSiempre", tslSeleccionadoSiempre},
                                   });
    return table;
}

const Enumeration& enumerationOf(tslForwardFocusConstants) {
    static const Enumeration table("tslForwardFocusConstants",
                                   {
                                       {"tslForwardFocus_Unknown", tslForwardFocus_Unknown},
                                       {"tslForwardFocus_Forward", tslForwardFocus_Forward},
                                       {"tslForwardFocus_Backward", tslForwardFocus_Backward},
                                   });
    return table;
}

} // namespace tesela
