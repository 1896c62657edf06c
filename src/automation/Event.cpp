#include "automation/Event.h"

#include <algorithm>
#include <functional>

namespace automation {

EventCookie EventHandlers::add(std::unique_ptr<Slot> slot) {
    slot->cookie = ++lastCookie_;
    slots_.push_back(std::move(slot));
    return lastCookie_;
}

void EventHandlers::leave(EventCookie cookie) noexcept {
    const auto slot =
        std::find_if(slots_.begin(), slots_.end(), [cookie](const auto& s) { return s->cookie == cookie; });
    if (slot == slots_.end()) return;
    (*slot)->left = true;
    // A handler that runs must not be destroyed under itself; the outermost raise clears up.
    if (raising_ != 0) return;
    // Taken out first: a handler's end may drop objects whose own end comes back here.
    const std::unique_ptr<Slot> ended = std::move(*slot);
    slots_.erase(slot);
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
    const auto hasLeft = [](const auto& slot) { return slot->left; };
    if (raising_ != 0 || std::none_of(slots_.begin(), slots_.end(), hasLeft)) return;
    const auto gone = std::stable_partition(slots_.begin(), slots_.end(), std::not_fn(hasLeft));
    // They end after they were taken out, as in `leave`.
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
