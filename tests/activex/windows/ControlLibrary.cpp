#include "activex/windows/ControlLibrary.h"

#include "activex/windows/Failures.h"
#include "activex/windows/ProgramObject.h"

#include <deque>
#include <vector>

namespace support {

std::u16string controlLibraryFile() {
    const std::u16string program = platform::modulePath({});
    return program.substr(0, program.find_last_of(u'\\')) + u"\\..\\src\\TeselaCtl.ocx";
}

::HMODULE controlLibrary() {
    static const ::HMODULE module = [] {
        ::OleInitialize(nullptr);
        return ::LoadLibraryW(activex::wide(controlLibraryFile().c_str()));
    }();
    return module;
}

namespace {

ComPointer<::IClassFactory> factoryIn(::HMODULE module, const ::CLSID& id) {
    using ClassObject = ::HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**);
    ComPointer<::IClassFactory> factory;
    const auto get = reinterpret_cast<ClassObject*>(
        reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
    if (get) get(id, __uuidof(::IClassFactory), factory.address());
    return factory;
}

ComPointer<::IClassFactory> factoryIn(::HMODULE module, std::u16string_view className) {
    return factoryIn(module, activex::native(activex::exportedClass(className)->id));
}

ComPointer<::IDispatch> createFrom(::HMODULE module, std::u16string_view className) {
    ComPointer<::IDispatch> object;
    const auto factory = factoryIn(module, className);
    if (factory) factory->CreateInstance(nullptr, __uuidof(::IDispatch), object.address());
    return object;
}

} // namespace

ComPointer<::IClassFactory> factoryOf(const ::CLSID& id) {
    return factoryIn(controlLibrary(), id);
}

ComPointer<::IDispatch> create(std::u16string_view className) {
    return createFrom(controlLibrary(), className);
}

std::wstring LibraryCopy::fileOf(const std::wstring& locale) {
    wchar_t folder[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    return folder + (L"TeselaCtl-" + locale) + L".ocx";
}

LibraryCopy::LibraryCopy(const std::wstring& locale) {
    const std::wstring file = fileOf(locale);
    ::CopyFileW(activex::wide(controlLibraryFile().c_str()), file.c_str(), FALSE); // fails where it is loaded
    wchar_t former[LOCALE_NAME_MAX_LENGTH] = {};
    ::GetEnvironmentVariableW(L"TESELA_LOCALE", former, LOCALE_NAME_MAX_LENGTH);
    ::SetEnvironmentVariableW(L"TESELA_LOCALE", locale.c_str());
    ::OleInitialize(nullptr);
    module_ = ::LoadLibraryW(file.c_str());
    create(u"get"); // reads the locale
    ::SetEnvironmentVariableW(L"TESELA_LOCALE", *former ? former : nullptr);
}

ComPointer<::IDispatch> LibraryCopy::create(std::u16string_view className) const {
    return createFrom(module_, className);
}

ComPointer<::IClassFactory> LibraryCopy::factoryOf(std::u16string_view className) const {
    return factoryIn(module_, className);
}

::DISPID memberId(::IDispatch& object, const wchar_t* name) {
    auto* names = const_cast<wchar_t*>(name);
    ::DISPID id = DISPID_UNKNOWN;
    object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

Answer call(::IDispatch& object, ::DISPID id, WORD flags, ::DISPPARAMS parameters) {
    Answer answer;
    SystemValue value;
    ::EXCEPINFO exception{};
    answer.result =
        object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &value, &exception, nullptr);
    if (SUCCEEDED(answer.result)) {
        answer.value = activex::fromSystem(value);
    } else {
        const automation::Error error = activex::fromException(answer.result, exception);
        answer.error = error.number();
        answer.words = error.description().string();
        answer.source = error.source().string();
    }
    return answer;
}

Answer call(::IDispatch& object, const wchar_t* name, std::initializer_list<::VARIANT> arguments,
            WORD flags) {
    std::vector<::VARIANT> backwards(std::make_reverse_iterator(arguments.end()),
                                     std::make_reverse_iterator(arguments.begin()));
    return call(object, memberId(object, name), flags,
                {backwards.data(), nullptr, static_cast<::UINT>(backwards.size()), 0});
}

Answer put(::IDispatch& object, const wchar_t* name, const ::VARIANT& value, WORD kind) {
    ::VARIANT argument = value;
    ::DISPID id = DISPID_PROPERTYPUT;
    return call(object, memberId(object, name), kind, {&argument, &id, 1, 1});
}

Variant get(::IDispatch& object, const wchar_t* name) {
    return call(object, name).value;
}

ComPointer<::IFont> fontOf(::IDispatch& control) {
    SystemValue value;
    ::DISPPARAMS none{};
    control.Invoke(memberId(control, L"Font"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                   nullptr);
    return ComPointer<::IFont>::of(value.pdispVal);
}

::VARIANT text(const wchar_t* value) {
    static std::deque<SystemValue> kept;
    SystemValue& holder = kept.emplace_back();
    holder.vt = VT_BSTR;
    holder.bstrVal = ::SysAllocString(value);
    return holder;
}

namespace {

::VARIANT empty(VARTYPE type) {
    ::VARIANT value;
    ::VariantInit(&value);
    value.vt = type;
    return value;
}

} // namespace

::VARIANT number(std::int32_t content) {
    ::VARIANT value = empty(VT_I4);
    value.lVal = content;
    return value;
}

::VARIANT date(double content) {
    ::VARIANT value = empty(VT_DATE);
    value.date = content;
    return value;
}

::VARIANT boolean(bool content) {
    ::VARIANT value = empty(VT_BOOL);
    value.boolVal = content ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
}

::VARIANT object(::IDispatch* content) {
    ::VARIANT value = empty(VT_DISPATCH);
    value.pdispVal = content;
    return value;
}

::VARIANT missing() {
    ::VARIANT value = empty(VT_ERROR);
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
}

namespace {

ComPointer<::IConnectionPoint> eventsOf(::IDispatch& object, std::u16string_view className) {
    ComPointer<::IConnectionPoint> point;
    if (const auto points = ComPointer<::IConnectionPointContainer>::of(&object))
        points->FindConnectionPoint(activex::native(activex::exportedClass(className)->eventsId()),
                                    point.out());
    return point;
}

} // namespace

DWORD listen(::IDispatch& object, std::u16string_view className, ::IUnknown& listener) {
    DWORD cookie = 0;
    if (const auto point = eventsOf(object, className)) point->Advise(&listener, &cookie);
    return cookie;
}

void stopListening(::IDispatch& object, std::u16string_view className, DWORD cookie) {
    if (const auto point = eventsOf(object, className)) point->Unadvise(cookie);
}

} // namespace support
