#pragma once
// Conversions that several classes share.

#include "automation/Date.h"
#include "automation/Record.h"
#include "automation/String.h"
#include "data/cFecha.h"

#include <cstdint>

namespace tesela {

/// A moment as four bytes: whole days since 1 January 1900 in the high 16 bits, minutes in the low ones.
struct SmallDateTime {
    automation::Date dFecha;    ///< The day
    automation::Date dHora;     ///< The time, to the minute
    automation::Date dFullDate; ///< Both
    std::int32_t nBinary = 0;
};

const automation::RecordTable& recordOf(const SmallDateTime*);

/// The four-byte form of a date from 1 January 1900 to 6 June 2079. Any other date gives the empty date as
/// `dFullDate` and zeros. Seconds are dropped.
SmallDateTime Date2SmallDate(automation::Date d);

/// The date of a four-byte form; 0 and 1 give the empty date.
automation::Date SmallDate2Date(std::int32_t n);

/// The value of one of the library's special dates.
automation::Date FechaEspecial(tslDateConstants nDate);

/// Makes `cTexto` of `nBytes` bytes of the ANSI code page at `pOrigen`. A count below 1 gives "".
void Bytes2String(const void* pOrigen, automation::String& cTexto, std::int32_t nBytes);

/// Copies `nBytes` bytes (-1: all) of the text's ANSI form to `pDestino`, never more than the text has.
void String2Bytes(const automation::String& cTexto, void* pDestino, std::int32_t nBytes = -1);

} // namespace tesela
