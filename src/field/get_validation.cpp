// The checks that an application calls when the field is left. They repair the text.

#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Format.h"
#include "automation/Strings.h"
#include "drawing/rounding.h"
#include "field/get.h"

#include <cmath>

namespace tesela {

using automation::Date;
using automation::String;

namespace {

constexpr std::size_t hourLength = 5;

} // namespace

DateEntry get::dateEntry() const {
    const Globales& g = globales();
    return {g.cSepFecha, g.cOrdenFecha, automation::Today(), g.nAñoCompletar};
}

bool get::ValidateFecha() {
    try {
        const DateEntry entry = dateEntry();
        const String text = automation::Trim(cTexto);
        if (isBlankDate(text, entry.separator)) return true;
        auto date = relativeDate(text, entry.today);
        if (date) {
            if (automation::Year(*date) < automation::Year(ownDate().SetEspecial(tslDateEmpty))) return false;
            SetTextoInterno(automation::CStr(*date), false);
        } else {
            date = typedDate(text, entry);
        }
        if (!date) return false;
        SetTextoInterno(automation::Format(*date, longDatePattern()), false);
        Render();
        return true;
    } catch (const automation::Error&) {
        return false; // no date of the calendar
    }
}

bool get::ValidateHora(Date& dHora) {
    try {
        const auto typed = typedTime(cTexto, globales().cSepHora);
        if (!typed) return false;
        dHora = typed->time;
        if (typed->blank) return true;
        SetTextoInterno(automation::Format(dHora, globales().cFmtHora.left(hourLength)), false);
        Render();
        return true;
    } catch (const automation::Error&) {
        return false; // numbers beyond a Long
    }
}

bool get::ValidateHora() {
    Date hour;
    return ValidateHora(hour);
}

Date get::ValorHora() {
    Date hour;
    if (lUserMode) ValidateHora(hour);
    return hour;
}

void get::ValorHora(Date value) {
    const Date time(std::fabs(value.value() - std::trunc(value.value())));
    try {
        String text = automation::CStr(time).left(hourLength);
        if (text.length() > 1 && text[1] == u':') text = (u"0" + text).left(hourLength);
        SetTextoInterno(text, false);
        Render();
    } catch (const automation::Error&) {
        // An hour outside of the calendar changes nothing.
    }
}

Date get::FechaYHora(Date dFecha) {
    Date hour;
    ValidateHora(hour);
    // The fraction is the time of the day before the calendar's day 0 too.
    const double day = std::trunc(dFecha.value());
    return Date(day < 0 ? day - hour.value() : day + hour.value());
}

String get::ValidateFltCodigos() {
    try {
        SetTextoInterno(CodeList::normalised(cTexto), false);
        const CodeList list(cTexto);
        if (list.fault() != CodeList::Fault::None) {
            SelStart(list.faultStart());
            SelLength(list.faultLength());
            return CodeList::message(list.fault());
        }
        SetTextoInterno(list.text(), false);
        Render();
        return {};
    } catch (const automation::Error& error) {
        return error.description(); // a code beyond a Long
    }
}

void get::RegisterValidate(std::int32_t nHWNDForm) {
    nValidateMark = roundToLong(TimerSegundos());
    nValidateForm = nHWNDForm;
}

void get::UnRegisterValidate() {
    globales().nValidateTimer = nValidateMark;
    globales().nHWndValidate = nValidateForm;
}

} // namespace tesela
