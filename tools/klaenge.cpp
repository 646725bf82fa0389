// Makes the six sounds of the program: `klaenge OUTDIR`. Everything is computed, nothing is random, so that
// every build gives the same bytes.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <numbers>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int Abtastrate = 44100;
/// -1 dBFS.
constexpr double Höchstpegel = 0.891;
/// Loudness of all sounds in dB, by the measure of `lautheit`.
constexpr double Ziellautheit = -18;
/// The key click comes with every stroke, so it is a little softer than the rest.
constexpr double ZiellautheitKnopf = -19;

/// Seconds in which the shot climbs.
constexpr double Steigdauer = 0.24;

constexpr double ZweiPi = 2 * std::numbers::pi;

using Klang = std::vector<double>;

/// Filter of second order in direct form.
struct Filter {
    double b0, b1, b2, a1, a2;

    Klang angewandt(const Klang& ein) const {
        Klang aus(ein.size());
        double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
        for (std::size_t i = 0; i < ein.size(); ++i) {
            const double y = b0 * ein[i] + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2;
            x2 = x1;
            x1 = ein[i];
            y2 = y1;
            y1 = y;
            aus[i] = y;
        }
        return aus;
    }
};

/// Passes the band around `hz`, with gain 1 in its middle.
Filter bandpass(double hz, double güte) {
    const double w = ZweiPi * hz / Abtastrate;
    const double alpha = std::sin(w) / (2 * güte);
    return {alpha / (1 + alpha), 0, -alpha / (1 + alpha), -2 * std::cos(w) / (1 + alpha),
            (1 - alpha) / (1 + alpha)};
}

/// The two filters of K-weighting (ITU-R BS.1770), from their analogue corner frequencies, since the
/// recommendation's table is for 48 kHz only.
Klang kBewertet(const Klang& klang) {
    const double ks = std::tan(std::numbers::pi * 1681.974450955533 / Abtastrate);
    const double vh = std::pow(10.0, 3.999843853973347 / 20);
    const double vb = std::pow(vh, 0.4996667741545416);
    const double qs = 0.7071752369554196;
    const double as = 1 + ks / qs + ks * ks;
    const Filter kopf{(vh + vb * ks / qs + ks * ks) / as, 2 * (ks * ks - vh) / as,
                      (vh - vb * ks / qs + ks * ks) / as, 2 * (ks * ks - 1) / as,
                      (1 - ks / qs + ks * ks) / as};
    const double kt = std::tan(std::numbers::pi * 38.13547087602444 / Abtastrate);
    const double qt = 0.5003270373238773;
    const double at = 1 + kt / qt + kt * kt;
    const Filter tief{1, -2, 1, 2 * (kt * kt - 1) / at, (1 - kt / qt + kt * kt) / at};
    return tief.angewandt(kopf.angewandt(klang));
}

/// Loudness in dB against full scale: the largest RMS of any 50 ms of the K-weighted sound. What is shorter
/// counts as followed by silence.
double lautheit(const Klang& klang) {
    constexpr std::size_t Fenster = Abtastrate / 20;
    const Klang bewertet = kBewertet(klang);
    double summe = 0;
    double höchste = 0;
    for (std::size_t i = 0; i < bewertet.size(); ++i) {
        summe += bewertet[i] * bewertet[i];
        if (i >= Fenster)
            summe -= bewertet[i - Fenster] * bewertet[i - Fenster];
        höchste = std::max(höchste, summe);
    }
    return 10 * std::log10(höchste / Fenster);
}

Klang stille(double sekunden) { return Klang(static_cast<std::size_t>(std::lround(sekunden * Abtastrate))); }

/// Adds `wert(t)`, t in seconds from `beginn`, up to the end of the sound.
void mische(Klang& klang, double beginn, const std::function<double(double)>& wert) {
    const auto anfang = static_cast<std::size_t>(std::lround(beginn * Abtastrate));
    for (std::size_t i = anfang; i < klang.size(); ++i)
        klang[i] += wert(static_cast<double>(i - anfang) / Abtastrate);
}

/// Rises within `anstieg` seconds and then dies away to 1/e every `abkling` seconds.
double hülle(double t, double anstieg, double abkling) {
    return (t < anstieg ? 0.5 - 0.5 * std::cos(std::numbers::pi * t / anstieg) : 1.0) *
           std::exp(-t / abkling);
}

struct Teilton {
    double hz;
    double stärke;
    double abkling;
};

void schlage(Klang& klang, double beginn, double anstieg, const std::vector<Teilton>& töne) {
    for (const Teilton& ton : töne)
        mische(klang, beginn, [&](double t) {
            return ton.stärke * hülle(t, anstieg, ton.abkling) * std::sin(ZweiPi * ton.hz * t);
        });
}

/// Noise of a fixed sequence around `hz`, shaped by `form(t)`.
void rausche(Klang& klang, double beginn, double hz, double güte, const std::function<double(double)>& form) {
    std::uint32_t zustand = 20011;
    Klang rauschen(klang.size());
    for (double& wert : rauschen) {
        zustand = zustand * 1664525U + 1013904223U;
        wert = static_cast<double>(zustand >> 8) / 8388608.0 - 1;
    }
    rauschen = bandpass(hz, güte).angewandt(rauschen);
    const auto anfang = static_cast<std::size_t>(std::lround(beginn * Abtastrate));
    for (std::size_t i = anfang; i < klang.size(); ++i)
        klang[i] += rauschen[i] * form(static_cast<double>(i - anfang) / Abtastrate);
}

/// A key that reaches its stop: a short dry tick and the wooden body under it.
Klang knopf() {
    Klang klang = stille(0.06);
    rausche(klang, 0, 2400, 0.8, [](double t) { return 1.6 * hülle(t, 0.001, 0.004); });
    schlage(klang, 0, 0.001, {{620, 0.7, 0.010}, {1130, 0.45, 0.007}, {1870, 0.25, 0.005}});
    return klang;
}

/// The little bell at the end of a typewriter's line. Each of the two lowest tones is doubled by a close
/// neighbour: the beat makes it metal.
Klang glocke() {
    Klang klang = stille(1.1);
    rausche(klang, 0, 5200, 0.9, [](double t) { return 0.35 * hülle(t, 0.0005, 0.003); });
    schlage(klang, 0, 0.0015,
            {{2093, 0.50, 0.22},
             {2101, 0.30, 0.24},
             {3230, 0.12, 0.13},
             {4870, 0.22, 0.11},
             {4893, 0.10, 0.12},
             {8120, 0.06, 0.04}});
    return klang;
}

/// Two soft tones, the second a minor third lower.
Klang falsch() {
    Klang klang = stille(0.25);
    const auto weich = [&](double beginn, double hz, double stärke) {
        schlage(klang, beginn, 0.012,
                {{hz, stärke, 0.09}, {2 * hz, 0.30 * stärke, 0.06}, {3 * hz, 0.12 * stärke, 0.04}});
    };
    weich(0, 523.25, 0.7);
    weich(0.1, 440, 1);
    return klang;
}

/// The conveyor jerks: a thud, the clank of sheet metal, and a smaller clank as the belt catches again.
Klang bandFalsch() {
    Klang klang = stille(0.3);
    mische(klang, 0, [](double t) {
        return 0.5 * hülle(t, 0.003, 0.05) *
               std::sin(ZweiPi * (130 * t + 60 * 0.03 * (1 - std::exp(-t / 0.03))));
    });
    const auto blech = [&](double beginn, double stärke) {
        schlage(klang, beginn, 0.001,
                {{410, 0.55 * stärke, 0.050},
                 {673, 0.45 * stärke, 0.045},
                 {1187, 0.30 * stärke, 0.035},
                 {1741, 0.20 * stärke, 0.028},
                 {2590, 0.12 * stärke, 0.020}});
        rausche(klang, beginn, 1500, 0.7, [=](double t) { return 0.8 * stärke * hülle(t, 0.001, 0.008); });
    };
    blech(0, 1);
    blech(0.115, 0.45);
    return klang;
}

/// A beam shot upward: a tone that climbs more than two octaves, with air around it.
Klang schuss() {
    Klang klang = stille(0.3);
    mische(klang, 0, [](double t) {
        const double steigung = std::log(1500.0 / 320.0) / Steigdauer;
        const double phase = ZweiPi * 320 * (std::exp(steigung * std::min(t, Steigdauer)) - 1) / steigung +
                             ZweiPi * 1500 * std::max(0.0, t - Steigdauer);
        const double ton = std::sin(phase) + 0.35 * std::sin(2 * phase) + 0.12 * std::sin(3 * phase);
        return 0.6 * hülle(t, 0.012, 0.14) * ton;
    });
    rausche(klang, 0, 3000, 0.6, [](double t) { return 0.35 * hülle(t, 0.05, 0.06); });
    return klang;
}

/// A block of wood is hit, and a bright bar answers.
Klang treffer() {
    Klang klang = stille(0.3);
    rausche(klang, 0, 2000, 0.7, [](double t) { return 0.9 * hülle(t, 0.0008, 0.005); });
    schlage(klang, 0, 0.0015, {{784, 0.8, 0.035}, {1720, 0.35, 0.020}, {2760, 0.15, 0.012}});
    schlage(klang, 0.045, 0.002, {{1174.66, 0.6, 0.065}, {3240, 0.10, 0.03}, {6340, 0.05, 0.012}});
    return klang;
}

/// Lets both ends touch zero: half a millisecond in, 15 ms out (less in a sound shorter than 100 ms).
void blende(Klang& klang) {
    const std::size_t ein = Abtastrate / 2000;
    const std::size_t aus = std::min<std::size_t>(Abtastrate * 15 / 1000, klang.size() / 5);
    for (std::size_t i = 0; i < ein; ++i)
        klang[i] *= static_cast<double>(i) / static_cast<double>(ein);
    for (std::size_t i = 0; i < aus; ++i)
        klang[klang.size() - 1 - i] *= static_cast<double>(i) / static_cast<double>(aus);
}

std::string zahl(std::uint32_t wert, int bytes) {
    std::string aus;
    for (int i = 0; i < bytes; ++i)
        aus += static_cast<char>(wert >> (8 * i) & 0xFF);
    return aus;
}

/// A wave file: PCM, one channel, 16 bits.
std::string welle(const Klang& klang) {
    std::string daten;
    for (const double wert : klang)
        daten += zahl(static_cast<std::uint32_t>(std::lround(wert * 32767)), 2);
    const auto länge = static_cast<std::uint32_t>(daten.size());
    return "RIFF" + zahl(36 + länge, 4) + "WAVEfmt " + zahl(16, 4) + zahl(1, 2) + zahl(1, 2) +
           zahl(Abtastrate, 4) + zahl(2 * Abtastrate, 4) + zahl(2, 2) + zahl(16, 2) + "data" +
           zahl(länge, 4) + daten;
}

void schreibe(const std::filesystem::path& datei, Klang klang, double ziel) {
    blende(klang);
    const double faktor = std::pow(10.0, (ziel - lautheit(klang)) / 20);
    double spitze = 0;
    for (double& wert : klang) {
        wert *= faktor;
        spitze = std::max(spitze, std::abs(wert));
    }
    if (spitze > Höchstpegel)
        throw std::runtime_error(datei.string() + ": zu laut, Spitze " + std::to_string(spitze));
    std::ofstream strom(datei, std::ios::binary);
    strom << welle(klang);
    if (!strom.flush())
        throw std::runtime_error(datei.string() + ": nicht geschrieben");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Aufruf: klaenge AUSGABEORDNER\n";
        return 2;
    }
    try {
        const std::filesystem::path ordner = argv[1];
        std::filesystem::create_directories(ordner);
        schreibe(ordner / "knopf.wav", knopf(), ZiellautheitKnopf);
        schreibe(ordner / "typewriterding.wav", glocke(), Ziellautheit);
        schreibe(ordner / "falsch.wav", falsch(), Ziellautheit);
        schreibe(ordner / "Fließbandfalsch.wav", bandFalsch(), Ziellautheit);
        schreibe(ordner / "pb_Schieben.wav", schuss(), Ziellautheit);
        schreibe(ordner / "pb_Zahlenklotz2.wav", treffer(), Ziellautheit);
    } catch (const std::exception& fehler) {
        std::cerr << "klaenge: " << fehler.what() << '\n';
        return 1;
    }
    return 0;
}
