#include "platform/machine/reg_file.h"
#include "store/mdl_registry.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

class Registrierung : public ::testing::Test {
protected:
    RegistryStatus schreiben(std::wstring_view name, const Wert& wert, bool mehrzeilig = true,
                             bool anlegen = true) {
        return RegistrySchreiben(registry, Maschine, Programmschlüssel, name, wert, mehrzeilig, anlegen);
    }
    RegistryStatus lesen(std::wstring_view name, Wert& ziel) {
        return RegistryLesen(registry, Maschine, Programmschlüssel, name, ziel);
    }

    Wegwerfordner ordner;
    std::string pfad = (ordner.pfad() / "maschine.reg").string();
    RegFile registry{pfad};
};

TEST_F(Registrierung, EachKindOfValueIsWrittenAsItsTypeAndComesBack) {
    EXPECT_EQ(RegistrySchluesselDa(registry, Maschine, Programmschlüssel), RegistryStatus::fileNotFound);
    EXPECT_EQ(schreiben(L"Pin", L"1", true, false), RegistryStatus::fileNotFound);
    EXPECT_EQ(schreiben(L"Pin", L"8ß15"), RegistryStatus::success);
    EXPECT_EQ(RegistrySchluesselDa(registry, Maschine, Programmschlüssel), RegistryStatus::success);
    EXPECT_EQ(RegistryText(registry, L"pin"), L"8ß15");
    Wert ziel;
    struct Fall {
        Wert wert, gelesen;
        bool mehrzeilig = true;
    };
    for (const auto& [wert, gelesen, mehrzeilig] :
         {Fall{std::int16_t{-2}, std::int32_t{-2}}, Fall{L"a\r\nb"s, L"a\r\nb"s, false},
          Fall{L"a\r\nb\nc"s, L"a\r\nb\r\nc"s}}) {
        schreiben(L"Zeilen", wert, mehrzeilig);
        EXPECT_EQ(lesen(L"Zeilen", ziel), RegistryStatus::success);
        EXPECT_EQ(ziel, gelesen);
    }
    EXPECT_NE(dateiinhalt(pfad).find("\"Zeilen\"=hex(7):61,00,62,00,63\r\n"), std::string::npos);
}

TEST_F(Registrierung, StoredBytesComeWithTheirTerminatorAndAMissingValueLeavesTheTarget) {
    dateiSchreiben(pfad,
                   "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\n\"Pin\"=\"7294\"\n\"Zahl\"=dword:1c7e\n");
    EXPECT_EQ(RegistryText(registry, L"Pin"), std::wstring(L"7294\0", 5));
    EXPECT_EQ(RegistryText(registry, L"Zahl"), L"7294");
    EXPECT_EQ(RegistryText(registry, L"Fehlt"), L"");
    Wert ziel{std::int16_t{7}};
    EXPECT_EQ(lesen(L"Fehlt", ziel), RegistryStatus::fileNotFound);
    EXPECT_EQ(ziel, Wert{std::int16_t{7}});
}

TEST_F(Registrierung, APathInAnyScriptComesBackFromTheFileAndFromAnAdministratorsHand) {
    // Another script, an umlaut in two characters, and a byte that is no UTF-8.
    for (const std::wstring text : {L"\\srv\\Школа\\", L"\\srv\\Schu\x308ler\\", L"\\srv\\K\xDCE4the\\"}) {
        schreiben(L"Datenablage", text);
        EXPECT_EQ(RegistryText(registry, L"Datenablage"), text);
    }
    dateiSchreiben(pfad, "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\n\"Datenablage\"=\"/srv/\xD0\xA8/\"\n");
    EXPECT_EQ(RegistryText(registry, L"Datenablage"), std::wstring(L"/srv/Ш/\0", 8));
}

TEST(Registrierungsgriffe, EachIsGivenBackAndTheLastCloseIsTheStatusOfAWrite) {
    MemoryRegistry registry;
    const auto schreiben = [&] {
        return RegistrySchreiben(registry, Maschine, Programmschlüssel, L"Pin", L"8ß15", true, true);
    };
    EXPECT_EQ(schreiben(), RegistryStatus::success);
    EXPECT_EQ(RegistryText(registry, L"Pin"), L"8ß15");
    EXPECT_EQ(registry.openHandles, 0);
    registry.closing = RegistryStatus::accessDenied;
    EXPECT_EQ(schreiben(), RegistryStatus::accessDenied);
}

} // namespace
} // namespace klopfmeise
