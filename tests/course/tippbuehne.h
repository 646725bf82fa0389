#pragma once

#include "tests/probe.h"

#include <functional>

namespace klopfmeise {

/// A typing screen, and what a person sees on it while it waits.
class Tippbühne : public ::testing::Test {
protected:
    struct Pause {
        int dauer;
        /// The keys in a frame, as they were painted last.
        std::vector<int> gerahmt;
        bool operator==(const Pause&) const = default;
    };
    using Pausen = std::vector<Pause>;
    using Klänge = std::vector<std::wstring>;

    Bühne b;

    /// The waits that `tun` brings.
    Pausen pausen(const std::function<void()>& tun) {
        Pausen gesehen;
        std::vector<int> gemalt;
        b.backend.whenPainted = [&](Form& form) {
            gemalt.clear();
            for (int i = 1; i <= 59; ++i)
                if (const auto* taste = form.find<Picture>(L"picTaste", i); taste && taste->border())
                    gemalt.push_back(i);
        };
        b.backend.duringWait = [&](int dauer) { gesehen.push_back({dauer, gemalt}); };
        tun();
        EXPECT_TRUE(gemalt.empty()) << "a frame stays";
        b.backend.whenPainted = nullptr;
        b.backend.duringWait = nullptr;
        return gesehen;
    }
    /// The waits while these keys are held down until they repeat.
    Pausen gehalten(const std::vector<int>& codes) {
        const Pausen gesehen = pausen([&] {
            b.user.keyDown(codes);
            b.user.keyDown(codes);
        });
        b.user.keyUp();
        return gesehen;
    }
    /// The sounds of one stroke, in order.
    Klänge klänge(wchar_t zeichen) {
        b.sound.played.clear();
        b.user.type(zeichen);
        return b.sound.played;
    }
    std::wstring letzterKlang() const { return b.sound.played.back(); }
    double genauigkeit() { return zahlAus(b.satz(Kontosatz::Genauigkeit)).value_or(-1); }
    bool sichtbar(const wchar_t* name) { return b.control<Control>(name).visible(); }
};

} // namespace klopfmeise
