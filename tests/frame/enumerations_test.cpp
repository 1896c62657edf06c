// The constants as programs know them: their names, values and order.
#include "frame/enumerations.h"

#include "data/cFecha.h"
#include "frame/GlobalCtlCfg.h"
#include "system/cDevice.h"
#include "system/cKeyboard.h"

#include <limits>

using namespace tesela;

namespace {

using Constants = std::vector<std::pair<std::string, std::int32_t>>;

Constants constantsOf(const automation::Enumeration& table) {
    Constants result;
    for (const auto& entry : table.entries())
        result.emplace_back(entry.name.utf8(), entry.value);
    return result;
}

const struct {
    const char* name;
    const automation::Enumeration& table;
    Constants constants;
} enumerations[] = {
    {"tslSchemeConstants",
     enumerationOf(tslSchemeConstants{}),
     {{"tslSchemeUseActual", 0},
      {"tslSchemeUseAmbient", 1},
      {"tslSchemeUseDefault", 2},
      {"tslSchemeHeader_A", 3},
      {"tslSchemeHeader_B", 4}}},
    {"tslTipoDatoConstants",
     enumerationOf(tslTipoDatoConstants{}),
     {{"tslTipoDatoCaracter", 0}, {"tslTipoDatoNumero", 1}, {"tslTipoDatoFecha", 2}}},
    {"tslDataFormatConstants",
     enumerationOf(tslDataFormatConstants{}),
     {{"tslDataFormatCaracter", 0},
      {"tslDataFormatNumero", 1},
      {"tslDataFormatFecha", 2},
      {"tslDataFormatHora", 3}}},
    {"tslAutoSizeConstants",
     enumerationOf(tslAutoSizeConstants{}),
     {{"tslAutoSize_NO", 0}, {"tslautoSize_X", 1}, {"tslAutoSize_Y", 2}, {"tslAutoSize_XY", 3}}},
    {"tslBackStyleConstants",
     enumerationOf(tslBackStyleConstants{}),
     {{"tslBackStyleTransparent", 0}, {"tslBackStyleOpaque", 1}}},
    {"tslBorderStyleConstants",
     enumerationOf(tslBorderStyleConstants{}),
     {{"tslBorderStyleNone", 0}, {"tslBorderStyleFixedSingle", 1}}},
    {"tslAlignmentConstants",
     enumerationOf(tslAlignmentConstants{}),
     {{"tslAlignmentLeftJustify", 0}, {"tslAlignmentRightJustify", 1}, {"tslAlignmentCenter", 2}}},
    {"tslAppearanceConstants",
     enumerationOf(tslAppearanceConstants{}),
     {{"tslAppearanceFlat", 0}, {"tslAppearance3D", 1}}},
    {"tslCtlUserDrawnModeConstants",
     enumerationOf(tslCtlUserDrawnModeConstants{}),
     {{"tslCtlUserDrawnMode_Default", 0},
      {"tslCtlUserDrawnMode_Background", 1},
      {"tslCtlUserDrawnMode_Foreground", 2}}},
    {"tslCtlGlobalCfgConstants",
     enumerationOf(tslCtlGlobalCfgConstants{}),
     {{"tslCtlGlobalCfg_AllValues", 0},
      {"tslCtlGlobalCfg_Get_ForeColor", 1},
      {"tslCtlGlobalCfg_Get_BackColor", 2},
      {"tslCtlGlobalCfg_Get_FocusBackColor", 3},
      {"tslCtlGlobalCfg_Get_DisabledBackColor", 4},
      {"tslCtlGlobalCfg_Get_DisabledForeColor", 5},
      {"tslCtlGlobalCfg_Btn_ForeColor", 6},
      {"tslCtlGlobalCfg_Btn_MaxGradientColor", 7},
      {"tslCtlGlobalCfg_Btn_Face", 8},
      {"tslCtlGlobalCfg_Grd_SelRowLightColor", 9},
      {"tslCtlGlobalCfg_Grd_SelRowShadowColor", 10},
      {"tslCtlGlobalCfg_Grd_DisabledCellColor", 11},
      {"tslCtlGlobalCfg_Grd_SelRowDisabledCellColor", 12},
      {"tslCtlGlobalCfg_Grd_SelRowListBoxLightColor", 13},
      {"tslCtlGlobalCfg_Grd_SelRowListBoxShadowColor", 14},
      {"tslCtlGlobalCfg_Grd_SelRowListBoxForeColor", 15},
      {"tslCtlGlobalCfg_Grd_SortableColumnForeColor", 16},
      {"tslCtlGlobalCfg_Grd_SortedColumnForeColor", 17},
      {"tslCtlGlobalCfg_SemRojoONColor", 18},
      {"tslCtlGlobalCfg_SemRojoOFFColor", 19},
      {"tslCtlGlobalCfg_SemAmbarONColor", 20},
      {"tslCtlGlobalCfg_SemAmbarOFFColor", 21},
      {"tslCtlGlobalCfg_SemVerdeONColor", 22},
      {"tslCtlGlobalCfg_SemVerdeOFFColor", 23},
      {"tslCtlGlobalCfg_LastOption", 24}}},
    {"tslKbdActionConstants",
     enumerationOf(tslKbdActionConstants{}),
     {{"tslKbdAction_Tab", 0},
      {"tslKbdAction_Shift_Tab", 1},
      {"tslKbdAction_PageUp", 2},
      {"tslKbdAction_Ctrl_PageUp", 3},
      {"tslKbdAction_PageDown", 4},
      {"tslKbdAction_Ctrl_PageDown", 5},
      {"tslKbdAction_Ctrl_Intro", 6},
      {"tslKbdAction_Alt_Down", 7},
      {"tslKbdAction_Alt_Right", 8}}},
    {"Device_AccessModeConstants",
     enumerationOf(Device_AccessModeConstants{}),
     {{"Device_AccessMode_GenericRead", std::numeric_limits<std::int32_t>::min()},
      {"Device_AccessMode_GenericWrite", 1073741824}}},
    {"Device_ShareModeConstants",
     enumerationOf(Device_ShareModeConstants{}),
     {{"Device_ShareMode_None", 0}, {"Device_ShareMode_Read", 1}, {"Device_ShareMode_Write", 2}}},
    {"Device_CreationDispositionConstants",
     enumerationOf(Device_CreationDispositionConstants{}),
     {{"Device_CreationDisposition_CreateNew", 1},
      {"Device_CreationDisposition_CreateAlways", 2},
      {"Device_CreationDisposition_OpenExisting", 3},
      {"Device_CreationDisposition_OpenAlways", 4},
      {"Device_CreationDisposition_TruncateExisting", 5}}},
    {"Device_AttributesConstants",
     enumerationOf(Device_AttributesConstants{}),
     {{"Device_Attributes_ReadOnly", 1},
      {"Device_Attributes_Hidden", 2},
      {"Device_Attributes_System", 4},
      {"Device_Attributes_Directory", 16},
      {"Device_Attributes_Archive", 32},
      {"Device_Attributes_Device", 64},
      {"Device_Attributes_Normal", 128},
      {"Device_Attributes_Temporary", 256},
      {"Device_Attributes_SparseFile", 512},
      {"Device_Attributes_ReparsePoint", 1024}}},
    {"Device_SeekMethodConstants",
     enumerationOf(Device_SeekMethodConstants{}),
     {{"Device_SeekMethod_Begin", 0}, {"Device_SeekMethod_Current", 1}, {"Device_SeekMethod_End", 2}}},
    {"tslDateConstants",
     enumerationOf(tslDateConstants{}),
     {{"tslDateToday", 0}, {"tslDateEmpty", 1}, {"tslDateMin", 2}, {"tslDateMax", 3}, {"tslDateZero", 4}}},
};

} // namespace

TEST(Enumerations, HaveTheirNamesAndValues) {
    for (const auto& each : enumerations) {
        EXPECT_EQ(each.name, each.table.name().utf8());
        EXPECT_EQ(each.constants, constantsOf(each.table)) << each.name;
    }
}
