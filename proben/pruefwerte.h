#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// What the checker knows of values, files and time.

namespace proben {

inline constexpr double nie = std::numeric_limits<double>::infinity();

inline constexpr std::size_t satzlänge = 128;

inline std::string inhalt(const std::filesystem::path& pfad) {
    std::ifstream in(pfad, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::string kennung(std::string_view bytes) {
    std::uint64_t summe = 14695981039346656037U;
    for (const char c : bytes)
        summe = (summe ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return std::to_string(bytes.size()) + ":" + std::to_string(summe);
}

inline std::string ausHex(std::string_view text) {
    const auto stelle = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
    std::string bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        bytes += static_cast<char>(stelle(text[i]) * 16 + stelle(text[i + 1]));
    return bytes;
}

template <class Zahl>
Zahl zahlBei(std::string_view bytes, std::size_t ort) {
    Zahl zahl{};
    if (ort + sizeof zahl <= bytes.size())
        std::memcpy(&zahl, bytes.data() + ort, sizeof zahl);
    return zahl;
}

/// What a record says; none for an empty one and for one of no known type.
inline std::optional<double> zahl(std::string_view satz) {
    switch (zahlBei<std::uint16_t>(satz, 0)) {
    case 2:
        return zahlBei<std::int16_t>(satz, 2);
    case 3:
        return zahlBei<std::int32_t>(satz, 2);
    case 4:
        return zahlBei<float>(satz, 2);
    case 5:
        return zahlBei<double>(satz, 2);
    case 8:
        return std::strtod(std::string(satz.substr(4, zahlBei<std::uint16_t>(satz, 2))).c_str(), nullptr);
    default:
        return std::nullopt;
    }
}

/// Whether the number can stand in this record, of an account or of the settings of a class.
inline bool erlaubt(bool konto, int satz, double wert) {
    constexpr int erster = 29;
    constexpr std::array höchste{1.0, 1.0, 1.0, 31.0, 12.0, 5.0, 30.0, 100.0, 1e5, 1e5, 1e5, 1e5, 1e5};
    const auto stelle = static_cast<std::size_t>(satz - erster);
    const double grenze = !konto ? 1 : satz >= erster && stelle < höchste.size() ? höchste[stelle] : 0;
    return wert >= 0 && wert <= grenze;
}

/// A value, or a whole file by its mark, with the time in which it came there.
struct Wert {
    double von = -nie;
    double bis = -nie;
    /// It arrived. Another may have, or not: its writer failed or died.
    bool sicher = true;
    std::string bytes = {};
    std::size_t ort = 0;
    int wer = 0;
};

/// Whether a place that shows `da` (zeros at its end may be left out) holds `wert` at its beginning.
inline bool zeigt(std::string_view da, std::string_view wert) {
    if (wert.size() <= da.size())
        return da.starts_with(wert);
    return wert.starts_with(da) && wert.find_first_not_of('\0', da.size()) == wert.npos;
}

/// The values of one place, one over the other.
class Verlauf {
public:
    explicit Verlauf(const std::vector<Wert>& werte) {
        for (const Wert& wert : werte) {
            (wert.sicher ? sichere_ : andere_).push_back(wert);
            if (wert.sicher && wert.bis > -nie)
                längste_ = std::max(längste_, wert.bis - wert.von);
        }
        std::ranges::stable_sort(sichere_, {}, &Wert::von);
        for (const Wert& wert : sichere_)
            enden_.emplace_back(wert.bis, wert.von);
        std::ranges::sort(enden_);
        for (std::size_t i = 1; i < enden_.size(); ++i)
            enden_[i].second = std::max(enden_[i].second, enden_[i - 1].second);
    }
    /// Whether `da` can be seen between `von` and `bis`: begun by then, and no other value surely put over
    /// it.
    bool möglich(std::string_view da, double von, double bis, double uneins = 0) const {
        const auto vorbei = std::ranges::lower_bound(enden_, von, {}, &std::pair<double, double>::first);
        const double darüber = vorbei == enden_.begin() ? -nie : std::prev(vorbei)->second - uneins;
        const auto gilt = [&](const Wert& wert) {
            return wert.von < bis && wert.bis >= darüber && zeigt(da, wert.bytes);
        };
        auto wert = std::ranges::lower_bound(sichere_, bis, {}, &Wert::von);
        while (wert != sichere_.begin() && std::prev(wert)->von + längste_ >= darüber)
            if (gilt(*--wert))
                return true;
        return std::ranges::any_of(andere_, gilt);
    }

private:
    std::vector<Wert> sichere_;
    std::vector<Wert> andere_;
    /// When values had arrived, with the latest beginning of those that had by then.
    std::vector<std::pair<double, double>> enden_;
    double längste_ = 0;
};

} // namespace proben
