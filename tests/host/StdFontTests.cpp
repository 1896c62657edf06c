#include "HostTest.h"

#include "host/Session.h"
#include "host/StdFont.h"
#include "platform/gdi.h"

namespace host {

class StdFontTest : public HostTest {
protected:
    automation::Ref<StdFont> font = automation::make<StdFont>();
};

TEST_F(StdFontTest, EachChangeIsToldByNameAndAnEqualValueIsNot) {
    Log log;
    font->FontChanged.join([&](const automation::String& name) { log.push_back(name.utf8()); });
    font->Name(u"Arial");
    font->Name(u"Arial");
    font->Size(12);
    font->Bold(true);
    font->Weight(700);
    font->Italic(true);
    font->Underline(true);
    font->Strikethrough(true);
    font->Charset(2);
    EXPECT_EQ(log, (Log{"Name", "Size", "Bold", "Italic", "Underline", "Strikethrough", "Charset"}));
}

TEST_F(StdFontTest, BoldAndWeightAreOneThing) {
    font->Bold(true);
    EXPECT_EQ(font->Weight(), 700);
    font->Weight(400);
    EXPECT_FALSE(font->Bold());
    font->Weight(600);
    EXPECT_TRUE(font->Bold());
}

TEST_F(StdFontTest, ANegativeSizeIsAnError) {
    EXPECT_EQ(errorOf([&] { font->Size(-1); }), 380);
}

TEST_F(StdFontTest, AssignCopiesAllAttributesAndStaysApart) {
    auto other = automation::make<StdFont>();
    other->Name(u"Courier New");
    other->Size(automation::Currency::fromScaled(102500));
    other->Weight(500);
    other->Italic(true);
    font->assign(*other);
    EXPECT_TRUE(font->equals(*other));
    other->Italic(false);
    EXPECT_TRUE(font->Italic());
}

TEST_F(StdFontTest, AssignCopiesInTheOrderOfTheNames) {
    auto other = automation::make<StdFont>();
    other->Name(u"Courier New");
    other->Size(20);
    other->Weight(800);
    other->Charset(2);
    other->Italic(true);
    other->Underline(true);
    other->Strikethrough(true);
    Log log;
    font->FontChanged.join([&](const automation::String& name) { log.push_back(name.utf8()); });
    font->assign(*other);
    EXPECT_EQ(log,
              (Log{"Bold", "Charset", "Italic", "Name", "Size", "Strikethrough", "Underline", "Weight"}));
}

TEST_F(StdFontTest, EqualFontsShareOneGdiFontUntilTheLastOneLeaves) {
    const std::size_t before = session().fonts.size();
    auto other = automation::make<StdFont>();
    font->Name(u"Courier New");
    other->Name(u"Courier New");
    const platform::HFONT shared = font->hFont();
    EXPECT_EQ(other->hFont(), shared);
    EXPECT_EQ(session().fonts.size(), before + 1);
    font->Size(30);
    EXPECT_NE(font->hFont(), shared);
    EXPECT_EQ(session().fonts.size(), before + 2);
    EXPECT_EQ(platform::GetObjectType(shared), platform::OBJ_FONT);
    other.reset();
    EXPECT_EQ(session().fonts.size(), before + 1);
    font.reset();
    EXPECT_EQ(session().fonts.size(), before);
}

TEST_F(StdFontTest, ThoseWhoAskForTheSameAttributesShareAFont) {
    font->Name(u"Arial");
    font->Size(12);
    const automation::Ref<StdFont> first = sharedFont(*font);
    EXPECT_NE(first, font);
    EXPECT_TRUE(first->equals(*font));
    EXPECT_EQ(first, sharedFont(*font->clone()));
    EXPECT_EQ(first, sharedFont(*first));
    font->Size(13);
    const automation::Ref<StdFont> other = sharedFont(*font);
    EXPECT_TRUE(other->equals(*font));
    EXPECT_EQ(first->Size(), automation::Currency(12)) << "a change of the pattern is no change of the font";
    EXPECT_EQ(other, sharedFont(*other));
    EXPECT_EQ(first, sharedFont(*first));
}

TEST_F(StdFontTest, SharedFontsAreNotKeptWithoutEnd) {
    constexpr int many = 50;
    font->Size(100);
    const automation::Ref<StdFont> first = sharedFont(*font);
    for (int size = 1; size <= many; ++size) {
        font->Size(size);
        EXPECT_TRUE(sharedFont(*font)->equals(*font));
    }
    font->Size(100);
    EXPECT_NE(first, sharedFont(*font));
    EXPECT_TRUE(first->equals(*font)) << "it lives as long as somebody has it";
}

TEST_F(StdFontTest, TheGdiFontHasTheAttributes) {
    font->Name(u"Arial");
    font->Size(12);
    font->Bold(true);
    font->Underline(true);
    platform::LOGFONTW made;
    ASSERT_TRUE(platform::GetObjectFont(font->hFont(), &made));
    EXPECT_EQ(made.lfHeight, -16);
    EXPECT_EQ(made.lfWeight, 700);
    EXPECT_TRUE(made.lfUnderline);
    EXPECT_EQ(std::u16string(made.lfFaceName), u"Arial");
}

} // namespace host
