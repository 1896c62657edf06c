#include "platform/linux/window_list.h"
#include "platform/linux/window_system.h"

#include <gtest/gtest.h>

#include <random>

namespace platform::driver {
namespace {

TEST(WindowList, HoldsTheOrderInWhichWindowsComeAndGo) {
    std::vector<Window> windows(40);
    std::vector<Window*> expected;
    WindowList list;
    std::mt19937 dice(7);
    for (int step = 0; step < 5000; ++step) {
        const bool grows = expected.empty() || (expected.size() < windows.size() && dice() % 2 == 0);
        // Mostly at the ends, sometimes between.
        const std::size_t last = grows ? expected.size() : expected.size() - 1;
        const std::size_t places[] = {0, 0, last, last, last / 2};
        const auto place = static_cast<std::ptrdiff_t>(places[dice() % std::size(places)]);
        if (grows) {
            Window* const window = &windows[dice() % windows.size()];
            expected.insert(expected.begin() + place, window);
            list.insert(list.begin() + place, window);
        } else {
            expected.erase(expected.begin() + place);
            list.erase(list.begin() + place);
        }
        ASSERT_EQ(list.size(), expected.size());
        ASSERT_EQ(list.empty(), expected.empty());
        ASSERT_TRUE(std::equal(list.begin(), list.end(), expected.begin(), expected.end()));
        ASSERT_TRUE(std::equal(list.rbegin(), list.rend(), expected.rbegin(), expected.rend()));
        if (expected.empty()) continue;
        ASSERT_EQ(list.front(), expected.front());
        ASSERT_EQ(list[static_cast<std::size_t>(last / 2) % expected.size()],
                  expected[static_cast<std::size_t>(last / 2) % expected.size()]);
    }
}

} // namespace
} // namespace platform::driver
