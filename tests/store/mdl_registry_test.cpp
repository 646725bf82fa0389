#include "platform/machine/reg_file.h"
#include "store/mdl_registry.h"
#include "tests/probe.h"

namespace klopfmeise {
namespace {

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
    for (const auto& [wert, gelesen, mehrzeilig] :
         {std::tuple<Wert, Wert, bool>{std::int16_t{-2}, std::int32_t{-2}, true},
          {L"a\r\nb"s, L"a\r\nb"s, false},
          {L"a\r\nb\nc"s, L"a\r\nb\r\nc"s, true}}) {
        schreiben(L"Zeilen", wert, mehrzeilig);
        EXPECT_EQ(lesen(L"Zeilen", ziel), RegistryStatus::success);
        EXPECT_EQ(ziel, gelesen);
    }
    EXPECT_NE(dateiinhalt(pfad).find("\"Zeilen\"=hex(7):61,00,62,00,63\r\n"), std::string::npos);
    // Another script, an umlaut in two characters, and a byte that is no UTF-8.
    for (const std::wstring text : {L"\\srv\\Школа\\", L"\\srv\\Schu\x308ler\\", L"\\srv\\K\xDCE4the\\"}) {
        schreiben(L"Datenablage", text);
        EXPECT_EQ(RegistryText(registry, L"Datenablage"), text);
    }
}

TEST_F(Registrierung, LaidStringsComeWithTheirTerminatorAndAMissingValueLeavesTheTarget) {
    dateiSchreiben(pfad, "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\n\"Pin\"=\"7294\"\n"
                         "\"Zahl\"=dword:1c7e\n\"Datenablage\"=\"/srv/\xD0\xA8/\"\n");
    for (const auto& [name, text] : {std::pair(L"Pin", L"7294\0"s),
                                     {L"Zahl", L"7294"s},
                                     {L"Fehlt", L""s},
                                     {L"Datenablage", L"/srv/Ш/\0"s}})
        EXPECT_EQ(RegistryText(registry, name), text);
    Wert ziel{std::int16_t{7}};
    EXPECT_EQ(lesen(L"Fehlt", ziel), RegistryStatus::fileNotFound);
    EXPECT_EQ(ziel, Wert{std::int16_t{7}});
}

TEST(Registrierungsgriffe, EachIsGivenBackAndTheLastCloseIsTheStatusOfAWrite) {
    MemoryRegistry registry;
    for (const auto status : {RegistryStatus::success, RegistryStatus::accessDenied}) {
        registry.closing = status;
        EXPECT_EQ(RegistrySchreiben(registry, Maschine, Programmschlüssel, L"Pin", L"8ß15", true, true),
                  status);
        EXPECT_EQ(RegistryText(registry, L"Pin"), L"8ß15");
        EXPECT_EQ(registry.openHandles, 0);
    }
}

} // namespace
} // namespace klopfmeise
