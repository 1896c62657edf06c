#include "drawing/colours.h"
#include "frame/GlobalCtlCfg.h"
#include "platform/windows.h"
#include "support/Started.h"

using automation::Array;
using automation::Variant;
using namespace tesela;

namespace {

class GlobalCtlCfg_ : public support::Started {};

constexpr int colorWindow = 5, colorWindowText = 8, colorButtonFace = 15;

std::int32_t sys(int number) {
    return static_cast<std::int32_t>(platform::GetSysColor(number));
}

/// The mix, channel by channel, in whole numbers: half to even of c1 + (255 - t) * (c2 - c1) / 256.
std::int32_t mixed(std::int32_t a, std::int32_t b, int t) {
    std::int32_t result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int c1 = a >> shift & 255, c2 = b >> shift & 255;
        const int scaled = 256 * c1 + (255 - t) * (c2 - c1);
        int rounded = scaled / 256;
        const int rest = scaled % 256;
        if (rest > 128 || (rest == 128 && rounded % 2 != 0)) ++rounded;
        result |= rounded << shift;
    }
    return result;
}

constexpr std::int32_t rgb(int r, int g, int b) {
    return r | g << 8 | b << 16;
}

} // namespace

TEST_F(GlobalCtlCfg_, HighColourTable) {
    const std::int32_t face = sys(colorButtonFace), window = sys(colorWindow), text = sys(colorWindowText);
    const std::int32_t expected[] = {text,
                                     window,
                                     mixed(window, 0x80FFFF, 128),
                                     mixed(face, 0xFFFFFF, 96),
                                     rgb(64, 64, 64),
                                     text,
                                     0xFFFFFF,
                                     face,
                                     rgb(239, 239, 255),
                                     rgb(192, 192, 255),
                                     mixed(face, 0xFFFFFF, 128),
                                     mixed(mixed(face, 0, 128), rgb(192, 192, 255), 192),
                                     mixed(rgb(176, 176, 224), 0xFFFFFF, 96),
                                     rgb(176, 176, 224),
                                     0,
                                     rgb(0, 64, 128),
                                     rgb(128, 0, 128),
                                     rgb(255, 64, 64),
                                     rgb(96, 0, 0),
                                     rgb(255, 224, 0),
                                     rgb(96, 96, 0),
                                     rgb(64, 208, 64),
                                     rgb(0, 96, 0)};
    const Array table = InitialGlobalCtlCfg(true);
    for (std::int32_t slot = 1; slot <= 23; ++slot)
        EXPECT_EQ(expected[slot - 1], table(slot).asLong()) << "slot " << slot;
}

TEST_F(GlobalCtlCfg_, LowColourTable) {
    const std::int32_t face = sys(colorButtonFace), window = sys(colorWindow), text = sys(colorWindowText);
    const std::int32_t expected[] = {text,     window,   mixed(0xFFFFFF, 0x80FFFF, 128),
                                     face,     text,     text,
                                     face,     face,     0xFFFF00,
                                     0xFFFF00, face,     mixed(0xFFFF00, 0x808000, 224),
                                     0xFFFF00, 0xFFFF00, 0,
                                     0xFF0000, 0xFF00FF, 0x0000FF,
                                     0x000080, 0x00FFFF, 0x008080,
                                     0x00FF00, 0x008000};
    const Array table = InitialGlobalCtlCfg(false);
    for (std::int32_t slot = 1; slot <= 23; ++slot)
        EXPECT_EQ(expected[slot - 1], table(slot).asLong()) << "slot " << slot;
}

TEST_F(GlobalCtlCfg_, TheWholeTableHas24ElementsAndTheLastIsEmpty) {
    const Variant whole = GlobalCtlCfg(tslCtlGlobalCfg_AllValues);
    ASSERT_TRUE(whole.isArray());
    const Array& table = whole.asArray();
    EXPECT_EQ(1, table.lower());
    EXPECT_EQ(24, table.upper());
    EXPECT_TRUE(table(24).isEmpty());
    EXPECT_TRUE(GlobalCtlCfg(tslCtlGlobalCfg_LastOption).isEmpty());
}

TEST_F(GlobalCtlCfg_, ASlotIsWrittenForAllControls) {
    GlobalCtlCfg(tslCtlGlobalCfg_Btn_Face, Variant(std::int32_t{0x123456}));
    EXPECT_EQ(0x123456, GlobalCtlCfg(tslCtlGlobalCfg_Btn_Face).asLong());
    EXPECT_EQ(0x123456, globales().xGlobalCtlCfg(8).asLong());
}

TEST_F(GlobalCtlCfg_, AWrongIndexIsPassedOver) {
    const auto wrong = static_cast<tslCtlGlobalCfgConstants>(25);
    EXPECT_TRUE(GlobalCtlCfg(wrong).isEmpty());
    GlobalCtlCfg(wrong, Variant(std::int32_t{1}));
    GlobalCtlCfg(static_cast<tslCtlGlobalCfgConstants>(-1), Variant(std::int32_t{1}));
    EXPECT_EQ(24u, globales().xGlobalCtlCfg.size());
}

TEST_F(GlobalCtlCfg_, TheWholeTableIsReplacedByAnArrayOnly) {
    Array other = GlobalCtlCfg(tslCtlGlobalCfg_AllValues).asArray();
    other.set(Variant(std::int32_t{7}), 1);
    EXPECT_NE(7, GlobalCtlCfg(tslCtlGlobalCfg_Get_ForeColor).asLong()) << "a copy is apart";
    GlobalCtlCfg(tslCtlGlobalCfg_AllValues, Variant(other));
    EXPECT_EQ(7, GlobalCtlCfg(tslCtlGlobalCfg_Get_ForeColor).asLong());
    GlobalCtlCfg(tslCtlGlobalCfg_AllValues, Variant(u"no table"));
    EXPECT_EQ(7, GlobalCtlCfg(tslCtlGlobalCfg_Get_ForeColor).asLong());
}

TEST(Colours, MixesStopShortOfTheSecondColour) {
    EXPECT_EQ(0x123456, CalculateColorMix(0x123456, 0xFFFFFF, 255));
    EXPECT_EQ(0xFEFEFE, CalculateColorMix(0, 0xFFFFFF, 0));
    for (int t = 0; t <= 255; ++t) {
        EXPECT_EQ(mixed(0x204060, 0xF08010, t),
                  CalculateColorMix(0x204060, 0xF08010, static_cast<std::uint8_t>(t)));
        EXPECT_EQ(mixed(0xFFFFFF, 0, t), CalculateColorMix(0xFFFFFF, 0, static_cast<std::uint8_t>(t)));
    }
}

TEST(Colours, SystemColoursAreResolvedAndOthersStay) {
    EXPECT_EQ(sys(colorButtonFace), GetVBSysColor(static_cast<std::int32_t>(0x8000000Fu)));
    EXPECT_EQ(0xABCDEF, GetVBSysColor(0xABCDEF));
}

TEST(Colours, TheClassicPalette) {
    EXPECT_EQ(0x000000, QBColor(0));
    EXPECT_EQ(0x808000, QBColor(3));
    EXPECT_EQ(0xC0C0C0, QBColor(7));
    EXPECT_EQ(0xFF0000, QBColor(9));
    EXPECT_EQ(0xFFFFFF, QBColor(15));
    EXPECT_EQ(0, QBColor(16));
    EXPECT_EQ(0, QBColor(-1));
}
