// The library as a part of a process that comes and goes.

#include "activex/windows/Dialog.h"
#include "activex/windows/Holdings.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

using activex::ComPointer;
using support::Holdings;
using support::LibraryCopy;

BOOL CALLBACK countWindow(::HWND, ::LPARAM target) {
    ++*reinterpret_cast<int*>(target);
    return TRUE;
}

/// Windows of this thread, those that only take messages too.
int windowsOfThread() {
    int count = 0;
    ::EnumThreadWindows(::GetCurrentThreadId(), countWindow, reinterpret_cast<::LPARAM>(&count));
    for (::HWND next = nullptr; (next = ::FindWindowExW(HWND_MESSAGE, next, nullptr, nullptr));)
        if (::GetWindowThreadProcessId(next, nullptr) == ::GetCurrentThreadId()) ++count;
    return count;
}

bool mayBeUnloaded(::HMODULE module) {
    const auto answer = reinterpret_cast<::HRESULT STDAPICALLTYPE (*)()>(
        reinterpret_cast<void*>(::GetProcAddress(module, "DllCanUnloadNow")));
    return answer() == S_OK;
}
bool mayBeUnloaded(const LibraryCopy& library) {
    return mayBeUnloaded(library.module());
}

/// A control of it stands in a window, has the focus and is painted.
void useControls(const LibraryCopy& library) {
    support::Dialog dialog;
    for (const activex::ExportedClass& each : activex::exportedClasses())
        if (each.isControl) {
            support::Site& site = dialog.add({10, 10, 110, 30}, library.create(each.table().name()));
            ASSERT_TRUE(::IsWindow(site.controlWindow()));
            site.activate(true);
            ::UpdateWindow(site.controlWindow());
            support::drawn(site.control(), 50, 20, support::Way::ThroughMetafile);
            EXPECT_FALSE(mayBeUnloaded(library));
        }
    dialog.readMessages();
}

/// An object of each class: it is called, rightly and wrongly, and described.
void useClasses(const LibraryCopy& library) {
    for (const activex::ExportedClass& each : activex::exportedClasses()) {
        const auto object = library.create(each.table().name());
        EXPECT_NE(support::call(*object.get(), L"Ninguno").result, S_OK);
        support::call(*object.get(), 0, DISPATCH_METHOD, {nullptr, nullptr, 0, 0});
        ComPointer<::ITypeInfo> type;
        EXPECT_EQ(object->GetTypeInfo(0, 0, type.out()), S_OK);
        if (each.isControl) support::fontOf(*object.get())->put_Italic(TRUE);
    }
}

TEST(Unloading, IsAllowedWhenTheLastObjectHasGone) {
    const LibraryCopy library(L"es-ES");
    useControls(library); // what the system keeps from the first time on
    const int before = windowsOfThread();
    useControls(library);
    EXPECT_TRUE(mayBeUnloaded(library));
    EXPECT_EQ(windowsOfThread(), before);
}

TEST(Unloading, WaitsForAllThatProgramsHold) {
    const LibraryCopy library(L"es-ES");
    auto label = library.create(u"lbl");
    auto font = support::fontOf(*label.get());
    ComPointer<::IEnumConnectionPoints> enumerator;
    ComPointer<::IConnectionPointContainer>::of(label.get())->EnumConnectionPoints(enumerator.out());
    auto factory = library.factoryOf(u"lbl");
    label.reset();
    EXPECT_FALSE(mayBeUnloaded(library));
    enumerator.reset();
    EXPECT_FALSE(mayBeUnloaded(library));
    font.reset();
    EXPECT_FALSE(mayBeUnloaded(library));
    factory->LockServer(TRUE);
    factory.reset();
    EXPECT_FALSE(mayBeUnloaded(library));
    library.factoryOf(u"get")->LockServer(FALSE);
    EXPECT_TRUE(mayBeUnloaded(library));
}

TEST(Unloading, LeavesNothingThatMessagesWouldCall) {
    useControls(LibraryCopy(L"es-ES"));
    support::Dialog dialog;
    dialog.readMessages();
    useControls(LibraryCopy(L"es-ES"));
}

bool isLoaded() {
    return ::GetModuleHandleW(LibraryCopy::fileOf(L"es-ES").c_str()) != nullptr;
}

TEST(Unloading, TakesTheWindowClassesAlong) {
    const auto registered = [](::HMODULE module) {
        ::WNDCLASSA information{};
        return ::GetClassInfoA(module, "TeselaHostControl", &information) != FALSE;
    };
    ::HMODULE module = nullptr;
    {
        const LibraryCopy library(L"es-ES");
        useControls(library);
        module = library.module();
        EXPECT_TRUE(registered(module));
    }
    EXPECT_FALSE(registered(module));
    EXPECT_FALSE(isLoaded());
}

/// Names the copy of the library as the home of its classes to programs of this thread.
class Declared {
public:
    Declared() {
        std::ofstream manifest(automation::String(file_).utf8());
        manifest << "<assembly xmlns='urn:schemas-microsoft-com:asm.v1' manifestVersion='1.0'>"
                    "<assemblyIdentity type='win32' name='Tesela.Unloading' version='1.0.0.0'/>"
                    "<file name='TeselaCtl-es-ES.ocx'>";
        for (const activex::ExportedClass& each : activex::exportedClasses())
            manifest << "<comClass clsid='{" << each.id.text() << "}' threadingModel='Apartment'/>";
        manifest << "</file></assembly>";
        manifest.close();
        ::ACTCTXW description{};
        description.cbSize = sizeof description;
        description.lpSource = activex::wide(file_.c_str());
        context_ = ::CreateActCtxW(&description);
        EXPECT_TRUE(::ActivateActCtx(context_, &cookie_));
    }
    Declared(const Declared&) = delete;
    Declared& operator=(const Declared&) = delete;
    ~Declared() {
        ::DeactivateActCtx(0, cookie_);
        ::ReleaseActCtx(context_);
        ::DeleteFileW(activex::wide(file_.c_str()));
    }

private:
    std::u16string file_ =
        reinterpret_cast<const char16_t*>((LibraryCopy::fileOf(L"es-ES") + L".manifest").c_str());
    ::HANDLE context_ = nullptr;
    ::ULONG_PTR cookie_ = 0;
};

TEST(Unloading, IsDoneByTheSystemWhenNothingIsUsed) {
    { const LibraryCopy copied(L"es-ES"); } // makes the file
    const Declared declared;
    ComPointer<::IDispatch> table;
    ASSERT_EQ(::CoCreateInstance(activex::native(activex::exportedClass(u"cMatriz")->id), nullptr,
                                 CLSCTX_INPROC_SERVER, __uuidof(::IDispatch), table.address()),
              S_OK);
    ::CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_TRUE(isLoaded()) << "the table is there";
    table.reset();
    ::CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(isLoaded());
}

TEST(Unloading, AndLoadingAgainKeepsNothing) {
    const auto round = [] {
        ASSERT_FALSE(isLoaded());
        const LibraryCopy library(L"es-ES");
        useControls(library);
        useClasses(library);
        EXPECT_TRUE(mayBeUnloaded(library));
    };
    for (int i = 0; i < 3; ++i)
        round();
    constexpr int rounds = 50;
    const Holdings before;
    for (int i = 0; i < rounds && !::testing::Test::HasFailure(); ++i)
        round();
    const Holdings after;
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.user, before.user);
    // What the system keeps of each load for the locks of the run-time, and tables of it that grow once.
    constexpr SIZE_T forLocks = 200;
    constexpr SIZE_T tables = 16'384;
    EXPECT_LT(after.memory, before.memory + rounds * forLocks + tables) << after.memory - before.memory;
}

TEST(Libraries, OfOneProcessAreApart) {
    const LibraryCopy english(L"en-US");
    const LibraryCopy spanish(L"es-ES");
    const auto decimals = [](const LibraryCopy& library) {
        const auto field = library.create(u"get");
        support::put(*field.get(), L"TipoDato", support::number(1));
        support::put(*field.get(), L"Mascara", support::text(L"##0.00"));
        support::put(*field.get(), L"Value", support::number(5));
        return support::get(*field.get(), L"Text").asString().utf8();
    };
    EXPECT_EQ(decimals(english), "5.00");
    EXPECT_EQ(decimals(spanish), "5,00");
    useControls(english);
    useControls(spanish);
}

} // namespace
