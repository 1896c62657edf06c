#pragma once
// The order of windows that lie in the same one.

#include <algorithm>
#include <cstddef>
#include <vector>

namespace platform::driver {

struct Window;

/// Windows that come and go mostly at the ends of their order: neither end moves the others.
class WindowList {
public:
    using iterator = std::vector<Window*>::iterator;
    using const_iterator = std::vector<Window*>::const_iterator;

    iterator begin() { return all_.begin() + unused_; }
    iterator end() { return all_.end(); }
    const_iterator begin() const { return all_.begin() + unused_; }
    const_iterator end() const { return all_.end(); }
    auto rbegin() const { return all_.rbegin(); }
    auto rend() const { return all_.rend() - unused_; }

    std::size_t size() const { return static_cast<std::size_t>(end() - begin()); }
    bool empty() const { return begin() == end(); }
    Window* front() const { return *begin(); }
    Window* operator[](std::size_t place) const { return *(begin() + static_cast<std::ptrdiff_t>(place)); }

    void push_back(Window* window) { all_.push_back(window); }
    void insert(iterator place, Window* window) {
        if (place != begin()) {
            all_.insert(place, window);
            return;
        }
        if (unused_ == 0) makeRoom();
        --unused_;
        *begin() = window;
    }
    void erase(iterator place) {
        if (place != begin()) {
            all_.erase(place);
            return;
        }
        ++unused_;
        if (static_cast<std::size_t>(unused_) > size()) dropUnused();
    }

private:
    void makeRoom() {
        constexpr std::size_t least = 4;
        const std::size_t room = std::max(least, size());
        all_.insert(all_.begin(), room, nullptr);
        unused_ = static_cast<std::ptrdiff_t>(room);
    }
    void dropUnused() {
        all_.erase(all_.begin(), begin());
        unused_ = 0;
    }

    std::vector<Window*> all_;
    std::ptrdiff_t unused_ = 0; ///< So many places before the first window
};

} // namespace platform::driver
