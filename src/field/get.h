#pragma once

#include "automation/Variant.h"
#include "data/cFecha.h"
#include "drawing/cCanvas.h"
#include "field/TextLines.h"
#include "field/TextReach.h"
#include "field/field_enumerations.h"
#include "field/typed_text.h"
#include "frame/GlobalCtlCfg.h"
#include "frame/LibraryControl.h"
#include "host/PropertyBag.h"
#include "system/text_formatting.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tesela {

/// The typed data-entry field: one text that is shown through a mask and a type and handed out as text,
/// number, date or time, with three companion buttons at its right. It paints itself, with a caret and a
/// selection of its own. Positions in the text count characters from 0.
///
/// Sources: get.cpp (life, look and simple properties), get_value.cpp (the text and its value),
/// get_masks.cpp, get_validation.cpp, get_keys.cpp and get_characters.cpp (the keyboard), get_mouse.cpp,
/// get_focus.cpp, get_buttons.cpp, get_painting.cpp, get_gauge.cpp, get_properties.cpp (what is saved) and
/// get_interface.cpp.
class get : public LibraryControl {
public:
    get();

    // The text and its value: get_value.cpp

    /// As it stands, the literals of the mask included. A write goes through filter and mask.
    const automation::String& Text() const { return cTexto; }
    void Text(const automation::String& value);
    /// Puts a text in without filter, mask and Change.
    void SetText(const automation::String& cNewText);
    automation::Variant Value();
    void Value(const automation::Variant& value);
    /// Reads the value in a format: -1 stands for the field's own (and the caller's variable receives it), 0
    /// text, 1 number, 2 date, 3 hour. A field on a record identifier reads as a Long. What is no number
    /// reads as 0, what is no date as a cFecha on the empty date. With a second argument of any other type
    /// than Boolean it writes.
    automation::Variant ValorVerdadero(std::int32_t& nFormato, const automation::Variant& xNuevoValor);
    automation::Variant ValorVerdadero();
    /// Whether the text differs from what it was when the focus came. A write makes it so.
    bool HasChanged() const { return cTextoOriginal != cTexto; }
    void HasChanged(bool value);
    /// The value when the focus came, or at the last ResetValue(True).
    const automation::Variant& OriginalValue(bool lDesdeModificacionFicha) const;
    bool ValueHasChanged(bool lDesdeModificacionFicha);
    void ResetValue(bool lDesdeModificacionFicha);
    /// A plain, empty text field again.
    void Reset();
    bool Locked() const { return lLocked; }
    void Locked(bool value);
    std::int32_t SelStart() const { return nSelStart; }
    void SelStart(std::int32_t value);
    /// Negative while a selection grows to the left.
    std::int32_t SelLength() const;
    void SelLength(std::int32_t value);
    /// 0 is no limit.
    std::int32_t MaxLength() const { return nMaxLength; }
    void MaxLength(std::int32_t value);
    const automation::String& PasswordChar() const { return cPasswordChar; }
    void PasswordChar(const automation::String& value);
    tslAutoTrimConstants AutoTrim() const { return nAutoTrim; }
    void AutoTrim(tslAutoTrimConstants value);
    tslMayusculasConstants Mayusculas() const { return nMayusculas; }
    void Mayusculas(tslMayusculasConstants value);
    tslGetAutoFormatConstants AutoFormat() const { return nAutoFormat; }
    void AutoFormat(tslGetAutoFormatConstants value);
    /// A number that rounds to 0 and a date that is none show nothing while the field has no focus.
    bool VacioEnBlanco() const { return lVacioEnBlanco; }
    void VacioEnBlanco(bool value);
    tslSeleccionadoConstants Seleccionado() const { return nSeleccionado; }
    void Seleccionado(tslSeleccionadoConstants value);
    /// The characters that may be typed; empty allows all.
    const automation::String& CaracteresValidos() const { return cCaracteresValidos; }
    void CaracteresValidos(const automation::String& value);
    bool HasFocus() const { return lHasFocus; }

    // Masks and type: get_masks.cpp; the mask's language is told in masks.h

    /// The mask without the focus; "mask;;focus mask" sets both.
    const automation::String& Mascara() const { return cMascara; }
    void Mascara(const automation::String& value);
    const automation::String& MascaraFocus() const { return cMascaraFocus; }
    void MascaraFocus(const automation::String& value);
    /// A compact mask, "Z(7,2)": see readCompactMask.
    void FormatoMascara(const automation::String& cCombinado);
    using LibraryControl::TipoDato;
    void TipoDato(tslTipoDatoConstants value);
    bool UserFont() const { return lUserFont; }
    void UserFont(bool value);
    /// Takes the font of numbers and keeps it.
    void FntNumbers();

    // Validation: get_validation.cpp. The checks repair the text; they show nothing.

    /// Whether the text is a date or blank. Short, partial and relative dates become full ones.
    bool ValidateFecha();
    /// Whether the text is an hour or blank; `dHora` receives it.
    bool ValidateHora(automation::Date& dHora);
    bool ValidateHora();
    automation::Date ValorHora();
    void ValorHora(automation::Date value);
    /// The day of `dFecha` at the field's hour.
    automation::Date FechaYHora(automation::Date dFecha);
    /// Puts a list of codes in order. Empty, or what is wrong with it in words; the wrong element is
    /// selected.
    automation::String ValidateFltCodigos();
    bool Validado() const { return lValidado; }
    void Validado(bool value) { lValidado = value; }
    /// An application's validation begins, and has failed: the press that caused it is then ignored.
    void RegisterValidate(std::int32_t nHWNDForm);
    void UnRegisterValidate();

    // Editing: get_keys.cpp, get_characters.cpp, get_mouse.cpp

    /// Show and hide the caret of a window, or of this field for 0.
    void ShowCaret(std::int32_t nHWND);
    void HideCaret(std::int32_t nHWND);
    bool CaretVisible() const { return lCaretVisible; }
    void CaretVisible(bool value);
    /// Keeps caret and selection when the focus comes the next time.
    void PreserveCaretPos() { lPreserveCaret = true; }
    /// Positions outside of the text and on a literal are ignored.
    void SetCaretPosition(std::int32_t nNewPos);
    /// Where the caret stands.
    std::int32_t caretPosition() const { return nCaret; }
    std::int16_t LastKey() const { return globales().nLastKey; }
    bool MultiLine() const { return lMultiLine; }
    void MultiLine(bool value);
    void ProcesarTeclaFromOnScreenKeyboard(const automation::String& cKeyASCII, std::int32_t nKeyCode,
                                           std::int32_t nShiftKeys);

    // Focus and companions: get_focus.cpp, get_buttons.cpp

    bool EnabledGet() const { return lEnabledGet; }
    void EnabledGet(bool value);
    bool EnabledCombo() const { return lEnabledCombo; }
    void EnabledCombo(bool value);
    bool EnabledBuscar() const { return lEnabledBuscar; }
    void EnabledBuscar(bool value);
    bool EnabledFicha() const { return lEnabledFicha; }
    void EnabledFicha(bool value);
    bool BotonCombo() const { return lBotonCombo; }
    void BotonCombo(bool value);
    bool BotonBuscar() const { return lBotonBuscar; }
    void BotonBuscar(bool value);
    bool BotonFicha() const { return lBotonFicha; }
    void BotonFicha(bool value);
    /// In pixels; less than 15 is ignored.
    std::int32_t ButtonWidth() const { return nButtonWidth; }
    void ButtonWidth(std::int32_t value);
    /// Free for the application.
    std::int32_t RowCombo() const { return nRowCombo; }
    void RowCombo(std::int32_t value) { nRowCombo = value; }
    /// The window of the library that had the focus before. A write gives the focus to a window, or to that
    /// one for 0.
    std::int32_t CtrlFocus() const { return globales().nHWndFocusPrev; }
    void CtrlFocus(std::int32_t value);
    const automation::Ref<automation::Object>& ControlAsociado() const { return oControlAsociado; }
    void ControlAsociado(const automation::Ref<automation::Object>& value) { oControlAsociado = value; }
    const automation::Ref<automation::Object>& OnScreenKeyboardAsociado() const { return oOSK; }
    void OnScreenKeyboardAsociado(const automation::Ref<automation::Object>& value) { oOSK = value; }
    const automation::Ref<automation::Object>& StatusBarAsociado() const { return oStBar; }
    void StatusBarAsociado(const automation::Ref<automation::Object>& value) { oStBar = value; }
    /// Whether a field has started a Tab by itself.
    bool IsGoingToChangeFocus() const { return globales().lGoingToChangeFocus; }
    tslForwardFocusConstants IsForwarding() const;
    /// Leaves the focus to the window that a button's event has opened.
    void NoReclamarFocus() { lNoReclamarFocus = true; }
    /// The control that gets the focus if this field gets it within 0.1 seconds.
    void SetFocusToCtl(const automation::Ref<automation::Object>& oNewCtl);
    /// Takes the focus if the field can be edited; otherwise a button gets it, or the window that had it.
    void SetFocusIfEnabled(const automation::Variant& oBtn = automation::Variant::missing(),
                           const automation::Variant& nLastCtlHWND = automation::Variant::missing());
    void SetMsgForStatusBar(const automation::String& cMsg) { cMsgStatusBar = cMsg; }

    // Look: get.cpp, get_painting.cpp, get_gauge.cpp

    /// Paints the field now, unless BeginRefresh holds it.
    void Render();
    void Refresh() { Render(); }
    void BeginRefresh();
    void EndRefresh();
    bool Enabled() const { return UserControl::Enabled(); }
    void Enabled(bool value);
    using LibraryControl::Live;
    void Live(bool value);
    using LibraryControl::Scheme;
    void Scheme(tslSchemeConstants value);
    automation::String ToolTip() const;
    void ToolTip(const automation::String& value);
    /// -1 follows the shared colour table.
    host::OLE_COLOR BackColor() const { return nBackColor; }
    void BackColor(host::OLE_COLOR value);
    /// -1 takes the table's colour of now.
    host::OLE_COLOR ForeColor() const { return nForeColor; }
    void ForeColor(host::OLE_COLOR value);
    /// The control's own font; writing copies the attributes. Null once the control has left its container,
    /// and a write raises error 91 then.
    const automation::Ref<host::StdFont>& Font();
    void Font(const automation::Ref<host::StdFont>& value);
    /// Its present attributes in a font that nobody else has.
    automation::Ref<host::StdFont> copyOfFont() const { return oFont ? oFont->clone() : oFont; }
    /// Average width of the letters in proportion to the font's own; 0 is natural.
    float FontWidth() const { return nFontWidth; }
    void FontWidth(float value);
    tslBorderStyleConstants BorderStyle() const { return nBorderStyle; }
    void BorderStyle(tslBorderStyleConstants value);
    tslAppearanceConstants Appearance() const { return nAppearance; }
    void Appearance(tslAppearanceConstants value);
    /// Of the text without the focus; with it the text starts at the left.
    tslAlignmentConstants Alignment() const { return nAlignment; }
    void Alignment(tslAlignmentConstants value);
    bool AlwaysLeft() const { return lAlwaysLeft; }
    void AlwaysLeft(bool value);
    tslAutoSizeConstants AutoSize() const { return nAutoSize; }
    void AutoSize(tslAutoSizeConstants value);
    tslCtlUserDrawnModeConstants UserDrawnMode() const { return nUserDrawnMode; }
    void UserDrawnMode(tslCtlUserDrawnModeConstants value);
    /// False locks the field and shows it as disabled, though it still gets the mouse.
    bool ShownEnabled() const { return lShownEnabled; }
    void ShownEnabled(bool value);
    /// As MousePointer of the host counts them.
    std::int32_t MousePointer() const { return static_cast<std::int32_t>(UserControl::MousePointer()); }
    void MousePointer(std::int32_t value);
    automation::Variant GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex) const {
        return tesela::GlobalCtlCfg(nIndex);
    }
    void GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex, const automation::Variant& xValue) {
        tesela::GlobalCtlCfg(nIndex, xValue);
    }
    /// An icon of the library's resources.
    automation::Ref<host::Picture> LoadStockIcon(std::int32_t nID) const;
    /// In PaintBackground: bands that shade each group of so many characters of MaxLength. -1 takes colours
    /// of the table.
    void PaintHGradient(std::int32_t nChars = 5, host::OLE_COLOR nColor1 = -1, host::OLE_COLOR nColor2 = -1);
    /// Paints a bar of progress once, over what the field shows.
    void PaintGauge(double nCurrent, double nMax, bool lShowPorcentaje = false, std::int32_t nNumDec = 0,
                    host::OLE_COLOR nBaseColor = -1);
    /// A bar that each paint shows until it is called with 0, 0.
    void AutoPaintGauge(double nCurrent, double nMax, bool lShowPorcentaje = false, std::int32_t nNumDec = 0,
                        host::OLE_COLOR nBaseColor = -1);

    /// The values of a field that is new on a form.
    void UserControl_InitProperties();

    /// What Enabled... were last set to, for the application.
    bool lInternalPreEnabledGet = false;
    bool lInternalPreEnabledBtnCombo = false;
    bool lInternalPreEnabledBtnBuscar = false;
    bool lInternalPreEnabledFicha = false;

    automation::Event<> Change;
    automation::Event<> Click;
    automation::Event<> DblClick;
    automation::Event<short&, short&> KeyWatch; ///< Before the field looks at a key; code 0 cancels it
    automation::Event<short&, short&> KeyDown;  ///< A key that the field hasn't used
    automation::Event<short&> KeyPress;         ///< A character that is about to go in; 0 keeps it out
    automation::Event<short&, short&> KeyUp;
    automation::Event<short&, short&, float&, float&> MouseDown;
    automation::Event<short&, short&, float&, float&> MouseMove;
    automation::Event<short&, short&, float&, float&> MouseUp;
    // Raised twice: to ask whether the key is supported (lCancel False says so), and to act.
    automation::Event<bool&, bool&> KeySearch;
    automation::Event<bool&, bool&> KeyViewForm;
    automation::Event<bool&, bool&, bool> KeyAdd;
    automation::Event<bool&, bool&> EVCombo;
    automation::Event<> EVBuscar;
    automation::Event<> EVFicha;
    automation::Event<automation::Ref<cCanvas>&> PaintBackground;
    automation::Event<automation::Ref<cCanvas>&> UserDrawn;

    automation::Ref<host::Control> another() const override { return automation::make<get>(); }
    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

protected:
    void onInitProperties() override { UserControl_InitProperties(); }
    void onReadProperties(host::PropertyBag& bag) override;
    void onWriteProperties(host::PropertyBag& bag) override;
    void onResize() override;
    void onPaint() override;
    bool paintsOwnBackground() const override { return true; }
    void onTerminate() override;
    void onGotFocus() override;
    void onLostFocus() override;
    void onKeyDown(short& KeyCode, short& Shift) override;
    void onKeyPress(short& KeyAscii) override;
    void onKeyUp(short& KeyCode, short& Shift) override;
    void onMouseDown(short& Button, short& Shift, float& X, float& Y) override;
    void onMouseMove(short& Button, short& Shift, float& X, float& Y) override;
    void onMouseUp(short& Button, short& Shift, float& X, float& Y) override;
    void onClick() override;
    void onDblClick() override;
    void focusByMouse() override;

private:
    enum class Companion { None, Text, Combo, Search, Record };
    struct Shades {
        host::OLE_COLOR face, lightest, light, dark, darkest, gradientBase;
    };
    struct Gauge {
        bool lAuto = false;
        double nMax = 0;
        double nCurrent = 0;
        bool lShowPorcentaje = false;
        automation::String cFmtPorcentaje;
        host::OLE_COLOR nColor = 0;
        host::OLE_COLOR nColorClaro = 0;
    };
    /// What a key may change of the picture.
    struct Shown {
        automation::String text;
        std::int32_t caret, selStart, selLength;
        bool inserting;
        bool operator==(const Shown&) const = default;
    };
    /// A text that has room for a character, and the range that the character replaces.
    struct Place {
        std::u16string text;
        std::int32_t from, to;
    };
    struct ButtonIcon;
    /// Holds painting for a while.
    class HeldPaint {
    public:
        explicit HeldPaint(get& field) : field_(field), former_(std::exchange(field.nNoRender, 1)) {}
        ~HeldPaint() { field_.nNoRender = former_; }
        HeldPaint(const HeldPaint&) = delete;
        HeldPaint& operator=(const HeldPaint&) = delete;

    private:
        get& field_;
        std::int32_t former_;
    };

    template <class... Args, class... Given>
    void raiseInput(const automation::Event<Args...>& event, Given&&... arguments) {
        if (gateOpen()) raise(event, std::forward<Given>(arguments)...);
    }
    void changed(const char16_t* property) { PropertyChanged(property); }
    /// Stores a value and reports the property.
    template <class T>
    void store(T& field, const T& value, const char16_t* property) {
        field = value;
        PropertyChanged(property);
    }
    template <class T>
    void storeAndRender(T& field, const T& value, const char16_t* property) {
        field = value;
        Render();
        PropertyChanged(property);
    }

    // The text
    std::int32_t length() const { return static_cast<std::int32_t>(cTexto.length()); }
    void SetTextoInterno(const automation::String& cNuevo, bool lForzarFormato);
    void takeText(const automation::String& text, bool formats);
    automation::String formatted(const automation::String& text) const;
    automation::String blankTemplate() const;
    TypedText FiltrarTexto(const TypedText& typed) const;
    automation::String LlenarMascara(const automation::String& text, const automation::String& mask) const;
    automation::String TextoAMostrar() const;
    bool showsNothing() const;
    bool roundsToZero() const;
    void fitPositions();
    bool isRecordIdentifier() const;
    std::int32_t ownFormat() const;
    automation::Variant readValue(std::int32_t format);
    automation::Variant readRecordIdentifier() const;
    automation::Variant readNumber(automation::String text) const;
    automation::Variant readDate(const automation::String& text, bool asObject);
    void writeValue(std::int32_t format, automation::Variant value);
    void writeText(automation::String text);
    void writeNumber(const automation::Variant& value);
    void writeDate(const automation::Variant& value);
    void writeHour(const automation::Variant& value);
    void selectAll();
    automation::Date dateOr(const automation::Variant& value);
    cFecha& ownDate();
    bool userMode() const { return lUserMode; }

    // Masks, type and fonts
    bool hasTextMask() const { return nTipoDato == tslTipoDatoCaracter && !cMascaraFocus.empty(); }
    bool isNumber() const { return nTipoDato == tslTipoDatoNumero; }
    bool isDate() const { return nTipoDato == tslTipoDatoFecha; }
    bool isPlain() const { return !hasTextMask() && !isDate(); }
    void takeMask(const automation::String& mask);
    void becomeText();
    void becomeNumber();
    void becomeDate();
    void growAutoSize();
    void resetFont();
    void useFont(const char16_t* name, double size, double tolerance = 0);
    DateEntry dateEntry() const;

    // Editing
    bool isLiteralAt(std::int32_t position) const;
    bool isDateSeparatorAt(std::int32_t position) const;
    std::pair<std::int32_t, std::int32_t> selection() const;
    bool hasSelection() const;
    void eraseSelection();
    void eraseRange(std::int32_t from, std::int32_t to);
    void setEdited(const automation::String& text, std::int32_t caret);
    Shown whatShows() const;
    void noteDirection(short code, short shift);
    bool handleKey(short& KeyCode, short Shift);
    bool enterKey(short& KeyCode, short Shift);
    void verticalKey(short& KeyCode, short Shift, bool down);
    bool moveLine(bool down);
    bool searchKey(short& KeyCode);
    bool addKey(short& KeyCode);
    void pressAssociated(short& KeyCode);
    template <class... More>
    bool askThenDo(const automation::Event<bool&, bool&, More...>& event, short& KeyCode, More... more);
    void horizontalKey(short& KeyCode, short Shift, bool right);
    void edgeKey(short& KeyCode, short Shift);
    void anchorSelection(short Shift);
    void stretchSelection(short Shift);
    std::int32_t wordRight(std::int32_t from) const;
    std::int32_t wordLeft(std::int32_t from) const;
    void insertKey();
    bool deleteKey(short& KeyCode, short Shift);
    bool dropLeadingZero(short& KeyCode);
    void skipLiterals(short KeyCode);
    bool controlCharacter(short& KeyAscii);
    void copySelection();
    void cutSelection();
    void paste();
    automation::String cutToDigits(const automation::String& text) const;
    void cutAtCaret();
    void restoreOriginal();
    void backspace(bool word);
    void backspaceMasked();
    void backspaceDate();
    void keepDate(std::int32_t characters);
    bool dateCharacterFits(char16_t character) const;
    void typeCharacter(short& KeyAscii);
    void insertTyped(short& KeyAscii, char16_t character, Place place);
    std::optional<Place> placeFor(char16_t character);
    bool startsRelativeDate() const;
    automation::String dateTemplate();
    char16_t asTyped(short KeyAscii) const;
    bool isValid(char16_t character) const;
    void deriveNumberMask();
    bool fitsNumber(char16_t character, std::int32_t from, std::int32_t to) const;
    bool overwrites() const { return !lInsertando || !isPlain(); }
    bool makeRoom(Place& place) const;
    void beep() const;
    bool refuseIfLocked() const;

    // Caret
    void makeCaret(std::int32_t width);
    void dropCaret();
    std::int32_t naturalCaretWidth() const;
    bool ownsCaret() const;
    void placeCaret();

    // Mouse
    std::int32_t PosicionDesdePixel(std::int32_t x, std::int32_t y);
    Companion companionAt(std::int32_t x) const;
    bool isEnabled(Companion companion) const;
    void mouseDownOnText(std::int32_t x, std::int32_t y);
    void mouseDownOnButton(Companion companion, short Button);
    void returnFocus();
    bool isOver(Companion companion, float X, float Y) const;

    // Focus
    void focusArrives();
    void takeEditForm();
    void notifyCompanions();
    void focusGone();
    void takeDisplayForm();
    void tidyText();
    void pressButton(Companion companion);
    void setCausesValidation(bool value);
    void setTabStop(bool value);
    void enableButton(bool& enabled, bool& wanted, bool value, bool isShown, const char16_t* property);
    bool tabStop() const;

    // Painting
    class Painter;
    friend class Painter;
    static Shades makeShades();
    static host::OLE_COLOR slot(tslCtlGlobalCfgConstants index);
    bool prepareCanvas();
    bool hasPicture();
    void showCanvas();
    bool canvasCoversWindow() const;
    void dropButtonImages();
    std::int32_t buttonCount() const { return lBotonCombo + lBotonBuscar + lBotonFicha; }
    void startGauge(bool lShowPorcentaje, std::int32_t nNumDec, host::OLE_COLOR nBaseColor);
    void setGaugeColor(host::OLE_COLOR color);
    void paintGaugeBar();
    void fontChanged();
    void measureLine();
    std::int32_t lineHeight() const;
    float lettersWidth(std::int64_t letters) const;
    platform::SIZE fittingSize(platform::SIZE now) const;
    void requireFont() const;
    void takeFont(const host::StdFont& wanted);

    void createByDialog();
    void beginReading();
    void finishReading();

    automation::String cTexto;
    automation::String cTextoOriginal;
    automation::String cMascara, cMascaraFocus;
    automation::String cPasswordChar;
    automation::String cCaracteresValidos;
    automation::String cMsgStatusBar;
    automation::Variant xValorOriginal, xValorOriginalFicha;
    automation::Ref<cFecha> oFecha;       ///< Null until a date is asked for
    automation::Ref<host::StdFont> oFont; ///< Null once the control has left its container
    bool lFuentePropia = false;           ///< Somebody may have the font; else it is shared and never changed
    automation::Subscription fontSubscription;
    automation::Ref<cCanvas> oCanvas;
    automation::Ref<automation::Object> oControlAsociado, oOSK, oStBar;
    std::shared_ptr<ButtonIcon> searchIcon, recordIcon; ///< Shared by the fields that show the same
    TextLines lines;                                    ///< Of a multi-line text
    std::unique_ptr<TextReach> alcance;                 ///< Of a long text of one line
    Shades xTonos;
    Gauge xGauge;

    std::int32_t nSelStart = 0, nSelLength = 0;
    std::int32_t nCaret = 0;
    std::int32_t nMaxLength = 0;
    std::int32_t nDigEnteros = 0, nDigDecimales = 0, nDigFantasma = 0;
    tslAutoTrimConstants nAutoTrim = tslAutoTrim_Both;
    tslMayusculasConstants nMayusculas = tslMayusculasNoFilter;
    tslGetAutoFormatConstants nAutoFormat = tslGetAutoFormatDefault;
    tslSeleccionadoConstants nSeleccionado = tslSeleccionadoNumeros;
    tslBorderStyleConstants nBorderStyle = tslBorderStyleFixedSingle;
    tslAppearanceConstants nAppearance = tslAppearance3D;
    tslAlignmentConstants nAlignment = tslAlignmentLeftJustify;
    tslAutoSizeConstants nAutoSize = tslAutoSize_Y;
    tslCtlUserDrawnModeConstants nUserDrawnMode = tslCtlUserDrawnMode_Default;
    tslForwardFocusConstants nDireccion = tslForwardFocus_Unknown;
    host::OLE_COLOR nBackColor = -1, nForeColor = -1;
    float nFontWidth = 0;
    std::int32_t nButtonWidth;
    std::int32_t nRowCombo = 0;
    std::int32_t nValidateMark = 0, nValidateForm = 0;
    std::int32_t nNoRender = 1; ///< 1 holds painting
    // In pixels, from the last paint
    std::int32_t nLineHeight = 0;
    std::int32_t nBordeX = 0, nBordeY = 0;
    std::int32_t nTextRight = 0, nTextBottom = 0;
    std::int32_t nBtnComboX = 0, nBtnBuscarX = 0, nBtnFichaX = 0;
    std::int32_t nTextX = 0; ///< Where the text begins
    std::int32_t nCaretX = 0, nCaretY = 0;
    std::int32_t nCaretWidth = 1, nCaretMaxWidth = 1, nCaretHeight = 0;
    std::int32_t nLineaAnterior = 0, nLineaSiguiente = 0; ///< Starts of the lines beside the caret's, from 1
    std::int32_t nCharDown = 0;
    std::int32_t nFocoAlPulsar = 0;            ///< Who had the focus when the mouse was pressed
    Companion nBotonPulsado = Companion::None; ///< What the mouse has pressed
    bool lFocoAlPulsar = false;                ///< The field itself had it
    bool lBotonEncima = false;                 ///< The pointer is over the pressed button

    bool lUserMode = true;
    bool lLocked = false;
    bool lUserFont = false;
    bool lVacioEnBlanco = false;
    bool lEnSetTexto = false; ///< Guards SetTextoInterno against itself
    bool lHasFocus = false;
    bool lValidado = false;
    bool lInsertando = true;
    bool lCaretVisible = true;
    bool lCaretMade = false, lCaretShown = false;
    bool lPreserveCaret = false;
    bool lDesdeTeclado = false; ///< The focus comes from the on-screen keyboard
    bool lMultiLine = false;
    bool lAutoFormatPendiente = true; ///< False once Enter was pressed
    bool lInKeyDown = false;
    bool lBotonCombo = false, lBotonBuscar = false, lBotonFicha = false;
    bool lEnabledGet = true, lEnabledCombo = true, lEnabledBuscar = true, lEnabledFicha = true;
    bool lNoReclamarFocus = false;
    bool lEnEventoBoton = false;
    bool lPerdidoAOtraApp = false;
    bool lCanvasValido = false;
    bool lPendienteRender = false;
    bool lRenderAlMostrar = false; ///< A Render waits until the field is to be seen
    bool lInResize = false;
    bool lInRender = false;
    bool lReading = false; ///< All properties are being written
    bool lAlwaysLeft = false;
    bool lShownEnabled = true;
};

} // namespace tesela
