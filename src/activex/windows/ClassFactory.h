#pragma once

#include "activex/windows/Counted.h"

namespace activex {

/// Makes objects of one class for programs.
class ClassFactory final : public Counted<::IClassFactory> {
public:
    explicit ClassFactory(const ExportedClass& exported) : exported_(exported) {}

    ::HRESULT STDMETHODCALLTYPE CreateInstance(::IUnknown* outer, REFIID id, void** result) override;
    ::HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

    /// Locks that programs hold now.
    static long locks();

private:
    const ExportedClass& exported_;
};

} // namespace activex
