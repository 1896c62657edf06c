#pragma once

#include "automation/Currency.h"
#include "automation/Event.h"
#include "automation/Object.h"
#include "automation/String.h"
#include "platform/gdi.h"

namespace host {

inline constexpr short FontWeightNormal = 400;
inline constexpr short FontWeightBold = 700;

/// The standard font object. Each change raises FontChanged with the property's name; a value equal to the
/// present one raises nothing.
class StdFont : public automation::Object {
public:
    StdFont() = default;
    ~StdFont() override;

    bool Bold() const;
    void Bold(bool value); ///< Weight 700 or 400
    short Charset() const { return charset_; }
    void Charset(short value);
    bool Italic() const { return italic_; }
    void Italic(bool value);
    const automation::String& Name() const { return name_; }
    void Name(const automation::String& value);
    /// In points. Rounded to what whole pixels give on the screen when the font is used, not here; values
    /// below 0 throw automation::Error 380.
    automation::Currency Size() const { return size_; }
    void Size(automation::Currency value);
    bool Strikethrough() const { return strikethrough_; }
    void Strikethrough(bool value);
    bool Underline() const { return underline_; }
    void Underline(bool value);
    short Weight() const { return weight_; }
    void Weight(short value); ///< Above 550 reads as Bold

    /// After a change, with the property's name.
    automation::Event<const automation::String&> FontChanged;

    /// Copies the eight attributes, in the order of the names above.
    void assign(const StdFont& other);
    bool equals(const StdFont& other) const;
    automation::Ref<StdFont> clone() const;

    /// The GDI font for the screen. It is made at the first call and shared with all equal fonts; it lives
    /// until the last StdFont that asked for it changes or dies.
    platform::HFONT hFont() const;

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    static const automation::String& usualName();
    void changed(const automation::String& attribute);
    void drop() const;

    automation::String name_ = usualName();
    automation::Currency size_ = automation::Currency::fromScaled(82500); ///< 8.25
    short weight_ = FontWeightNormal;
    short charset_ = 0;
    bool italic_ = false;
    bool underline_ = false;
    bool strikethrough_ = false;
    mutable platform::HFONT font_;
};

} // namespace host
