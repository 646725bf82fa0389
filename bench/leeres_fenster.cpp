// The least that a program of this toolkit can show: one plain window over the whole screen. What it needs to
// start is what the program's own start is compared with.

#include <QApplication>
#include <QPalette>
#include <QWidget>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QWidget window;
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x33, 0x66, 0x99));
    window.setPalette(palette);
    window.setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    window.showFullScreen();
    return QApplication::exec();
}
