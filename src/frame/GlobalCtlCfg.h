#pragma once
// The colour table that all controls share.

#include "automation/Array.h"
#include "automation/Enumeration.h"
#include "automation/Variant.h"

#include <cstdint>

namespace tesela {

/// Slots of the table. 0 stands for the whole table; the last one is its bound and holds nothing.
enum tslCtlGlobalCfgConstants : std::int32_t {
    tslCtlGlobalCfg_AllValues = 0,
    tslCtlGlobalCfg_Get_ForeColor = 1,
    tslCtlGlobalCfg_Get_BackColor = 2,
    tslCtlGlobalCfg_Get_FocusBackColor = 3,
    tslCtlGlobalCfg_Get_DisabledBackColor = 4,
    tslCtlGlobalCfg_Get_DisabledForeColor = 5,
    tslCtlGlobalCfg_Btn_ForeColor = 6,
    tslCtlGlobalCfg_Btn_MaxGradientColor = 7,
    tslCtlGlobalCfg_Btn_Face = 8,
    tslCtlGlobalCfg_Grd_SelRowLightColor = 9,
    tslCtlGlobalCfg_Grd_SelRowShadowColor = 10,
    tslCtlGlobalCfg_Grd_DisabledCellColor = 11,
    tslCtlGlobalCfg_Grd_SelRowDisabledCellColor = 12,
    tslCtlGlobalCfg_Grd_SelRowListBoxLightColor = 13,
    tslCtlGlobalCfg_Grd_SelRowListBoxShadowColor = 14,
    tslCtlGlobalCfg_Grd_SelRowListBoxForeColor = 15,
    tslCtlGlobalCfg_Grd_SortableColumnForeColor = 16,
    tslCtlGlobalCfg_Grd_SortedColumnForeColor = 17,
    tslCtlGlobalCfg_SemRojoONColor = 18,
    tslCtlGlobalCfg_SemRojoOFFColor = 19,
    tslCtlGlobalCfg_SemAmbarONColor = 20,
    tslCtlGlobalCfg_SemAmbarOFFColor = 21,
    tslCtlGlobalCfg_SemVerdeONColor = 22,
    tslCtlGlobalCfg_SemVerdeOFFColor = 23,
    tslCtlGlobalCfg_LastOption = 24,
};

const automation::Enumeration& enumerationOf(tslCtlGlobalCfgConstants);

/// The table with its start colours for a display of many colours or of few. Elements 1 to 24; system
/// colours are resolved now, so a later change of the desktop's colours is not followed.
automation::Array InitialGlobalCtlCfg(bool lHighColor);

/// Slot `nIndex` of the shared table, or the whole table for 0. An index that it has not gives Empty.
automation::Variant GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex);

/// Writes a slot, or replaces the whole table for 0 (only by an array). Errors are ignored. Controls that
/// are already painted keep their look until they are painted again.
void GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex, const automation::Variant& xValue);

} // namespace tesela
