#include "automation/Event.h"

#include "automation/ClassTable.h"
#include "automation/Object.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

using namespace automation;

namespace {

enum Colour : std::int32_t { Red, Green };

struct Point {
    std::int32_t x = 0;
    double y = 0;
};

const RecordTable& recordOf(const Point*) {
    static const RecordTable table =
        RecordTable::of<Point>("Point").field("x", &Point::x).field("y", &Point::y);
    return table;
}

class Sender final : public Object {
public:
    static const ClassTable& table() {
        static const ClassTable table = ClassTable::of<Sender>("Sender")
                                            .event("Click", &Sender::Click)
                                            .event("KeyPress", &Sender::KeyPress, {"KeyAscii", "cText"})
                                            .event("Draw", &Sender::Draw, {"nColour", "xPoint", "oOther"});
        return table;
    }
    const ClassTable& classTable() const override { return table(); }

    Event<> Click;
    Event<std::int16_t&, const String&> KeyPress;
    Event<Colour&, Point&, Ref<Sender>&> Draw;
};

} // namespace

TEST(Event, CallsItsHandlersInTheOrderOfJoining) {
    Event<int> event;
    std::string calls;
    event.join([&](int n) { calls += "a" + std::to_string(n); });
    event.join([&](int n) { calls += "b" + std::to_string(n); });
    event.raise(1);
    event.raise(2);
    EXPECT_EQ(calls, "a1b1a2b2");
}

TEST(Event, CostsNothingWithoutHandlers) {
    const Event<int> event;
    EXPECT_FALSE(event.hasHandlers());
    event.raise(1);
    EXPECT_FALSE(event.hasHandlers());
}

TEST(Event, PassesReferencesThrough) {
    Event<std::int16_t&> event;
    event.join([](std::int16_t& key) { key = static_cast<std::int16_t>(key + 1); });
    event.join([](std::int16_t& key) { key = static_cast<std::int16_t>(key * 2); });
    std::int16_t key = 4;
    event.raise(key);
    EXPECT_EQ(key, 10);
}

TEST(Event, LeavesOutHandlersThatHaveLeft) {
    Event<> event;
    int calls = 0;
    const EventCookie cookie = event.join([&] { ++calls; });
    event.leave(cookie);
    event.leave(cookie);
    event.leave(12345);
    event.raise();
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(event.hasHandlers());
}

TEST(Event, LetsHandlersJoinWhileItIsRaised) {
    Event<> event;
    int late = 0;
    event.join([&] {
        for (int i = 0; i < 20; ++i)
            event.join([&] { ++late; });
    });
    event.raise();
    EXPECT_EQ(late, 0) << "they wait for the next raise";
    event.raise();
    EXPECT_EQ(late, 20);
}

TEST(Event, LetsAHandlerLeaveItself) {
    Event<> event;
    auto held = std::make_shared<int>(0);
    EventCookie cookie = 0;
    cookie = event.join([&event, &cookie, held] {
        event.leave(cookie);
        ++*held; // what the handler holds is still there
    });
    event.raise();
    event.raise();
    EXPECT_EQ(*held, 1);
    EXPECT_EQ(held.use_count(), 1) << "the handler is gone";
}

TEST(Event, SkipsAHandlerThatAnEarlierOneMadeLeave) {
    Event<> event;
    EventCookie second = 0;
    int calls = 0;
    event.join([&] { event.leave(second); });
    second = event.join([&] { ++calls; });
    event.raise();
    EXPECT_EQ(calls, 0);
}

TEST(Event, MayBeRaisedFromItsOwnHandler) {
    Event<int> event;
    std::vector<int> seen;
    event.join([&](int depth) {
        seen.push_back(depth);
        if (depth < 3) event.raise(depth + 1);
    });
    event.raise(1);
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 3}));
}

TEST(Event, SurvivesTheEndOfItsSenderInAHandler) {
    auto event = std::make_unique<Event<>>();
    auto held = std::make_shared<int>(0);
    event->join([&event, held] {
        event.reset();
        ++*held;
    });
    event->join([held] { *held += 100; });
    event->raise();
    EXPECT_EQ(*held, 1) << "the remaining handlers are not called";
    EXPECT_EQ(held.use_count(), 1) << "all handlers are gone";
}

TEST(Event, LetsAnErrorOutAndStaysUsable) {
    Event<> event;
    int calls = 0;
    const EventCookie cookie = event.join([] { throw Error(5); });
    event.join([&] { ++calls; });
    EXPECT_THROW(event.raise(), Error);
    EXPECT_EQ(calls, 0);
    event.leave(cookie);
    event.raise();
    EXPECT_EQ(calls, 1);
}

TEST(Event, EndsASubscriptionWithItsHolder) {
    Event<> event;
    int calls = 0;
    {
        const Subscription subscription = event.subscribe([&] { ++calls; });
        event.raise();
    }
    event.raise();
    EXPECT_EQ(calls, 1);
}

TEST(Event, MayEndBeforeItsSubscriptions) {
    const auto held = std::make_shared<int>(1);
    Subscription subscription;
    {
        Event<> event;
        subscription = event.subscribe([held] {});
        EXPECT_EQ(held.use_count(), 2);
    }
    subscription.leave();
    EXPECT_EQ(held.use_count(), 1) << "the handler goes with the last who knows it";
}

TEST(Event, FollowsAModelThroughRandomJoinsAndLeaves) {
    std::mt19937 random(5);
    Event<> event;
    std::vector<std::pair<EventCookie, int>> joined;
    std::vector<int> called;
    int next = 0;
    for (int step = 0; step < 5000; ++step) {
        switch (random() % 3) {
        case 0: {
            const int name = next++;
            joined.emplace_back(event.join([&called, name] { called.push_back(name); }), name);
            break;
        }
        case 1:
            if (!joined.empty()) {
                const auto which = joined.begin() + static_cast<std::ptrdiff_t>(random() % joined.size());
                event.leave(which->first);
                joined.erase(which);
            }
            break;
        default: {
            called.clear();
            event.raise();
            std::vector<int> expected;
            for (const auto& [cookie, name] : joined)
                expected.push_back(name);
            ASSERT_EQ(called, expected);
        }
        }
        if (joined.size() > 30) {
            event.leave(joined.front().first);
            joined.erase(joined.begin());
        }
    }
}

TEST(Event, IsJoinedByName) {
    Sender sender;
    EventBase* event = sender.eventByName(u"KEYPRESS");
    ASSERT_NE(event, nullptr);
    EXPECT_EQ(sender.eventByName(u"NoSuchEvent"), nullptr);
    String seen;
    const EventCookie cookie = event->joinLate([&](std::span<Variant> arguments) {
        ASSERT_EQ(arguments.size(), 2u);
        EXPECT_EQ(arguments[0].type(), VT_BYREF | VT_I2);
        seen = arguments[1].asString();
        arguments[0].store(0);
    });
    std::int16_t key = 65;
    sender.KeyPress.raise(key, u"tecla");
    EXPECT_EQ(key, 0) << "the handler's value comes back";
    EXPECT_EQ(seen, u"tecla");
    event->leave(cookie);
    key = 65;
    sender.KeyPress.raise(key, u"tecla");
    EXPECT_EQ(key, 65);
}

TEST(Event, BringsBackEnumerationsRecordsAndObjectsByName) {
    Sender sender;
    const Ref<Sender> other = make<Sender>();
    sender.eventByName(u"Draw")->joinLate([&](std::span<Variant> arguments) {
        EXPECT_EQ(arguments[0].dereferenced().asLong(), Red);
        arguments[0].store(std::int32_t{Green});
        const Ref<Record> record = arguments[1].dereferenced().asRecord();
        EXPECT_EQ(record->field(u"X").asLong(), 3);
        record->putField(u"y", 2.5);
        EXPECT_THROW(record->field(u"z"), Error);
        arguments[2].store(other);
    });
    Colour colour = Red;
    Point point{3, 0};
    Ref<Sender> object;
    sender.Draw.raise(colour, point, object);
    EXPECT_EQ(colour, Green);
    EXPECT_EQ(point.y, 2.5);
    EXPECT_EQ(object.get(), other.get());
}
