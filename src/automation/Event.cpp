#include "automation/Event.h"

#include <algorithm>

namespace automation {

EventCookie EventHandlers::add(std::unique_ptr<Slot> slot) {
    slot->cookie = ++lastCookie_;
    slots_.push_back(std::move(slot));
    return lastCookie_;
}

void EventHandlers::leave(EventCookie cookie) noexcept {
    for (const auto& slot : slots_)
        if (slot->cookie == cookie) slot->left = true;
    sweep();
}

void EventHandlers::close() noexcept {
    closed_ = true;
    for (const auto& slot : slots_)
        slot->left = true;
    sweep();
}

std::size_t EventHandlers::size() const noexcept {
    return static_cast<std::size_t>(
        std::count_if(slots_.begin(), slots_.end(), [](const auto& slot) { return !slot->left; }));
}

void EventHandlers::sweep() noexcept {
    // A handler that runs must not be destroyed under itself; the outermost raise clears up.
    if (raising_ != 0) return;
    const auto gone =
        std::stable_partition(slots_.begin(), slots_.end(), [](const auto& slot) { return !slot->left; });
    // Taken out first: a handler's end may drop objects whose own end comes back here.
    std::vector<std::unique_ptr<Slot>> ended(std::make_move_iterator(gone),
                                             std::make_move_iterator(slots_.end()));
    slots_.erase(gone, slots_.end());
}

void EventHandlers::raiseEach(const std::function<void(Slot&)>& visit) {
    struct Raising {
        explicit Raising(EventHandlers& h) : handlers(h) { ++handlers.raising_; }
        Raising(const Raising&) = delete;
        Raising& operator=(const Raising&) = delete;
        ~Raising() {
            if (--handlers.raising_ == 0) handlers.sweep();
        }
        EventHandlers& handlers;
    } raising(*this);

    const std::size_t count = slots_.size();
    for (std::size_t i = 0; i < count && !closed_; ++i) {
        Slot& slot = *slots_[i];
        if (!slot.left) visit(slot);
    }
}

} // namespace automation
