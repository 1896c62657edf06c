#pragma once

#include "automation/Date.h"
#include "automation/Enumeration.h"
#include "automation/Object.h"
#include "automation/String.h"

#include <cstdint>

namespace tesela {

/// The dates with a meaning of their own.
enum tslDateConstants : std::int32_t {
    tslDateToday = 0,
    tslDateEmpty = 1, ///< 1 January 1753: no date
    tslDateMin = 2,   ///< One second away from it: from the beginning of time
    tslDateMax = 3,   ///< The last second of 9999: to the end of time
    tslDateZero = 4,  ///< 30 December 1899
};

const automation::Enumeration& enumerationOf(tslDateConstants);

/// A date and time that knows the special dates. A new one is the empty date.
class cFecha : public automation::Object {
public:
    cFecha();

    /// The date in the locale's long-year pattern; the empty date gives a template of blanks, the minimum
    /// "(Desde el principio)" and the maximum "(Hasta el final)".
    automation::String Texto() const;
    /// Text that is no date changes nothing.
    void Texto(const automation::String& value);

    automation::Date Value() const { return dValor; }
    void Value(automation::Date value) { dValor = value; }

    /// Takes a special date and returns it; unknown numbers give the empty date.
    automation::Date SetEspecial(tslDateConstants nDate);

    /// A date of its parts; a part of 0 is today's. A time below one day is added.
    automation::Date Mk_Date(std::int32_t nDia = 0, std::int32_t nMes = 0, std::int32_t nAño = 0,
                             automation::Date nHora = {});
    /// A time of its parts; a part of 0 is the present one. Joins the value's day unless `lNoUpdate`, which
    /// returns the bare time.
    automation::Date Mk_Time(std::int32_t nHoras = 0, std::int32_t nMinutos = 0, std::int32_t nSegundos = 0,
                             bool lNoUpdate = false);
    /// A date without time and a time without date make the value; a message says so if they are not.
    automation::Date SetDateTime(automation::Date dDate = {}, automation::Date dTime = {});
    automation::Date GetDateTime(bool lSolamenteHora = false) const;
    /// In the locale's long forms; the special dates have texts of their own.
    automation::String GetTimeStr(bool lSolamenteHora = false) const;

    // An argument of 0 stands for the object's value and receives it.

    automation::Date dUlMes(automation::Date& dDate) const; ///< Last day of the month
    automation::Date dPrMes(automation::Date& dDate) const; ///< First day of the month
    std::int32_t DiasMes(automation::Date& dDate) const;
    /// From 1, the first day of the user's week.
    std::int32_t DiaSemana(automation::Date& dDate) const;
    automation::String DiaSemanaStr(automation::Date& dDate, bool& lAbreviado) const;
    /// Easter Sunday of a year from 1900 to 2099.
    automation::Date DomingoResurreccion(std::int32_t nYear) const;

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    void orOwn(automation::Date& dDate) const;

    automation::Date dValor;
    automation::String cFormato;
    automation::String cVacio; ///< The text of the empty date
};

} // namespace tesela
