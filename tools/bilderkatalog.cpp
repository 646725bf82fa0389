// Draws all pictures of a folder, labelled and where they are used, on one sheet:
// `bilderkatalog ASSETSDIR OUTPUT.png`. The sheet is for judging the drawings, the program does not read it.

#include <QColor>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

constexpr int Blattbreite = 1600;
constexpr int Rand = 16;
constexpr int Titelhöhe = 34;
constexpr int Schildhöhe = 18;
constexpr int Schrifthöhe = 12;
constexpr int Spielbreite = 776;
/// Pictures wider than this are shown once only.
constexpr int Doppelbreite = 150;

QColor Panelfarbe() { return {0xc0, 0xc0, 0xc0}; }
QColor Tinte() { return {0x2b, 0x3a, 0x4a}; }

QFont schrift(double pixel, bool fett) {
    QFont ergebnis(QStringLiteral("Courier New"));
    ergebnis.setStyleHint(QFont::TypeWriter);
    ergebnis.setPixelSize(static_cast<int>(std::lround(pixel)));
    ergebnis.setBold(fett);
    return ergebnis;
}

/// Typographic points at the 96 dpi in which the forms are measured.
constexpr double punkt(double pt) { return pt * 96 / 72; }

/// A picture or, where `text` is set, a label on a game's background; pixels of the 800 by 600 form.
struct Spielteil {
    const char* bild;
    const char* text;
    QRectF ort;
    double schriftgrad = 0;
};

constexpr auto Ohne = "";

std::vector<Spielteil> wolkenteile() {
    std::vector<Spielteil> teile{
        {"pushy", Ohne, {360, 462, 80, 55}},   {Ohne, "A", {7, 469, 99, 57}, 36},
        {Ohne, "ö", {686, 469, 106, 57}, 36},  {Ohne, "Zeit", {25, 0, 56, 27}, 18},
        {Ohne, "60", {24, 21, 58, 54}, 36},    {Ohne, "Punkte", {329, 0, 85, 27}, 18},
        {Ohne, "17", {350, 21, 58, 54}, 36},   {Ohne, "High-Score", {637, 0, 141, 27}, 18},
        {Ohne, "128", {649, 21, 117, 54}, 36},
    };
    constexpr std::array<double, 5> Links{150, 560, 330, 640, 230};
    constexpr std::array<double, 5> Oben{266, 224, 182, 140, 98};
    constexpr std::array<const char*, 5> Werte{"1", "2", "3", "4", "5"};
    for (std::size_t i = 0; i < Links.size(); ++i) {
        teile.push_back({"wolke", Ohne, {Links[i], Oben[i], 52, 32}});
        teile.push_back({Ohne, Werte[i], {Links[i], Oben[i], 50, 29}, 20.25});
    }
    return teile;
}

std::vector<Spielteil> steineteile() {
    return {
        {"pfeil_links", Ohne, {175, 14, 100, 91}},
        {"pfeil_rechts", Ohne, {525, 14, 100, 91}},
        {Ohne, "f", {217, 42, 50, 36}, 21.75},
        {Ohne, "Ü", {532, 42, 57, 43}, 21.75},
        {Ohne, "Punkte", {21, 301, 225, 25}, 18},
        {Ohne, "240", {21, 322, 225, 50}, 36},
        {Ohne, "High-Score", {21, 406, 225, 25}, 18},
        {Ohne, "1024", {21, 434, 225, 43}, 36},
        {Ohne, "Nächstes Teil", {553, 406, 225, 29}, 18},
    };
}

std::vector<Spielteil> bandteile() {
    std::vector<Spielteil> teile{
        {"band_rechts", Ohne, {733, 252, 67, 61}},   {"band_links", Ohne, {13, 252, 57, 61}},
        {"rad_1", Ohne, {14, 309, 64, 64}},          {"rad_1", Ohne, {721, 309, 64, 64}},
        {Ohne, "Punkte", {21, 7, 113, 27}, 18},      {Ohne, "9", {63, 28, 30, 54}, 36},
        {Ohne, "High-Score", {637, 7, 141, 27}, 18}, {Ohne, "86", {651, 28, 116, 54}, 36},
    };
    constexpr std::array<const char*, 5> Zeichen{"", "", "j", "K", "ß"};
    for (std::size_t i = 0; i < Zeichen.size(); ++i) {
        const double links = 380 + 38 * static_cast<double>(i);
        teile.push_back({i < 2 ? "stein_getippt" : "stein_offen", Ohne, {links + 1, 275, 36, 36}});
        teile.push_back({Ohne, Zeichen[i], {links, 278, 36, 29}, 18});
    }
    return teile;
}

/// The footer that all games share: names at the left, three buttons at the right.
std::vector<Spielteil> fußteile() {
    return {
        {Ohne, "Name:", {7, 532, 40, 16}, 9.75},   {Ohne, "Klasse:", {7, 553, 56, 16}, 9.75},
        {Ohne, "Übung:", {7, 574, 48, 16}, 9.75},  {"knopf_neu", Ohne, {588, 532, 60, 60}},
        {"knopf_hilfe", Ohne, {658, 532, 60, 60}}, {"knopf_ende", Ohne, {728, 532, 60, 60}},
    };
}

class Katalog {
public:
    explicit Katalog(const QString& ordner)
        : ordner_(ordner)
        , blatt_(Blattbreite, 6000, QImage::Format_RGB32) {
        const QFileInfoList dateien =
            QDir(ordner).entryInfoList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
        for (const QFileInfo& datei : dateien)
            offen_.push_back(datei.completeBaseName());
        if (offen_.isEmpty())
            throw std::runtime_error("keine Bilder in " + ordner.toStdString());
        blatt_.fill(QColor(0xf4, 0xf6, 0xf8));
        maler_.begin(&blatt_);
        maler_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                              QPainter::SmoothPixmapTransform);
    }

    void zeichne() {
        titel(QStringLiteral("Spiele, wie sie im Fenster stehen"));
        spiel(QStringLiteral("hintergrund_wolken"), wolkenteile(), {0, 0});
        spiel(QStringLiteral("hintergrund_steine"), steineteile(), {1, 0});
        y_ += Spielbreite * 3 / 4 + Schildhöhe + 12;
        spiel(QStringLiteral("hintergrund_band"), bandteile(), {0, 0});
        tastatur({1, 0});
        y_ += Spielbreite * 3 / 4 + Schildhöhe + 12;

        const QStringList hintergründe = offen_.filter(QStringLiteral("hintergrund_"));
        if (!hintergründe.isEmpty()) {
            titel(QStringLiteral("Weitere Hintergründe"));
            reihe(hintergründe, Panelfarbe(), QSizeF(384, 310), false);
        }
        titel(QStringLiteral("Spielfiguren, einfach und doppelt"));
        reihe(offen_.filter(QRegularExpression(QStringLiteral("^(wolke|pushy)"))), QColor(0xcf, 0xe6, 0xf2));
        reihe(offen_.filter(QRegularExpression(QStringLiteral("^pfeil_"))), QColor(0xec, 0xcf, 0xc8));
        reihe(offen_.filter(QRegularExpression(QStringLiteral("^(rad|band|stein)_"))),
              QColor(0xf5, 0xf0, 0xe2));
        titel(QStringLiteral("Finger, einfach und doppelt"));
        reihe(offen_.filter(QStringLiteral("finger_")), QColor(0xfd, 0xf3, 0xe4));
        titel(QStringLiteral("Knöpfe, Übungen und übrige Bilder, einfach und doppelt"));
        reihe(offen_, Panelfarbe());
    }

    void speichere(const QString& ziel) {
        maler_.end();
        const QImage ergebnis = blatt_.copy(0, 0, Blattbreite, std::min(blatt_.height(), y_ + Rand));
        if (!ergebnis.save(ziel, "PNG", 0))
            throw std::runtime_error("kann nicht schreiben: " + ziel.toStdString());
    }

private:
    struct Feld {
        int spalte;
        int zeile;
    };

    void svg(const QString& name, const QRectF& ziel) {
        QSvgRenderer bild(pfad(name));
        if (!bild.isValid())
            throw std::runtime_error("kein gültiges SVG: " + name.toStdString());
        bild.render(&maler_, ziel);
    }

    QString pfad(const QString& name) const {
        return ordner_ + QLatin1Char('/') + name + QStringLiteral(".svg");
    }
    QSizeF größe(const QString& name) const { return QSvgRenderer(pfad(name)).defaultSize(); }
    bool vorhanden(const QString& name) const { return QFileInfo::exists(pfad(name)); }

    void titel(const QString& text) {
        maler_.setPen(Tinte());
        maler_.setFont(schrift(18, true));
        maler_.drawText(QRect(Rand, y_, Blattbreite - 2 * Rand, Titelhöhe), Qt::AlignLeft | Qt::AlignVCenter,
                        text);
        y_ += Titelhöhe;
    }

    void schild(const QRectF& platz, const QString& text) {
        maler_.setPen(Tinte());
        maler_.setFont(schrift(Schrifthöhe, false));
        maler_.drawText(platz, Qt::AlignHCenter | Qt::AlignVCenter, text);
    }

    /// Opens a form of 800 by 600 pixels in a field of two columns; the caller restores the painter.
    bool öffneFenster(const QString& hintergrund, Feld feld) {
        const double links = Rand + feld.spalte * (Spielbreite + Rand);
        schild({links, static_cast<double>(y_) + Spielbreite * 0.75, Spielbreite, Schildhöhe}, hintergrund);
        maler_.save();
        maler_.translate(links, y_);
        maler_.scale(Spielbreite / 800.0, Spielbreite / 800.0);
        maler_.setClipRect(QRectF(0, 0, 800, 600));
        offen_.removeAll(hintergrund);
        if (!vorhanden(hintergrund))
            return false;
        svg(hintergrund, {0, 0, 800, 600});
        return true;
    }

    void teil(const Spielteil& t) {
        const QString bild = QString::fromUtf8(t.bild);
        if (!bild.isEmpty() && vorhanden(bild))
            svg(bild, t.ort);
        const QString text = QString::fromUtf8(t.text);
        if (text.isEmpty())
            return;
        maler_.setPen(Qt::black);
        maler_.setFont(schrift(punkt(t.schriftgrad), t.schriftgrad > 12));
        maler_.drawText(t.ort, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip, text);
    }

    void spiel(const QString& hintergrund, const std::vector<Spielteil>& teile, Feld feld) {
        if (öffneFenster(hintergrund, feld)) {
            for (const Spielteil& t : teile)
                teil(t);
            for (const Spielteil& t : fußteile())
                teil(t);
            if (hintergrund.endsWith(QStringLiteral("steine")))
                schacht();
        }
        maler_.restore();
    }

    void zelle(double links, double oben, const QColor& füllung, const QColor& rand) {
        maler_.setPen(QPen(rand, 1));
        maler_.setBrush(füllung);
        maler_.drawRect(QRectF(links + 0.5, oben + 0.5, 21, 21));
        maler_.setBrush(Qt::NoBrush);
    }

    /// The shaft's cells with two landed figures and one that falls, and the preview.
    void schacht() {
        const QColor gitter(224, 224, 224);
        for (int reihe = 0; reihe < 23; ++reihe)
            for (int spalte = 0; spalte < 10; ++spalte)
                zelle(295 + 21 * spalte, 477 - 21 * reihe, Qt::white, gitter);
        constexpr std::array<std::array<int, 3>, 12> Zellen{{{0, 0, 0},
                                                             {1, 0, 0},
                                                             {0, 1, 0},
                                                             {1, 1, 0},
                                                             {3, 0, 1},
                                                             {4, 0, 1},
                                                             {5, 0, 1},
                                                             {6, 0, 1},
                                                             {4, 16, 2},
                                                             {5, 16, 2},
                                                             {5, 15, 2},
                                                             {6, 15, 2}}};
        const std::array<QColor, 3> farben{QColor(255, 0, 0), QColor(0, 180, 0), QColor(0, 200, 200)};
        for (const auto& [x, y, art] : Zellen)
            zelle(295 + 21 * x, 477 - 21 * y, farben[static_cast<std::size_t>(art)], gitter);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 4; ++x)
                zelle(623 + 21 * x, 441 + 21 * y, y == 1 ? QColor(0, 180, 0) : QColor(Qt::white), Qt::white);
    }

    /// The typing page with all fingers lit. A finger's view box is its place on the page.
    void tastatur(Feld feld) {
        const QStringList finger = offen_.filter(QStringLiteral("finger_"));
        if (öffneFenster(QStringLiteral("hintergrund_tastatur"), feld)) {
            // Downwards, because the round mark 5 lies on the thumb 6.
            for (auto name = finger.crbegin(); name != finger.crend(); ++name)
                svg(*name, QSvgRenderer(pfad(*name)).viewBoxF());
        }
        maler_.restore();
    }

    /// Draws the pictures one after another, each at 1x and 2x (or fitted into `höchstens`), and takes them
    /// off the list of pictures still to be shown. The names are a copy, because they can be that very list.
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    void reihe(QStringList namen, const QColor& grund, QSizeF höchstens = {}, bool klein = true) {
        double links = Rand;
        double zeilenhöhe = 0;
        for (const QString& name : std::as_const(namen)) {
            QSizeF einfach = größe(name);
            if (!höchstens.isEmpty())
                einfach.scale(höchstens, Qt::KeepAspectRatio);
            const bool doppelt = klein && einfach.width() <= Doppelbreite;
            const double innen = doppelt ? einfach.width() * 3 + 10 : einfach.width();
            const double breite = std::max(innen + 16, doppelt ? 116.0 : 0.0);
            const double höhe = einfach.height() * (doppelt ? 2 : 1) + 16;
            if (links + breite > Blattbreite - Rand && links > Rand) {
                y_ += static_cast<int>(std::ceil(zeilenhöhe)) + Schildhöhe + 8;
                links = Rand;
                zeilenhöhe = 0;
            }
            maler_.fillRect(QRectF(links, y_, breite, höhe), grund);
            const double x = links + (breite - innen) / 2;
            svg(name, {{x, y_ + höhe - 8 - einfach.height()}, einfach});
            if (doppelt)
                svg(name, {{x + einfach.width() + 10, y_ + 8.0}, einfach * 2});
            schild({links, y_ + höhe, breite, Schildhöhe}, name);
            links += breite + 8;
            zeilenhöhe = std::max(zeilenhöhe, höhe);
            offen_.removeAll(name);
        }
        if (!namen.isEmpty())
            y_ += static_cast<int>(std::ceil(zeilenhöhe)) + Schildhöhe + 8;
    }

    QString ordner_;
    QStringList offen_;
    QImage blatt_;
    QPainter maler_;
    int y_ = Rand;
};

} // namespace

int main(int argc, char** argv) try {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication anwendung(argc, argv);
    if (argc != 3) {
        std::cerr << "Aufruf: bilderkatalog BILDORDNER ZIEL.png\n";
        return 2;
    }
    Katalog katalog(QFile::decodeName(argv[1]));
    katalog.zeichne();
    katalog.speichere(QFile::decodeName(argv[2]));
    return 0;
} catch (const std::exception& fehler) {
    std::cerr << "bilderkatalog: " << fehler.what() << '\n';
    return 1;
}
