#include "fichas/window/ColumnField.h"

#include "automation/Conversions.h"
#include "automation/Date.h"
#include "automation/Error.h"
#include "automation/Strings.h"
#include "fichas/CsvValues.h"
#include "fichas/Display.h"

#include <algorithm>
#include <limits>
#include <string>

namespace fichas {

using automation::Date;
using automation::String;
using automation::Variant;
using tesela::get;

namespace {

constexpr int wholeDigits = 15; ///< That a Double and so a number field holds for certain
constexpr int numberDigits = 12;

constexpr std::u16string_view lineEnds[] = {u"\r\n", u"\n", u"\r"};

/// What ends the lines of a text; nothing where there is one line only.
std::u16string_view lineEndOf(const Variant& value) {
    if (!value.isString()) return {};
    for (const std::u16string_view end : lineEnds)
        if (value.asString().find(end) != String::npos) return end;
    return {};
}

/// What would leave a field of one line.
bool hasSeveralLines(const Variant& value) {
    return value.isString() && value.asString().view().find_first_of(u"\r\n\t") != std::u16string_view::npos;
}

/// In a field a line feed alone ends a line.
String fieldText(const Variant& text) {
    const std::u16string_view end = lineEndOf(text);
    return end.empty() ? text.asString() : text.asString().replaced(end, u"\n");
}

String trimmedText(const get& field) {
    return automation::Trim(field.Text());
}

/// No digit, letter or sign: an empty text, or a mask that nothing was typed into.
bool isBlank(const String& text) {
    return text.view().find_first_not_of(u" :/.-\u00A0") == std::u16string_view::npos;
}

String yesOrNo(bool truth) {
    return displayText(Variant(truth), {});
}

Variant dayOf(Date value) {
    return Date::fromDayAndSecond(value.dayNumber(), 0);
}

} // namespace

ColumnField::ColumnField(host::Form& form, const Column& column, const String& table, short index)
    : column_(column), field_(&form.add<get>(u"getCampo", index)) {
    if (column.type == ColumnType::DateTime) hour_ = &form.add<get>(u"getHora", index);
    prepare(*field_, part_);
    if (hour_) prepare(*hour_, hourPart_);
    constexpr short controlEnter = 10;
    field_->KeyPress.join([this](short& key) {
        if (key == controlEnter) breakLine();
    });
    for (get* field : {field_, hour_}) {
        if (!field) continue;
        field->Alias(table);
        field->Campo(column.name);
        field->Font(form.Font());
    }
}

void ColumnField::remove(host::Form& form) {
    form.remove(*field_);
    if (hour_) form.remove(*hour_);
}

/// All fields are of one height and one font. Follows what is typed: a number that is left blank would become
/// a 0, and is no value here.
void ColumnField::prepare(get& field, Part& part) {
    field.Reset();
    field.AutoSize(tesela::tslAutoSize_NO);
    field.UserFont(true);
    field.Seleccionado(tesela::tslSeleccionadoSiempre);
    field.Change.join([&field, &part] {
        if (field.HasFocus()) part.isBlank = isBlank(field.Text());
    });
    field.Extender().GotFocus.join([&field, &part] {
        part.atFocus = field.Text();
        part.isBlank = isBlank(part.atFocus);
    });
    field.Extender().LostFocus.join([this, &field, &part] {
        if (isNumber() && part.isBlank) field.SetText({});
    });
}

bool ColumnField::isNumber() const {
    return !isText_ && (column_.type == ColumnType::Integer || column_.type == ColumnType::Number ||
                        column_.type == ColumnType::Currency);
}

bool ColumnField::hasDay() const {
    return !isText_ && (column_.type == ColumnType::Date || column_.type == ColumnType::DateTime);
}

// ------------------------------------------------------------------------------------------- showing

void ColumnField::dressAsNumber() {
    field_->TipoDato(tesela::tslTipoDatoNumero);
    if (column_.type == ColumnType::Integer) {
        // References to other records are numbers too: thousands are for amounts.
        field_->Mascara(String(std::u16string(wholeDigits - 1, u'#') + u'0'));
        return;
    }
    const int digits = column_.digits > 0 ? column_.digits : numberDigits;
    field_->FormatoMascara(String::fromUtf8("(" + std::to_string(digits) + "," +
                                            std::to_string(std::max(column_.decimals, 0)) + ")"));
}

/// The field's type and mask.
void ColumnField::dress(bool asText) {
    if (isDressed_ && asText == isText_) return;
    isText_ = asText;
    isDressed_ = true;
    field_->Reset();
    field_->MascaraFocus({});
    field_->CaracteresValidos({});
    field_->MultiLine(isMultiLine());
    if (hour_) {
        hour_->Mascara(u"##:##");
        hour_->ShownEnabled(!asText);
    }
    if (isNumber()) {
        dressAsNumber();
    } else if (hasDay()) {
        field_->TipoDato(tesela::tslTipoDatoFecha);
        field_->Mascara(tesela::globales().cFmtFecha);
    } else if (!asText && column_.type == ColumnType::Time) {
        field_->Mascara(u"##:##");
    } else if (!asText && column_.type == ColumnType::Boolean) {
        field_->MaxLength(static_cast<std::int32_t>(yesOrNo(true).length()));
    } else {
        field_->MaxLength(asText ? 0 : column_.length);
    }
    field_->Seleccionado(tesela::tslSeleccionadoSiempre);
}

/// Whether the field shows all lines of a text and can give them back.
bool ColumnField::canShowLines(const Variant& value) const {
    constexpr std::size_t letters = 45; // that a line holds at least
    const std::u16string_view text = value.asString();
    const auto lines = static_cast<std::size_t>(countLines(value)) + text.size() / letters;
    const String shown = fieldText(value);
    const std::u16string_view end = lineEndOf(value);
    const bool isWhole = end.empty() || shown.replaced(u"\n", end) == value.asString();
    return isWhole && lines <= static_cast<std::size_t>(column_.lines) + 1 &&
           shown.view().find_first_of(u"\r\t") == std::u16string_view::npos;
}

/// A text of the field with the line ends that the former one has.
String ColumnField::storedText(const String& text) const {
    const std::u16string_view end = lineEndOf(value_);
    return end.empty() ? text : text.replaced(u"\n", end);
}

/// Begins another line at the caret.
void ColumnField::breakLine() {
    if (!isMultiLine() || isLocked_) return;
    const auto start = field_->SelLength() == 0 ? field_->caretPosition() : field_->SelStart();
    const auto [from, to] = std::minmax({start, start + field_->SelLength()});
    const String text = field_->Text().left(static_cast<std::size_t>(from)) + u"\n" +
                        field_->Text().substring(static_cast<std::size_t>(to));
    if (column_.length > 0 && static_cast<int>(text.length()) > column_.length) return;
    field_->Text(text);
    field_->SelLength(0);
    field_->SetCaretPosition(from + 1);
}

void ColumnField::write(const Variant& value) {
    if (isMultiLine() && value.isString()) {
        field_->Text(fieldText(value));
    } else if (isText_ || column_.type == ColumnType::Text || column_.type == ColumnType::Boolean) {
        field_->Text(displayText(value, {})); // with all decimals
    } else if (value.isNull()) {
        field_->Text({});
        if (isNumber()) field_->SetText({});
    } else if (column_.type == ColumnType::Time) {
        field_->ValorHora(value.asDate());
    } else {
        field_->Value(value.type() == automation::VT_DATE ? dayOf(value.asDate()) : value);
    }
    if (!hour_) return;
    if (isText_ || value.isNull())
        hour_->Text({});
    else
        hour_->ValorHora(value.asDate());
}

/// Whether the value is of the column's type. A column of texts takes numbers too.
bool ColumnField::fitsColumn(const Variant& value) const {
    if (value.isArray()) return false;
    if (column_.type == ColumnType::Text) return true;
    const bool wantsMoment = hasDay() || column_.type == ColumnType::Time;
    return !value.isString() && wantsMoment == (value.type() == automation::VT_DATE);
}

/// Whether the field shows the value whole. Seconds are not shown, and stay while the hour stays.
bool ColumnField::givesBack(const Variant& value) const {
    if (value.isNull()) return true;
    if (!fitsColumn(value)) return false;
    if (hasSeveralLines(value) || (isMultiLine() && value.isString()))
        return isMultiLine() && canShowLines(value);
    if (isNumber()) {
        const auto number = readNumber(field_->Text());
        return number && !number->isNull() && automation::CDbl(*number) == automation::CDbl(value);
    }
    if (!hasDay()) return true;
    return automation::IsDate(Variant(field_->Text())) &&
           automation::CDate(Variant(field_->Text())).dayNumber() == value.asDate().dayNumber();
}

void ColumnField::show(const Variant& value, bool isLocked) {
    value_ = value;
    dress(false);
    if (value.isNull() || fitsColumn(value)) write(value);
    const bool asText = !givesBack(value);
    if (asText) {
        dress(true);
        write(value);
    }
    // What can't be typed can't be changed; a text where another type should be can be put right.
    isLocked_ = isLocked || column_.isIdentifier || column_.type == ColumnType::Binary ||
                (asText && hasSeveralLines(value)) || (asText && !value.isString());
    for (get* field : {field_, hour_})
        if (field && field->ShownEnabled() == isLocked_) field->ShownEnabled(!isLocked_);
    part_.shown = field_->Text();
    if (hour_) hourPart_.shown = hour_->Text();
}

void ColumnField::rebase(const Variant& value) {
    const String text = field_->Text();
    const String hourText = hour_ ? hour_->Text() : String();
    show(value, isLocked_);
    field_->SetText(text);
    if (hour_) hour_->SetText(hourText);
}

// ------------------------------------------------------------------------------------------- reading

bool ColumnField::isChanged() const {
    const auto differs = [](const get& field, const Part& part) {
        return trimmedText(field) != automation::Trim(part.shown);
    };
    return !isLocked_ && (differs(*field_, part_) || (hour_ && differs(*hour_, hourPart_)));
}

std::optional<Variant> ColumnField::readNumber(const String& text) const {
    const String plain = text.replaced(tesela::globales().cSepMiles, u"");
    if (!automation::IsNumeric(Variant(plain))) return std::nullopt;
    try {
        if (column_.type == ColumnType::Number) return Variant(automation::CDbl(Variant(plain)));
        if (column_.type == ColumnType::Currency) return Variant(automation::CCur(Variant(plain)));
        const Variant whole = automation::CDec(Variant(plain));
        const double size = automation::CDbl(whole);
        const bool isLong = size >= std::numeric_limits<std::int32_t>::min() &&
                            size <= std::numeric_limits<std::int32_t>::max();
        return isLong ? Variant(automation::CLng(whole)) : whole;
    } catch (const automation::Error&) {
        return std::nullopt; // more than the type holds
    }
}

/// A date, an hour, or both.
std::optional<Variant> ColumnField::readMoment(const String& text) const {
    if (!automation::IsDate(Variant(text))) return std::nullopt;
    const Date moment = automation::CDate(Variant(text));
    if (!hour_ || isText_) return Variant(moment);
    const bool keepsHour = value_.type() == automation::VT_DATE && hour_->Text() == hourPart_.shown;
    const int second = keepsHour ? value_.asDate().secondOfDay() : hour_->ValorHora().secondOfDay();
    return Variant(Date::fromDayAndSecond(moment.dayNumber(), second));
}

/// The value that the text means; Null for none, nullopt for what the column does not take.
std::optional<Variant> ColumnField::read() const {
    const String text = trimmedText(*field_);
    if (column_.type == ColumnType::Text) return text.empty() ? Variant::null() : Variant(storedText(text));
    if (isBlank(text)) return Variant::null();
    switch (column_.type) {
    case ColumnType::Integer:
    case ColumnType::Number:
    case ColumnType::Currency:
        return readNumber(text);
    case ColumnType::Date:
    case ColumnType::DateTime:
    case ColumnType::Time:
        return readMoment(text);
    case ColumnType::Boolean:
        if (const auto truth = readBoolean(text)) return Variant(*truth);
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

Variant ColumnField::value() const {
    return isChanged() ? read().value_or(value_) : value_;
}

// ------------------------------------------------------------------------------------------- judging

String ColumnField::wrongValue(const String& text) const {
    const String quoted = u"\u201C" + text + u"\u201D";
    switch (column_.type) {
    case ColumnType::Date:
    case ColumnType::DateTime:
        return quoted + u" no es una fecha";
    case ColumnType::Time:
        return quoted + u" no es una hora";
    case ColumnType::Boolean:
        return u"escriba " + yesOrNo(true) + u" o " + yesOrNo(false);
    default:
        return quoted + u" no es un número válido";
    }
}

/// What is wrong with the text of one of the fields. Completes it where it is short for a value.
String ColumnField::faultOfEntry(get& field) {
    const String typed = trimmedText(field);
    const bool isHour = &field == hour_ || (!isText_ && column_.type == ColumnType::Time);
    if (isHour) return field.ValidateHora() ? String() : u"\u201C" + typed + u"\u201D no es una hora";
    if (hasDay() && !field.ValidateFecha()) return wrongValue(typed);
    if (column_.type == ColumnType::Boolean)
        if (const auto truth = readBoolean(typed)) field.Text(yesOrNo(*truth));
    return read() ? String() : wrongValue(typed);
}

String ColumnField::faultOnLeaving(get& field) {
    const Part& part = &field == hour_ ? hourPart_ : part_;
    if (isLocked_ || field.Text() == part.atFocus) return {};
    const String fault = faultOfEntry(field);
    return fault.empty() ? fault : column_.name + u": " + fault;
}

String ColumnField::fault() {
    if (!isChanged()) return {};
    String fault = faultOfEntry(*field_);
    if (fault.empty() && hour_) fault = faultOfEntry(*hour_);
    const bool isMissing = isBlank(field_->Text());
    if (fault.empty() && hour_ && isMissing && !isBlank(hour_->Text())) fault = u"falta la fecha";
    if (fault.empty() && column_.isRequired && read()->isNull()) fault = u"falta el valor";
    return fault.empty() ? fault : column_.name + u": " + fault;
}

} // namespace fichas
