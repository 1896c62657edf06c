// What registering writes and unregistering takes away again. The user's part of the registry is used: there
// the same keys lie as in the machine's.

#include "activex/windows/ControlLibrary.h"
#include "activex/windows/Registration.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using activex::ExportedClass;

constexpr wchar_t userClasses[] = L"Software\\Classes";

std::string narrow(std::u16string_view text) {
    return automation::String(text).utf8();
}

void collect(::HKEY parent, const std::u16string& path, std::set<std::string>& found) {
    ::HKEY key = nullptr;
    if (::RegOpenKeyExW(parent, activex::wide(path.c_str()), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    found.insert(narrow(path));
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        if (::RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        collect(parent, path + u"\\" + reinterpret_cast<const char16_t*>(name), found);
    }
    ::RegCloseKey(key);
}

/// All keys of the user's classes.
std::set<std::string> keys() {
    std::set<std::string> found;
    collect(HKEY_CURRENT_USER, reinterpret_cast<const char16_t*>(userClasses), found);
    return found;
}

std::string valueAt(const std::u16string& key, const wchar_t* name = nullptr) {
    wchar_t text[512] = {};
    DWORD size = sizeof text;
    const std::u16string path = std::u16string(reinterpret_cast<const char16_t*>(userClasses)) + u"\\" + key;
    ::RegGetValueW(HKEY_CURRENT_USER, activex::wide(path.c_str()), name, RRF_RT_REG_SZ, nullptr, text, &size);
    return narrow(reinterpret_cast<const char16_t*>(text));
}

std::u16string braced(const activex::Guid& id) {
    return u"{" + automation::String::fromUtf8(id.text()).string() + u"}";
}

::HRESULT install(bool on, const wchar_t* whom = L"user") {
    return support::exportedFunction<::HRESULT STDAPICALLTYPE(BOOL, LPCWSTR)>("DllInstall")(on, whom);
}

class Registration : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(install(true), S_OK); }
    void TearDown() override { install(false); }
};

TEST_F(Registration, NamesTheFileAndTheThreadingOfEachClass) {
    for (const ExportedClass& each : activex::exportedClasses()) {
        const std::u16string key = u"CLSID\\" + braced(each.id);
        EXPECT_NE(valueAt(key + u"\\InprocServer32").find("TeselaCtl.ocx"), std::string::npos);
        EXPECT_EQ(valueAt(key + u"\\InprocServer32", L"ThreadingModel"), "Apartment");
        EXPECT_EQ(valueAt(key + u"\\ProgID"), narrow(activex::programName(each)));
        EXPECT_EQ(valueAt(key + u"\\TypeLib"), narrow(braced(activex::libraryId)));
        EXPECT_EQ(valueAt(activex::programName(each) + u"\\CLSID"), narrow(braced(each.id)));
    }
}

TEST_F(Registration, TellsControlsFromOtherClasses) {
    const auto all = keys();
    for (const ExportedClass& each : activex::exportedClasses()) {
        const std::string key = narrow(reinterpret_cast<const char16_t*>(userClasses)) + "\\CLSID\\" +
                                narrow(braced(each.id)) + "\\Control";
        EXPECT_EQ(all.count(key) != 0, each.isControl) << key;
    }
}

TEST_F(Registration, NamesTheTypeLibraryForThisWidth) {
    const std::u16string key = u"TypeLib\\" + braced(activex::libraryId) + u"\\1.0";
    const std::u16string width = sizeof(void*) == 8 ? u"win64" : u"win32";
    EXPECT_EQ(valueAt(key), "TeselaControls_basicos");
    EXPECT_NE(valueAt(key + u"\\0\\" + width).find("TeselaCtl.ocx"), std::string::npos);
}

TEST_F(Registration, IsTakenAwayWithoutARest) {
    const auto with = keys();
    ASSERT_EQ(install(false), S_OK);
    const auto without = keys();
    EXPECT_LT(without.size(), with.size());
    for (const std::string& key : without) {
        EXPECT_EQ(key.find("TeselaControls_basicos"), std::string::npos) << key;
        for (const ExportedClass& each : activex::exportedClasses())
            EXPECT_EQ(key.find(each.id.text().substr(8)), std::string::npos) << key;
    }
    EXPECT_EQ(install(false), S_OK) << "what is not there is taken away all the same";
    EXPECT_EQ(keys(), without);
}

TEST_F(Registration, IsTheUsersHoweverThatWordIsWritten) {
    const auto with = keys();
    ASSERT_EQ(install(false, L"User"), S_OK);
    EXPECT_LT(keys().size(), with.size());
    ASSERT_EQ(install(true, L"USER"), S_OK);
    EXPECT_EQ(keys(), with);
}

TEST_F(Registration, OfOneWidthLeavesNamesAndTypeLibraryToTheOther) {
    const std::u16string other = sizeof(void*) == 8 ? u"win32" : u"win64";
    const std::u16string key =
        u"Software\\Classes\\TypeLib\\" + braced(activex::libraryId) + u"\\1.0\\0\\" + other;
    ::HKEY made = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, activex::wide(key.c_str()), 0, nullptr, 0, KEY_WRITE,
                                nullptr, &made, nullptr),
              ERROR_SUCCESS);
    ::RegCloseKey(made);
    ASSERT_EQ(install(false), S_OK);
    EXPECT_EQ(keys().count(narrow(key)), 1u);
    for (const ExportedClass& each : activex::exportedClasses())
        EXPECT_EQ(valueAt(activex::programName(each) + u"\\CLSID"), narrow(braced(each.id)));
    ::RegDeleteTreeW(HKEY_CURRENT_USER,
                     activex::wide((u"Software\\Classes\\TypeLib\\" + braced(activex::libraryId)).c_str()));
}

} // namespace
