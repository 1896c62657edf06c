#pragma once
// The clipboard of the X server: a selection whose owner is asked for the content. What does not fit into one
// message of the server goes in pieces.

#include "platform/linux/x11_server.h"

namespace platform::driver {

class X11Clipboard {
public:
    explicit X11Clipboard(X11Server& server);
    ~X11Clipboard(); ///< Hands the content to the clipboard's manager, if there is one
    X11Clipboard(const X11Clipboard&) = delete;
    X11Clipboard& operator=(const X11Clipboard&) = delete;

    bool has(const std::string& type);
    std::string bytes(const std::string& type);
    void set(ClipboardContent content);

    /// Serves another program. False for events that are none of the clipboard's.
    bool take(const XEvent& event);

private:
    struct Property {
        ::Atom type = 0;
        int bits = 0;
        std::string bytes; ///< Values of 32 bits as the X library keeps them, a long each
    };

    /// Content on its way to another program, a piece each time that the last one was fetched.
    struct Delivery {
        ::Window receiver;
        ::Atom property;
        ::Atom type;
        std::string bytes;
        std::size_t sent;
    };

    bool isOwner() const;
    Time timeNow();
    std::vector<::Atom> atomsOf(const std::string& type) const;
    std::vector<::Atom> offeredTargets();
    const std::string* contentFor(::Atom target) const;
    std::vector<unsigned long> ownTargets() const;

    std::optional<Property> ask(::Atom target);
    std::optional<Property> takeProperty();
    std::optional<Property> takePieces();
    bool await(int type, XEvent& event) const;

    void answer(const XSelectionRequestEvent& request);
    bool answerMultiple(const XSelectionRequestEvent& request);
    bool convert(::Window receiver, ::Atom property, ::Atom target);
    void deliver(::Window receiver, ::Atom property, ::Atom type, const std::string& bytes);
    void sendPiece(const XPropertyEvent& event);
    void forget(::Window receiver);
    void handOver();

    X11Server& server_;
    ::Window agent_; ///< A window that is never shown: the owner, and what answers come to
    ClipboardContent content_;
    Time owned_ = 0; ///< Since when the content is ours
    std::vector<Delivery> deliveries_;
};

} // namespace platform::driver
