#include "tools/palettenbild.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace klopfmeise {

namespace {

struct Farbe {
    std::array<int, 3> kanal{}; ///< red, green, blue
    long anzahl = 0;
};

/// Colours that will share one entry of the palette.
struct Kasten {
    std::size_t anfang = 0;
    std::size_t ende = 0;
    std::size_t kanal = 0; ///< along which the colours lie farthest apart
    double gewicht = 0;    ///< how much is won by dividing the box
};

Kasten kasten(const std::vector<Farbe>& farben, std::size_t anfang, std::size_t ende) {
    Kasten aus{anfang, ende, 0, 0};
    long anzahl = 0;
    for (std::size_t i = anfang; i < ende; ++i)
        anzahl += farben[i].anzahl;
    int weite = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        int kleinst = 255;
        int größt = 0;
        for (std::size_t i = anfang; i < ende; ++i) {
            kleinst = std::min(kleinst, farben[i].kanal[k]);
            größt = std::max(größt, farben[i].kanal[k]);
        }
        if (größt - kleinst > weite) {
            weite = größt - kleinst;
            aus.kanal = k;
        }
    }
    // The count is damped: the many pixels of the background must not take the entries of the edges of
    // letters.
    aus.gewicht =
        static_cast<double>(weite) * weite * std::clamp(static_cast<double>(anzahl) / 16.0, 1.0, 400.0);
    return aus;
}

} // namespace

QImage alsPalettenbild(const QImage& bild) {
    const QImage quelle = bild.convertToFormat(QImage::Format_RGB32);
    std::map<QRgb, long> häufigkeit;
    for (int y = 0; y < quelle.height(); ++y)
        for (int x = 0; x < quelle.width(); ++x)
            ++häufigkeit[quelle.pixel(x, y)];

    std::vector<Farbe> farben;
    for (const auto& [rgb, anzahl] : häufigkeit)
        farben.push_back({{qRed(rgb), qGreen(rgb), qBlue(rgb)}, anzahl});

    constexpr std::size_t Palettenzahl = 256;
    std::vector<Kasten> kästen{kasten(farben, 0, farben.size())};
    while (kästen.size() < Palettenzahl) {
        const auto größter = std::ranges::max_element(kästen, {}, &Kasten::gewicht);
        if (größter->gewicht <= 0)
            break;
        const Kasten alt = *größter;
        const auto von = farben.begin() + static_cast<std::ptrdiff_t>(alt.anfang);
        const auto bis = farben.begin() + static_cast<std::ptrdiff_t>(alt.ende);
        std::stable_sort(von, bis, [&](const Farbe& a, const Farbe& b) {
            return a.kanal[alt.kanal] < b.kanal[alt.kanal];
        });
        const int mitte = (von->kanal[alt.kanal] + (bis - 1)->kanal[alt.kanal]) / 2;
        const auto schnitt =
            std::find_if(von, bis, [&](const Farbe& f) { return f.kanal[alt.kanal] > mitte; });
        const auto grenze = static_cast<std::size_t>(schnitt - farben.begin());
        *größter = kasten(farben, alt.anfang, grenze);
        kästen.push_back(kasten(farben, grenze, alt.ende));
    }

    QList<QRgb> palette;
    std::map<QRgb, unsigned char> eintrag;
    for (const Kasten& k : kästen) {
        std::array<long, 3> summe{};
        long anzahl = 0;
        for (std::size_t i = k.anfang; i < k.ende; ++i) {
            const Farbe& f = farben[i];
            for (std::size_t kanal = 0; kanal < 3; ++kanal)
                summe[kanal] += f.anzahl * f.kanal[kanal];
            anzahl += f.anzahl;
            eintrag[qRgb(f.kanal[0], f.kanal[1], f.kanal[2])] = static_cast<unsigned char>(palette.size());
        }
        const auto mittel = [&](std::size_t kanal) {
            return static_cast<int>((summe[kanal] + anzahl / 2) / anzahl);
        };
        palette.push_back(qRgb(mittel(0), mittel(1), mittel(2)));
    }

    QImage aus(quelle.size(), QImage::Format_Indexed8);
    aus.setColorTable(palette);
    // QImage::fill leaves out the bytes that pad each line, and they get into the file.
    std::fill_n(aus.bits(), aus.sizeInBytes(), uchar{0});
    for (int y = 0; y < quelle.height(); ++y)
        for (int x = 0; x < quelle.width(); ++x)
            aus.scanLine(y)[x] = eintrag.at(quelle.pixel(x, y));
    return aus;
}

} // namespace klopfmeise
