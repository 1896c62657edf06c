#pragma once
// Windows whose messages a test can read afterwards as one line of text.

#include "platform/windows.h"
#include "support/Desk.h"

#include <functional>
#include <string>
#include <vector>

namespace probe {

struct Seen {
    platform::HWND window;
    platform::UINT message = 0;
    platform::WPARAM wParam = 0;
    platform::LPARAM lParam = 0;
};

/// All messages that the probe windows got, in their order.
class Journal {
public:
    static Journal& instance();

    void clear() { seen_.clear(); }
    void add(const Seen& seen) { seen_.push_back(seen); }
    const std::vector<Seen>& seen() const { return seen_; }

    /// "main WM_SIZE, field WM_PAINT": those of the given messages, with the windows' names.
    std::string of(std::initializer_list<platform::UINT> messages) const;
    int count(platform::UINT message) const;

    /// The last of a kind; an empty one when there is none.
    Seen last(platform::UINT message) const;

private:
    std::vector<Seen> seen_;
};

using Handler = std::function<bool(const Seen&, platform::LRESULT&)>;

struct Options {
    platform::DWORD style = platform::WS_OVERLAPPEDWINDOW;
    platform::DWORD exStyle = 0;
    platform::RECT place{100, 100, 400, 300};
    platform::HWND parent{};
    platform::UINT classStyle = 0;
    bool background = true; ///< A class brush in COLOR_WINDOW
    Handler handler{};      ///< Returns true when it answered the message itself
};

/// A window of a probe class. `name` is its caption and its name in the journal.
platform::HWND open(const std::string& name, Options options = {});

/// A visible child.
platform::HWND openChild(const std::string& name, platform::HWND parent, platform::RECT place,
                         Handler handler = {}, platform::DWORD more = 0);

/// The middle of a window's client area, on the screen.
platform::POINT middleOf(platform::HWND window);

/// A point of the client area, on the screen.
platform::POINT onScreen(platform::HWND window, int x, int y);

/// A desk and an empty journal for each test.
class WindowTest : public testing::Test {
protected:
    WindowTest() { Journal::instance().clear(); }

    support::Desk desk;
    Journal& journal = Journal::instance();
};

} // namespace probe
