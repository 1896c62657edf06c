// Random calls, and creating and destroying again and again.

#include "activex/windows/Container.h"
#include "activex/windows/Holdings.h"
#include "activex/windows/ProgramObject.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>

namespace {

using activex::ComPointer;
using activex::ExportedClass;
using automation::Member;
using support::Holdings;
using support::SystemValue;

/// Members that reach beyond the process (keys for whoever has the focus, devices, files, the clipboard) or
/// that take the address of memory.
bool reachesOut(const Member& member) {
    static const std::set<std::string> names{
        "PlayAction",  "KeyDown",       "KeyUp",        "KeyPress",      "CapsState",       "NumsState",
        "ScrollState", "InsertState",   "FOpen",        "FWrite",        "FRead",           "SetFileTimes",
        "Start",       "SetVBSysColor", "WriteLog",     "Clear",         "CopyToClipboard", "CurrentAddress",
        "WriteBuffer", "ReadBuffer",    "GlobalCtlCfg", "SetFocusToCtl", "ShowCaret",       "HideCaret"};
    return names.count(member.name.utf8()) != 0;
}

/// Closes whatever asks the user something, so that calls that do so return.
class NoQuestions {
public:
    NoQuestions() : timer_(::SetTimer(nullptr, 0, 10, &NoQuestions::look)) {}
    NoQuestions(const NoQuestions&) = delete;
    NoQuestions& operator=(const NoQuestions&) = delete;
    ~NoQuestions() { ::KillTimer(nullptr, timer_); }

private:
    static BOOL CALLBACK close(::HWND window, ::LPARAM) {
        ::RECT place{};
        ::GetWindowRect(window, &place); // the library has a window without extent
        if (::IsWindowVisible(window) && !::IsRectEmpty(&place)) ::PostMessageW(window, WM_CLOSE, 0, 0);
        return TRUE;
    }
    static void CALLBACK look(::HWND, ::UINT, ::UINT_PTR, DWORD) {
        ::EnumThreadWindows(::GetCurrentThreadId(), &NoQuestions::close, 0);
    }

    ::UINT_PTR timer_;
};

/// Arguments of any kind.
class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed), mine_(support::programObject({L"Item"})) {}

    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(engine_); }

    void roll(SystemValue& value, const std::vector<ComPointer<::IDispatch>>& objects) {
        static constexpr std::array<LONG, 10> numbers{0, 1, -1, 2, 7, 100, 255, -32768, 65536, 2147483647};
        ::VariantClear(&value);
        switch (below(12)) {
        case 0:
            value.vt = VT_ERROR;
            value.scode = DISP_E_PARAMNOTFOUND;
            break;
        case 1:
            value.vt = VT_NULL;
            break;
        case 2:
        case 3:
        case 4:
            value.vt = VT_I4;
            value.lVal = numbers[static_cast<std::size_t>(below(static_cast<int>(numbers.size())))];
            break;
        case 5:
            value.vt = VT_R8;
            value.dblVal = below(2) ? 1e300 : -0.5;
            break;
        case 6:
        case 7:
            value.vt = VT_BSTR;
            value.bstrVal = ::SysAllocString(below(2) ? L"12,5" : below(2) ? L"" : L"<b>texto</b>");
            break;
        case 8:
            value.vt = VT_BOOL;
            value.boolVal = below(2) ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        case 9:
            value.vt = VT_DISPATCH;
            value.pdispVal =
                below(3) ? objects[static_cast<std::size_t>(below(static_cast<int>(objects.size())))].get()
                         : static_cast<::IDispatch*>(mine_.get());
            value.pdispVal->AddRef();
            break;
        case 10:
            value.vt = static_cast<VARTYPE>(VT_ARRAY | VT_VARIANT);
            value.parray = ::SafeArrayCreateVector(VT_VARIANT, below(5) - 2, static_cast<::ULONG>(below(4)));
            break;
        default:
            value.vt = VT_DATE;
            value.date = below(100000);
            break;
        }
    }

private:
    std::mt19937 engine_;
    ComPointer<support::ProgramObject> mine_;
};

std::vector<ComPointer<::IDispatch>> oneOfEach() {
    std::vector<ComPointer<::IDispatch>> objects;
    for (const ExportedClass& each : activex::exportedClasses())
        objects.push_back(support::create(each.table().name()));
    return objects;
}

/// One call of a member with as many arguments as it has, or some more or fewer.
::HRESULT callAtRandom(::IDispatch& object, const Member& member, Dice& dice,
                       const std::vector<ComPointer<::IDispatch>>& objects) {
    const int count = std::max(0, static_cast<int>(member.parameters.size()) + dice.below(3) - 1);
    std::vector<SystemValue> holders(static_cast<std::size_t>(count));
    std::vector<::VARIANT> list;
    for (SystemValue& holder : holders) {
        dice.roll(holder, objects);
        list.push_back(dice.below(3) == 0 && holder.vt != VT_ERROR ? activex::referenceTo(holder) : holder);
    }
    static constexpr std::array<WORD, 4> kinds{DISPATCH_METHOD | DISPATCH_PROPERTYGET, DISPATCH_METHOD,
                                               DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF};
    const WORD kind = kinds[static_cast<std::size_t>(dice.below(8) < 6 ? 0 : dice.below(4))];
    ::DISPID named = DISPID_PROPERTYPUT;
    const bool names = kind >= DISPATCH_PROPERTYPUT && count > 0;
    ::DISPPARAMS parameters{list.data(), names ? &named : nullptr, static_cast<::UINT>(count),
                            names ? 1u : 0u};
    SystemValue result;
    ::EXCEPINFO exception{};
    const ::HRESULT code =
        object.Invoke(member.id, IID_NULL, 0, kind, &parameters, &result, &exception, nullptr);
    ::SysFreeString(exception.bstrDescription);
    ::SysFreeString(exception.bstrSource);
    return code;
}

TEST(Endurance, RandomCallsGiveResultsOrErrors) {
    const NoQuestions silence;
    Dice dice(20240229);
    auto objects = oneOfEach();
    std::vector<std::pair<std::size_t, const Member*>> members;
    for (std::size_t i = 0; i < objects.size(); ++i)
        for (const Member& member : activex::exportedClasses()[i].table().members())
            if (member.kind != automation::MemberKind::Event && !reachesOut(member))
                members.emplace_back(i, &member);
    int done = 0;
    int failed = 0;
    constexpr int calls = 100'000;
    for (int i = 0; i < calls; ++i) {
        const auto& [which, member] =
            members[static_cast<std::size_t>(dice.below(static_cast<int>(members.size())))];
        if (i % 2000 == 0) objects = oneOfEach();
        ASSERT_TRUE(objects[which]) << activex::exportedClasses()[which].table().name().utf8();
        const ::HRESULT result = callAtRandom(*objects[which].get(), *member, dice, objects);
        ++(SUCCEEDED(result) ? done : failed);
        ASSERT_TRUE(SUCCEEDED(result) || result == DISP_E_EXCEPTION || result == E_INVALIDARG)
            << member->name.utf8() << " " << std::hex << result;
    }
    EXPECT_GT(done, calls / 20);
    EXPECT_GT(failed, calls / 20);
    const auto label = support::create(u"lbl");
    for (int i = 0; i < calls / 10; ++i) // opens the gate of the events again
        support::call(*label.get(), L"EventsEnabled", {support::boolean(true)});
}

TEST(Endurance, SeesMemoryThatIsNotGivenBack) {
    const Holdings before;
    const std::vector<char> kept(100'000);
    EXPECT_GE(Holdings().memory, before.memory + kept.size());
}

TEST(Endurance, ObjectsThatCameAndWentLeaveNothing) {
    for (const ExportedClass& each : activex::exportedClasses()) {
        SCOPED_TRACE(each.table().name().utf8());
        const int rounds = each.isControl ? 1000 : 10'000;
        const auto round = [&] { ASSERT_TRUE(support::create(each.table().name())); };
        for (int i = 0; i < 20; ++i)
            round();
        const Holdings before;
        for (int i = 0; i < rounds; ++i)
            round();
        const Holdings after;
        EXPECT_LE(after.gdi, before.gdi);
        EXPECT_LE(after.user, before.user);
        EXPECT_LT(after.memory, before.memory + static_cast<SIZE_T>(rounds) * 4)
            << after.memory - before.memory;
    }
}

TEST(Endurance, ControlsThatStoodInAContainerLeaveNothing) {
    const support::ContainerWindow window;
    const auto round = [&] {
        for (const ExportedClass& each : activex::exportedClasses()) {
            if (!each.isControl) continue;
            support::Site site(window.handle(), {10, 10, 100, 40}, each.table().name());
            site.as<::IPersistStreamInit>()->InitNew();
            site.activate(true);
        }
    };
    for (int i = 0; i < 20; ++i)
        round();
    const Holdings before;
    for (int i = 0; i < 1000; ++i)
        round();
    const Holdings after;
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.user, before.user);
    EXPECT_LT(after.memory, before.memory + 4'000) << after.memory - before.memory;
}

} // namespace
