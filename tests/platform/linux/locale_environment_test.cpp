// Which locale the environment names.

#include "platform/linux/locale_data.h"

#include <cstdlib>
#include <map>
#include <optional>
#include <utility>

namespace {

using Variables = std::vector<std::pair<const char*, const char*>>;

/// The variables that name locales, unset for the length of a test.
class LocaleEnvironment : public testing::Test {
protected:
    LocaleEnvironment() {
        for (const char* name : {"TESELA_LOCALE", "LC_ALL", "LC_TIME", "LC_NUMERIC", "LC_MESSAGES", "LANG"}) {
            const char* value = std::getenv(name);
            former_[name] = value ? std::optional<std::string>(value) : std::nullopt;
        }
        clear();
    }
    ~LocaleEnvironment() override {
        clear();
        for (const auto& [name, value] : former_)
            if (value) setenv(name.c_str(), value->c_str(), 1);
    }

    /// The locale with these variables and no others.
    std::string with(const Variables& variables) {
        clear();
        for (const auto& [name, value] : variables)
            setenv(name, value, 1);
        return platform::driver::localeFromEnvironment().name;
    }

private:
    void clear() const {
        for (const auto& each : former_)
            unsetenv(each.first.c_str());
    }

    std::map<std::string, std::optional<std::string>> former_;
};

TEST_F(LocaleEnvironment, SaysTheUsersLocale) {
    EXPECT_EQ(with({{"LANG", "en_US.UTF-8"}}), "en-US");
    EXPECT_EQ(with({{"LANG", "en_US.UTF-8"}, {"LC_TIME", "sv_SE@euro"}}), "sv-SE");
    EXPECT_EQ(with({{"LC_TIME", "sv_SE"}, {"LC_ALL", "en_US"}}), "en-US");
    EXPECT_EQ(with({{"LC_NUMERIC", "en_US"}}), "en-US");
}

TEST_F(LocaleEnvironment, IsSpanishWhereItSaysNothing) {
    EXPECT_EQ(with({}), "es-ES");
    for (const char* nothing : {"", "C", "C.UTF-8", "POSIX"}) {
        EXPECT_EQ(with({{"LANG", nothing}}), "es-ES") << nothing;
        EXPECT_EQ(with({{"LC_ALL", nothing}}), "es-ES") << nothing;
    }
    EXPECT_EQ(with({{"LANG", "no such locale"}}), "es-ES");
}

TEST_F(LocaleEnvironment, YieldsToTheProjectsOwnVariable) {
    EXPECT_EQ(with({{"LC_ALL", "en_US.UTF-8"}, {"TESELA_LOCALE", "sv-SE"}}), "sv-SE");
    EXPECT_EQ(with({{"LC_ALL", "en_US.UTF-8"}, {"TESELA_LOCALE", "no such locale"}}), "en-US");
}

} // namespace
