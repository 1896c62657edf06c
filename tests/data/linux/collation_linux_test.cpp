// The table against the rules that it was made of.
#include "data/collation.h"
#include "platform/locale.h"

#include <random>

namespace {

constexpr platform::LCID spanish = 0x0C0A;

int byRules(const std::string& a, const std::string& b) {
    const std::u16string first = platform::wideFromAnsi(a), second = platform::wideFromAnsi(b);
    const int order = platform::CompareStringW(spanish, platform::SORT_STRINGSORT, first.data(),
                                               static_cast<int>(first.size()), second.data(),
                                               static_cast<int>(second.size()));
    return order - platform::CSTR_EQUAL;
}

} // namespace

TEST(CollationRules, EachPairOfCharactersIsOrderedByThem) {
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            const std::string first(1, static_cast<char>(a)), second(1, static_cast<char>(b));
            ASSERT_EQ(byRules(first, second), tesela::TS_Compara(first, second))
                << std::hex << a << ", " << b;
        }
}

TEST(CollationRules, TextsOfAnyCharactersAreOrderedByThem) {
    std::mt19937 random(1616);
    for (int i = 0; i < 200000; ++i) {
        std::string few(4, ' ');
        for (char& each : few)
            each = static_cast<char>(random());
        few += "e2.s";
        std::string a, b;
        for (auto* text : {&a, &b})
            for (auto length = random() % 6; length > 0; --length)
                *text += few[random() % few.size()];
        ASSERT_EQ(byRules(a, b), tesela::TS_Compara(a, b))
            << testing::PrintToString(a) << testing::PrintToString(b);
    }
}
