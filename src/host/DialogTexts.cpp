#include "host/DialogTexts.h"

#include "platform/locale.h"

namespace host {

namespace {

struct Captions {
    MsgBoxResult button;
    const char16_t* spanish;
    const char16_t* english;
};

constexpr Captions Table[] = {
    {MsgBoxResult::Ok, u"Aceptar", u"OK"},
    {MsgBoxResult::Cancel, u"Cancelar", u"Cancel"},
    {MsgBoxResult::Abort, u"&Anular", u"&Abort"},
    {MsgBoxResult::Retry, u"&Reintentar", u"&Retry"},
    {MsgBoxResult::Ignore, u"&Omitir", u"&Ignore"},
    {MsgBoxResult::Yes, u"&Sí", u"&Yes"},
    {MsgBoxResult::No, u"&No", u"&No"},
};

bool userIsSpanish() {
    constexpr platform::LCID LanguageBits = 0x3FF;
    constexpr platform::LCID Spanish = 0x0A;
    return (platform::GetUserDefaultLCID() & LanguageBits) == Spanish;
}

} // namespace

automation::String dialogCaption(MsgBoxResult button) {
    for (const Captions& row : Table) {
        if (row.button == button) return userIsSpanish() ? row.spanish : row.english;
    }
    return {};
}

} // namespace host
