// Draws the keyboard pictures of the 30 lessons: `lektionsbilder KURSDIR KEYSVGDIR ASSETSDIR OUTDIR`.
// New keys stand out, known ones have their colour, the rest is pale.

#include "course/tastenlegende.h"
#include "screens/tastenplan.h"
#include "tools/kursdatei.h"
#include "tools/palettenbild.h"
#include "tools/tastenfarben.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

#include <algorithm>
#include <iostream>
#include <set>
#include <stdexcept>

namespace {

using namespace klopfmeise;

/// Size of the picture where it is shown large, 10770 by 5520 twips.
constexpr QSize Bildmaß{718, 368};
/// Below this line, in pixels, the strip of lesson numbers covers the picture.
constexpr int Inhaltsende = 348;
/// The typing screen (800 by 600) is shrunk by this factor and moved so that keyboard and fingers fill the
/// picture.
constexpr double Maßstab = 0.92;
constexpr QPointF Versatz{359 - 403 * Maßstab, 2 - 34 * Maßstab};
/// A new key is larger than the others by this many pixels on each side.
constexpr double Wuchs = 2.2;

QString qt(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}
QColor farbe(std::string_view name) {
    return QColor(QLatin1String(name.data(), static_cast<qsizetype>(name.size())));
}

QRectF imBild(const Rect& r) {
    const double je = Maßstab / 15;
    return {r.left * je + Versatz.x(), r.top * je + Versatz.y(), r.width * je, r.height * je};
}

QString zweistellig(const QString& muster, int nummer) { return muster.arg(nummer, 2, 10, QLatin1Char('0')); }

QByteArray lies(const QString& datei) {
    QFile quelle(datei);
    if (!quelle.open(QIODevice::ReadOnly))
        throw std::runtime_error("nicht lesbar: " + datei.toStdString());
    return quelle.readAll();
}

void zeichneSvg(QPainter& maler, const QByteArray& svg, const QRectF& ziel) {
    QSvgRenderer bild(svg);
    if (!bild.isValid())
        throw std::runtime_error("kein gültiges SVG");
    bild.render(&maler, ziel);
}

/// What a child knows and learns when it comes to a lesson. Keys by number.
struct Wissen {
    std::set<int> bekannt;
    std::set<int> neu;
    std::set<wchar_t> neueZeichen;
};

bool liegtAufAltGr(const Taste& taste, wchar_t zeichen) {
    return Tastenlegenden[static_cast<std::size_t>(taste.nummer - 1)].altGr.find(zeichen) !=
           std::wstring_view::npos;
}

/// From what was known before the lesson; space bar and Enter come with the first one, and the backspace key
/// with the first flowing text, where mistakes have to be taken back.
Wissen lerne(const Kurslektion& lektion, int nummer, std::set<int> bekannt) {
    Wissen wissen{std::move(bekannt), {}, {}};
    for (const std::wstring& eintrag : lektion.tasten) {
        const wchar_t zeichen = eintrag.front();
        const int taste = tasteFür(zeichen);
        if (taste == 0)
            throw std::runtime_error("Lektion " + std::to_string(nummer) + ": keine Taste für " +
                                     qt(eintrag).toStdString());
        wissen.neu.insert(taste);
        wissen.neueZeichen.insert(zeichen);
        if (liegtAufAltGr(klopfmeise::taste(taste), zeichen) && !wissen.bekannt.contains(TasteAltGr))
            wissen.neu.insert(TasteAltGr);
    }
    if (nummer == 1)
        wissen.neu.insert({TasteLeer, TasteEingabe});
    if (lektion.umschalt)
        wissen.neu.insert({TasteUmschaltLinks, TasteUmschaltRechts});
    if (lektion.art == ArtFließtext && !wissen.bekannt.contains(TasteRück))
        wissen.neu.insert(TasteRück);
    return wissen;
}

class Zeichner {
public:
    Zeichner(const QString& tastenordner, const QString& bildordner)
        : hintergrund(lies(bildordner + "/hintergrund_tastatur.svg")) {
        for (const Taste& taste : tasten())
            kappen.push_back(lies(zweistellig(tastenordner + "/taste_%1.svg", taste.nummer)));
        for (int finger = 1; finger <= Fingerzahl; ++finger)
            fingerbilder.push_back(lies(zweistellig(bildordner + "/finger_%1.svg", finger)));
    }

    QImage bild(const Wissen& wissen) const {
        QImage aus(Bildmaß, QImage::Format_RGB32);
        aus.fill(Qt::white);
        QPainter maler(&aus);
        maler.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                             QPainter::SmoothPixmapTransform);
        maler.setClipRect(0, 0, Bildmaß.width(), Inhaltsende);
        zeichneSvg(maler, hintergrund, {Versatz, QSizeF(800, 600) * Maßstab});
        for (const Taste& taste : tasten())
            if (!wissen.neu.contains(taste.nummer))
                alteTaste(maler, taste, wissen.bekannt.contains(taste.nummer));
        for (const int nummer : wissen.neu)
            neueTaste(maler, taste(nummer), wissen.neueZeichen);
        finger(maler, wissen.neu);
        return alsPalettenbild(aus);
    }

private:
    const QByteArray& kappe(const Taste& taste) const {
        return kappen[static_cast<std::size_t>(taste.nummer - 1)];
    }

    void alteTaste(QPainter& maler, const Taste& taste, bool bekannt) const {
        if (bekannt) {
            zeichneSvg(maler, kappe(taste), imBild(taste.lage));
            return;
        }
        maler.save();
        maler.setOpacity(0.7);
        zeichneSvg(maler, blass(taste), imBild(taste.lage));
        maler.restore();
    }

    /// The cap in greys, its legend faint.
    QByteArray blass(const Taste& taste) const {
        const Kappenfarbe& f = kappenfarbe(taste);
        return umgefärbt(taste, {{f.fläche, "#eef1f4"}, {f.rand, "#c3ccd4"}, {Tinte, "#97a3af"}});
    }

    QByteArray umgefärbt(const Taste& taste,
                         std::initializer_list<std::pair<std::string_view, std::string_view>> tausch) const {
        QByteArray svg = kappe(taste);
        for (const auto& [alt, neu] : tausch)
            svg.replace(QByteArrayView(alt.data(), static_cast<qsizetype>(alt.size())),
                        QByteArrayView(neu.data(), static_cast<qsizetype>(neu.size())));
        return svg;
    }

    void neueTaste(QPainter& maler, const Taste& taste, const std::set<wchar_t>& neueZeichen) const {
        const QRectF platz = imBild(taste.lage).adjusted(-Wuchs, -Wuchs, Wuchs, Wuchs);
        const Kappenfarbe& f = kappenfarbe(taste);
        maler.setPen(QPen(farbe(Tinte), 3));
        maler.setBrush(farbe(f.stark));
        maler.drawRoundedRect(platz.adjusted(1.5, 1.5, -1.5, -1.5), 8, 8);
        const Tastenlegende& legende = Tastenlegenden[static_cast<std::size_t>(taste.nummer - 1)];
        if (legende.haupt.empty()) {
            // A drawn sign: the cap of the file, without its colours.
            zeichneSvg(maler, umgefärbt(taste, {{f.fläche, "none"}, {f.rand, "none"}}), platz);
            return;
        }
        const auto neu = [&](std::wstring_view zeichen) {
            return std::ranges::any_of(zeichen, [&](wchar_t z) { return neueZeichen.contains(z); });
        };
        if (legende.umschalt.empty() && !neu(legende.altGr)) {
            schreibe(maler, platz, Qt::AlignCenter, legende.haupt, legende.haupt.size() > 1 ? 17 : 28, true);
            if (legende.haupt == L"F" || legende.haupt == L"J") {
                maler.setPen(QPen(farbe(Tinte), 2.5, Qt::SolidLine, Qt::RoundCap));
                maler.drawLine(platz.center() + QPointF(-6, 15), platz.center() + QPointF(6, 15));
            }
            return;
        }
        // The capital stands for its small letter, hence the look into the key map.
        const bool hauptNeu =
            neu(legende.haupt) || (legende.umschalt.empty() && neu(taste.zeichen.substr(0, 1)));
        const QRectF innen = platz.adjusted(7, 2, -6, -3);
        const int anzahl = neu(legende.umschalt) + hauptNeu + neu(legende.altGr);
        const int groß = anzahl > 1 ? 21 : 24;
        schreibe(maler, innen, Qt::AlignLeft | Qt::AlignTop, legende.umschalt, groß, neu(legende.umschalt));
        schreibe(maler, innen, Qt::AlignLeft | (legende.umschalt.empty() ? Qt::AlignTop : Qt::AlignBottom),
                 legende.haupt, groß, hauptNeu);
        schreibe(maler, innen, Qt::AlignRight | Qt::AlignBottom, legende.altGr, groß, neu(legende.altGr));
    }

    /// New signs are large and bold, the others of the same key small and faint. Placed by their ink, but
    /// where the height above the line tells signs apart (a hyphen from an underscore) by that of a capital.
    static void schreibe(QPainter& maler, const QRectF& platz, Qt::Alignment lage, std::wstring_view text,
                         int größe, bool neu) {
        if (text.empty())
            return;
        QFont schrift(QStringLiteral("Liberation Sans"));
        schrift.setBold(neu);
        const bool winzig = text.find_first_of(L"´`'") != std::wstring_view::npos;
        const bool klein = text.find_first_of(L"^°.,;:-_~*²³") != std::wstring_view::npos;
        schrift.setPixelSize(neu ? größe + (winzig ? 14 : klein ? 9 : 0) : 12);
        QPainterPath umrisse;
        umrisse.addText(0, 0, schrift, qt(text));
        QRectF tinte = umrisse.boundingRect();
        if (text.find_first_of(L"-_~.,²³") != std::wstring_view::npos) {
            QPainterPath versal;
            versal.addText(0, 0, schrift, QStringLiteral("H"));
            tinte.setTop(std::min(tinte.top(), versal.boundingRect().top()));
            tinte.setBottom(std::max(tinte.bottom(), 0.0));
        }
        const double x = lage & Qt::AlignRight     ? platz.right() - tinte.right()
                         : lage & Qt::AlignHCenter ? platz.center().x() - tinte.center().x()
                                                   : platz.left() - tinte.left();
        const double y = lage & Qt::AlignBottom    ? platz.bottom() - 3 - tinte.bottom()
                         : lage & Qt::AlignVCenter ? platz.center().y() - tinte.center().y()
                                                   : platz.top() + 5 - tinte.top();
        QColor füllung = farbe(Tinte);
        füllung.setAlphaF(neu ? 1.0F : 0.5F);
        maler.fillPath(umrisse.translated(x, y), füllung);
    }

    void finger(QPainter& maler, const std::set<int>& neueTasten) const {
        std::set<int> leuchtend;
        for (const int nummer : neueTasten) {
            const std::vector<int> einer = fingerFür(nummer);
            leuchtend.insert(einer.begin(), einer.end());
        }
        if (neueTasten.contains(TasteUmschaltLinks))
            leuchtend.insert({1, 10});
        if (neueTasten.contains(TasteAltGr))
            leuchtend.insert({5, 6});
        // Downwards, because the round mark 5 lies on the thumb 6.
        for (auto f = leuchtend.rbegin(); f != leuchtend.rend(); ++f)
            zeichneSvg(maler, fingerbilder[static_cast<std::size_t>(*f - 1)], imBild(fingerbild(*f)));
    }

    QByteArray hintergrund;
    std::vector<QByteArray> kappen;
    std::vector<QByteArray> fingerbilder;
};

} // namespace

int main(int argc, char** argv) try {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication anwendung(argc, argv);
    if (argc != 5) {
        std::cerr << "Aufruf: lektionsbilder KURSORDNER TASTENORDNER BILDORDNER ZIELORDNER\n";
        return 2;
    }
    const std::filesystem::path ziel = argv[4];
    std::filesystem::create_directories(ziel);
    const Zeichner zeichner(QFile::decodeName(argv[2]), QFile::decodeName(argv[3]));
    std::set<int> bekannt;
    int nummer = 0;
    for (const Kurslektion& lektion : leseKurs(argv[1])) {
        ++nummer;
        const Wissen wissen = lerne(lektion, nummer, std::move(bekannt));
        const std::filesystem::path datei = ziel / ("Lektion" + std::to_string(nummer) + ".bmp");
        if (!zeichner.bild(wissen).save(QFile::decodeName(datei.c_str()), "BMP"))
            throw std::runtime_error("kann nicht schreiben: " + datei.string());
        bekannt = wissen.bekannt;
        bekannt.insert(wissen.neu.begin(), wissen.neu.end());
    }
    return 0;
} catch (const std::exception& fehler) {
    std::cerr << "lektionsbilder: " << fehler.what() << '\n';
    return 1;
}
