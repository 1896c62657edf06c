// The window of fichas with a user at the desk.
#include "fichas/window/RecordForm.h"

#include "fichas/window/linux/Tour.h"
#include "platform/input.h"
#include "platform/linux/database.h"
#include "support/Desk.h"
#include "support/Started.h"
#include "support/TemporaryFolder.h"

#include <filesystem>

using namespace fichas;
using automation::String;
using tesela::lbl;

namespace {

class RecordFormTest : public support::Started {
protected:
    /// A form on a file of this content.
    RecordForm& openCsv(const std::string& text) {
        file_ = openFile(folder_.write(u"datos.csv", text));
        return show(u"datos.csv");
    }
    RecordForm& openDatabase(const std::string& sql) {
        const String path = folder_.file(u"datos.sqlite");
        std::string place = path.utf8();
        std::replace(place.begin(), place.end(), '\\', '/');
        platform::Database(place, platform::Database::Access::Create).execute(sql);
        file_ = openFile(String::fromUtf8(place));
        return show(file_->tables().front());
    }
    RecordForm& show(const String& table) {
        form_ = automation::make<RecordForm>(file_, table);
        form_->Show();
        desk_.pump();
        return *form_;
    }
    void TearDown() override {
        if (form_ && form_->loaded()) form_->unload();
        desk_.pump();
    }

    void press(int key, bool withControl = false) {
        if (withControl) desk_.pressKey(platform::VK_CONTROL);
        desk_.strikeKey(key);
        if (withControl) desk_.releaseKey(platform::VK_CONTROL);
        desk_.pump();
    }
    lbl& value(short index) const { return form_->get<lbl>(u"lblValor", index); }
    lbl& note() const { return form_->get<lbl>(u"lblNota"); }
    lbl& caption(short index) const { return form_->get<lbl>(u"lblCampo", index); }

    support::Desk desk_;
    support::TemporaryFolder folder_;
    std::shared_ptr<const DataFile> file_;
    automation::Ref<RecordForm> form_;
};

constexpr const char* threeRecords =
    "id;nombre;precio;alta\n1;Ana;1,50;01/02/2024\n2;R&D;;\n3;Eva;-3,25;31/12/2024\n";

TEST_F(RecordFormTest, ShowsTheFirstRecordWithNamesBesideTheValues) {
    const RecordForm& form = openCsv(threeRecords);
    EXPECT_EQ(form.Caption(), u"datos.csv — 1 de 3");
    EXPECT_EQ(caption(1).Caption(), u"nombre");
    EXPECT_EQ(value(0).Caption(), u"1");
    EXPECT_EQ(value(1).Caption(), u"Ana");
    EXPECT_EQ(value(2).Caption(), u"1,50");
    EXPECT_EQ(value(3).Caption(), u"01/02/2024");
    EXPECT_EQ(value(0).Alignment(), tesela::tslAlignmentRightJustify);
    EXPECT_EQ(value(1).Alignment(), tesela::tslAlignmentLeftJustify);
    EXPECT_EQ(value(2).ValorVerdadero().asDouble(), 1.5);
    EXPECT_EQ(value(3).ValorVerdadero().asDate(), automation::Date::join(2024, 2, 1));
    EXPECT_EQ(value(3).Campo(), u"alta");
}

TEST_F(RecordFormTest, KeysWalkThroughTheRecords) {
    RecordForm& form = openCsv(threeRecords);
    const auto after = [&](int key) {
        press(key);
        return form.record();
    };
    EXPECT_EQ(after(platform::VK_NEXT), 2);
    EXPECT_EQ(after(platform::VK_DOWN), 3);
    EXPECT_EQ(after(platform::VK_NEXT), 3);
    EXPECT_EQ(form.Caption(), u"datos.csv — 3 de 3");
    EXPECT_EQ(value(2).Caption(), u"-3,25");
    EXPECT_EQ(after(platform::VK_PRIOR), 2);
    EXPECT_EQ(after(platform::VK_UP), 1);
    EXPECT_EQ(after(platform::VK_PRIOR), 1);
    EXPECT_EQ(after(platform::VK_END), 3);
    EXPECT_EQ(after(platform::VK_LEFT), 2);
    EXPECT_EQ(after(platform::VK_RIGHT), 3);
    EXPECT_EQ(after(platform::VK_HOME), 1);
    EXPECT_EQ(value(1).Caption(), u"Ana");
}

TEST_F(RecordFormTest, AnAmpersandIsShownAndAMissingValueIsBlank) {
    openCsv(threeRecords);
    press(platform::VK_NEXT);
    EXPECT_EQ(value(1).Caption(), u"R&&D") << "doubled for the label, which underlines after a single one";
    EXPECT_EQ(value(2).Caption(), u"");
    press(platform::VK_NEXT);
    press(platform::VK_PRIOR);
    EXPECT_EQ(value(1).Caption(), u"R&&D");
}

TEST_F(RecordFormTest, AnAmpersandAndTwoOfThemAreDifferentValues) {
    openCsv("id;nombre\n1;R&D\n2;R&&D\n3;R&D\n");
    EXPECT_EQ(value(1).Caption(), u"R&&D");
    press(platform::VK_NEXT);
    EXPECT_EQ(value(1).Caption(), u"R&&&&D");
    press(platform::VK_NEXT);
    EXPECT_EQ(value(1).Caption(), u"R&&D");
}

TEST_F(RecordFormTest, ControlWithThePageKeysChangesTheTable) {
    RecordForm& form = openDatabase("CREATE TABLE uno(a INTEGER); INSERT INTO uno VALUES(1), (2);"
                                    "CREATE TABLE dos(x TEXT, y TEXT); INSERT INTO dos VALUES('p', 'q');"
                                    "CREATE TABLE tres(z);");
    press(platform::VK_NEXT);
    EXPECT_EQ(form.Caption(), u"uno — 2 de 2");
    press(platform::VK_NEXT, true);
    EXPECT_EQ(form.Caption(), u"dos — 1 de 1");
    EXPECT_EQ(value(1).Caption(), u"q");
    press(platform::VK_NEXT, true);
    EXPECT_EQ(form.Caption(), u"tres — ningún registro");
    press(platform::VK_NEXT);
    press(platform::VK_END);
    EXPECT_EQ(form.Caption(), u"tres — ningún registro");
    press(platform::VK_NEXT, true);
    EXPECT_EQ(form.Caption(), u"uno — 1 de 2");
    press(platform::VK_PRIOR, true);
    EXPECT_EQ(form.Caption(), u"tres — ningún registro");
}

TEST_F(RecordFormTest, FieldsThatDoNotFitAreReachedPageByPage) {
    std::string names = "c0";
    std::string values = "v0";
    constexpr short fields = 80;
    for (int i = 1; i < fields; ++i) {
        names += ";c" + std::to_string(i);
        values += ";v" + std::to_string(i);
    }
    openCsv(names + "\n" + values + "\n");
    std::vector<int> seen(fields);
    for (int page = 0; page < 3; ++page) {
        for (short i = 0; i < fields; ++i)
            if (value(i).Extender().Visible()) {
                EXPECT_TRUE(caption(i).Extender().Visible());
                ++seen[static_cast<std::size_t>(i)];
            }
        press(platform::VK_DOWN, true);
    }
    EXPECT_EQ(seen, std::vector<int>(fields, 1)) << "each field stands on one page";
    press(platform::VK_UP, true);
    press(platform::VK_UP, true);
    EXPECT_TRUE(value(0).Extender().Visible());
    EXPECT_FALSE(value(fields - 1).Extender().Visible());
}

TEST_F(RecordFormTest, ALongFileIsCountedWhileTheUserRests) {
    std::string text = "id;nombre\n";
    constexpr int records = 600'000;
    for (int i = 1; i <= records; ++i)
        text += std::to_string(i) + ";un nombre cualquiera\n";
    RecordForm& form = openCsv(text);
    EXPECT_TRUE(form.Caption().view().starts_with(u"datos.csv — 1 de más de ")) << form.Caption().utf8();
    for (int i = 0; i < 20 && form.Caption().find(u"más") != String::npos; ++i) {
        desk_.advance(20);
        desk_.pump();
    }
    EXPECT_EQ(form.Caption(), u"datos.csv — 1 de 600000");
}

TEST_F(RecordFormTest, AFaultThatIsReachedEndsTheWindowWithItsMessage) {
    std::string text = "id;nombre\n";
    constexpr int records = 400'000;
    for (int i = 1; i <= records; ++i)
        text += std::to_string(i) + ";un nombre cualquiera\n";
    RecordForm& form = openCsv(text + "x\n");
    EXPECT_FALSE(form.failure());
    press(platform::VK_END);
    ASSERT_TRUE(form.failure());
    EXPECT_EQ(*form.failure(), "datos.csv, línea 400002: hay 1 campo y en la primera línea 2 campos");
    EXPECT_FALSE(form.loaded());
}

TEST_F(RecordFormTest, ATextThatIsClippedIsReadUnderTheMouse) {
    const std::string longText(200, 'm');
    openCsv("id;nota\n1;" + longText + "\n2;corta\n");
    EXPECT_EQ(value(1).ToolTip().utf8(), longText);
    press(platform::VK_NEXT);
    EXPECT_EQ(value(1).ToolTip(), u"");
}

constexpr const char* sixNames = "id;nombre\n1;Zapata\n2;Álvarez\n3;Marta\n4;Alba\n5;María\n6;R&D\n";

TEST_F(RecordFormTest, LettersGoToTheFirstNameThatBeginsSo) {
    RecordForm& form = openCsv(sixNames);
    const auto after = [&](std::string_view keys) {
        for (const char key : keys)
            press(key);
        return form.record();
    };
    EXPECT_EQ(after("M"), 5);
    EXPECT_EQ(note().Caption(), u"nombre: “m”");
    EXPECT_EQ(after("ART"), 3);
    EXPECT_EQ(note().Caption(), u"nombre: “mart”");
    EXPECT_EQ(form.Caption(), u"datos.csv — 3 de 6");
    EXPECT_EQ(value(1).Caption(), u"Marta");
    press(platform::VK_BACK);
    EXPECT_EQ(form.record(), 5);
    press(platform::VK_ESCAPE);
    EXPECT_EQ(after("ALV"), 2) << "accents need not be typed";
    EXPECT_EQ(after("X"), 5) << "the next in the order";
    EXPECT_EQ(note().Caption(), u"nombre: “alvx”   No hay ninguno así");
}

TEST_F(RecordFormTest, MovingOnEndsTheSearch) {
    RecordForm& form = openCsv(sixNames);
    const String keys = note().Caption();
    EXPECT_NE(keys.find(u"Letras: buscar"), String::npos);
    press('Z');
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 2);
    EXPECT_EQ(note().Caption(), keys);
    press('M');
    EXPECT_EQ(form.record(), 5) << "a new search";
    press(platform::VK_BACK);
    EXPECT_EQ(note().Caption(), keys);
    EXPECT_EQ(form.record(), 5);
    press(platform::VK_BACK);
    press(platform::VK_ESCAPE);
    press(platform::VK_SPACE);
    EXPECT_EQ(form.record(), 5);
    form.goToName(u"R&");
    EXPECT_EQ(form.record(), 6);
    EXPECT_EQ(note().Caption(), u"nombre: “R&&”");
}

TEST_F(RecordFormTest, WithoutTextThereIsNothingToSeek) {
    RecordForm& form = openCsv("id;precio\n1;2\n3;4\n");
    const String keys = note().Caption();
    EXPECT_EQ(keys.find(u"Letras"), String::npos);
    press('3');
    EXPECT_EQ(form.record(), 1);
    EXPECT_EQ(note().Caption(), keys);
}

TEST_F(RecordFormTest, EachTableHasItsOwnNames) {
    RecordForm& form =
        openDatabase("CREATE TABLE uno(id INTEGER, nombre TEXT); INSERT INTO uno VALUES(1, 'b'), (2, 'a');"
                     "CREATE TABLE dos(nombre TEXT); INSERT INTO dos VALUES('x'), ('b'), ('a');");
    press('A');
    EXPECT_EQ(form.Caption(), u"uno — 2 de 2");
    press(platform::VK_NEXT, true);
    press('A');
    EXPECT_EQ(form.Caption(), u"dos — 3 de 3");
}

TEST_F(RecordFormTest, TheTourLeavesAPictureOfEachStep) {
    file_ = openFile(folder_.write(u"datos.csv", threeRecords));
    form_ = automation::make<RecordForm>(file_, u"datos.csv");
    const std::vector<std::string> pictures = takeTour(*form_, false);
    ASSERT_EQ(pictures.size(), 4u);
    for (const std::string& picture : pictures)
        EXPECT_GT(std::filesystem::file_size(picture), 1000u);
    EXPECT_EQ(form_->record(), 3);
    std::filesystem::remove_all(std::filesystem::path(pictures[0]).parent_path());
}

} // namespace
