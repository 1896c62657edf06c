#pragma once
// The user's locale for the length of a test.

#include "platform/locale.h"

#include <string_view>

namespace tests {

class LocaleScope {
public:
    explicit LocaleScope(std::string_view name) : known_(platform::overrideUserLocale(name)) {}
    ~LocaleScope() { platform::overrideUserLocale(""); }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;

    bool known() const { return known_; }

private:
    bool known_;
};

inline constexpr std::string_view localeNames[] = {"es-ES", "en-US", "sv-SE"};

} // namespace tests
