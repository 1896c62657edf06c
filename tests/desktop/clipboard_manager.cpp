// The least clipboard manager: keeps the text of a program that ends, and tells it on its standard output.

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <cstdio>
#include <string>

namespace {

class Manager {
public:
    explicit Manager(Display* display)
        : display_(display),
          window_(XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0)) {
        XSetSelectionOwner(display, atom("CLIPBOARD_MANAGER"), window_, CurrentTime);
        std::printf("waits\n");
        std::fflush(stdout);
    }

    void take(const XEvent& event) {
        if (event.type == SelectionRequest) {
            request_ = event.xselectionrequest;
            XConvertSelection(display_, atom("CLIPBOARD"), atom("UTF8_STRING"), atom("KEPT"), window_,
                              CurrentTime);
        }
        if (event.type == SelectionNotify) {
            std::printf("kept %s\n", text().c_str());
            std::fflush(stdout);
            reply();
        }
    }

private:
    Atom atom(const char* name) const { return XInternAtom(display_, name, False); }

    std::string text() const {
        constexpr long Longest = 1000;
        Atom type = 0;
        int bits = 0;
        unsigned long count = 0;
        unsigned long left = 0;
        unsigned char* bytes = nullptr;
        XGetWindowProperty(display_, window_, atom("KEPT"), 0, Longest, True, AnyPropertyType, &type, &bits,
                           &count, &left, &bytes);
        const std::string kept(reinterpret_cast<const char*>(bytes), bytes ? count : 0);
        if (bytes) XFree(bytes);
        return kept;
    }

    void reply() {
        XEvent event{};
        event.xselection.type = SelectionNotify;
        event.xselection.requestor = request_.requestor;
        event.xselection.selection = request_.selection;
        event.xselection.target = request_.target;
        event.xselection.time = request_.time;
        XSendEvent(display_, request_.requestor, False, 0, &event);
        XFlush(display_);
    }

    Display* display_;
    Window window_;
    XSelectionRequestEvent request_{};
};

} // namespace

int main() {
    Display* display = XOpenDisplay(nullptr);
    if (!display) return 1;
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    Manager manager(display);
    while (true) {
        XEvent event;
        XNextEvent(display, &event);
        manager.take(event);
    }
}
