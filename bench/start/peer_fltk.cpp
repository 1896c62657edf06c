// The smallest FLTK program that shows a window with a line of text: the peer of start_tesela.
#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Window.H>

int main() {
    Fl_Window window(0, 0, 400, 300, "start");
    window.color(fl_rgb_color(0x30, 0x60, 0xC0));
    Fl_Box box(20, 20, 200, 30, "Nombre del cliente");
    window.end();
    window.show();
    return Fl::run();
}
