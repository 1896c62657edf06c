// The library as a part of a process that comes and goes.

#include "activex/windows/Dialog.h"

#include <gtest/gtest.h>

namespace {

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

bool mayBeUnloaded(const LibraryCopy& library) {
    const auto answer = reinterpret_cast<::HRESULT STDAPICALLTYPE (*)()>(
        reinterpret_cast<void*>(::GetProcAddress(library.module(), "DllCanUnloadNow")));
    return answer() == S_OK;
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
            EXPECT_FALSE(mayBeUnloaded(library));
        }
    dialog.readMessages();
}

TEST(Unloading, IsAllowedWhenTheLastObjectHasGone) {
    useControls(LibraryCopy(L"es-ES")); // what the system keeps from the first time on
    const int before = windowsOfThread();
    for (int i = 0; i < 3; ++i) {
        const LibraryCopy library(L"es-ES");
        ASSERT_NE(library.module(), nullptr);
        useControls(library);
        EXPECT_TRUE(mayBeUnloaded(library));
        EXPECT_EQ(windowsOfThread(), before);
    }
}

TEST(Unloading, LeavesNothingThatMessagesWouldCall) {
    useControls(LibraryCopy(L"es-ES"));
    support::Dialog dialog;
    dialog.readMessages();
    useControls(LibraryCopy(L"es-ES"));
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
