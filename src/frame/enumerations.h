#pragma once
// The enumerations that several controls share.

#include "automation/Enumeration.h"

#include <cstdint>

namespace tesela {

/// Ready-made colours and fonts; 0 keeps what the control has.
enum tslSchemeConstants : std::int32_t {
    tslSchemeUseActual = 0,
    tslSchemeUseAmbient = 1,
    tslSchemeUseDefault = 2,
    tslSchemeHeader_A = 3,
    tslSchemeHeader_B = 4,
};

/// The type of a control's datum, whatever the type of the table's column.
enum tslTipoDatoConstants : std::int32_t {
    tslTipoDatoCaracter = 0,
    tslTipoDatoNumero = 1,
    tslTipoDatoFecha = 2,
};

/// The type in which a value is asked for.
enum tslDataFormatConstants : std::int32_t {
    tslDataFormatCaracter = 0,
    tslDataFormatNumero = 1,
    tslDataFormatFecha = 2,
    tslDataFormatHora = 3,
};

enum tslAutoSizeConstants : std::int32_t {
    tslAutoSize_NO = 0,
    tslautoSize_X = 1,
    tslAutoSize_Y = 2,
    tslAutoSize_XY = 3,
};

enum tslBackStyleConstants : std::int32_t { tslBackStyleTransparent = 0, tslBackStyleOpaque = 1 };

enum tslBorderStyleConstants : std::int32_t { tslBorderStyleNone = 0, tslBorderStyleFixedSingle = 1 };

enum tslAlignmentConstants : std::int32_t {
    tslAlignmentLeftJustify = 0,
    tslAlignmentRightJustify = 1,
    tslAlignmentCenter = 2,
};

enum tslAppearanceConstants : std::int32_t { tslAppearanceFlat = 0, tslAppearance3D = 1 };

/// How much of a control the application draws by itself.
enum tslCtlUserDrawnModeConstants : std::int32_t {
    tslCtlUserDrawnMode_Default = 0,
    tslCtlUserDrawnMode_Background = 1,
    tslCtlUserDrawnMode_Foreground = 2,
};

const automation::Enumeration& enumerationOf(tslSchemeConstants);
const automation::Enumeration& enumerationOf(tslTipoDatoConstants);
const automation::Enumeration& enumerationOf(tslDataFormatConstants);
const automation::Enumeration& enumerationOf(tslAutoSizeConstants);
const automation::Enumeration& enumerationOf(tslBackStyleConstants);
const automation::Enumeration& enumerationOf(tslBorderStyleConstants);
const automation::Enumeration& enumerationOf(tslAlignmentConstants);
const automation::Enumeration& enumerationOf(tslAppearanceConstants);
const automation::Enumeration& enumerationOf(tslCtlUserDrawnModeConstants);

} // namespace tesela
