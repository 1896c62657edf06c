#pragma once
// What the clipboard holds besides text: objects and bytes by format. A bitmap is made of a
// device-independent one when it is asked for, and the other way. Other programs get and give pictures as
// PNG, BMP and EMF files.

#include "platform/input.h"
#include "platform/linux/display.h"

#include <map>

namespace platform::driver {

class ClipboardObjects {
public:
    /// Ends everything that is held.
    void clear();

    bool has(UINT format);
    /// Formats, those counted that can be made of others.
    int count();

    /// Takes over an object of the format's kind; false for another kind.
    bool set(UINT format, HANDLE object);
    HANDLE object(UINT format);

    bool setBytes(UINT format, std::span<const BYTE> bytes);
    std::vector<BYTE> bytes(UINT format);

private:
    HANDLE held(UINT format) const;
    std::vector<BYTE> heldBytes(UINT format) const;

    /// Offers what is held to other programs.
    void publish() const;
    /// Lets go what is held when another program has put something on the clipboard since.
    void dropStale();
    /// Takes what another program offers.
    HANDLE take(UINT format);

    std::map<UINT, HANDLE> objects_;
    std::map<UINT, HANDLE> taken_; ///< Made for a request out of what another program or CF_DIB offers
    std::map<UINT, std::vector<BYTE>> bytes_;
};

ClipboardObjects& clipboardObjects();

} // namespace platform::driver
