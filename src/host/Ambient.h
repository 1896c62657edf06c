#pragma once

#include "automation/Object.h"
#include "automation/String.h"
#include "host/Colors.h"
#include "host/ControlSite.h"

namespace host {

class StdFont;

/// A control's view of its container's ambient values. Before the control has a container, and where the
/// container offers no value, each has a default of its own.
class Ambient {
public:
    explicit Ambient(const Control& control) : control_(control) {}
    Ambient(const Ambient&) = delete;
    Ambient& operator=(const Ambient&) = delete;

    bool UserMode() const;                  ///< Default True
    OLE_COLOR BackColor() const;            ///< Default &H8000000F
    OLE_COLOR ForeColor() const;            ///< Default &H80000012
    automation::Ref<StdFont> Font() const;  ///< Never null; default the host's own font at size 8.25
    automation::String ScaleUnits() const;  ///< Default "Twip"
    automation::String DisplayName() const; ///< Default the extender's name
    std::int32_t LocaleID() const;          ///< Default the user's
    bool DisplayAsDefault() const;          ///< Default False
    bool UIDead() const;                    ///< Default False

private:
    automation::Variant value(AmbientValue which) const;

    const Control& control_;
};

} // namespace host
