#pragma once

#include "store/kontodatei.h"

#include <string>

namespace klopfmeise {

/// The bytes of an account or of a class's settings, to be looked at without opening the file as one, which
/// would make it where it is missing.
class Kontobild {
public:
    /// Records that a new file has.
    static constexpr int satzzahl = 100;
    /// Bytes of these.
    static constexpr std::size_t länge = Kontodatei::Satzlänge * satzzahl;

    explicit Kontobild(std::string bytes)
        : bytes_(std::move(bytes)) {}

    const std::string& bytes() const { return bytes_; }
    /// The bytes of a slot, fewer at the end of the file.
    std::string_view satz(int nummer) const;

    Wert wert(int nummer) const { return wertAus(satz(nummer)); }
    Wert wert(Kontosatz nummer) const { return wert(static_cast<int>(nummer)); }

    enum class Stand {
        gut,
        /// Nothing was ever written there.
        fehlt,
        /// The type is none that there is, or the value is cut off.
        unlesbar,
    };
    Stand stand(int nummer) const;

    /// "Lektion 3, Stufe 4", by what the records say.
    std::wstring platz() const;

private:
    std::string bytes_;
};

} // namespace klopfmeise
