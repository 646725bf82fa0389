#include "platform/qt/sound/wave.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace klopfmeise {
namespace {

TEST(Klang, IstKurzHörbarUnverzerrtUndKnacktNicht) {
    constexpr std::size_t kopf = 44;
    constexpr int hörbarerKnack = 164; // of 32768
    for (const std::string klang : {"knopf.wav", "typewriterding.wav", "falsch.wav", "Fließbandfalsch.wav",
                                    "pb_Schieben.wav", "pb_Zahlenklotz2.wav"}) {
        SCOPED_TRACE(klang);
        const std::string bytes = dateiinhalt(std::filesystem::path(KLOPFMEISE_WAV) / klang);
        const Wave welle = readWave(bytes);
        ASSERT_FALSE(welle.empty());
        // One channel of our rate, two bytes a sample, behind the shortest head.
        EXPECT_EQ(bytes.size(), kopf + 2 * welle.size());
        EXPECT_LT(static_cast<double>(welle.size()) / waveRate, klang == "knopf.wav" ? 0.1 : 1.5);
        const int spitze = std::max<int>(std::ranges::max(welle), -std::ranges::min(welle));
        EXPECT_GT(spitze, 32768 / 10);
        EXPECT_LT(spitze, 32768 * 0.891) << "less than one dB below full scale";
        for (const int rand : {welle.front(), welle.back()})
            EXPECT_LT(std::abs(rand), hörbarerKnack);
    }
}

} // namespace
} // namespace klopfmeise
