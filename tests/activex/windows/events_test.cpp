// Events as listeners of programs get them.

#include "activex/windows/ControlLibrary.h"
#include "activex/windows/ProgramObject.h"

#include <gtest/gtest.h>

namespace {

using activex::ComPointer;

/// Numbers of the field's events.
::DISPID eventId(std::u16string_view name) {
    return activex::exportedClass(u"get")->table().event(name)->id;
}

class Events : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(field); }

    ComPointer<::IUnknown> listener(support::ProgramObject::Answerer answerer) {
        auto made = support::programObject({}, std::move(answerer));
        made->listenTo(activex::native(activex::exportedClass(u"get")->eventsId()));
        return ComPointer<::IUnknown>(made.get());
    }
    ::HWND window() const {
        return platform::driver::native(
            platform::HWND(static_cast<std::uint32_t>(support::get(*field.get(), L"hWND").asLong())));
    }
    void type(wchar_t character) const {
        ::SendMessageA(window(), WM_CHAR, static_cast<::WPARAM>(character), 1);
    }
    std::u16string content() const { return support::get(*field.get(), L"Text").asString().string(); }

    ComPointer<::IDispatch> field = support::create(u"get");
};

TEST_F(Events, ReachEachListenerUntilItLeaves) {
    int first = 0;
    int second = 0;
    const auto counting = [](int& count) {
        return [&count](::DISPID id, auto&, auto*) {
            if (id == eventId(u"Change")) ++count;
            return S_OK;
        };
    };
    const auto one = listener(counting(first));
    const auto other = listener(counting(second));
    const DWORD cookie = support::listen(*field.get(), u"get", *one.get());
    ASSERT_NE(cookie, 0u);
    ASSERT_NE(support::listen(*field.get(), u"get", *other.get()), 0u);
    support::put(*field.get(), L"Text", support::text(L"uno"));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
    support::stopListening(*field.get(), u"get", cookie);
    support::put(*field.get(), L"Text", support::text(L"dos"));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
}

TEST_F(Events, ReachListenersThatKnowCallsByNameAlone) {
    int count = 0;
    const auto plain = support::programObject({}, [&](::DISPID, auto&, auto*) {
        ++count;
        return S_OK;
    });
    ASSERT_NE(support::listen(*field.get(), u"get", *plain.get()), 0u);
    support::put(*field.get(), L"Text", support::text(L"uno"));
    EXPECT_EQ(count, 1);
}

TEST_F(Events, TakeBackWhatAListenerWroteIntoTheirArguments) {
    const auto changing = listener([](::DISPID id, std::vector<::VARIANT*>& arguments, ::VARIANT*) {
        if (id != eventId(u"KeyPress")) return S_OK;
        EXPECT_EQ(arguments.at(0)->vt, VT_BYREF | VT_I2);
        if (*arguments.at(0)->piVal == 'x') *arguments.at(0)->piVal = 'Z';
        if (*arguments.at(0)->piVal == 'y') *arguments.at(0)->piVal = 0;
        return S_OK;
    });
    ASSERT_NE(support::listen(*field.get(), u"get", *changing.get()), 0u);
    type('a');
    type('x');
    type('y');
    EXPECT_EQ(content(), u"aZ");
}

TEST_F(Events, GoOnAfterAListenerThatFails) {
    int count = 0;
    const auto failing = listener([](::DISPID, auto&, auto*) { return E_FAIL; });
    const auto counting = listener([&](::DISPID, auto&, auto*) {
        ++count;
        return S_OK;
    });
    support::listen(*field.get(), u"get", *failing.get());
    support::listen(*field.get(), u"get", *counting.get());
    EXPECT_EQ(support::put(*field.get(), L"Text", support::text(L"uno")).result, S_OK);
    EXPECT_EQ(count, 1);
}

TEST_F(Events, LetAListenerLeaveAndDropTheControlInTheMiddle) {
    DWORD cookie = 0;
    int count = 0;
    const auto dropping = listener([&](::DISPID, auto&, auto*) {
        ++count;
        support::stopListening(*field.get(), u"get", cookie);
        field.reset();
        return S_OK;
    });
    cookie = support::listen(*field.get(), u"get", *dropping.get());
    const ::HWND gone = window();
    type('a');
    EXPECT_EQ(count, 1);
    EXPECT_FALSE(::IsWindow(gone));
}

TEST_F(Events, LetAProgramDropTheControlInACall) {
    const auto dropping = listener([&](::DISPID, auto&, auto*) {
        field.reset();
        return S_OK;
    });
    support::listen(*field.get(), u"get", *dropping.get());
    ::IDispatch& target = *field.get();
    EXPECT_EQ(support::put(target, L"Text", support::text(L"uno")).result, S_OK);
}

TEST_F(Events, AreNotRaisedWhileTheContainerFreezesThem) {
    int count = 0;
    const auto counting = listener([&](::DISPID, auto&, auto*) {
        ++count;
        return S_OK;
    });
    support::listen(*field.get(), u"get", *counting.get());
    const auto control = ComPointer<::IOleControl>::of(field.get());
    control->FreezeEvents(TRUE);
    support::put(*field.get(), L"Text", support::text(L"uno"));
    EXPECT_EQ(count, 0);
    control->FreezeEvents(FALSE);
    support::put(*field.get(), L"Text", support::text(L"dos"));
    EXPECT_EQ(count, 1);
}

TEST_F(Events, TellTheirListenersAndTheirPoints) {
    const auto points = ComPointer<::IConnectionPointContainer>::of(field.get());
    ComPointer<::IEnumConnectionPoints> all;
    ASSERT_EQ(points->EnumConnectionPoints(all.out()), S_OK);
    ComPointer<::IConnectionPoint> events;
    ComPointer<::IConnectionPoint> properties;
    ComPointer<::IConnectionPoint> none;
    ASSERT_EQ(all->Next(1, events.out(), nullptr), S_OK);
    ASSERT_EQ(all->Next(1, properties.out(), nullptr), S_OK);
    EXPECT_EQ(all->Next(1, none.out(), nullptr), S_FALSE);
    ::IID id{};
    events->GetConnectionInterface(&id);
    EXPECT_EQ(activex::fromNative(id), activex::exportedClass(u"get")->eventsId());
    properties->GetConnectionInterface(&id);
    EXPECT_TRUE(id == IID_IPropertyNotifySink);
    const auto counting = listener([](::DISPID, auto&, auto*) { return S_OK; });
    DWORD cookie = 0;
    EXPECT_EQ(events->Advise(counting.get(), &cookie), S_OK);
    ComPointer<::IEnumConnections> connections;
    ASSERT_EQ(events->EnumConnections(connections.out()), S_OK);
    ::CONNECTDATA data{};
    ASSERT_EQ(connections->Next(1, &data, nullptr), S_OK);
    EXPECT_EQ(data.dwCookie, cookie);
    data.pUnk->Release();
    EXPECT_EQ(properties->Advise(counting.get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(events->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(events->Unadvise(4711), CONNECT_E_NOCONNECTION);
}

} // namespace
