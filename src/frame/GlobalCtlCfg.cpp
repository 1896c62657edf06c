#include "frame/GlobalCtlCfg.h"

#include "drawing/colours.h"
#include "frame/Globales.h"

namespace tesela {

namespace {

using automation::Array;
using automation::Error;
using automation::Variant;
using host::colorButtonFace;
using host::colorWindowBackground;
using host::colorWindowText;

constexpr std::int32_t black = 0x000000;
constexpr std::int32_t white = 0xFFFFFF;
constexpr std::int32_t cyan = 0xFFFF00;
constexpr std::int32_t lightYellow = 0x80FFFF;

constexpr std::int32_t rgb(unsigned red, unsigned green, unsigned blue) {
    return static_cast<std::int32_t>(platform::RGB(red, green, blue));
}

struct Slot {
    tslCtlGlobalCfgConstants index;
    std::int32_t high;
    std::int32_t low;
};

} // namespace

Array InitialGlobalCtlCfg(bool lHighColor) {
    const std::int32_t window = GetVBSysColor(colorWindowBackground);
    const std::int32_t text = GetVBSysColor(colorWindowText);
    const std::int32_t face = GetVBSysColor(colorButtonFace);
    const auto mix = CalculateColorMix;
    const std::int32_t selectedShadow = rgb(192, 192, 255);
    const std::int32_t listShadow = rgb(176, 176, 224);

    const Slot slots[] = {
        {tslCtlGlobalCfg_Get_ForeColor, text, text},
        {tslCtlGlobalCfg_Get_BackColor, window, window},
        {tslCtlGlobalCfg_Get_FocusBackColor, mix(window, lightYellow, 128), mix(white, lightYellow, 128)},
        {tslCtlGlobalCfg_Get_DisabledBackColor, mix(face, white, 96), face},
        {tslCtlGlobalCfg_Get_DisabledForeColor, rgb(64, 64, 64), text},
        {tslCtlGlobalCfg_Btn_ForeColor, text, text},
        {tslCtlGlobalCfg_Btn_MaxGradientColor, white, face},
        {tslCtlGlobalCfg_Btn_Face, face, face},
        {tslCtlGlobalCfg_Grd_SelRowLightColor, rgb(239, 239, 255), cyan},
        {tslCtlGlobalCfg_Grd_SelRowShadowColor, selectedShadow, cyan},
        {tslCtlGlobalCfg_Grd_DisabledCellColor, mix(face, white, 128), face},
        {tslCtlGlobalCfg_Grd_SelRowDisabledCellColor, mix(mix(face, black, 128), selectedShadow, 192),
         mix(cyan, QBColor(3), 224)},
        {tslCtlGlobalCfg_Grd_SelRowListBoxLightColor, mix(listShadow, white, 96), cyan},
        {tslCtlGlobalCfg_Grd_SelRowListBoxShadowColor, listShadow, cyan},
        {tslCtlGlobalCfg_Grd_SelRowListBoxForeColor, black, black},
        {tslCtlGlobalCfg_Grd_SortableColumnForeColor, rgb(0, 64, 128), QBColor(9)},
        {tslCtlGlobalCfg_Grd_SortedColumnForeColor, rgb(128, 0, 128), QBColor(13)},
        {tslCtlGlobalCfg_SemRojoONColor, rgb(255, 64, 64), QBColor(12)},
        {tslCtlGlobalCfg_SemRojoOFFColor, rgb(96, 0, 0), QBColor(4)},
        {tslCtlGlobalCfg_SemAmbarONColor, rgb(255, 224, 0), QBColor(14)},
        {tslCtlGlobalCfg_SemAmbarOFFColor, rgb(96, 96, 0), QBColor(6)},
        {tslCtlGlobalCfg_SemVerdeONColor, rgb(64, 208, 64), QBColor(10)},
        {tslCtlGlobalCfg_SemVerdeOFFColor, rgb(0, 96, 0), QBColor(2)},
    };
    Array table(automation::VT_VARIANT, {{1, tslCtlGlobalCfg_LastOption}});
    for (const Slot& slot : slots)
        table.set(Variant(lHighColor ? slot.high : slot.low), static_cast<std::int32_t>(slot.index));
    return table;
}

Variant GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex) {
    const Array& table = globales().xGlobalCtlCfg;
    if (nIndex == tslCtlGlobalCfg_AllValues) return Variant(table);
    try {
        return table(static_cast<std::int32_t>(nIndex));
    } catch (const Error&) {
        return {};
    }
}

void GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex, const Variant& xValue) {
    Array& table = globales().xGlobalCtlCfg;
    try {
        if (nIndex == tslCtlGlobalCfg_AllValues)
            table = xValue.dereferenced().asArray();
        else
            table.set(xValue, static_cast<std::int32_t>(nIndex));
    } catch (const Error&) {
        // An index or a value that the table can't take leaves it as it is.
    }
}

const automation::Enumeration& enumerationOf(tslCtlGlobalCfgConstants) {
    static const automation::Enumeration table(
        "tslCtlGlobalCfgConstants",
        {
            {"tslCtlGlobalCfg_AllValues", tslCtlGlobalCfg_AllValues},
            {"tslCtlGlobalCfg_Get_ForeColor", tslCtlGlobalCfg_Get_ForeColor},
            {"tslCtlGlobalCfg_Get_BackColor", tslCtlGlobalCfg_Get_BackColor},
            {"tslCtlGlobalCfg_Get_FocusBackColor", tslCtlGlobalCfg_Get_FocusBackColor},
            {"tslCtlGlobalCfg_Get_DisabledBackColor", tslCtlGlobalCfg_Get_DisabledBackColor},
            {"tslCtlGlobalCfg_Get_DisabledForeColor", tslCtlGlobalCfg_Get_DisabledForeColor},
            {"tslCtlGlobalCfg_Btn_ForeColor", tslCtlGlobalCfg_Btn_ForeColor},
            {"tslCtlGlobalCfg_Btn_MaxGradientColor", tslCtlGlobalCfg_Btn_MaxGradientColor},
            {"tslCtlGlobalCfg_Btn_Face", tslCtlGlobalCfg_Btn_Face},
            {"tslCtlGlobalCfg_Grd_SelRowLightColor", tslCtlGlobalCfg_Grd_SelRowLightColor},
            {"tslCtlGlobalCfg_Grd_SelRowShadowColor", tslCtlGlobalCfg_Grd_SelRowShadowColor},
            {"tslCtlGlobalCfg_Grd_DisabledCellColor", tslCtlGlobalCfg_Grd_DisabledCellColor},
            {"tslCtlGlobalCfg_Grd_SelRowDisabledCellColor", tslCtlGlobalCfg_Grd_SelRowDisabledCellColor},
            {"tslCtlGlobalCfg_Grd_SelRowListBoxLightColor", tslCtlGlobalCfg_Grd_SelRowListBoxLightColor},
            {"tslCtlGlobalCfg_Grd_SelRowListBoxShadowColor", tslCtlGlobalCfg_Grd_SelRowListBoxShadowColor},
            {"tslCtlGlobalCfg_Grd_SelRowListBoxForeColor", tslCtlGlobalCfg_Grd_SelRowListBoxForeColor},
            {"tslCtlGlobalCfg_Grd_SortableColumnForeColor", tslCtlGlobalCfg_Grd_SortableColumnForeColor},
            {"tslCtlGlobalCfg_Grd_SortedColumnForeColor", tslCtlGlobalCfg_Grd_SortedColumnForeColor},
            {"tslCtlGlobalCfg_SemRojoONColor", tslCtlGlobalCfg_SemRojoONColor},
            {"tslCtlGlobalCfg_SemRojoOFFColor", tslCtlGlobalCfg_SemRojoOFFColor},
            {"tslCtlGlobalCfg_SemAmbarONColor", tslCtlGlobalCfg_SemAmbarONColor},
            {"tslCtlGlobalCfg_SemAmbarOFFColor", tslCtlGlobalCfg_SemAmbarOFFColor},
            {"tslCtlGlobalCfg_SemVerdeONColor", tslCtlGlobalCfg_SemVerdeONColor},
            {"tslCtlGlobalCfg_SemVerdeOFFColor", tslCtlGlobalCfg_SemVerdeOFFColor},
            {"tslCtlGlobalCfg_LastOption", tslCtlGlobalCfg_LastOption},
        });
    return table;
}

} // namespace tesela
