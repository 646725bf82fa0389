// Draws the program's icon in the sizes in which desktops look for it: symbole ZEICHNUNG.svg ORDNER KANTE...

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <iostream>
#include <stdexcept>

namespace {

/// `kante` in pixels; the drawing is as wide as it is high.
void zeichne(QSvgRenderer& zeichnung, const QString& ordner, int kante) {
    QImage bild(kante, kante, QImage::Format_ARGB32_Premultiplied);
    bild.fill(Qt::transparent);
    {
        QPainter maler(&bild);
        maler.setRenderHint(QPainter::Antialiasing);
        zeichnung.render(&maler, QRectF(0, 0, kante, kante));
    }
    const QString datei = QStringLiteral("%1/%2.png").arg(ordner).arg(kante);
    if (!bild.save(datei, "PNG"))
        throw std::runtime_error("kann nicht schreiben: " + datei.toStdString());
}

} // namespace

int main(int argc, char** argv) try {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication anwendung(argc, argv);
    const QStringList worte = QGuiApplication::arguments();
    if (worte.size() < 4) {
        std::cerr << "Aufruf: symbole ZEICHNUNG.svg ORDNER KANTE...\n";
        return 2;
    }
    QSvgRenderer zeichnung(worte[1]);
    if (!zeichnung.isValid() || !QDir().mkpath(worte[2]))
        throw std::runtime_error("kann nicht lesen: " + worte[1].toStdString());
    for (const QString& wort : worte.sliced(3)) {
        bool zahl = false;
        const int kante = wort.toInt(&zahl);
        if (!zahl || kante < 1 || kante > 1024)
            throw std::runtime_error("keine Kantenlänge: " + wort.toStdString());
        zeichne(zeichnung, worte[2], kante);
    }
    return 0;
} catch (const std::exception& fehler) {
    std::cerr << "symbole: " << fehler.what() << '\n';
    return 1;
}
