#include "activex/windows/Registration.h"

#include "activex/windows/ControlObject.h"
#include "activex/windows/Failures.h"
#include "activex/windows/TypeInformation.h"

namespace activex {

namespace {

constexpr const char16_t* platformName = sizeof(void*) == 8 ? u"win64" : u"win32";
constexpr char16_t marshaller[] = u"{00020420-0000-0000-C000-000000000046}"; // the system's, by type library

std::u16string braced(const Guid& id) {
    return u"{" + automation::String::fromUtf8(id.text()).string() + u"}";
}

std::u16string version() {
    return automation::String::fromUtf8(std::to_string(libraryMajor) + "." + std::to_string(libraryMinor))
        .string();
}

/// The part of the registry that classes lie in.
class Classes {
public:
    explicit Classes(RegisteredFor whom)
        : root_(whom == RegisteredFor::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {}

    /// Throws automation::Error for what the system refuses.
    void write(const std::u16string& key, std::u16string_view value, const char16_t* name = nullptr) const {
        const std::u16string text(value);
        ::HKEY opened = nullptr;
        verify(::RegCreateKeyExW(root_, wide(path(key).c_str()), 0, nullptr, 0, KEY_WRITE, nullptr, &opened,
                                 nullptr));
        const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
        const ::LONG result = ::RegSetValueExW(opened, wide(name), 0, REG_SZ,
                                               reinterpret_cast<const BYTE*>(text.c_str()), size);
        ::RegCloseKey(opened);
        verify(result);
    }
    /// With all that is below; a key that is not there is fine.
    ::LONG remove(const std::u16string& key) const {
        const ::LONG result = ::RegDeleteTreeW(root_, wide(path(key).c_str()));
        return result == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : result;
    }
    bool has(const std::u16string& key) const {
        ::HKEY opened = nullptr;
        if (::RegOpenKeyExW(root_, wide(path(key).c_str()), 0, KEY_READ, &opened) != ERROR_SUCCESS)
            return false;
        ::RegCloseKey(opened);
        return true;
    }

private:
    static std::u16string path(const std::u16string& key) { return u"Software\\Classes\\" + key; }
    static void verify(::LONG result) {
        if (result != ERROR_SUCCESS)
            throw automation::Error(automation::Error::numberOf(HRESULT_FROM_WIN32(result)));
    }

    ::HKEY root_;
};

std::u16string classKey(const ExportedClass& exported) {
    return u"CLSID\\" + braced(exported.id);
}
std::u16string libraryKey() {
    return u"TypeLib\\" + braced(libraryId);
}

void writeClass(const Classes& classes, const ExportedClass& exported, const std::u16string& file) {
    const std::u16string name = programName(exported);
    const std::u16string key = classKey(exported);
    classes.write(key, name);
    classes.write(key + u"\\InprocServer32", file);
    classes.write(key + u"\\InprocServer32", u"Apartment", u"ThreadingModel");
    classes.write(key + u"\\ProgID", name);
    classes.write(key + u"\\TypeLib", braced(libraryId));
    classes.write(key + u"\\Version", version());
    classes.write(key + u"\\Programmable", {});
    if (exported.isControl) {
        classes.write(key + u"\\Control", {});
        classes.write(key + u"\\MiscStatus", u"0");
        classes.write(key + u"\\MiscStatus\\1",
                      automation::String::fromUtf8(std::to_string(ControlObject::miscStatus)));
    }
    classes.write(name, name);
    classes.write(name + u"\\CLSID", braced(exported.id));
}

void writeInterface(const Classes& classes, const Guid& id, const std::u16string& name) {
    const std::u16string key = u"Interface\\" + braced(id);
    classes.write(key, name);
    classes.write(key + u"\\ProxyStubClsid32", marshaller);
    classes.write(key + u"\\TypeLib", braced(libraryId));
    classes.write(key + u"\\TypeLib", version(), u"Version");
}

void writeLibrary(const Classes& classes, const std::u16string& file) {
    const std::u16string key = libraryKey() + u"\\" + version();
    classes.write(key, libraryName);
    classes.write(key + u"\\0\\" + platformName, file);
    classes.write(key + u"\\FLAGS", u"0");
    classes.write(key + u"\\HELPDIR", file.substr(0, file.find_last_of(u'\\')));
}

} // namespace

std::u16string programName(const ExportedClass& exported) {
    return std::u16string(libraryName) + u"." + exported.table().name().string();
}

::HRESULT registerLibrary(RegisteredFor whom) {
    const ::HRESULT result = guarded([&]() -> ::HRESULT {
        const Classes classes(whom);
        const std::u16string file = thisModulePath();
        writeLibrary(classes, file);
        for (const ExportedClass& each : exportedClasses()) {
            writeClass(classes, each, file);
            writeInterface(classes, each.interfaceId(), each.interfaceName());
            if (each.hasEvents()) writeInterface(classes, each.eventsId(), each.eventsName());
        }
        return S_OK;
    });
    if (FAILED(result)) {
        unregisterLibrary(whom);
        return SELFREG_E_CLASS;
    }
    return S_OK;
}

::HRESULT unregisterLibrary(RegisteredFor whom) {
    return guarded([&]() -> ::HRESULT {
        const Classes classes(whom);
        ::LONG failed = ERROR_SUCCESS;
        const auto remove = [&](const std::u16string& key) {
            const ::LONG result = classes.remove(key);
            if (failed == ERROR_SUCCESS) failed = result;
        };
        const std::u16string platforms = libraryKey() + u"\\" + version() + u"\\0";
        remove(platforms + u"\\" + platformName);
        // The library of the other width has classes and interfaces of its own, but the same names.
        const bool other = classes.has(platforms + u"\\win32") || classes.has(platforms + u"\\win64");
        if (!other) remove(libraryKey());
        for (const ExportedClass& each : exportedClasses()) {
            remove(classKey(each));
            if (!other) remove(programName(each));
            remove(u"Interface\\" + braced(each.interfaceId()));
            remove(u"Interface\\" + braced(each.eventsId()));
        }
        return failed == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
    });
}

} // namespace activex
