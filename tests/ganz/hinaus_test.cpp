#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/rich_text_box.h"
#include "platform/values/text.h"
#include "store/einstellungsdatei.h"
#include "store/klassen.h"
#include "store/konten.h"
#include "store/texte.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <map>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

/// A data folder on which somebody else has laid a trap. What must not be met lies beside it.
class Hinaus : public ::testing::Test {
protected:
    Bühne b;
    const fs::path fremd = b.ordner.pfad() / "fremd";
    const fs::path gruppen = b.daten() / "Gruppen";

    Hinaus() {
        fs::create_directories(fremd);
        dateiSchreiben(fremd / "geheim.txt", "geheim");
        fs::copy_file(b.konto(), fremd / "Eve._");
    }

    /// Everything outside the data folder, with what it holds.
    std::map<fs::path, std::string> draußen() const {
        std::map<fs::path, std::string> alles;
        for (auto datei = fs::recursive_directory_iterator(b.ordner.pfad());
             datei != fs::recursive_directory_iterator(); ++datei) {
            if (datei->path() == b.daten())
                datei.disable_recursion_pending();
            alles[datei->path()] = datei->is_regular_file() ? dateiinhalt(datei->path()) : "";
        }
        return alles;
    }
    std::vector<std::wstring> zeilen() {
        std::vector<std::wstring> namen;
        const auto& liste = b.control<FileList>(L"File1");
        for (int i = 0; i < liste.itemCount(); ++i)
            namen.push_back(liste.item(i));
        return namen;
    }
    /// What a child has to type in "Text tippen".
    std::wstring text() {
        b.öffnen(L"Textübung0");
        const std::wstring zuTippen = b.control<RichTextBox>(L"Text1").text();
        b.runtime.unload(*b.runtime.loaded(L"Textübung0"));
        return zuTippen;
    }
};

TEST_F(Hinaus, NoNameOnTheDiskLeadsOutOfItsFolder) {
    // A backslash parts names in the logic, but is a letter on this system's disks.
    const fs::path hasen = gruppen / "Hasen";
    for (const char* name : {"..\\..\\..\\fremd\\Eve._", "x\\..\\Mia._", "\\Mia._"})
        dateiSchreiben(hasen / name, "x");
    fs::create_directories(gruppen / "..\\..\\fremd");
    dateiSchreiben(b.daten() / "Data" / "Texte" / "..\\..\\..\\fremd\\geheim.txt", "x");
    const auto vorher = draußen();
    b.start();
    EXPECT_EQ(klassenAuflisten(b.echteDateien, b.global), std::vector<std::wstring>{L"Hasen"});
    b.user.click(L"LblGruppe", 0);
    EXPECT_EQ(zeilen(), std::vector<std::wstring>{L"Mia._"});
    EXPECT_EQ(texteAuflisten(b.echteDateien, b.global), std::vector<std::wstring>{L"Text_001.txt"});
    EXPECT_TRUE(draußen() == vorher);
}

TEST_F(Hinaus, ALinkedClassOrAccountIsNeitherReadNorWrittenForAChild) {
    fs::create_directory_symlink(fremd, gruppen / "Ausflug");
    fs::create_symlink(fremd / "Eve._", gruppen / "Hasen" / "Anna._");
    const auto vorher = draußen();
    b.start();
    b.user.click(L"LblGruppe", 0);
    ASSERT_EQ(b.caption(L"LblKlasse"), L"Ausflug\\");
    EXPECT_EQ(zeilen(), std::vector<std::wstring>{});
    b.user.click(L"cmdAllesZurück");
    b.user.click(L"LblGruppe", 1);
    EXPECT_EQ(zeilen(), (std::vector<std::wstring>{L"Anna._", L"Mia._"}));
    b.user.pressRow(b.control<FileList>(L"File1"), 0);
    b.user.click(L"cmdÜbung", 1);
    EXPECT_EQ(b.captions({L"lblGenauigkeit"}), L"–") << "the account behind the link was read";
    EXPECT_TRUE(draußen() == vorher);
}

TEST_F(Hinaus, TheTextOfAClassLiesInTheFolderOfTexts) {
    EXPECT_EQ(text(), L"Hallo");
    fs::create_symlink(fremd / "geheim.txt", b.daten() / "Data" / "Texte" / "Link.txt");
    for (const wchar_t* name :
         {L"..\\..\\..\\fremd\\geheim.txt", L"../../../fremd/geheim.txt", L"Link.txt", L"..", L".", L""}) {
        b.kindWählen();
        ASSERT_TRUE(textnameSchreiben(b.echteDateien, b.global, name));
        EXPECT_EQ(text(), L"") << toUtf8(name);
    }
}

TEST_F(Hinaus, ANameOfThreeHundredCharactersIsRefusedAndLeavesNothingBehind) {
    b.kindWählen();
    const std::wstring lang(300, L'ä');
    const auto einträge = [&] {
        return std::distance(fs::recursive_directory_iterator(b.daten()), fs::recursive_directory_iterator());
    };
    const auto vorher = einträge();
    EXPECT_EQ(klasseAnlegen(b.echteDateien, b.global, lang), Klassenanlage::misslungen);
    EXPECT_EQ(kontoAnlegen(b.echteDateien, b.global, lang), Kontoanlage::misslungen);
    EXPECT_FALSE(textAnlegen(b.echteDateien, b.global, lang));
    EXPECT_FALSE(klasseUmbenennen(b.echteDateien, b.global, L"Hasen", lang));
    EXPECT_EQ(einträge(), vorher);
    // As long as a name can be on the disk, and the draft of a text has room beside it.
    EXPECT_TRUE(textAnlegen(b.echteDateien, b.global, std::wstring(251, L'x')));
    EXPECT_EQ(kontoAnlegen(b.echteDateien, b.global, std::wstring(253, L'x')), Kontoanlage::angelegt);
    EXPECT_EQ(einträge(), vorher + 2);
}

TEST_F(Hinaus, AClassWhoseNameIsNoUtf8IsServedUnderItsOwnBytes) {
    const std::string bytes = "K\xe4se\xff";
    fs::rename(gruppen / "Hasen", gruppen / bytes);
    b.start();
    b.anmelden();
    b.user.click(L"cmdÜbung", 1);
    b.user.type(L' ');
    b.user.type(L"fj f\r");
    b.user.pass(2000);
    std::vector<std::string> klassen;
    for (const auto& eintrag : fs::directory_iterator(gruppen))
        if (eintrag.is_directory())
            klassen.push_back(eintrag.path().filename());
    EXPECT_EQ(klassen, std::vector<std::string>{bytes});
    EXPECT_NE(dateiinhalt(gruppen / bytes / "Mia._").substr(35 * 128, 2), std::string("\2\0", 2))
        << "the accuracy was not written";
}

/// The machine's files, with a list of what is opened.
class MitgeschriebeneDateien final : public Files {
public:
    std::vector<std::wstring> geöffnet;

    std::unique_ptr<RecordFile> openRecords(const std::wstring& path) override {
        geöffnet.push_back(path.substr(path.rfind(L'\\') + 1));
        return echt_.openRecords(path);
    }
    std::optional<std::string> readAll(const std::wstring& path, std::size_t limit) override {
        geöffnet.push_back(path.substr(path.rfind(L'\\') + 1));
        return echt_.readAll(path, limit);
    }
    bool writeAll(const std::wstring& p, std::string_view bytes) override { return echt_.writeAll(p, bytes); }
    std::wstring search(const std::wstring& p) override { return echt_.search(p); }
    bool folderExists(const std::wstring& p) override { return echt_.folderExists(p); }
    bool isLink(const std::wstring& p) override { return echt_.isLink(p); }
    std::optional<std::vector<std::wstring>> listFiles(const std::wstring& p,
                                                       std::wstring_view pattern) override {
        return echt_.listFiles(p, pattern);
    }
    std::optional<std::vector<std::wstring>> listFolders(const std::wstring& p) override {
        return echt_.listFolders(p);
    }
    bool makeFolder(const std::wstring& p) override { return echt_.makeFolder(p); }
    bool removeFolder(const std::wstring& p) override { return echt_.removeFolder(p); }
    bool copyFile(const std::wstring& a, const std::wstring& z) override { return echt_.copyFile(a, z); }
    bool rename(const std::wstring& a, const std::wstring& z) override { return echt_.rename(a, z); }
    bool removeFile(const std::wstring& p) override { return echt_.removeFile(p); }
    std::wstring shown(const std::wstring& p) const override { return echt_.shown(p); }
    std::wstring entered(const std::wstring& p) const override { return echt_.entered(p); }
    std::wstring absolute(const std::wstring& p) const override { return echt_.absolute(p); }

private:
    PosixFiles echt_;
};

TEST(Dokumente, ObjectsLinksAndFieldsOpenNothingAndGoWithTheFirstWriting) {
    MitgeschriebeneDateien dateien;
    Bühne b(&dateien);
    const std::string geheim = (b.ordner.pfad() / "geheim.txt").string();
    dateiSchreiben(geheim, "geheim");
    dateiSchreiben(
        b.daten() / "Data" / "Texte" / "Text_001.txt",
        "{\\rtf1\\ansi{\\*\\template " + geheim +
            "}{\\object\\objlink\\objupdate{\\*\\objclass Package}{\\*\\objdata 01050000"
            "02000000}{\\result A}}{\\field{\\*\\fldinst INCLUDETEXT \"" +
            geheim +
            "\"}{\\fldrslt B}}"
            "{\\field{\\*\\fldinst HYPERLINK \"file://" +
            geheim +
            "\"}{\\fldrslt C}}"
            "{\\field{\\*\\fldinst INCLUDEPICTURE \"http://klopfmeise.example/x.png\"}{\\fldrslt D}}"
            "{\\pict\\pngblip 89504e47}{\\*\\filetbl{\\file\\fid0 " +
            geheim + "}}E}");
    b.öffnen(L"Textübung0");
    const std::wstring text = b.control<RichTextBox>(L"Text1").text();
    EXPECT_TRUE(text.ends_with(L"E") && text.find(L"geheim") == std::wstring::npos) << toUtf8(text);
    b.user.type(text);
    EXPECT_TRUE(b.shell.opened.empty());
    for (const std::wstring& name : dateien.geöffnet)
        EXPECT_TRUE(name == L"KME.ein" || name == L"Text_001.txt" || name == L"Mia._") << toUtf8(name);
    // In the teacher's editor, where a click in the text is a click in the text.
    b.öffnen(L"einstTexte");
    auto& box = b.control<RichTextBox>(L"Text1");
    EXPECT_EQ(box.text(), text);
    ASSERT_TRUE(box.saveFile(logikpfad(b.daten() / "Data" / "Texte" / "Neu.txt")));
    const std::string geschrieben = dateiinhalt(b.daten() / "Data" / "Texte" / "Neu.txt");
    for (const char* wort : {"object", "field", "fldinst", "pict", "template", "filetbl", "geheim"})
        EXPECT_EQ(geschrieben.find(wort), std::string::npos) << wort;
    EXPECT_TRUE(b.shell.opened.empty());
}

} // namespace
} // namespace klopfmeise
