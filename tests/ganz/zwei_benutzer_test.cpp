#include "platform/values/windows1252.h"
#include "store/einstellungsdatei.h"
#include "tests/platform/machine/troubles.h"
#include "tests/probe.h"

#include <array>
#include <cstdio>
#include <functional>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace klopfmeise {
namespace {

/// Users by their numbers alone; the machine need not know them.
struct Benutzer {
    uid_t nummer;
    gid_t gruppe;
    bool gemeinsam;
};
constexpr gid_t gemeinsameGruppe = 61000;
constexpr Benutzer anna{61001, 61001, true};
constexpr Benutzer bernd{61002, 61002, true};
constexpr Benutzer fremd{61003, 61003, false};

/// Does something as a user in a process of its own; what fails there fails here.
void als(const Benutzer& wer, mode_t umask, const std::function<void()>& tun) {
    std::fflush(nullptr);
    const pid_t kind = ::fork();
    ASSERT_GE(kind, 0);
    if (kind == 0) {
        EXPECT_TRUE(::setgroups(wer.gemeinsam ? 1 : 0, &gemeinsameGruppe) == 0 && ::setgid(wer.gruppe) == 0 &&
                    ::setuid(wer.nummer) == 0);
        ::umask(umask);
        // What is thrown must not leave here: this process would go on with the other tests.
        EXPECT_NO_THROW(tun());
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(kind, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "as user " << wer.nummer;
}

/// Anna and Bernd may all that the folder's owner may, others nothing.
const std::vector<Access> liste{{Access::owner, 7},
                                {Access::user, 7, anna.nummer},
                                {Access::user, 7, bernd.nummer},
                                {Access::group, 0},
                                {Access::mask, 7},
                                {Access::others, 0}};

/// How an administrator may share the folder.
struct Freigabe {
    const char* name;
    mode_t ordner;
    bool gruppe;
    bool zugriffsliste;
    bool vorgabeliste;
};
constexpr std::array freigaben{
    Freigabe{"group with setgid bit", 02775, true, false, false},
    Freigabe{"group alone", 0770, true, false, false},
    Freigabe{"everyone", 0777, false, false, false},
    Freigabe{"access list with defaults", 0700, false, true, true},
    Freigabe{"access list alone", 0700, false, true, false},
};

class ZweiBenutzer : public ::testing::Test {
protected:
    void SetUp() override {
        if (::geteuid() != 0)
            GTEST_SKIP() << "(SKIP) only root can act as two users";
        ::chmod(b.ordner.pfad().c_str(), 0755);
    }

    /// False where the file system knows no access lists.
    bool freigeben(const Freigabe& wie) {
        std::vector<fs::path> alle{b.daten()};
        for (const auto& eintrag : fs::recursive_directory_iterator(b.daten()))
            alle.push_back(eintrag.path());
        for (const fs::path& was : alle) {
            const bool ordner = fs::is_directory(was);
            removeAccess(was);
            ::chown(was.c_str(), 0, wie.gruppe ? gemeinsameGruppe : 0);
            ::chmod(was.c_str(), ordner ? wie.ordner : wie.ordner & 0666);
            if (wie.zugriffsliste && !setAccess(was, liste))
                return false;
            if (wie.vorgabeliste && ordner && !setAccess(was, liste, true))
                return false;
        }
        return true;
    }

    /// A whole start on the shared folder, and these keys in the first stage.
    void tippen(const std::wstring& tasten) const {
        Bühne eigene;
        eigene.registry.values["Datenablage"] = {Registry::Type::string, toWindows1252(pfad(""))};
        eigene.zurÜbung(1);
        ASSERT_EQ(eigene.aktiv(), L"Tastatur0");
        eigene.user.type(L' ');
        eigene.user.type(tasten);
    }

    std::wstring pfad(const char* unter) const { return logikpfad(b.daten() / unter); }
    double genauigkeit() { return zahlAus(b.satz(Kontosatz::Genauigkeit)).value_or(0); }
    bool wertSchreiben(const char* konto) {
        Kontodatei datei(dateien, pfad(konto));
        return datei.schreiben(Kontosatz::Tempowert, std::int16_t{5}) && datei.schließen();
    }

    Bühne b;
    PosixFiles dateien;
};

TEST_F(ZweiBenutzer, WhatTheProgramOfOneMakesTheOtherCanWriteRenameAndDelete) {
    b.kindWählen();
    const Globale& hasen = b.global;
    for (const mode_t umask : {0022U, 0077U})
        for (const Freigabe& freigabe : freigaben) {
            SCOPED_TRACE(testing::Message() << freigabe.name << ", umask " << std::oct << umask);
            fs::remove_all(b.daten() / "Gruppen" / "Hasen" / "Mia._");
            fs::remove(b.daten() / "lzf75.tst");
            if (!freigeben(freigabe)) {
                std::puts("(SKIP) this file system knows no access lists");
                continue;
            }
            // The account, the write test's file, a text, and a class with settings and an account.
            als(anna, umask, [&] {
                Kontodatei neu(dateien, logikpfad(b.konto()));
                EXPECT_TRUE(neu.WerteSchreiben() && neu.schließen());
                tippen(L"fj f\r");
                EXPECT_TRUE(textnameSchreiben(dateien, hasen, L"Anna.txt") &&
                            dateien.writeAll(pfad("Data/Texte/Neu.txt"), "von Anna"));
                EXPECT_TRUE(dateien.makeFolder(pfad("Gruppen/Igel")) &&
                            dateien.copyFile(pfad("Gruppen/KME.ein"), pfad("Gruppen/Igel/KME.ein")) &&
                            Kontodatei(dateien, pfad("Gruppen/Igel/Tim._")).WerteSchreiben());
            });
            EXPECT_EQ(genauigkeit(), 100);
            als(bernd, umask, [&] {
                tippen(L"fjx f\r");
                EXPECT_TRUE(textnameSchreiben(dateien, hasen, L"Bernd.txt") &&
                            dateien.writeAll(pfad("Data/Texte/Neu.txt"), "von Bernd"));
                EXPECT_TRUE(wertSchreiben("Gruppen/Igel/Tim._") && wertSchreiben("Gruppen/Igel/KME.ein"));
                EXPECT_TRUE(dateien.rename(pfad("Gruppen/Igel"), pfad("Gruppen/Dachs")) &&
                            Kontodatei(dateien, pfad("Gruppen/Dachs/Eva._")).WerteSchreiben());
            });
            EXPECT_LT(genauigkeit(), 100);
            EXPECT_EQ(dateiinhalt(b.daten() / "Data" / "Texte" / "Neu.txt"), "von Bernd");
            EXPECT_EQ(textnameLesen(dateien, hasen), L"Bernd.txt");
            if (freigabe.ordner != 0777)
                als(fremd, umask, [&] {
                    for (const char* was : {"lzf75.tst", "Data/Texte/Neu.txt", "Data/Texte/Fremd.txt",
                                            "Gruppen/Hasen/Mia._", "Gruppen/Dachs/Eva._"})
                        EXPECT_FALSE(dateien.writeAll(pfad(was), "x")) << was;
                });
            als(anna, umask, [&] {
                EXPECT_TRUE(wertSchreiben("Gruppen/Dachs/Eva._"));
                for (const wchar_t* was : {L"Eva._", L"Tim._", L"KME.ein"})
                    EXPECT_TRUE(dateien.removeFile(pfad("Gruppen/Dachs/") + L"\\" + logikpfad(was))) << was;
                EXPECT_TRUE(dateien.removeFolder(pfad("Gruppen/Dachs")) &&
                            dateien.removeFile(pfad("Data/Texte/Neu.txt")));
            });
        }
}

TEST_F(ZweiBenutzer, WhatIsMeantForTheFoldersGroupDoesNotGoToAnotherOne) {
    const fs::path ordner = b.ordner.pfad() / "Ordner";
    fs::create_directory(ordner);
    ::chown(ordner.c_str(), 0, gemeinsameGruppe);
    ::chmod(ordner.c_str(), 0770);
    auto mitFremdem = liste;
    mitFremdem[2].number = fremd.nummer;
    mitFremdem[3].may = 7;
    if (!setAccess(ordner, mitFremdem))
        GTEST_SKIP() << "(SKIP) this file system knows no access lists";
    const auto schreiben = [&] {
        const auto konto = dateien.openRecords(logikpfad(ordner / "Mia._"));
        return konto && konto->write(0, "x");
    };
    for (const Benutzer& wer : {fremd, anna})
        als(wer, 0022, [&] { EXPECT_TRUE(schreiben()); });
    ::chmod(ordner.c_str(), 0777);
    als({61004, fremd.gruppe, false}, 0022, [&] { EXPECT_FALSE(schreiben()); });
}

} // namespace
} // namespace klopfmeise
