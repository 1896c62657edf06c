#include "frame/CodigoUsoConjunto.h"

#include "platform/locale.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tesela {

using automation::Date;
using automation::String;

namespace {

constexpr double firstSmallDay = 2;        // 1 January 1900
constexpr double pastLastSmallDay = 65538; // 7 June 2079
constexpr std::int32_t smallDayOffset = 2; // Day 0 of the four-byte form is day 2 of the automation count
constexpr double secondsPerDay = 86400;
constexpr double minutesPerDay = 1440;

} // namespace

SmallDateTime Date2SmallDate(Date d) {
    SmallDateTime result;
    if (!(d.value() >= firstSmallDay && d.value() < pastLastSmallDay)) {
        result.dFullDate = FechaEspecial(tslDateEmpty);
        return result;
    }
    const double whole = std::trunc(d.value());
    const std::int32_t days = static_cast<std::int32_t>(whole) - smallDayOffset;
    const auto seconds = static_cast<std::int32_t>(std::nearbyint((d.value() - whole) * secondsPerDay));
    const std::int32_t minutes = (seconds - seconds % 60) / 60;
    result.nBinary = static_cast<std::int32_t>(static_cast<std::uint32_t>(days) << 16 |
                                               static_cast<std::uint32_t>(minutes));
    result.dFecha = Date(days + smallDayOffset);
    result.dHora = Date(minutes / minutesPerDay);
    result.dFullDate = Date(result.dFecha.value() + result.dHora.value());
    return result;
}

Date SmallDate2Date(std::int32_t n) {
    if (n == 0 || n == 1) return FechaEspecial(tslDateEmpty);
    const auto bits = static_cast<std::uint32_t>(n);
    return Date((bits >> 16) + smallDayOffset + (bits & 0xFFFF) / minutesPerDay);
}

Date FechaEspecial(tslDateConstants nDate) {
    const auto fecha = automation::make<cFecha>();
    fecha->SetEspecial(nDate);
    return fecha->Value();
}

void Bytes2String(const void* pOrigen, String& cTexto, std::int32_t nBytes) {
    const auto size = static_cast<std::size_t>(std::max(nBytes, 0));
    cTexto = String::fromAnsi({static_cast<const char*>(pOrigen), size});
}

void String2Bytes(const String& cTexto, void* pDestino, std::int32_t nBytes) {
    const std::string bytes = cTexto.ansi();
    const std::size_t wanted = nBytes < 0 ? bytes.size() : static_cast<std::size_t>(nBytes);
    std::memcpy(pDestino, bytes.data(), std::min(wanted, bytes.size()));
}

const automation::RecordTable& recordOf(const SmallDateTime*) {
    static const automation::RecordTable table = automation::RecordTable::of<SmallDateTime>("SmallDateTime")
                                                     .field("dFecha", &SmallDateTime::dFecha)
                                                     .field("dHora", &SmallDateTime::dHora)
                                                     .field("dFullDate", &SmallDateTime::dFullDate)
                                                     .field("nBinary", &SmallDateTime::nBinary);
    return table;
}

} // namespace tesela
