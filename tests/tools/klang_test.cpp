#include "tests/buehne.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>

namespace klopfmeise {
namespace {

constexpr std::uint32_t Abtastrate = 44100;
constexpr double Vollausschlag = 32768;
constexpr std::size_t Kopf = 44;

struct Klangname {
    const char* datei;
    double höchstdauer; ///< seconds
};
constexpr Klangname Klänge[] = {
    {"knopf.wav", 0.1},           {"typewriterding.wav", 1.5}, {"falsch.wav", 1.5},
    {"Fließbandfalsch.wav", 1.5}, {"pb_Schieben.wav", 1.5},    {"pb_Zahlenklotz2.wav", 1.5},
};

std::string lies(const char* datei) { return dateiinhalt(std::filesystem::path(KLOPFMEISE_WAV) / datei); }

std::uint32_t zahl(const std::string& bytes, std::size_t stelle, std::size_t länge) {
    std::uint32_t wert = 0;
    for (std::size_t i = 0; i < länge; ++i)
        wert |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes.at(stelle + i))) << (8 * i);
    return wert;
}

std::vector<double> werte(const std::string& bytes) {
    std::vector<double> aus;
    for (std::size_t i = Kopf; i + 1 < bytes.size(); i += 2)
        aus.push_back(static_cast<std::int16_t>(zahl(bytes, i, 2)) / Vollausschlag);
    return aus;
}

double dezibel(double amplitude) { return 20 * std::log10(amplitude); }

/// Loudness in dB: the largest RMS of any 50 ms behind a high pass of first order at 300 Hz, which stands for
/// the ear's weakness in the bass. What is shorter counts as followed by silence. It is simpler than the
/// measure that the sounds were set by, and independent of it.
double lautheit(const std::vector<double>& klang) {
    constexpr std::size_t Fenster = Abtastrate / 20;
    const double a = 1 / (1 + 2 * std::numbers::pi * 300 / Abtastrate);
    std::vector<double> quadrate;
    double vorher = 0;
    double aus = 0;
    for (const double wert : klang) {
        aus = a * (aus + wert - vorher);
        vorher = wert;
        quadrate.push_back(aus * aus);
    }
    double summe = 0;
    double höchste = 0;
    for (std::size_t i = 0; i < quadrate.size(); ++i) {
        summe += quadrate[i] - (i >= Fenster ? quadrate[i - Fenster] : 0);
        höchste = std::max(höchste, summe);
    }
    return 10 * std::log10(höchste / Fenster);
}

TEST(Klang, DateienSindEinfacheWellen) {
    for (const Klangname& klang : Klänge) {
        SCOPED_TRACE(klang.datei);
        const std::string bytes = lies(klang.datei);
        ASSERT_GT(bytes.size(), Kopf);
        EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(8, 8) + bytes.substr(36, 4), "RIFFWAVEfmt data");
        EXPECT_EQ(zahl(bytes, 4, 4), bytes.size() - 8);
        EXPECT_EQ(zahl(bytes, 16, 4), 16u);            // length of the format
        EXPECT_EQ(zahl(bytes, 20, 2), 1u);             // PCM
        EXPECT_EQ(zahl(bytes, 22, 2), 1u);             // channels
        EXPECT_EQ(zahl(bytes, 24, 4), Abtastrate);     //
        EXPECT_EQ(zahl(bytes, 28, 4), 2 * Abtastrate); // bytes a second
        EXPECT_EQ(zahl(bytes, 32, 2), 2u);             // bytes a sample
        EXPECT_EQ(zahl(bytes, 34, 2), 16u);            // bits a sample
        EXPECT_EQ(zahl(bytes, 40, 4), bytes.size() - Kopf);
    }
}

TEST(Klang, IstKurzUnverzerrtUndKnacktNicht) {
    constexpr double Höchstpegel = -1;      // dBFS
    constexpr double HörbarerKnack = 0.005; // of full scale
    for (const Klangname& klang : Klänge) {
        SCOPED_TRACE(klang.datei);
        const std::vector<double> w = werte(lies(klang.datei));
        ASSERT_FALSE(w.empty());
        EXPECT_LT(static_cast<double>(w.size()) / Abtastrate, klang.höchstdauer);
        const double spitze = std::abs(std::ranges::max(w, {}, [](double x) { return std::abs(x); }));
        EXPECT_LE(dezibel(spitze), Höchstpegel);
        EXPECT_LT(std::abs(w.front()), HörbarerKnack);
        EXPECT_LT(std::abs(w.back()), HörbarerKnack);
    }
}

TEST(Klang, AlleKlingenÄhnlichLaut) {
    double leisester = 0;
    double lautester = -100;
    for (const Klangname& klang : Klänge) {
        const double l = lautheit(werte(lies(klang.datei)));
        RecordProperty(klang.datei, std::to_string(l));
        leisester = std::min(leisester, l);
        lautester = std::max(lautester, l);
    }
    EXPECT_GT(leisester, -40) << "unhörbar";
    EXPECT_LE(lautester - leisester, 3);
}

} // namespace
} // namespace klopfmeise
