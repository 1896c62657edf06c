#pragma once
// How the library tidies up texts that people type.

#include "automation/Enumeration.h"
#include "automation/String.h"

#include <cstdint>
#include <string_view>

namespace tesela {

/// What AutoFormatearTexto does beside trimming; the flags add up.
enum tslGetAutoFormatConstants : std::int32_t {
    tslGetAutoFormatDefault = 0,
    tslGetAutoFormatProperCase = 1,       ///< Each word begins with a capital
    tslGetAutoFormatEspacioTrasPunto = 2, ///< A blank follows each point
};

const automation::Enumeration& enumerationOf(tslGetAutoFormatConstants);

/// Whether all letters are those of Roman numerals, in either case and whatever their order. True for the
/// empty text.
bool EsNumeroRomano(std::u16string_view cCad);

/// The text trimmed, its Roman numerals in capitals and its words as `nFormat` says.
automation::String AutoFormatearTexto(std::u16string_view cCad, std::int32_t nFormat);

} // namespace tesela
