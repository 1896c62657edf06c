// The window of fichas with a user at the desk.
#include "fichas/window/RecordForm.h"

#include "automation/Clock.h"
#include "automation/Currency.h"
#include "automation/Date.h"
#include "automation/DateFunctions.h"
#include "fichas/window/linux/Tour.h"
#include "platform/input.h"
#include "platform/linux/database.h"
#include "support/Desk.h"
#include "support/Started.h"
#include "support/TemporaryFolder.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

using namespace fichas;
using automation::String;
using tesela::get;
using tesela::lbl;

namespace {

/// For a while the rights of a user without any, where the tests run as the superuser.
class AsNobody {
public:
    AsNobody() {
        constexpr uid_t nobody = 65534;
        if (isSuperuser_ && seteuid(nobody) != 0) ADD_FAILURE() << "no other user";
    }
    ~AsNobody() {
        if (isSuperuser_ && seteuid(0) != 0) ADD_FAILURE() << "no superuser any more";
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    const bool isSuperuser_ = geteuid() == 0;
};

/// For a while no file takes a byte.
class FullDisk {
public:
    FullDisk() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit none{0, former_.rlim_max};
        if (setrlimit(RLIMIT_FSIZE, &none) != 0) ADD_FAILURE() << "no limit to files";
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit former_{};
    void (*handler_)(int);
};

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

    void press(int key, bool withControl) { withControl ? press(platform::VK_CONTROL, key) : press(key); }
    void press(int key) {
        desk_.strikeKey(key);
        desk_.pump();
    }
    void press(int modifier, int key) {
        desk_.pressKey(modifier);
        desk_.strikeKey(key);
        desk_.releaseKey(modifier);
        desk_.pump();
    }
    void type(std::u16string_view text) {
        desk_.type(text);
        desk_.pump();
    }
    void enter() { press(platform::VK_RETURN); }
    get& value(short index) const { return form_->get<get>(u"getCampo", index); }
    get& hour(short index) const { return form_->get<get>(u"getHora", index); }
    platform::Database database(platform::Database::Access access) const {
        return platform::Database(folder_.utf8File("datos.sqlite"), access);
    }
    /// The first value of what a query gives, as a text.
    std::string stored(const std::string& query) const {
        const platform::Database file = database(platform::Database::Access::ReadOnly);
        platform::Statement statement = file.prepare(query);
        if (!statement.step()) return "nothing";
        return statement.isNull(0) ? "NULL" : std::string(statement.text(0));
    }
    /// What another program does to the file.
    void elsewhere(const std::string& sql) const {
        database(platform::Database::Access::ReadWrite).execute(sql);
    }
    std::string text(short index) const { return value(index).Text().utf8(); }
    std::string noteText() const { return note().Caption().utf8(); }
    lbl& note() const { return form_->get<lbl>(u"lblNota"); }
    lbl& caption(short index) const { return form_->get<lbl>(u"lblCampo", index); }

    support::Desk desk_;
    support::TemporaryFolder folder_;
    std::shared_ptr<const DataFile> file_;
    automation::Ref<RecordForm> form_;
};

constexpr const char* threeRecords =
    "id;nombre;precio;alta\n1;Ana;1,50;01/02/2024\n2;R&D;;\n3;Eva;-3,25;31/12/2024\n";

TEST_F(RecordFormTest, ShowsTheFirstRecordWithNamesBesideTheFields) {
    const RecordForm& form = openCsv(threeRecords);
    EXPECT_EQ(form.Caption(), u"datos.csv — 1 de 3");
    EXPECT_EQ(caption(1).Caption(), u"nombre");
    EXPECT_EQ(text(0), "1");
    EXPECT_EQ(text(1), "Ana");
    EXPECT_EQ(text(2), "1,50");
    EXPECT_EQ(text(3), "01/02/2024");
    EXPECT_EQ(value(0).Alignment(), tesela::tslAlignmentRightJustify);
    EXPECT_EQ(value(1).Alignment(), tesela::tslAlignmentLeftJustify);
    EXPECT_EQ(value(2).Value().asCurrency(), automation::Currency::fromScaled(15000));
    EXPECT_EQ(value(3).Value().asDate(), automation::Date::join(2024, 2, 1));
    EXPECT_EQ(value(3).Campo(), u"alta");
}

TEST_F(RecordFormTest, PageKeysAndControlWithHomeAndEndWalkThroughTheRecords) {
    RecordForm& form = openCsv(threeRecords);
    const auto after = [&](int key, bool withControl = false) {
        press(key, withControl);
        return form.record();
    };
    EXPECT_EQ(after(platform::VK_NEXT), 2);
    EXPECT_EQ(after(platform::VK_NEXT), 3);
    EXPECT_EQ(after(platform::VK_NEXT), 3);
    EXPECT_EQ(form.Caption(), u"datos.csv — 3 de 3");
    EXPECT_EQ(text(2), "-3,25");
    EXPECT_EQ(after(platform::VK_PRIOR), 2);
    EXPECT_EQ(after(platform::VK_HOME, true), 1);
    EXPECT_EQ(after(platform::VK_PRIOR), 1);
    EXPECT_EQ(after(platform::VK_END, true), 3);
    EXPECT_EQ(after(platform::VK_HOME, true), 1);
    EXPECT_EQ(text(1), "Ana");
}

TEST_F(RecordFormTest, WhereNothingCanBeChangedTheArrowsWalkThroughTheRecords) {
    RecordForm& form = openDatabase("CREATE VIEW v AS SELECT 'Eva' AS nombre UNION SELECT 'Luz'");
    const auto after = [&](int key) {
        press(key);
        return form.record();
    };
    EXPECT_EQ(after(platform::VK_DOWN), 2);
    EXPECT_EQ(after(platform::VK_UP), 1);
    EXPECT_EQ(after(platform::VK_RIGHT), 2);
    EXPECT_EQ(after(platform::VK_LEFT), 1);
    EXPECT_EQ(after(platform::VK_END), 2);
    EXPECT_EQ(after(platform::VK_HOME), 1);
    EXPECT_EQ(after('L'), 2) << "letters search at once";
    EXPECT_EQ(noteText(), "nombre: “l”");
    EXPECT_EQ(text(0), "Luz");
    EXPECT_TRUE(value(0).Locked());
}

TEST_F(RecordFormTest, AnAmpersandIsShownAndAMissingValueIsBlank) {
    openCsv(threeRecords);
    press(platform::VK_NEXT);
    EXPECT_EQ(text(1), "R&D");
    EXPECT_EQ(text(2), "");
    EXPECT_EQ(text(3), "  /  /    ");
}

TEST_F(RecordFormTest, ControlWithThePageKeysChangesTheTable) {
    RecordForm& form = openDatabase("CREATE TABLE uno(a INTEGER); INSERT INTO uno VALUES(1), (2);"
                                    "CREATE TABLE dos(x TEXT, y TEXT); INSERT INTO dos VALUES('p', 'q');"
                                    "CREATE TABLE tres(z);");
    press(platform::VK_NEXT);
    EXPECT_EQ(form.Caption(), u"uno — 2 de 2");
    press(platform::VK_NEXT, true);
    EXPECT_EQ(form.Caption(), u"dos — 1 de 1");
    EXPECT_EQ(text(1), "q");
    press(platform::VK_NEXT, true);
    EXPECT_EQ(form.Caption(), u"tres — ningún registro");
    press(platform::VK_NEXT);
    press(platform::VK_END, true);
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

/// Two records of so many columns "c1", "c2" and so on with values "1.c1".
std::string manyColumns(int columns) {
    std::string lines[3];
    for (int i = 1; i <= columns; ++i) {
        const std::string name = "c" + std::to_string(i), end = i < columns ? ";" : "\n";
        lines[0] += name + end;
        lines[1] += "1." + name + end;
        lines[2] += "2." + name + end;
    }
    return lines[0] + lines[1] + lines[2];
}

TEST_F(RecordFormTest, BehindTheLastFieldOfAPageComesTheNextPage) {
    constexpr short fields = 80;
    const RecordForm& form = openCsv(manyColumns(fields));
    short last = 0; // of the first page
    while (value(static_cast<short>(last + 1)).Extender().Visible())
        ++last;
    value(last).Extender().SetFocus();
    type(u"otro");
    enter();
    EXPECT_TRUE(value(static_cast<short>(last + 1)).HasFocus());
    EXPECT_FALSE(value(last).Extender().Visible());
    EXPECT_NE(noteText().find("página 2 de 3"), std::string::npos) << noteText();
    EXPECT_EQ(text(last), "otro");
    press(platform::VK_UP);
    EXPECT_TRUE(value(last).HasFocus());
    EXPECT_TRUE(value(0).Extender().Visible());
    press(platform::VK_TAB);
    EXPECT_TRUE(value(static_cast<short>(last + 1)).HasFocus());
    EXPECT_EQ(form.record(), 1);
}

TEST_F(RecordFormTest, BehindTheLastFieldComesTheNextRecord) {
    constexpr short fields = 40; // two pages
    RecordForm& form = openCsv(manyColumns(fields));
    value(0).Extender().SetFocus();
    press(platform::VK_UP);
    EXPECT_TRUE(value(fields - 1).HasFocus()) << "in front of the first field of all there is the last one";
    EXPECT_EQ(form.record(), 1);
    type(u"otro");
    enter();
    EXPECT_EQ(form.record(), 2);
    EXPECT_TRUE(value(0).HasFocus());
    EXPECT_EQ(text(0), "2.c1");
    EXPECT_NE(folder_.read(u"datos.csv").find(";otro\n2.c1;"), std::string::npos)
        << "the first one is written";
    press(platform::VK_SHIFT, platform::VK_TAB);
    EXPECT_EQ(form.record(), 1);
    EXPECT_TRUE(value(fields - 1).HasFocus());
    EXPECT_EQ(text(fields - 1), "otro");
    enter();
    press(platform::VK_UP);
    EXPECT_EQ(form.record(), 1);
    press(platform::VK_END, true);
    value(fields - 1).Extender().SetFocus();
    type(u"fin");
    enter();
    EXPECT_EQ(form.record(), 2) << "behind the last record of all there is none";
    EXPECT_TRUE(value(0).HasFocus());
    EXPECT_NE(folder_.read(u"datos.csv").find(";fin\n"), std::string::npos);
}

TEST_F(RecordFormTest, ABadValueInTheLastFieldKeepsItsRecord) {
    RecordForm& form = openCsv(threeRecords);
    value(3).Extender().SetFocus();
    type(u"310224");
    enter();
    EXPECT_EQ(form.record(), 1);
    EXPECT_TRUE(value(3).HasFocus());
    EXPECT_NE(noteText().find("no es una fecha"), std::string::npos) << noteText();
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
    press(platform::VK_END, true);
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

TEST_F(RecordFormTest, AfterF3LettersGoToTheFirstNameThatBeginsSo) {
    RecordForm& form = openCsv(sixNames);
    const auto after = [&](std::string_view keys) {
        for (const char key : keys)
            press(key);
        return form.record();
    };
    press(platform::VK_F3);
    EXPECT_EQ(noteText(), "nombre: “”");
    EXPECT_EQ(after("M"), 5);
    EXPECT_EQ(noteText(), "nombre: “m”");
    EXPECT_EQ(after("ART"), 3);
    EXPECT_EQ(noteText(), "nombre: “mart”");
    EXPECT_EQ(form.Caption(), u"datos.csv — 3 de 6");
    EXPECT_EQ(text(1), "Marta");
    press(platform::VK_BACK);
    EXPECT_EQ(form.record(), 5);
    press(platform::VK_ESCAPE);
    press(platform::VK_F3);
    EXPECT_EQ(after("ALV"), 2) << "accents need not be typed";
    EXPECT_EQ(after("X"), 5) << "the next in the order";
    EXPECT_EQ(noteText(), "nombre: “alvx”   No hay ninguno así");
    EXPECT_EQ(text(1), "María") << "nothing was typed into a field";
}

TEST_F(RecordFormTest, MovingOnEndsTheSearch) {
    RecordForm& form = openCsv(sixNames);
    const String keys = note().Caption();
    EXPECT_NE(keys.find(u"F3: buscar"), String::npos);
    press(platform::VK_F3);
    press('Z');
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 2);
    EXPECT_EQ(note().Caption(), keys);
    press(platform::VK_F3);
    press('M');
    EXPECT_EQ(form.record(), 5) << "a new search";
    press(platform::VK_BACK);
    EXPECT_EQ(note().Caption(), keys);
    EXPECT_EQ(form.record(), 5);
    press(platform::VK_F3);
    press(platform::VK_RETURN);
    EXPECT_EQ(note().Caption(), keys);
    form.goToName(u"R&");
    EXPECT_EQ(form.record(), 6);
    EXPECT_EQ(noteText(), "nombre: “R&&”");
}

TEST_F(RecordFormTest, ANameThatHasJustBeenTypedIsFound) {
    RecordForm& form = openDatabase("CREATE TABLE t(nombre TEXT); INSERT INTO t VALUES('Ana'), ('Asesoría'), "
                                    "('Academia')");
    type(u"Año Nuevo");
    press(platform::VK_F3);
    for (const char16_t letter : std::u16string_view(u"Año N"))
        type({&letter, 1});
    EXPECT_EQ(noteText(), "nombre: “Año N”");
    EXPECT_EQ(form.record(), 1);
}

TEST_F(RecordFormTest, WithoutTextThereIsNothingToSeek) {
    RecordForm& form = openCsv("id;precio\n1;2\n3;4\n");
    const String keys = note().Caption();
    EXPECT_EQ(keys.find(u"F3"), String::npos);
    press(platform::VK_F3);
    press('3');
    EXPECT_EQ(form.record(), 1);
    EXPECT_EQ(note().Caption(), keys);
}

TEST_F(RecordFormTest, EachTableHasItsOwnNames) {
    RecordForm& form =
        openDatabase("CREATE TABLE uno(id INTEGER, nombre TEXT); INSERT INTO uno VALUES(1, 'b'), (2, 'a');"
                     "CREATE TABLE dos(nombre TEXT); INSERT INTO dos VALUES('x'), ('b'), ('a');");
    press(platform::VK_F3);
    press('A');
    EXPECT_EQ(form.Caption(), u"uno — 2 de 2");
    press(platform::VK_NEXT, true);
    press(platform::VK_F3);
    press('A');
    EXPECT_EQ(form.Caption(), u"dos — 3 de 3");
}

// ------------------------------------------------------------------------------------------- editing

/// A table with a column of each type: fields 0 to 8.
constexpr const char* everyType =
    "CREATE TABLE t(id INTEGER PRIMARY KEY, nombre VARCHAR(10) NOT NULL, precio NUMERIC(8,2), peso REAL,"
    " alta DATE, hora TIME, cita DATETIME, activo BOOLEAN, notas);"
    "INSERT INTO t VALUES(1, 'Ana', 1234.5, 0.125, '2024-02-29', '10:30:15', '2024-03-01 08:15:30', 1, NULL);"
    "INSERT INTO t VALUES(2, 'Eva', NULL, NULL, NULL, NULL, NULL, NULL, 'x');";

TEST_F(RecordFormTest, EachColumnIsAFieldOfItsType) {
    openDatabase(everyType);
    EXPECT_EQ(text(2), "1.234,50");
    EXPECT_EQ(text(3), "0,125");
    EXPECT_EQ(text(4), "29/02/2024");
    EXPECT_EQ(text(5), "10:30");
    EXPECT_EQ(text(6), "01/03/2024");
    EXPECT_EQ(hour(6).Text(), u"08:15");
    EXPECT_EQ(text(7), "Sí");
    EXPECT_EQ(value(1).MaxLength(), 10);
    EXPECT_EQ(value(2).TipoDato(), tesela::tslTipoDatoNumero);
    EXPECT_EQ(value(4).TipoDato(), tesela::tslTipoDatoFecha);
    press(platform::VK_NEXT);
    for (const short blank : {2, 3})
        EXPECT_EQ(text(blank), "") << blank;
    EXPECT_EQ(text(4), "  /  /    ");
    EXPECT_EQ(hour(6).Text(), u"  :  ");
    EXPECT_EQ(text(7), "");
}

TEST_F(RecordFormTest, EnterAndTheArrowsWalkTheFieldsAndPassOverIdentifiers) {
    openDatabase(everyType);
    EXPECT_TRUE(value(1).HasFocus()) << "the identifier in front of it is read-only";
    EXPECT_TRUE(value(0).Locked());
    enter();
    EXPECT_TRUE(value(2).HasFocus());
    press(platform::VK_DOWN);
    EXPECT_TRUE(value(3).HasFocus());
    press(platform::VK_UP);
    EXPECT_TRUE(value(2).HasFocus());
}

TEST_F(RecordFormTest, WhatWasTypedIsWrittenWhenTheRecordIsLeft) {
    RecordForm& form = openDatabase(everyType);
    type(u"Luz");
    enter();
    type(u"77,5");
    enter();
    type(u"2,5");
    enter();
    type(u"010323");
    enter();
    EXPECT_EQ(text(4), "01/03/2023");
    type(u"1145");
    enter();
    enter();
    type(u"0930");
    enter();
    type(u"n");
    enter();
    type(u"algo");
    EXPECT_EQ(stored("SELECT nombre FROM t"), "Ana") << "not yet";
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 2);
    EXPECT_EQ(stored("SELECT nombre || '|' || precio || '|' || peso || '|' || alta || '|' || hora || '|' || "
                     "cita || '|' || activo || '|' || notas FROM t"),
              "Luz|77.5|2.5|2023-03-01|11:45:00|2024-03-01 09:30:00|0|algo");
    EXPECT_EQ(stored("SELECT typeof(precio) || typeof(activo) FROM t"), "realinteger");
    press(platform::VK_PRIOR);
    EXPECT_EQ(text(1), "Luz");
    EXPECT_EQ(text(7), "No");
}

TEST_F(RecordFormTest, FieldsThatAreWalkedThroughChangeNothing) {
    openDatabase(everyType);
    elsewhere("CREATE TRIGGER t_update BEFORE UPDATE ON t BEGIN SELECT RAISE(ABORT, 'escrito'); END");
    for (int record = 1; record <= 2; ++record) {
        for (int field = 0; field < 12; ++field)
            enter();
        press(platform::VK_NEXT);
    }
    EXPECT_EQ(form_->record(), 2);
    EXPECT_EQ(stored("SELECT hora FROM t"), "10:30:15");
    EXPECT_EQ(stored("SELECT count(*) FROM t WHERE precio IS NULL AND peso IS NULL AND alta IS NULL AND "
                     "hora IS NULL AND cita IS NULL AND activo IS NULL"),
              "1");
    EXPECT_EQ(text(2), "") << "Null is no 0";
}

TEST_F(RecordFormTest, ADateCompletesItself) {
    openDatabase(everyType);
    value(4).Extender().SetFocus();
    press(platform::VK_DELETE);
    type(u"0503");
    enter();
    const int year = automation::Year(automation::Today());
    EXPECT_EQ(text(4), "05/03/" + std::to_string(year));
    press(platform::VK_NEXT);
    EXPECT_EQ(stored("SELECT alta FROM t"), std::to_string(year) + "-03-05");
}

TEST_F(RecordFormTest, ADayThatIsChangedKeepsItsHourAndItsSeconds) {
    openDatabase(everyType);
    value(6).Extender().SetFocus();
    type(u"02");
    press(platform::VK_NEXT);
    EXPECT_EQ(stored("SELECT cita FROM t"), "2024-03-02 08:15:30");
}

TEST_F(RecordFormTest, AFieldThatIsEmptiedBecomesNull) {
    openDatabase(everyType);
    for (const short field : {2, 4, 7}) {
        value(field).Extender().SetFocus();
        press(platform::VK_DELETE);
    }
    press(platform::VK_NEXT);
    EXPECT_EQ(form_->record(), 2) << note().Caption().utf8();
    EXPECT_EQ(stored("SELECT precio IS NULL AND alta IS NULL AND activo IS NULL FROM t"), "1");
}

TEST_F(RecordFormTest, ABadValueKeepsTheFocusWithItsReason) {
    RecordForm& form = openDatabase(everyType);
    value(4).Extender().SetFocus();
    type(u"31");
    const String typed = value(4).Text();
    enter();
    EXPECT_TRUE(value(4).HasFocus());
    EXPECT_EQ(value(4).Text(), typed);
    EXPECT_EQ(noteText(), "alta: “31/02/24” no es una fecha");
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 1);
    EXPECT_TRUE(value(4).HasFocus());
    EXPECT_EQ(value(4).Text(), typed);
    EXPECT_FALSE(form.unload()) << "not even the window closes";
    press(platform::VK_HOME);
    type(u"28");
    enter();
    EXPECT_TRUE(value(5).HasFocus());
    EXPECT_EQ(note().Caption().find(u"fecha"), String::npos);
    type(u"2561");
    enter();
    EXPECT_TRUE(value(5).HasFocus());
    EXPECT_EQ(noteText(), "hora: “25:61” no es una hora");
}

TEST_F(RecordFormTest, AMissingValueIsToldInItsField) {
    RecordForm& form = openDatabase(everyType);
    press(platform::VK_DELETE);
    enter();
    type(u"5");
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 1);
    EXPECT_EQ(noteText(), "nombre: falta el valor");
    EXPECT_TRUE(value(1).HasFocus());
    EXPECT_EQ(text(2), "5,00") << "what was typed stays";
}

TEST_F(RecordFormTest, EscapeGivesTheChangesUp) {
    openDatabase(everyType);
    type(u"Luz");
    enter();
    type(u"7");
    press(platform::VK_ESCAPE);
    EXPECT_EQ(text(1), "Ana");
    EXPECT_EQ(text(2), "1234,50") << "as it is edited";
    press(platform::VK_NEXT);
    EXPECT_EQ(stored("SELECT nombre || precio FROM t"), "Ana1234.5");
}

TEST_F(RecordFormTest, ClosingTheWindowWritesAndTableAndSearchDoToo) {
    RecordForm& form = openDatabase(std::string(everyType) + "CREATE TABLE otra(a);");
    type(u"Uno");
    press(platform::VK_NEXT, true);
    EXPECT_EQ(stored("SELECT nombre FROM t"), "Uno");
    press(platform::VK_PRIOR, true);
    type(u"Dos");
    press(platform::VK_F3);
    EXPECT_EQ(stored("SELECT nombre FROM t"), "Dos");
    press(platform::VK_ESCAPE);
    type(u"Tres");
    EXPECT_TRUE(form.unload());
    EXPECT_EQ(stored("SELECT nombre FROM t"), "Tres");
}

TEST_F(RecordFormTest, AWriteThatFailsLosesNothingAndWritesNothing) {
    RecordForm& form = openDatabase(std::string(everyType) + "CREATE UNIQUE INDEX u ON t(nombre);");
    type(u"Eva");
    enter();
    type(u"5");
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 1);
    EXPECT_EQ(text(1), "Eva");
    EXPECT_EQ(text(2), "5,00");
    EXPECT_NE(note().Caption().find(u"ya hay otro registro con el mismo valor de t.nombre"), String::npos)
        << note().Caption().utf8();
    EXPECT_FALSE(form.unload());
    EXPECT_EQ(stored("SELECT nombre || precio FROM t"), "Ana1234.5");
    value(1).Extender().SetFocus();
    type(u"Sol");
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 2);
    EXPECT_EQ(stored("SELECT nombre || precio FROM t"), "Sol5");
}

TEST_F(RecordFormTest, AReadOnlyFileIsToldAndLosesNothing) {
    RecordForm& form = openDatabase(everyType);
    namespace files = std::filesystem;
    constexpr files::perms mayRead =
        files::perms::owner_read | files::perms::group_read | files::perms::others_read;
    files::permissions(folder_.utf8File("datos.sqlite"), mayRead);
    type(u"Luz");
    {
        // The superuser may write everything.
        const AsNobody nobody;
        press(platform::VK_NEXT);
    }
    EXPECT_EQ(form.record(), 1);
    EXPECT_EQ(text(1), "Luz");
    EXPECT_NE(noteText().find("la base de datos es de sólo lectura"), std::string::npos) << noteText();
    EXPECT_EQ(stored("SELECT nombre FROM t"), "Ana");
    press(platform::VK_ESCAPE);
    EXPECT_EQ(text(1), "Ana");
    EXPECT_TRUE(form.unload());
}

constexpr const char* twoPeople = "id;nombre;precio;alta\r\n1;Ana;1.234,50;1/2/2024\r\n2;\"R&D\";;\r\n";

TEST_F(RecordFormTest, ARecordOfACsvFileIsWrittenWhenItIsLeft) {
    RecordForm& form = openCsv(twoPeople);
    enter();
    type(u"Luz");
    enter();
    type(u"2000,5");
    enter();
    type(u"310324");
    EXPECT_EQ(folder_.read(u"datos.csv"), twoPeople) << "not before";
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 2) << noteText();
    EXPECT_EQ(folder_.read(u"datos.csv"),
              "id;nombre;precio;alta\r\n1;Luz;2.000,50;31/3/2024\r\n2;\"R&D\";;\r\n");
    value(2).Extender().SetFocus();
    type(u"7");
    press(platform::VK_PRIOR);
    EXPECT_EQ(text(1), "Luz");
    EXPECT_EQ(text(2), "2000,50") << "as it is edited";
    EXPECT_EQ(folder_.read(u"datos.csv"),
              "id;nombre;precio;alta\r\n1;Luz;2.000,50;31/3/2024\r\n2;\"R&D\";7,00;\r\n");
}

TEST_F(RecordFormTest, ACsvFileThatOnlyMayBeReadIsWalkedThroughWithTheArrows) {
    const std::u16string path = folder_.write(u"datos.csv", twoPeople);
    platform::SetFileAttributesW(path.c_str(), platform::FILE_ATTRIBUTE_READONLY);
    file_ = openFile(path);
    RecordForm& form = show(u"datos.csv");
    EXPECT_TRUE(value(1).Locked());
    press(platform::VK_DOWN);
    EXPECT_EQ(form.record(), 2);
}

TEST_F(RecordFormTest, ACsvFileThatCannotBeWrittenLosesNothingOfWhatWasTyped) {
    RecordForm& form = openCsv(twoPeople);
    enter();
    type(u"Luz");
    const auto refused = [&](const std::string& reason) {
        EXPECT_EQ(form.record(), 1);
        EXPECT_EQ(text(1), "Luz");
        EXPECT_EQ(noteText(), "No se ha guardado: " + reason + ". Esc descarta los cambios");
        EXPECT_EQ(folder_.read(u"datos.csv"), twoPeople);
        EXPECT_EQ(platform::filesOfFolder(folder_.path()).size(), 1u) << "nothing stays beside it";
    };
    {
        const FullDisk full;
        press(platform::VK_NEXT);
    }
    refused("no cabe en el disco");
    {
        const AsNobody nobody;
        press(platform::VK_NEXT);
    }
    refused("no se tiene permiso para cambiar el archivo o su carpeta");
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 2) << "the next attempt succeeds";
    EXPECT_TRUE(folder_.read(u"datos.csv").find("\r\n1;Luz;") != std::string::npos);
}

TEST_F(RecordFormTest, ARecordThatHasGoneFromACsvFileGivesWayToTheLastOne) {
    RecordForm& form = openCsv(twoPeople);
    press(platform::VK_NEXT);
    enter();
    type(u"Luz");
    const std::string rest = "id;nombre;precio;alta\r\n1;Sol;3,00;\r\n";
    std::ofstream(folder_.utf8File("datos.csv"), std::ios::binary) << rest;
    press(platform::VK_PRIOR);
    EXPECT_EQ(form.record(), 2);
    EXPECT_EQ(text(1), "Luz");
    EXPECT_EQ(noteText(), "No se ha guardado: otro programa ha borrado este registro del archivo. Esc "
                          "descarta los cambios");
    press(platform::VK_ESCAPE);
    EXPECT_EQ(form.record(), 1);
    EXPECT_EQ(text(1), "Sol");
    EXPECT_EQ(form.Caption(), u"datos.csv — 1 de 1");
    EXPECT_EQ(folder_.read(u"datos.csv"), rest);
}

TEST_F(RecordFormTest, ReferencesBetweenTablesAreHeldTo) {
    openDatabase("CREATE TABLE pedido(n INTEGER PRIMARY KEY, cliente INTEGER REFERENCES cliente(id));"
                 "CREATE TABLE cliente(id INTEGER PRIMARY KEY); INSERT INTO cliente VALUES(1);"
                 "INSERT INTO pedido VALUES(1, 1)");
    type(u"2");
    press(platform::VK_NEXT);
    EXPECT_EQ(stored("SELECT cliente FROM pedido"), "1");
    EXPECT_NE(note().Caption().find(u"no hay ningún registro"), String::npos) << note().Caption().utf8();
}

TEST_F(RecordFormTest, WhatAnotherProgramHasChangedIsNotOverwrittenUnseen) {
    RecordForm& form = openDatabase(everyType);
    type(u"Luz");
    elsewhere("UPDATE t SET nombre = 'Sol', precio = 9 WHERE id = 1");
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 1);
    EXPECT_EQ(stored("SELECT nombre FROM t"), "Sol");
    EXPECT_NE(note().Caption().find(u"otro programa ha cambiado nombre, precio"), String::npos)
        << note().Caption().utf8();
    EXPECT_EQ(text(1), "Luz") << "what was typed stays";
    EXPECT_EQ(text(2), "9,00") << "and what was not shows what is there now";
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 2);
    EXPECT_EQ(stored("SELECT nombre || precio FROM t"), "Luz9");
}

TEST_F(RecordFormTest, ARecordThatHasGoneIsNotWrittenAndKeepsWhatWasTyped) {
    RecordForm& form = openDatabase(everyType);
    type(u"Luz");
    elsewhere("DELETE FROM t WHERE id = 1");
    press(platform::VK_NEXT);
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 1);
    EXPECT_EQ(text(1), "Luz");
    EXPECT_NE(note().Caption().find(u"otro programa ha borrado este registro"), String::npos);
    EXPECT_EQ(stored("SELECT count(*) FROM t"), "1");
    press(platform::VK_ESCAPE);
    press(platform::VK_NEXT);
    EXPECT_EQ(form.record(), 2);
}

TEST_F(RecordFormTest, ValuesThatAFieldCannotGiveBackAreShownAsTheyAre) {
    openDatabase("CREATE TABLE t(alta DATE, precio NUMERIC(8,2), peso REAL, nota TEXT, foto BLOB);"
                 "INSERT INTO t VALUES('ayer', 'mucho', 1.5, 'una' || char(9) || 'dos', x'0102');"
                 "INSERT INTO t VALUES('2024-01-02', 1.005, 2, 'x', NULL)");
    EXPECT_EQ(text(0), "ayer");
    EXPECT_EQ(text(1), "mucho");
    EXPECT_EQ(text(3), "una dos");
    EXPECT_TRUE(value(3).Locked()) << "a tab can't be typed";
    EXPECT_EQ(text(4), "2 bytes");
    EXPECT_TRUE(value(4).Locked());
    value(0).Extender().SetFocus();
    enter();
    EXPECT_TRUE(value(1).HasFocus()) << "what was not changed is not judged";
    value(0).Extender().SetFocus();
    type(u"3/1/2024");
    press(platform::VK_NEXT);
    EXPECT_EQ(stored("SELECT alta || precio FROM t"), "2024-01-03mucho") << noteText();
    EXPECT_EQ(text(0), "02/01/24");
    EXPECT_EQ(text(1), "1,005");
    EXPECT_TRUE(value(1).Locked()) << "two decimals would not be the value";
    EXPECT_FALSE(value(3).Locked());
}

TEST_F(RecordFormTest, TextsOfSeveralLinesHaveAFieldOfAsMany) {
    openDatabase(
        "CREATE TABLE t(nota TEXT, n INTEGER); INSERT INTO t VALUES"
        "('una' || char(13, 10) || 'dos', 1), ('sola', 2), ('tres' || char(10) || 'más' || char(10), 3)");
    EXPECT_TRUE(value(0).MultiLine());
    EXPECT_FALSE(value(1).MultiLine());
    EXPECT_GT(value(0).Extender().Height(), 2 * value(1).Extender().Height());
    EXPECT_EQ(text(0), "una\ndos");
    value(0).Extender().SetFocus();
    press(platform::VK_DOWN);
    EXPECT_TRUE(value(0).HasFocus()) << "in the second line";
    type(u"y ");
    press(platform::VK_CONTROL, platform::VK_RETURN);
    EXPECT_EQ(text(0), "una\ny \ndos");
    EXPECT_EQ(value(0).caretPosition(), 7);
    press(platform::VK_NEXT);
    EXPECT_EQ(stored("SELECT replace(replace(nota, char(13), '<'), char(10), '>') FROM t WHERE n = 1"),
              "una<>y <>dos")
        << "with the line ends that were there";
    press(platform::VK_END);
    press(platform::VK_CONTROL, platform::VK_RETURN);
    type(u"ya no");
    press(platform::VK_NEXT);
    EXPECT_EQ(stored("SELECT replace(nota, char(10), '>') FROM t WHERE n = 2"), "sola>ya no");
    EXPECT_EQ(text(0), "tres\nmás\n");
    press(platform::VK_PRIOR);
    EXPECT_EQ(stored("SELECT replace(nota, char(10), '>') FROM t WHERE n = 3"), "tres>más>") << "untouched";
}

TEST_F(RecordFormTest, SelectedTextGivesWayToTheNextLine) {
    openDatabase(
        "CREATE TABLE t(nota VARCHAR(8), n INTEGER); INSERT INTO t VALUES('una' || char(10) || 'dos', 1)");
    value(0).Extender().SetFocus();
    EXPECT_EQ(value(0).SelLength(), 7) << "all is selected where the focus comes";
    press(platform::VK_CONTROL, platform::VK_RETURN);
    EXPECT_EQ(text(0), "\n");
    type(u"1234567");
    EXPECT_EQ(text(0), "\n1234567");
    press(platform::VK_CONTROL, platform::VK_RETURN);
    EXPECT_EQ(text(0), "\n1234567") << "the column has no room for another line end";
}

TEST_F(RecordFormTest, TextsOfMoreLinesThanTheirFieldAreShownInOne) {
    openDatabase("CREATE TABLE t(nota TEXT, n INTEGER); INSERT INTO t VALUES('a' || char(10) || 'b', 1),"
                 "('mezcla' || char(13, 10) || 'de' || char(10) || 'dos', 2),"
                 "(replace(hex(zeroblob(20)), '00', 'x' || char(10)), 3)");
    press(platform::VK_NEXT);
    EXPECT_EQ(text(0), "mezcla de dos");
    EXPECT_TRUE(value(0).Locked()) << "line ends of two kinds would become one";
    press(platform::VK_NEXT);
    EXPECT_TRUE(value(0).Locked()) << "what can't be seen isn't changed";
    EXPECT_FALSE(value(0).MultiLine());
    press(platform::VK_HOME, true);
    EXPECT_FALSE(value(0).Locked());
    EXPECT_TRUE(value(0).MultiLine());
}

TEST_F(RecordFormTest, SeveralLinesOfACsvFileAreWrittenBetweenQuotes) {
    openCsv("id;nota\r\n1;\"una\ndos\"\r\n2;sola\r\n");
    press(platform::VK_NEXT);
    value(1).Extender().SetFocus();
    press(platform::VK_END);
    press(platform::VK_CONTROL, platform::VK_RETURN);
    type(u"no");
    press(platform::VK_PRIOR);
    EXPECT_EQ(folder_.read(u"datos.csv"), "id;nota\r\n1;\"una\ndos\"\r\n2;\"sola\nno\"\r\n");
}

TEST_F(RecordFormTest, DatesStayInTheFormInWhichTheFileHasThem) {
    openDatabase("CREATE TABLE t(a DATETIME, b DATE, c DATETIME);"
                 "INSERT INTO t VALUES(1709197200, 2460369.5, '2024-02-29T09:00:00Z')");
    for (const short field : {0, 1, 2}) {
        value(field).Extender().SetFocus();
        type(u"010324");
    }
    EXPECT_TRUE(form_->save()) << note().Caption().utf8();
    EXPECT_EQ(stored("SELECT a || '|' || b || '|' || c FROM t"), "1709283600|2460370.5|2024-03-01T09:00:00Z");
}

TEST_F(RecordFormTest, ColumnsWithoutATypeHaveThatOfTheirValues) {
    openDatabase("CREATE TABLE t(n, d, h, x); INSERT INTO t VALUES(7, '2024-02-29', '10:30', 'a'), (8, NULL, "
                 "'11:00:00', 5)");
    EXPECT_EQ(value(0).TipoDato(), tesela::tslTipoDatoNumero);
    EXPECT_EQ(text(1), "29/02/2024");
    EXPECT_EQ(text(2), "10:30");
    press(platform::VK_NEXT);
    EXPECT_EQ(text(3), "5");
    value(3).Extender().SetFocus();
    type(u"6");
    value(0).Extender().SetFocus();
    type(u"9");
    press(platform::VK_PRIOR);
    EXPECT_EQ(stored("SELECT typeof(n) || n || typeof(x) || x FROM t WHERE h > '11'"), "integer9integer6");
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
