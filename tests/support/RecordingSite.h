#pragma once
// A container that writes down what a control tells it.

#include "host/Control.h"
#include "host/ControlSite.h"
#include "platform/locale.h"

#include <string>
#include <vector>

namespace support {

/// Holds one control in a window and does what it asks, as a container would.
class RecordingSite : public host::ControlSite {
public:
    RecordingSite(host::Control& control, platform::HWND parent, const host::Bounds& place)
        : control_(control) {
        control_.enter(*this, nullptr, parent, place);
        control_.initProperties();
        control_.applyBounds(place);
    }
    ~RecordingSite() override { control_.leave(); }

    bool userMode = true;                          ///< Ambient.UserMode
    std::vector<std::string> changed;              ///< Names of the properties that were reported
    std::vector<std::pair<float, float>> askedFor; ///< Sizes in twips

    automation::Variant ambientValue(host::AmbientValue which) override {
        return which == host::AmbientValue::UserMode ? automation::Variant(userMode) : automation::Variant();
    }
    automation::Variant extenderValue(host::ExtenderValue which) override {
        if (which == host::ExtenderValue::Name) return automation::Variant(u"control1");
        if (which == host::ExtenderValue::Visible) return visible_;
        throw automation::Error(automation::errors::MemberNotSupported);
    }
    void setExtenderValue(host::ExtenderValue which, const automation::Variant& value) override {
        if (which != host::ExtenderValue::Visible)
            throw automation::Error(automation::errors::MemberNotSupported);
        visible_ = value.asBoolean();
        control_.applyVisible(visible_);
    }
    void move(float left, float top, float width, float height) override {
        control_.applyBounds({left, top, width, height});
    }
    void requestSize(float widthTwips, float heightTwips) override {
        askedFor.emplace_back(widthTwips, heightTwips);
        control_.applyBounds({control_.bounds().left, control_.bounds().top, widthTwips, heightTwips});
    }
    void propertyChanged(std::u16string_view name) override {
        changed.push_back(platform::utf8FromWide(name));
    }
    void accessKeysChanged() override {}
    void zOrder(host::ZOrderPosition) override {}
    bool takeFocus() override { return false; }
    bool translateKey(platform::UINT, platform::WPARAM&, platform::LPARAM) override { return false; }
    bool focusArrived() override { return true; }
    bool focusLeaving(platform::HWND) override { return false; }
    void paintBehind(platform::HDC) override {}
    void enabledChanged() override {}
    void mouseActivity(platform::UINT, const automation::String&) override {}

private:
    host::Control& control_;
    bool visible_ = true;
};

} // namespace support
