// The locales that the library carries with it, with the strings that the platform reports for them. They
// spare the start-up the loading of the system's data, and they are those in which the system's data differ
// from the platform: the Spanish short date (dd/MM/yyyy, not d/M/yy), the Spanish long date with its two
// "de", "sept" without its dot, the Swedish minus (the hyphen, not U+2212), the Swedish abbreviated months.

#include "platform/linux/locale_data.h"

#include <array>

namespace platform::driver {
namespace {

using Tables = std::array<LocaleData, 4>;

const Tables& tables() {
    static const Tables all = {{
        {0x0C0A,
         "es-ES",
         {
             {LOCALE_ILANGUAGE, {u"0c0a"}},
             {LOCALE_SLIST, {u";"}},
             {LOCALE_SDECIMAL, {u",", u".", u"3;0", u"2", u"1"}},
             {LOCALE_SCURRENCY, {u"€", u"EUR", u",", u".", u"3;0", u"2", u"2", u"3", u"8"}},
             {LOCALE_SDATE, {u"/", u":", u"dd/MM/yyyy", u"dddd, d 'de' MMMM 'de' yyyy", u"1", u"1", u"1"}},
             {LOCALE_ICENTURY, {u"1", u"0", u"1", u"1", u"a.\u202Fm.", u"p.\u202Fm."}},
             {LOCALE_SDAYNAME1,
              {u"lunes", u"martes", u"miércoles", u"jueves", u"viernes", u"sábado", u"domingo"}},
             {LOCALE_SABBREVDAYNAME1, {u"lun", u"mar", u"mié", u"jue", u"vie", u"sáb", u"dom"}},
             {LOCALE_SMONTHNAME1,
              {u"enero", u"febrero", u"marzo", u"abril", u"mayo", u"junio", u"julio", u"agosto",
               u"septiembre", u"octubre", u"noviembre", u"diciembre"}},
             {LOCALE_SABBREVMONTHNAME1,
              {u"ene", u"feb", u"mar", u"abr", u"may", u"jun", u"jul", u"ago", u"sept", u"oct", u"nov",
               u"dic"}},
             {LOCALE_SPOSITIVESIGN, {u"", u"-"}},
             {LOCALE_SISO639LANGNAME, {u"es", u"ES"}},
             {LOCALE_SNAME, {u"es-ES"}},
             {LOCALE_SSHORTTIME, {u"H:mm"}},
             {LOCALE_STIMEFORMAT, {u"H:mm:ss"}},
             {LOCALE_SYEARMONTH, {u"MMMM 'de' yyyy"}},
             {LOCALE_IFIRSTDAYOFWEEK, {u"0", u"2"}},
             {LOCALE_INEGNUMBER, {u"1"}},
         }},
        {0x040A,
         "es-ES_tradnl",
         {
             {LOCALE_ILANGUAGE, {u"040a"}},
             {LOCALE_SLIST, {u";"}},
             {LOCALE_SDECIMAL, {u",", u".", u"3;0", u"2", u"1"}},
             {LOCALE_SCURRENCY, {u"\u20AC", u"EUR", u",", u".", u"3;0", u"2", u"2", u"3", u"8"}},
             {LOCALE_SDATE, {u"/", u":", u"dd/MM/yyyy", u"dddd, d 'de' MMMM 'de' yyyy", u"1", u"1", u"1"}},
             {LOCALE_ICENTURY, {u"1", u"0", u"0", u"0", u"a.\u202Fm.", u"p.\u202Fm."}},
             {LOCALE_SDAYNAME1,
              {u"lunes", u"martes", u"miércoles", u"jueves", u"viernes", u"sábado", u"domingo"}},
             {LOCALE_SABBREVDAYNAME1, {u"lun", u"mar", u"mié", u"jue", u"vie", u"sáb", u"dom"}},
             {LOCALE_SMONTHNAME1,
              {u"enero", u"febrero", u"marzo", u"abril", u"mayo", u"junio", u"julio", u"agosto",
               u"septiembre", u"octubre", u"noviembre", u"diciembre"}},
             {LOCALE_SABBREVMONTHNAME1,
              {u"ene", u"feb", u"mar", u"abr", u"may", u"jun", u"jul", u"ago", u"sept", u"oct", u"nov",
               u"dic"}},
             {LOCALE_SPOSITIVESIGN, {u"", u"-"}},
             {LOCALE_SISO639LANGNAME, {u"es", u"ES"}},
             {LOCALE_SNAME, {u"es-ES_tradnl"}},
             {LOCALE_SSHORTTIME, {u"H:mm"}},
             {LOCALE_STIMEFORMAT, {u"H:mm:ss"}},
             {LOCALE_SYEARMONTH, {u"MMMM 'de' yyyy"}},
             {LOCALE_IFIRSTDAYOFWEEK, {u"0", u"2"}},
             {LOCALE_INEGNUMBER, {u"1"}},
         }},
        {0x0409,
         "en-US",
         {
             {LOCALE_ILANGUAGE, {u"0409"}},
             {LOCALE_SLIST, {u","}},
             {LOCALE_SDECIMAL, {u".", u",", u"3;0", u"2", u"1"}},
             {LOCALE_SCURRENCY, {u"$", u"USD", u".", u",", u"3;0", u"2", u"2", u"0", u"0"}},
             {LOCALE_SDATE, {u"/", u":", u"M/d/yyyy", u"dddd, MMMM d, yyyy", u"0", u"0", u"0"}},
             {LOCALE_ICENTURY, {u"1", u"0", u"0", u"0", u"AM", u"PM"}},
             {LOCALE_SDAYNAME1,
              {u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday", u"Sunday"}},
             {LOCALE_SABBREVDAYNAME1, {u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat", u"Sun"}},
             {LOCALE_SMONTHNAME1,
              {u"January", u"February", u"March", u"April", u"May", u"June", u"July", u"August", u"September",
               u"October", u"November", u"December"}},
             {LOCALE_SABBREVMONTHNAME1,
              {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov",
               u"Dec"}},
             {LOCALE_SPOSITIVESIGN, {u"", u"-"}},
             {LOCALE_SISO639LANGNAME, {u"en", u"US"}},
             {LOCALE_SNAME, {u"en-US"}},
             {LOCALE_SSHORTTIME, {u"h:mm tt"}},
             {LOCALE_STIMEFORMAT, {u"h:mm:ss tt"}},
             {LOCALE_SYEARMONTH, {u"MMMM yyyy"}},
             {LOCALE_IFIRSTDAYOFWEEK, {u"6", u"0"}},
             {LOCALE_INEGNUMBER, {u"1"}},
         }},
        {0x041D,
         "sv-SE",
         {
             {LOCALE_ILANGUAGE, {u"041d"}},
             {LOCALE_SLIST, {u";"}},
             {LOCALE_SDECIMAL, {u",", u"\u00A0", u"3;0", u"2", u"1"}},
             {LOCALE_SCURRENCY, {u"kr", u"SEK", u",", u"\u00A0", u"3;0", u"2", u"2", u"3", u"8"}},
             {LOCALE_SDATE, {u"-", u":", u"yyyy-MM-dd", u"dddd d MMMM yyyy", u"2", u"1", u"1"}},
             {LOCALE_ICENTURY, {u"1", u"1", u"1", u"1", u"fm", u"em"}},
             {LOCALE_SDAYNAME1,
              {u"måndag", u"tisdag", u"onsdag", u"torsdag", u"fredag", u"lördag", u"söndag"}},
             {LOCALE_SABBREVDAYNAME1, {u"mån", u"tis", u"ons", u"tors", u"fre", u"lör", u"sön"}},
             {LOCALE_SMONTHNAME1,
              {u"januari", u"februari", u"mars", u"april", u"maj", u"juni", u"juli", u"augusti", u"september",
               u"oktober", u"november", u"december"}},
             {LOCALE_SABBREVMONTHNAME1,
              {u"jan.", u"feb.", u"mars", u"apr.", u"maj", u"juni", u"juli", u"aug.", u"sep.", u"okt.",
               u"nov.", u"dec."}},
             {LOCALE_SPOSITIVESIGN, {u"", u"-"}},
             {LOCALE_SISO639LANGNAME, {u"sv", u"SE"}},
             {LOCALE_SNAME, {u"sv-SE"}},
             {LOCALE_SSHORTTIME, {u"HH:mm"}},
             {LOCALE_STIMEFORMAT, {u"HH:mm:ss"}},
             {LOCALE_SYEARMONTH, {u"MMMM yyyy"}},
             {LOCALE_IFIRSTDAYOFWEEK, {u"0", u"2"}},
             {LOCALE_INEGNUMBER, {u"1"}},
         }},
    }};
    return all;
}

} // namespace

const LocaleData* builtInLocale(LCID id) {
    for (const auto& table : tables()) {
        if (table.id == id) return &table;
    }
    return nullptr;
}

const LocaleData* builtInLocale(std::string_view name) {
    for (const auto& table : tables()) {
        if (table.name == name) return &table;
    }
    return nullptr;
}

} // namespace platform::driver
