#include "frame/enumerations.h"

namespace tesela {

using automation::Enumeration;

const Enumeration& enumerationOf(tslSchemeConstants) {
    static const Enumeration table("tslSchemeConstants", {
                                                             {"tslSchemeUseActual", tslSchemeUseActual},
                                                             {"tslSchemeUseAmbient", tslSchemeUseAmbient},
                                                             {"tslSchemeUseDefault", tslSchemeUseDefault},
                                                             {"tslSchemeHeader_A", tslSchemeHeader_A},
                                                             {"tslSchemeHeader_B", tslSchemeHeader_B},
                                                         });
    return table;
}

const Enumeration& enumerationOf(tslTipoDatoConstants) {
    static const Enumeration table("tslTipoDatoConstants", {
                                                               {"tslTipoDatoCaracter", tslTipoDatoCaracter},
                                                               {"tslTipoDatoNumero", tslTipoDatoNumero},
                                                               {"tslTipoDatoFecha", tslTipoDatoFecha},
                                                           });
    return table;
}

const Enumeration& enumerationOf(tslDataFormatConstants) {
    static const Enumeration table("tslDataFormatConstants",
                                   {
                                       {"tslDataFormatCaracter", tslDataFormatCaracter},
                                       {"tslDataFormatNumero", tslDataFormatNumero},
                                       {"tslDataFormatFecha", tslDataFormatFecha},
                                       {"tslDataFormatHora", tslDataFormatHora},
                                   });
    return table;
}

const Enumeration& enumerationOf(tslAutoSizeConstants) {
    static const Enumeration table("tslAutoSizeConstants", {
                                                               {"tslAutoSize_NO", tslAutoSize_NO},
                                                               {"tslautoSize_X", tslautoSize_X},
                                                               {"tslAutoSize_Y", tslAutoSize_Y},
                                                               {"tslAutoSize_XY", tslAutoSize_XY},
                                                           });
    return table;
}

const Enumeration& enumerationOf(tslBackStyleConstants) {
    static const Enumeration table("tslBackStyleConstants",
                                   {
                                       {"tslBackStyleTransparent", tslBackStyleTransparent},
                                       {"tslBackStyleOpaque", tslBackStyleOpaque},
                                   });
    return table;
}

const Enumeration& enumerationOf(tslBorderStyleConstants) {
    static const Enumeration table("tslBorderStyleConstants",
                                   {
                                       {"tslBorderStyleNone", tslBorderStyleNone},
                                       {"tslBorderStyleFixedSingle", tslBorderStyleFixedSingle},
                                   });
    return table;
}

const Enumeration& enumerationOf(tslAlignmentConstants) {
    static const Enumeration table("tslAlignmentConstants",
                                   {
                                       {"tslAlignmentLeftJustify", tslAlignmentLeftJustify},
                                       {"tslAlignmentRightJustify", tslAlignmentRightJustify},
                                       {"tslAlignmentCenter", tslAlignmentCenter},
                                   });
    return table;
}

const Enumeration& enumerationOf(tslAppearanceConstants) {
    static const Enumeration table("tslAppearanceConstants", {
                                                                 {"tslAppearanceFlat", tslAppearanceFlat},
                                                                 {"tslAppearance3D", tslAppearance3D},
                                                             });
    return table;
}

const Enumeration& enumerationOf(tslCtlUserDrawnModeConstants) {
    static const Enumeration table("tslCtlUserDrawnModeConstants",
                                   {
                                       {"tslCtlUserDrawnMode_Default", tslCtlUserDrawnMode_Default},
                                       {"tslCtlUserDrawnMode_Background", tslCtlUserDrawnMode_Background},
                                       {"tslCtlUserDrawnMode_Foreground", tslCtlUserDrawnMode_Foreground},
                                   });
    return table;
}

} // namespace tesela
