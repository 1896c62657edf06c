#pragma once
// What the clipboard holds besides text: objects and bytes by format. A bitmap is made of a
// device-independent one when it is asked for, and the other way.

#include "platform/input.h"

#include <map>

namespace platform::driver {

class ClipboardObjects {
public:
    /// Ends everything that is held.
    void clear();

    bool has(UINT format) const;
    /// Formats, those counted that can be made of others.
    int count() const;

    /// Takes over an object of the format's kind; false for another kind.
    bool set(UINT format, HANDLE object);
    HANDLE object(UINT format);

    bool setBytes(UINT format, std::span<const BYTE> bytes);
    std::vector<BYTE> bytes(UINT format) const;

private:
    HANDLE held(UINT format) const;

    std::map<UINT, HANDLE> objects_;
    std::map<UINT, std::vector<BYTE>> bytes_;
};

ClipboardObjects& clipboardObjects();

} // namespace platform::driver
