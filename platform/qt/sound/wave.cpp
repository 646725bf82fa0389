#include "platform/qt/sound/wave.h"

#include <algorithm>
#include <optional>

namespace klopfmeise {

namespace {

constexpr std::uint32_t wholeNumbers = 1;
constexpr std::uint32_t extensible = 0xFFFE;

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = size; i > 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + i - 1]);
    return value;
}

struct Format {
    std::uint32_t rate;
    std::size_t channels;
    std::size_t sampleBytes;
};

std::optional<Format> formatOf(std::string_view chunk) {
    if (chunk.size() < 16)
        return std::nullopt;
    std::uint32_t kind = number(chunk, 0, 2);
    if (kind == extensible && chunk.size() >= 26)
        kind = number(chunk, 24, 2);
    const Format format{number(chunk, 4, 4), number(chunk, 2, 2), number(chunk, 14, 2) / 8};
    if (kind != wholeNumbers || format.rate < 1000 || format.rate > 192000 || format.channels < 1 ||
        format.channels > 8 || format.sampleBytes < 1 || format.sampleBytes > 4)
        return std::nullopt;
    return format;
}

/// The upper 16 bits of a sample. 8 bits are stored without a sign, all others with one.
int sampleAt(std::string_view data, std::size_t at, std::size_t size) {
    if (size == 1)
        return (static_cast<int>(number(data, at, 1)) - 128) * 256;
    return static_cast<std::int16_t>(number(data, at + size - 2, 2));
}

Wave wave(const Format& format, std::string_view data) {
    const std::size_t frameBytes = format.channels * format.sampleBytes;
    const std::size_t frames = data.size() / frameBytes;
    if (frames == 0 || frames > std::size_t{longestWaveSeconds} * format.rate)
        return {};
    const auto frame = [&](std::size_t index) {
        int sum = 0;
        for (std::size_t channel = 0; channel < format.channels; ++channel)
            sum += sampleAt(data, index * frameBytes + channel * format.sampleBytes, format.sampleBytes);
        return static_cast<double>(sum) / static_cast<double>(format.channels);
    };
    Wave samples(frames * waveRate / format.rate);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::size_t scaled = i * format.rate;
        const std::size_t before = scaled / waveRate;
        const double part = static_cast<double>(scaled % waveRate) / waveRate;
        const double here = frame(before);
        const double next = frame(std::min(before + 1, frames - 1));
        samples[i] = static_cast<std::int16_t>(here + (next - here) * part);
    }
    return samples;
}

} // namespace

Wave readWave(std::string_view file) {
    if (file.size() < 12 || file.substr(0, 4) != "RIFF" || file.substr(8, 4) != "WAVE")
        return {};
    std::optional<Format> format;
    std::size_t at = 12;
    while (file.size() - at >= 8) {
        const std::string_view name = file.substr(at, 4);
        const std::size_t told = number(file, at + 4, 4);
        at += 8;
        const std::string_view chunk = file.substr(at, told);
        if (name == "fmt ")
            format = formatOf(chunk);
        if (name == "data")
            return format ? wave(*format, chunk) : Wave{};
        // Chunks begin at even places.
        at += std::min(file.size() - at, told + told % 2);
    }
    return {};
}

} // namespace klopfmeise
