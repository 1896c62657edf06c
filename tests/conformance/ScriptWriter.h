#pragma once
// What random scripts are written with: lines of random words, and the surfaces that they draw on.

#include "conformance/Dice.h"
#include "platform/gdi_types.h"

#include <cstdint>
#include <string>

namespace conformance {

/// One line, word after word. The words are joined in a chain, so that the order in which the dice fall is
/// the same with every compiler.
class Call {
public:
    Call(Dice& dice, const std::string& words) : dice_(dice), text_(words) {}

    Call& word(const std::string& word) {
        text_ += " " + word;
        return *this;
    }
    Call& number(std::int64_t number) { return word(std::to_string(number)); }
    Call& some(int count, int low, int high) {
        for (int i = 0; i < count; ++i)
            number(dice_.between(low, high));
        return *this;
    }
    Call& color() {
        const bool plain = dice_.oneIn(3);
        return number(plain ? dice_.of({0, 0xFFFFFF, 0xFF, 0xFF00, 0xFF0000, 0x808080})
                            : dice_.between(0, 0xFFFFFF));
    }
    /// A place on the target.
    Call& place() { return some(2, -8, 56); }
    Call& size(int least, int most) { return some(2, least, most); }
    /// Some of them below zero.
    Call& turnedSize() {
        const int width = dice_.between(1, 60);
        number(dice_.oneIn(5) ? -width : width);
        const int height = dice_.between(1, 60);
        return number(dice_.oneIn(5) ? -height : height);
    }
    /// Left, top, right and bottom.
    Call& box(int least, int most) {
        const int left = dice_.between(-4, 60 - least);
        const int top = dice_.between(-4, 60 - least);
        number(left).number(top);
        return number(left + dice_.between(least, most)).number(top + dice_.between(least, most));
    }
    /// An operation of all 256.
    Call& operation() { return number(dice_.oneIn(2) ? 0x00CC0020 : dice_.between(0, 255) << 16); }

    const std::string& text() const { return text_; }

private:
    Dice& dice_;
    std::string text_;
};

/// Writes a script line by line.
class ScriptWriter {
public:
    explicit ScriptWriter(int seed) : dice(static_cast<std::uint64_t>(seed)) {}

    Dice dice;
    std::string text;

    Call call(const std::string& name) { return {dice, name}; }
    void line(const std::string& words) { text += words + '\n'; }
    void line(const Call& call) { line(call.text()); }
    void gdi(const Call& call) { line("gdi " + call.text()); }
    void show(const Call& call) { line("show gdi " + call.text()); }

    std::string depth() { return dice.of({"32", "32", "32", "24", "16", "8", "4", "1", "1c"}); }
    /// Full of noise.
    void surface(const std::string& name, int side, const std::string& kind) {
        line(call("surface").word(name).number(side).number(side).word(kind));
        gdi(call("Noise").some(1, 0, 9999));
        if (dice.oneIn(2)) gdi(call("SetTextColor").color());
        if (dice.oneIn(2)) gdi(call("SetBkColor").color());
    }
    void target(const std::string& kind) {
        surface("main", 64, kind);
        if (dice.oneIn(3)) clip();
    }
    void clip() {
        if (dice.oneIn(2)) gdi(call("IntersectClipRect").box(10, 60));
        for (int i = dice.between(0, 3); i > 0; --i)
            gdi(call("ExcludeClipRect").box(1, 30));
    }
    void mapping() {
        gdi(call("SetMapMode").number(dice.of({platform::MM_ISOTROPIC, platform::MM_ANISOTROPIC})));
        const auto length = [this] { return dice.of({32, 48, 64, 64, 100}); };
        gdi(call("SetWindowExtEx").number(length()).number(length()));
        gdi(call("SetViewportExtEx").number(length()).number(length()));
        if (dice.oneIn(2)) gdi(call("SetWindowOrgEx").some(2, -20, 20));
        if (dice.oneIn(2)) gdi(call("SetViewportOrgEx").some(2, -20, 30));
    }
};

} // namespace conformance
