#include "platform/processes.h"

#include "platform/text_files.h"

using namespace platform;

namespace {

TEST(Processes, TheComputersNameIsGivenWithoutItsEnd) {
    char name[255] = {};
    DWORD size = sizeof name;
    ASSERT_TRUE(GetComputerNameA(name, &size));
    EXPECT_GT(size, 0u);
    EXPECT_LE(size, MAX_COMPUTERNAME_LENGTH);
    EXPECT_EQ(std::string(name).size(), size);
    DWORD none = 1;
    EXPECT_FALSE(GetComputerNameA(name, &none));
    EXPECT_GE(none, size);
}

TEST(Processes, TheUsersNameIsCountedWithItsEnd) {
    char name[UNLEN + 1] = {};
    DWORD size = sizeof name;
    ASSERT_TRUE(GetUserNameA(name, &size));
    EXPECT_EQ(std::string(name).size() + 1, size);
    DWORD none = 1;
    EXPECT_FALSE(GetUserNameA(name, &none));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(none, size);
}

TEST(Processes, TheProgramsFileExistsWhereItSays) {
    const std::u16string path = modulePath(HINSTANCE());
    EXPECT_TRUE(fileExists(path));
    EXPECT_EQ(modulePath(moduleInstance()), path) << "the tests are linked into the program itself";
    char bytes[1000];
    const DWORD length = GetModuleFileNameA(HINSTANCE(), bytes, sizeof bytes);
    EXPECT_EQ(length, path.size());
    EXPECT_EQ(GetModuleFileNameA(HINSTANCE(), bytes, 5), 5u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST(Processes, TheEnvironmentIsSetReadAndCleared) {
    const char* name = "TESELA_TEST_VARIABLE";
    char value[10] = {};
    EXPECT_EQ(GetEnvironmentVariableA(name, value, sizeof value), 0u);
    EXPECT_EQ(GetLastError(), ERROR_ENVVAR_NOT_FOUND);
    EXPECT_TRUE(SetEnvironmentVariableA(name, "a\xF1o"));
    EXPECT_EQ(GetEnvironmentVariableA(name, value, sizeof value), 3u);
    EXPECT_EQ(std::string(value), "a\xF1o");
    EXPECT_EQ(GetEnvironmentVariableA(name, value, 3), 4u) << "too small: the size needed";
    EXPECT_EQ(environmentVariable(u"TESELA_TEST_VARIABLE"), u"año");
    EXPECT_TRUE(SetEnvironmentVariableA(name, nullptr));
    EXPECT_EQ(environmentVariable(u"TESELA_TEST_VARIABLE"), u"");
}

TEST(Processes, TheCommandLineBeginsWithTheProgram) {
    const auto arguments = commandLineArguments();
    ASSERT_FALSE(arguments.empty());
    EXPECT_NE(arguments[0].find(u"tests_platform"), std::u16string::npos);
    EXPECT_NE(GetCurrentProcessId(), 0u);
    EXPECT_NE(GetCurrentThreadId(), 0u);
}

} // namespace
