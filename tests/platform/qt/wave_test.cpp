#include "platform/qt/sound/wave.h"

#include <gtest/gtest.h>

#include <string>

namespace klopfmeise {
namespace {

std::string bytes(std::uint32_t value, int count) {
    std::string out;
    for (int i = 0; i < count; ++i)
        out += static_cast<char>(value >> (8 * i) & 0xFF);
    return out;
}

std::string chunk(const std::string& name, const std::string& content) {
    return name + bytes(static_cast<std::uint32_t>(content.size()), 4) + content +
           std::string(content.size() % 2, '\0');
}

struct Format {
    std::uint32_t rate = 44100, channels = 1, bits = 16, kind = 1;
};

std::string formatChunk(const Format& f) {
    const std::uint32_t frame = f.channels * f.bits / 8;
    return chunk("fmt ", bytes(f.kind, 2) + bytes(f.channels, 2) + bytes(f.rate, 4) +
                             bytes(f.rate * frame, 4) + bytes(frame, 2) + bytes(f.bits, 2));
}

std::string riff(const std::string& chunks) { return chunk("RIFF", "WAVE" + chunks); }

std::string file(const Format& format, const std::string& data) {
    return riff(formatChunk(format) + chunk("data", data));
}

TEST(Wave, OurFormatIsTakenAsItIsAndOthersBecomeOurs) {
    struct Case {
        Format format;
        std::vector<std::uint32_t> samples;
        Wave expected;
    };
    const Case cases[]{
        {{}, {0, 0x7FFF, 0x8001}, {0, 32767, -32767}},
        {{.bits = 8}, {0x80, 0xC0, 0}, {0, 16384, -32768}},
        {{.bits = 32}, {0, 0x40000000, 0x80000000}, {0, 16384, -32768}},
        // The mean of the channels.
        {{.channels = 2}, {100, 300}, {200}},
        // Half the rate: what lies between is put in.
        {{.rate = 22050}, {100, 200}, {100, 150, 200, 200}},
    };
    for (const auto& [format, samples, expected] : cases) {
        std::string data;
        for (const std::uint32_t sample : samples)
            data += bytes(sample, static_cast<int>(format.bits / 8));
        EXPECT_EQ(readWave(file(format, data)), expected);
    }
}

TEST(Wave, WhatIsNoWaveIsEmpty) {
    const std::string data = bytes(7, 2);
    for (const std::string& broken :
         {std::string(), std::string("RIFF"), riff(""), riff(formatChunk({})),
          riff(chunk("data", data) + formatChunk({})), riff(chunk("fmt ", "short") + chunk("data", data)),
          "RIFX" + file({}, data).substr(4)})
        EXPECT_EQ(readWave(broken), Wave{});
    for (const Format& format : {Format{.rate = 0}, Format{.rate = 0xFFFFFFFF}, Format{.channels = 0},
                                 Format{.channels = 65535}, Format{.bits = 0}, Format{.bits = 4},
                                 Format{.bits = 64}, Format{.bits = 32, .kind = 3}, Format{.kind = 85}})
        EXPECT_EQ(readWave(file(format, std::string(64, '\1'))), Wave{});
}

TEST(Wave, TenSecondsAreTheMostAndAFileThatEndsEarlySoundsAsFarAsItGoes) {
    const auto lasting = [](std::size_t samples) {
        return readWave(file({.rate = 8000, .bits = 8}, std::string(samples, '\x80'))).size();
    };
    EXPECT_EQ(lasting(80000), 441000U);
    EXPECT_EQ(lasting(80001), 0U);
    const std::string whole = file({.channels = 2}, std::string(400, '\1'));
    EXPECT_EQ(readWave(std::string_view(whole).substr(0, 44 + 10)).size(), 2U);
}

} // namespace
} // namespace klopfmeise
