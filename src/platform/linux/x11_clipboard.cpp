#include "platform/linux/x11_clipboard.h"

#include "platform/locale.h"

#include <X11/Xatom.h>

#include <algorithm>
#include <chrono>
#include <cstring>

namespace platform::driver {

namespace {

using Clock = std::chrono::steady_clock;

/// How long the owner of the clipboard may be silent.
constexpr std::chrono::milliseconds Patience{2000};
constexpr std::chrono::milliseconds PatienceAtEnd{500};

constexpr std::size_t LargestPiece = 0x20000;
constexpr int ByteBits = 8;
constexpr int ValueBits = 32;

std::vector<unsigned long> valuesOf(const std::string& bytes) {
    std::vector<unsigned long> values(bytes.size() / sizeof(unsigned long));
    std::memcpy(values.data(), bytes.data(), values.size() * sizeof(unsigned long));
    return values;
}

std::string utf8FromLatin1(const std::string& bytes) {
    std::u16string wide;
    for (const char c : bytes)
        wide += static_cast<char16_t>(static_cast<unsigned char>(c));
    return utf8FromWide(wide);
}

std::string latin1FromUtf8(const std::string& utf8) {
    constexpr char16_t LastLatin1 = 0xFF;
    std::string bytes;
    for (const char16_t c : wideFromUtf8(utf8))
        bytes += c > LastLatin1 ? '?' : static_cast<char>(c);
    return bytes;
}

} // namespace

X11Clipboard::X11Clipboard(X11Server& server) : server_(server) {
    XSetWindowAttributes attributes{};
    attributes.event_mask = PropertyChangeMask;
    agent_ = XCreateWindow(server.display(), server.root(), 0, 0, 1, 1, 0, 0, InputOnly, nullptr, CWEventMask,
                           &attributes);
}

X11Clipboard::~X11Clipboard() {
    if (owned_) handOver();
    XDestroyWindow(server_.display(), agent_);
}

bool X11Clipboard::isOwner() const {
    return owned_ && XGetSelectionOwner(server_.display(), server_.atoms().clipboard) == agent_;
}

/// What the type is called here, the best first.
std::vector<::Atom> X11Clipboard::atomsOf(const std::string& type) const {
    const X11Atoms& atoms = server_.atoms();
    if (type == PlainText) return {atoms.utf8, atoms.plainTextUtf8, XA_STRING};
    return {XInternAtom(server_.display(), type.c_str(), 0)};
}

// --- What others have put there --------------------------------------------------------------------

bool X11Clipboard::has(const std::string& type) {
    if (isOwner()) return content_.count(type) > 0;
    const auto offered = offeredTargets();
    const auto wanted = atomsOf(type);
    return std::find_first_of(offered.begin(), offered.end(), wanted.begin(), wanted.end()) != offered.end();
}

std::string X11Clipboard::bytes(const std::string& type) {
    if (isOwner()) {
        const auto found = content_.find(type);
        return found == content_.end() ? std::string() : found->second;
    }
    if (!XGetSelectionOwner(server_.display(), server_.atoms().clipboard)) return {};
    for (const ::Atom target : atomsOf(type))
        if (auto got = ask(target); got && got->bits == ByteBits)
            return got->type == XA_STRING ? utf8FromLatin1(got->bytes) : std::move(got->bytes);
    return {};
}

std::vector<::Atom> X11Clipboard::offeredTargets() {
    const auto got = ask(server_.atoms().targets);
    if (!got || got->bits != ValueBits) return {};
    return valuesOf(got->bytes);
}

/// Asks the owner for the content in one form.
std::optional<X11Clipboard::Property> X11Clipboard::ask(::Atom target) {
    const X11Atoms& atoms = server_.atoms();
    XDeleteProperty(server_.display(), agent_, atoms.transfer);
    XConvertSelection(server_.display(), atoms.clipboard, target, atoms.transfer, agent_, server_.userTime());
    XEvent event{};
    do { // An answer that came too late for an earlier question may be in front
        if (!await(SelectionNotify, event)) return std::nullopt;
    } while (event.xselection.target != target);
    if (!event.xselection.property) return std::nullopt;
    while (XCheckTypedWindowEvent(server_.display(), agent_, PropertyNotify, &event)) {
    }
    const auto got = takeProperty();
    return got && got->type == atoms.incremental ? takePieces() : got;
}

/// Reads and removes the property that answers come in; the removal tells the other side to go on.
std::optional<X11Clipboard::Property> X11Clipboard::takeProperty() {
    constexpr long LongestAnswer = 0x1FFFFFFF;
    Property result;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* bytes = nullptr;
    const int failed =
        XGetWindowProperty(server_.display(), agent_, server_.atoms().transfer, 0, LongestAnswer, 1,
                           AnyPropertyType, &result.type, &result.bits, &count, &left, &bytes);
    if (failed) return std::nullopt;
    const std::size_t each =
        result.bits == ValueBits ? sizeof(long) : static_cast<std::size_t>(result.bits) / 8;
    if (bytes) result.bytes.assign(reinterpret_cast<const char*>(bytes), count * each);
    if (bytes) XFree(bytes);
    if (!result.type) return std::nullopt;
    return result;
}

/// The pieces end with an empty one.
std::optional<X11Clipboard::Property> X11Clipboard::takePieces() {
    Property whole;
    while (true) {
        XEvent event{};
        do {
            if (!await(PropertyNotify, event)) return std::nullopt;
        } while (event.xproperty.state != PropertyNewValue ||
                 event.xproperty.atom != server_.atoms().transfer);
        const auto piece = takeProperty();
        if (!piece) return std::nullopt;
        whole.type = piece->type;
        whole.bits = piece->bits;
        if (piece->bytes.empty()) return whole;
        whole.bytes += piece->bytes;
    }
}

bool X11Clipboard::await(int type, XEvent& event) const {
    const auto end = Clock::now() + Patience;
    while (!XCheckTypedWindowEvent(server_.display(), agent_, type, &event)) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) return false;
        server_.wait(left);
    }
    return true;
}

// --- What we have put there ------------------------------------------------------------------------

void X11Clipboard::set(ClipboardContent content) {
    content_ = std::move(content);
    owned_ = timeNow();
    XSetSelectionOwner(server_.display(), server_.atoms().clipboard, content_.empty() ? 0 : agent_, owned_);
    if (content_.empty()) owned_ = 0;
    XFlush(server_.display());
}

/// The server's own time, which comes with the news of a change that changes nothing.
Time X11Clipboard::timeNow() {
    const ::Atom name = server_.atoms().timestamp;
    XChangeProperty(server_.display(), agent_, name, XA_INTEGER, ValueBits, PropModeAppend, nullptr, 0);
    XEvent event{};
    do {
        if (!await(PropertyNotify, event)) return server_.userTime();
    } while (event.xproperty.atom != name);
    return event.xproperty.time;
}

bool X11Clipboard::take(const XEvent& event) {
    switch (event.type) {
    case SelectionRequest:
        answer(event.xselectionrequest);
        return true;
    case SelectionClear:
        // Whoever empties the clipboard and fills it again hears of the loss when it has become ours anew.
        if (isOwner()) return true;
        content_.clear();
        owned_ = 0;
        return true;
    case PropertyNotify:
        if (event.xproperty.state == PropertyDelete) sendPiece(event.xproperty);
        return event.xproperty.window == agent_;
    case DestroyNotify:
        forget(event.xdestroywindow.window);
        return false;
    default:
        return event.xany.window == agent_;
    }
}

void X11Clipboard::answer(const XSelectionRequestEvent& request) {
    XEvent event{};
    XSelectionEvent& reply = event.xselection;
    reply.type = SelectionNotify;
    reply.requestor = request.requestor;
    reply.selection = request.selection;
    reply.target = request.target;
    reply.time = request.time;
    const ::Atom property = request.property ? request.property : request.target;
    const bool done = request.target == server_.atoms().multiple
                          ? answerMultiple(request)
                          : convert(request.requestor, property, request.target);
    reply.property = done ? property : 0;
    XSendEvent(server_.display(), request.requestor, 0, 0, &event);
    XFlush(server_.display());
}

/// Pairs of a target and the property it is wanted in. Those that cannot be had are struck out.
bool X11Clipboard::answerMultiple(const XSelectionRequestEvent& request) {
    constexpr const char* PairType = "ATOM_PAIR";
    const ::Atom type = XInternAtom(server_.display(), PairType, 0);
    auto pairs = server_.values(request.requestor, request.property, type);
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2)
        if (!convert(request.requestor, pairs[i + 1], pairs[i])) pairs[i + 1] = 0;
    server_.setValues(request.requestor, request.property, type, pairs);
    return !pairs.empty();
}

const std::string* X11Clipboard::contentFor(::Atom target) const {
    for (const auto& [type, bytes] : content_) {
        auto atoms = atomsOf(type);
        if (type == PlainText) atoms.insert(atoms.end(), {server_.atoms().text, server_.atoms().plainText});
        if (std::find(atoms.begin(), atoms.end(), target) != atoms.end()) return &bytes;
    }
    return nullptr;
}

std::vector<unsigned long> X11Clipboard::ownTargets() const {
    const X11Atoms& a = server_.atoms();
    std::vector<unsigned long> targets{a.targets, a.timestamp, a.multiple, a.saveTargets};
    for (const auto& [type, bytes] : content_)
        for (const ::Atom atom : atomsOf(type))
            targets.push_back(atom);
    if (content_.count(PlainText)) targets.insert(targets.end(), {a.text, a.plainText});
    return targets;
}

bool X11Clipboard::convert(::Window receiver, ::Atom property, ::Atom target) {
    const X11Atoms& atoms = server_.atoms();
    if (target == atoms.targets) {
        server_.setValues(receiver, property, XA_ATOM, ownTargets());
        return true;
    }
    if (target == atoms.timestamp) {
        server_.setValues(receiver, property, XA_INTEGER, {owned_});
        return true;
    }
    const std::string* content = contentFor(target);
    if (!content) return false;
    if (target == XA_STRING)
        deliver(receiver, property, XA_STRING, latin1FromUtf8(*content));
    else
        deliver(receiver, property, target == atoms.text ? atoms.utf8 : target, *content);
    return true;
}

void X11Clipboard::deliver(::Window receiver, ::Atom property, ::Atom type, const std::string& bytes) {
    if (bytes.size() <= LargestPiece) {
        XChangeProperty(server_.display(), receiver, property, type, ByteBits, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()));
        return;
    }
    XSelectInput(server_.display(), receiver, PropertyChangeMask | StructureNotifyMask);
    server_.setValues(receiver, property, server_.atoms().incremental, {bytes.size()});
    deliveries_.push_back({receiver, property, type, bytes, 0});
}

void X11Clipboard::sendPiece(const XPropertyEvent& event) {
    const auto found = std::find_if(deliveries_.begin(), deliveries_.end(), [&](const Delivery& d) {
        return d.receiver == event.window && d.property == event.atom;
    });
    if (found == deliveries_.end()) return;
    const std::size_t size = std::min(LargestPiece, found->bytes.size() - found->sent);
    XChangeProperty(
        server_.display(), found->receiver, found->property, found->type, ByteBits, PropModeReplace,
        reinterpret_cast<const unsigned char*>(found->bytes.data() + found->sent), static_cast<int>(size));
    XFlush(server_.display());
    found->sent += size;
    if (size) return;
    XSelectInput(server_.display(), found->receiver, 0);
    deliveries_.erase(found);
}

void X11Clipboard::forget(::Window receiver) {
    deliveries_.erase(std::remove_if(deliveries_.begin(), deliveries_.end(),
                                     [&](const Delivery& d) { return d.receiver == receiver; }),
                      deliveries_.end());
}

/// The content would go with the program: the manager asks for it and keeps it.
void X11Clipboard::handOver() {
    const X11Atoms& atoms = server_.atoms();
    ::Display* display = server_.display();
    if (!isOwner() || !XGetSelectionOwner(display, atoms.clipboardManager)) return;
    XConvertSelection(display, atoms.clipboardManager, atoms.saveTargets, 0, agent_, owned_);
    const auto end = Clock::now() + PatienceAtEnd;
    while (Clock::now() < end) {
        if (!XPending(display)) server_.wait(PatienceAtEnd.count());
        while (XPending(display)) {
            XEvent event{};
            XNextEvent(display, &event);
            if (event.type == SelectionNotify && event.xselection.selection == atoms.clipboardManager) return;
            take(event);
        }
    }
}

} // namespace platform::driver
