#pragma once

#include "automation/ClassTable.h"
#include "automation/Event.h"
#include "frame/Globales.h"
#include "frame/enumerations.h"
#include "host/UserControl.h"

#include <cstdint>

namespace tesela {

/// What all controls of the library have in common: the members that each of them offers, the gate that
/// stands before their events, and the shared start of the library.
class LibraryControl : public host::UserControl {
public:
    /// The control's window.
    std::int32_t hWND() const { return static_cast<std::int32_t>(hWnd().value); }

    /// The last position that the control covers, in the container's scale. A write moves the control and
    /// leaves its size.
    float RightPos() const;
    void RightPos(float value);
    float BottomPos() const;
    void BottomPos(float value);

    /// False until it is first written. A dead control is invisible and disabled; the value is not saved.
    bool Live() const { return lLive; }

    /// Alias of the recordset and name of the field that the application binds the control to; the library
    /// does no data access.
    const automation::String& Alias() const { return cAlias; }
    void Alias(const automation::String& value);
    const automation::String& Campo() const { return cCampo; }
    void Campo(const automation::String& value);
    tslTipoDatoConstants TipoDato() const { return nTipoDato; }
    void TipoDato(tslTipoDatoConstants value);

    tslSchemeConstants Scheme() const { return nScheme; }

    /// How many events of this control are being raised right now: to be asked before a form is unloaded
    /// from inside an event.
    std::int32_t UncompletedEvents() const { return nEventsInProgress; }

    /// The gate of the whole library: False closes it by one more, True opens it by one. Events are raised
    /// only while it is open.
    void EventsEnabled(bool lEnabled);

    /// What Enabled was last set to, so that an application can disable a whole form and restore it.
    bool lInternalPreEnabled = false;

protected:
    LibraryControl() { EnsureInicio(); }

    static bool gateOpen() { return globales().nEventsDisabled < 1; }

    /// Raises an event, counted while it lasts. The control outlives it, whatever the handlers do.
    template <class... Args, class... Given>
    void raise(const automation::Event<Args...>& event, Given&&... arguments) {
        const automation::Ref<automation::Object> alive(this);
        struct Counted {
            std::int32_t& count;
            explicit Counted(std::int32_t& events) : count(events) { ++count; }
            ~Counted() { --count; }
        } counted(nEventsInProgress);
        event.raise(std::forward<Given>(arguments)...);
    }

    /// Stores `value` for Live and shows and enables the control, or hides and disables it.
    void setLive(bool value);

    /// The library's default fonts of the schemes; `size` in points.
    static void assignFont(host::StdFont& font, const automation::String& name, double size, bool bold);

    bool lLive = false;
    automation::String cAlias;
    automation::String cCampo;
    tslTipoDatoConstants nTipoDato = tslTipoDatoCaracter;
    tslSchemeConstants nScheme = tslSchemeUseDefault;
    std::int32_t nEventsInProgress = 0;
};

} // namespace tesela
