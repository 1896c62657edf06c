// The pictures of ./tesela shot, held to those in tests/golden. TESELA_GOLDEN_WRITE=1 keeps the new ones
// instead; look at each before it is committed. TESELA_GOLDEN_KIND is added to the names of the pictures,
// which then are those of another display or, with TESELA_GOLDEN_LOCALE, of another locale.
#include "platform/locale.h"
#include "platform/pictures.h"
#include "platform/processes.h"
#include "sample/SampleDatabase.h"
#include "shot/scenes.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace {

platform::PictureData decoded(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    platform::PictureData picture;
    platform::decodePicture({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, picture);
    return picture;
}

std::string variable(const char16_t* name) {
    return platform::utf8FromWide(platform::environmentVariable(name));
}

class Scenes : public ::testing::TestWithParam<const shot::Scene*> {
protected:
    Scenes() {
        const std::string locale = variable(u"TESELA_GOLDEN_LOCALE");
        platform::overrideUserLocale(locale.empty() ? "es-ES" : locale);
        sample::writeSampleDatabase(slashed(u"sample.sqlite"));
        platform::SetEnvironmentVariableA("TESELA_SAMPLE", slashed(u"sample.sqlite").c_str());
    }
    std::string slashed(std::u16string_view name) const {
        std::string path = platform::utf8FromWide(folder.file(name));
        for (char& c : path)
            if (c == '\\') c = '/';
        return path;
    }

    support::TemporaryFolder folder;
};

} // namespace

TEST_P(Scenes, LooksAsItsGoldenPicture) {
    const shot::Scene& scene = *GetParam();
    const std::string golden =
        variable(u"TESELA_TEST_DATA") + "/golden/" + scene.name + variable(u"TESELA_GOLDEN_KIND") + ".png";
    if (!variable(u"TESELA_GOLDEN_WRITE").empty()) {
        ASSERT_TRUE(scene.paint(golden));
        return;
    }
    const std::string now = slashed(u"now.png");
    ASSERT_TRUE(scene.paint(now));
    const auto expected = decoded(golden);
    const auto painted = decoded(now);
    ASSERT_GT(painted.width, 0);
    ASSERT_EQ(expected.width, painted.width);
    ASSERT_EQ(expected.height, painted.height);
    std::size_t different = 0;
    for (std::size_t i = 0; i < painted.argb.size(); ++i)
        different += expected.argb[i] != painted.argb[i];
    EXPECT_EQ(0u, different) << "pixels of " << painted.argb.size();
}

TEST_P(Scenes, LooksTheSameTwice) {
    const shot::Scene& scene = *GetParam();
    ASSERT_TRUE(scene.paint(slashed(u"first.png")));
    ASSERT_TRUE(scene.paint(slashed(u"second.png")));
    EXPECT_EQ(decoded(slashed(u"first.png")).argb, decoded(slashed(u"second.png")).argb);
}

INSTANTIATE_TEST_SUITE_P(All, Scenes, ::testing::ValuesIn([] {
                             std::vector<const shot::Scene*> all;
                             for (const shot::Scene& scene : shot::scenes())
                                 all.push_back(&scene);
                             return all;
                         }()),
                         [](const auto& tested) { return std::string(tested.param->name); });
