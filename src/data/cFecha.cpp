#include "data/cFecha.h"

#include "automation/ClassTable.h"
#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Format.h"
#include "frame/Globales.h"
#include "host/MsgBox.h"

#include <cmath>

namespace tesela {

using automation::Date;
using automation::String;

namespace {

constexpr Date emptyDate(-53688.0);
constexpr Date minimumDate(-53688.00001157408);
constexpr Date maximumDate(2958465.999988426);
constexpr Date elevens(-287861.0); ///< 11 November 1111: each digit of it is a 1

double wholeDays(Date date) {
    return std::trunc(date.value());
}

} // namespace

cFecha::cFecha() : dValor(emptyDate) {
    EnsureInicio();
    cFormato = longDatePattern();
    cVacio = automation::Format(elevens, cFormato).replaced(u"1", u" ");
}

String cFecha::Texto() const {
    if (dValor == emptyDate) return cVacio;
    if (dValor == minimumDate) return u"(Desde el principio)";
    if (dValor == maximumDate) return u"(Hasta el final)";
    return automation::Format(dValor, cFormato);
}

void cFecha::Texto(const String& value) {
    if (automation::IsDate(value)) dValor = automation::CDate(value);
}

Date cFecha::SetEspecial(tslDateConstants nDate) {
    switch (nDate) {
    case tslDateToday:
        dValor = automation::Today();
        break;
    case tslDateMin:
        dValor = minimumDate;
        break;
    case tslDateMax:
        dValor = maximumDate;
        break;
    case tslDateZero:
        dValor = Date();
        break;
    default:
        dValor = emptyDate;
    }
    return dValor;
}

Date cFecha::Mk_Date(std::int32_t nDia, std::int32_t nMes, std::int32_t nAño, Date nHora) {
    const Date today = automation::Today();
    dValor =
        automation::DateSerial(nAño ? nAño : automation::Year(today), nMes ? nMes : automation::Month(today),
                               nDia ? nDia : automation::Day(today));
    if (nHora.value() != 0 && std::fabs(nHora.value()) < 1) dValor = Date(dValor.value() + nHora.value());
    return dValor;
}

Date cFecha::Mk_Time(std::int32_t nHoras, std::int32_t nMinutos, std::int32_t nSegundos, bool lNoUpdate) {
    const Date now = automation::TimeOfDay();
    const Date time = automation::TimeSerial(nHoras ? nHoras : automation::Hour(now),
                                             nMinutos ? nMinutos : automation::Minute(now),
                                             nSegundos ? nSegundos : automation::Second(now));
    if (lNoUpdate) return time;
    dValor = Date(wholeDays(dValor) + time.value());
    return dValor;
}

Date cFecha::SetDateTime(Date dDate, Date dTime) {
    if (wholeDays(dDate) == dDate.value() && std::fabs(dTime.value()) < 1) {
        dValor = Date(dDate.value() + dTime.value());
    } else {
        host::MsgBox(u"SetDateTime: la fecha no puede tener hora y la hora no puede tener fecha",
                     host::MsgBoxStyle::OkOnly, u"Error creando un dato de tipo FECHA");
    }
    return dValor;
}

Date cFecha::GetDateTime(bool lSolamenteHora) const {
    return lSolamenteHora ? Date(std::fabs(dValor.value() - wholeDays(dValor))) : dValor;
}

String cFecha::GetTimeStr(bool lSolamenteHora) const {
    if (dValor == emptyDate) return u"(Fecha nula)";
    if (dValor == minimumDate || dValor == maximumDate) return Texto();
    const String time = automation::Format(dValor, u"Long Time");
    return lSolamenteHora ? time : automation::Format(dValor, u"Long Date") + u", " + time;
}

void cFecha::orOwn(Date& dDate) const {
    if (dDate.value() == 0) dDate = dValor;
}

Date cFecha::dUlMes(Date& dDate) const {
    orOwn(dDate);
    return automation::DateSerial(automation::Year(dDate), automation::Month(dDate) + 1, 0);
}

Date cFecha::dPrMes(Date& dDate) const {
    orOwn(dDate);
    return automation::DateSerial(automation::Year(dDate), automation::Month(dDate), 1);
}

std::int32_t cFecha::DiasMes(Date& dDate) const {
    return automation::Day(dUlMes(dDate));
}

std::int32_t cFecha::DiaSemana(Date& dDate) const {
    orOwn(dDate);
    return automation::Weekday(dDate, automation::FirstDay::SystemDay);
}

String cFecha::DiaSemanaStr(Date& dDate, bool& lAbreviado) const {
    return automation::WeekdayName(DiaSemana(dDate), lAbreviado, automation::FirstDay::SystemDay);
}

Date cFecha::DomingoResurreccion(std::int32_t nYear) const {
    const double endOfMarch = automation::DateSerial(nYear, 3, 31).value();
    const std::int32_t a = nYear - 1900;
    const std::int32_t b = a % 19;
    const std::int32_t c = (b * 7 + 1) / 19;
    const std::int32_t d = (b * 11 - c + 4) % 29;
    const std::int32_t e = a / 4;
    const std::int32_t f = (a + e - d + 31) % 7;
    return Date(endOfMarch + 25 - d - f);
}

const automation::ClassTable& cFecha::table() {
    using automation::optional;
    using ReadText = String (cFecha::*)() const;
    using WriteText = void (cFecha::*)(const String&);
    using ReadDate = Date (cFecha::*)() const;
    using WriteDate = void (cFecha::*)(Date);
    static const automation::ClassTable table =
        automation::ClassTable::of<cFecha>("cFecha")
            .help("A date and time that knows the empty, the lowest and the highest date.")
            .property("Texto", ReadText(&cFecha::Texto), WriteText(&cFecha::Texto))
            .property("Value", ReadDate(&cFecha::Value), WriteDate(&cFecha::Value))
            .defaultMember()
            .method("SetEspecial", &cFecha::SetEspecial, {"nDate"})
            .method("Mk_Date", &cFecha::Mk_Date,
                    {optional("nDia"), optional("nMes"), optional("nAño"), optional("nHora")})
            .method("Mk_Time", &cFecha::Mk_Time,
                    {optional("nHoras"), optional("nMinutos"), optional("nSegundos"), optional("lNoUpdate")})
            .method("SetDateTime", &cFecha::SetDateTime, {optional("dDate"), optional("dTime")})
            .method("GetDateTime", &cFecha::GetDateTime, {optional("lSolamenteHora")})
            .method("GetTimeStr", &cFecha::GetTimeStr, {optional("lSolamenteHora")})
            .method("dUlMes", &cFecha::dUlMes, {optional("dDate")})
            .method("dPrMes", &cFecha::dPrMes, {optional("dDate")})
            .method("DiasMes", &cFecha::DiasMes, {optional("dDate")})
            .method("DiaSemana", &cFecha::DiaSemana, {optional("dDate")})
            .method("DiaSemanaStr", &cFecha::DiaSemanaStr, {optional("dDate"), optional("lAbreviado")})
            .method("DomingoResurreccion", &cFecha::DomingoResurreccion, {"nYear"});
    return table;
}

const automation::Enumeration& enumerationOf(tslDateConstants) {
    static const automation::Enumeration table("tslDateConstants", {
                                                                       {"tslDateToday", tslDateToday},
                                                                       {"tslDateEmpty", tslDateEmpty},
                                                                       {"tslDateMin", tslDateMin},
                                                                       {"tslDateMax", tslDateMax},
                                                                       {"tslDateZero", tslDateZero},
                                                                   });
    return table;
}

} // namespace tesela
