// Calls by name from a compiled program into the control library and into a class of the system, in one run;
// and the time from loading the library to its first object.

#include "../../measure.h"

#include <windows.h>

#include <ole2.h>

#include <oleauto.h>

#include <array>
#include <iterator>
#include <string>

namespace {

constexpr int callsARound = 200'000; // the clock of a process counts milliseconds

struct Target {
    IDispatch* object = nullptr;
    DISPID member = DISPID_UNKNOWN;
};

DISPID memberOf(IDispatch& object, const wchar_t* name) {
    auto* names = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

IDispatch* registered(const wchar_t* name) {
    CLSID id{};
    void* object = nullptr;
    if (FAILED(::CLSIDFromProgID(name, &id))) return nullptr;
    ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &object);
    return static_cast<IDispatch*>(object);
}

/// An object of the control library that lies beside the benchmarks, without registering it.
IDispatch* unregistered(HMODULE module, const wchar_t* classId) {
    using Get = HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**);
    auto* get =
        reinterpret_cast<Get*>(reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
    CLSID id{};
    void* factory = nullptr;
    void* object = nullptr;
    ::CLSIDFromString(classId, &id);
    if (!get || FAILED(get(id, IID_IClassFactory, &factory))) return nullptr;
    auto* maker = static_cast<IClassFactory*>(factory);
    maker->CreateInstance(nullptr, IID_IDispatch, &object);
    maker->Release();
    return static_cast<IDispatch*>(object);
}

HMODULE controlLibrary() {
    std::array<wchar_t, 1024> program{};
    ::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    std::wstring path(program.data());
    path = path.substr(0, path.find_last_of(L'\\')) + L"\\..\\src\\TeselaCtl.ocx";
    return ::LoadLibraryW(path.c_str());
}

VARIANT number(LONG content) {
    VARIANT value;
    ::VariantInit(&value);
    value.vt = VT_I4;
    value.lVal = content;
    return value;
}

void call(const Target& target, WORD kind, VARIANT* arguments, UINT count, DISPID* named) {
    DISPPARAMS parameters{arguments, named, count, named ? 1u : 0u};
    VARIANT result;
    ::VariantInit(&result);
    target.object->Invoke(target.member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                          named ? nullptr : &result, nullptr, nullptr);
    ::VariantClear(&result);
}

std::function<void()> repeated(std::function<void()> once, int times = callsARound) {
    return [once = std::move(once), times] {
        for (int i = 0; i < times; ++i)
            once();
    };
}

std::function<void()> reading(const Target& target, UINT arguments) {
    return repeated([=] {
        std::array<VARIANT, 2> list{number(1), number(1)};
        call(target, DISPATCH_PROPERTYGET, list.data(), arguments, nullptr);
    });
}

std::function<void()> writing(const Target& target, UINT arguments) {
    return repeated([=] {
        std::array<VARIANT, 3> list{number(7), number(1), number(1)};
        DISPID named = DISPID_PROPERTYPUT;
        call(target, DISPATCH_PROPERTYPUT, list.data(), arguments + 1, &named);
    });
}

std::function<void()> finding(IDispatch& object, const wchar_t* name) {
    return repeated([&object, name] { bench::keep(memberOf(object, name)); }, callsARound / 10);
}

} // namespace

int main() {
    ::OleInitialize(nullptr);
    const double start = bench::seconds();
    const HMODULE module = controlLibrary();
    IDispatch* table = module ? unregistered(module, L"{c18c5bb0-3d5e-478a-8265-277745bf5907}") : nullptr;
    const double first = bench::seconds() - start;
    IDispatch* dictionary = registered(L"Scripting.Dictionary");
    if (!table || !dictionary) {
        std::printf("bench activex: the control library or Scripting.Dictionary cannot be created\n");
        return 1;
    }
    bench::time("from LoadLibrary to the first object", first);
    {
        std::array<VARIANT, 4> sizes{number(1), number(1), number(1), number(1)};
        call({table, memberOf(*table, L"Dimension2D")}, DISPATCH_METHOD, sizes.data(), 4, nullptr);
    }
    const char* peer = "Scripting.Dictionary";
    const auto target = [](IDispatch* object, const wchar_t* name) {
        return Target{object, memberOf(*object, name)};
    };
    bench::compare("activex write an item", {{"ours", writing(target(table, L"Item"), 2)},
                                             {peer, writing(target(dictionary, L"Item"), 1)}});
    bench::compare("activex read an item", {{"ours", reading(target(table, L"Item"), 2)},
                                            {peer, reading(target(dictionary, L"Item"), 1)}});
    bench::compare("activex read a count", {{"ours", reading(target(table, L"Rows"), 0)},
                                            {peer, reading(target(dictionary, L"Count"), 0)}});
    bench::compare("activex find a name",
                   {{"ours", finding(*table, L"FindRow")}, {peer, finding(*dictionary, L"HashVal")}});
    table->Release();
    dictionary->Release();
    return 0;
}
