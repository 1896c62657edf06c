// The smallest Qt program that shows a window with a line of text: the peer of start_tesela.
#include <QApplication>
#include <QLabel>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.setGeometry(0, 0, 400, 300);
    QPalette palette = window.palette();
    palette.setColor(QPalette::Window, QColor(0x30, 0x60, 0xC0));
    window.setPalette(palette);
    QLabel label("Nombre del cliente", &window);
    label.setGeometry(20, 20, 200, 30);
    window.show();
    return QApplication::exec();
}
