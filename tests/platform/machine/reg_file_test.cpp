#include "platform/machine/reg_file.h"
#include "platform/values/text.h"
#include "platform/values/windows1252.h"
#include "tests/buehne.h"
#include "tests/platform/machine/troubles.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <iterator>
#include <optional>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;
using Type = Registry::Type;

/// Type and bytes, comparable.
using Content = std::pair<Type, std::string>;

class RegFileTest : public testing::Test {
protected:
    static constexpr const char* key_ = "Software\\Klopfmeise";

    std::optional<Content> read(const std::string& name) {
        const auto opened = file_.open(RegFile::localMachine, key_, RegFile::readAccess);
        Registry::Value value;
        const bool found = file_.query(opened.handle, name, value) == RegistryStatus::success;
        file_.close(opened.handle);
        return found ? std::optional(Content(value.type, value.bytes)) : std::nullopt;
    }
    void write(const std::string& name, const Registry::Value& value) {
        const auto opened = file_.open(RegFile::localMachine, key_, RegFile::writeAccess);
        EXPECT_EQ(file_.set(opened.handle, name, value), RegistryStatus::success);
        EXPECT_EQ(file_.close(opened.handle), RegistryStatus::success);
    }
    void lay(const std::string& lines) { dateiSchreiben(path_, lines); }

    Wegwerfordner folder_;
    std::string path_ = (folder_.pfad() / "machine.reg").string();
    RegFile file_{path_};
};

TEST_F(RegFileTest, ReadsEveryFormThatAnAdministratorMayLay) {
    lay("\xEF\xBB\xBF[hkey_local_machine\\SOFTWARE\\klopfmeise]\n"
        "\"Pin\"=\"72\\\"\\\\94\"\n"
        "\"Path\"=hex(1):43,3a,\\\r\n  5c,44\r\n"
        "\"Lines\"=hex(7):61,00,62  \n"
        "\"Number\"=dword:0000002a\n"
        "\"Bytes\"=hex:00,ff\n"
        "\"Umlaut\"=\"ä€\"\n"
        "\"Broken\"=hex:zz\n\"Open\"=\"abc\n\"Large\"=dword:1ffffffff\n"
        "[HKEY_CURRENT_USER\\Software\\Klopfmeise]\n\"Foreign\"=\"x\"\n");
    EXPECT_EQ(read("Pin"), Content(Type::string, "72\"\\94\0"s));
    EXPECT_EQ(read("pATH"), Content(Type::string, "C:\\D"));
    EXPECT_EQ(read("Lines"), Content(Type::multiString, "a\0b"s));
    EXPECT_EQ(read("Number"), Content(Type::dword, "\x2a\0\0\0"s));
    EXPECT_EQ(read("Bytes"), Content(Type::binary, "\0\xff"s));
    EXPECT_EQ(read("Umlaut"), Content(Type::string, "\xE4\x80\0"s));
    for (const char* name : {"Broken", "Open", "Large", "Foreign", "Missing"})
        EXPECT_FALSE(read(name)) << name;
}

TEST_F(RegFileTest, WhatIsSetComesBackAndTheRestOfTheFileStays) {
    const std::string before = "Windows Registry Editor Version 5.00\r\n\r\n; laid by hand\r\n"
                               "[HKEY_LOCAL_MACHINE\\Software\\Other]\r\n\"Pin\"=\"1111\"\r\n\r\n";
    const std::string behind = "\r\n[HKEY_LOCAL_MACHINE\\Software\\Third]\r\n\"Pin\"=dword:00000001\r\n";
    lay(before +
        "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Kept\"=\"as laid\"\r\n\"Pin\"=\"7294\"\r\n" +
        behind);
    write("PIN", {Type::string, "1\"2"});
    write("New", {Type::multiString, "a\0b"s});
    write("Number", {Type::dword, "\x2a\0\0\x80"s});
    EXPECT_EQ(dateiinhalt(path_),
              before +
                  "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Kept\"=\"as laid\"\r\n"
                  "\"Pin\"=hex(1):31,22,32\r\n\"New\"=hex(7):61,00,62\r\n\"Number\"=dword:8000002a\r\n" +
                  behind);
    EXPECT_EQ(read("Pin"), Content(Type::string, "1\"2"));
    // No temporary file is left beside it.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.pfad()), {}), 1);
}

TEST_F(RegFileTest, AValueIsReplacedWhereItStandsInWhateverCase) {
    const std::string head =
        "; Rechner 12\n\n[HKEY_Local_Machine\\SOFTWARE\\KLOPFMEISE] ; unser Schl\xC3\xBCssel\n"
        "\"Other\"=\"a;b\"\n";
    lay(head + "  \"pin\" = \"7294\"  ; Code der Lehrkr\xC3\xA4"
               "fte\n\"Last\"=dword:7 ; sieben");
    write("Pin", {Type::string, "1234"});
    write("PIN", {Type::string, "8815"});
    const std::string replaced = head + "  \"pin\" = hex(1):38,38,31,35  ; Code der Lehrkr\xC3\xA4"
                                        "fte\n";
    EXPECT_EQ(dateiinhalt(path_), replaced + "\"Last\"=dword:7 ; sieben");
    EXPECT_EQ(read("Last"), Content(Type::dword, "\7\0\0\0"s));
    write("last", {Type::dword, "\x10\0\0\0"s});
    write("New\"\\", {Type::dword, "\1\0\0\0"s});
    EXPECT_EQ(dateiinhalt(path_),
              replaced + "\"Last\"=dword:00000010 ; sieben\n\"New\\\"\\\\\"=dword:00000001\n");
    EXPECT_EQ(read("nEW\"\\"), Content(Type::dword, "\1\0\0\0"s));
}

TEST_F(RegFileTest, OfSeveralValuesOfOneNameTheLastCountsAndOneIsLeftAfterAWrite) {
    const std::string key = "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n";
    lay(key + "\"Pin\"=\"1111\"\r\n\"PIN\"=hex(1):32,\\\r\n  32\r\n\"Last\"=\"x\"\r\n");
    EXPECT_EQ(read("Pin"), Content(Type::string, "22"));
    write("Pin", {Type::string, "3"});
    EXPECT_EQ(dateiinhalt(path_), key + "\"Pin\"=hex(1):33\r\n\"Last\"=\"x\"\r\n");
}

TEST_F(RegFileTest, WhatAnAdministratorWritesMeanwhileStays) {
    const std::string key = "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n";
    lay(key + "\"Pin\"=\"1111\"\r\n\"Path\"=\"a\"\r\n");
    const auto opened = file_.open(RegFile::localMachine, key_, RegFile::writeAccess);
    lay(key + "\"Pin\"=\"2222\"\r\n\"Path\"=\"a\"\r\n");
    file_.set(opened.handle, "Path", {Type::string, "b"});
    EXPECT_EQ(file_.close(opened.handle), RegistryStatus::success);
    EXPECT_EQ(dateiinhalt(path_), key + "\"Pin\"=\"2222\"\r\n\"Path\"=hex(1):62\r\n");
}

/// The text in an encoding with its mark.
std::string encoded(const std::wstring& text, const std::string& encoding) {
    if (encoding == "UTF-8")
        return toUtf8(text);
    if (encoding == "UTF-8 with a mark")
        return "\xEF\xBB\xBF" + toUtf8(text);
    if (encoding == "Windows-1252")
        return toWindows1252(text);
    const bool big = encoding == "UTF-16 big-endian";
    std::string bytes = big ? "\xFE\xFF" : "\xFF\xFE";
    for (const wchar_t c : text) {
        const char high = static_cast<char>(c >> 8);
        const char low = static_cast<char>(c & 0xFF);
        bytes += big ? high : low;
        bytes += big ? low : high;
    }
    return bytes;
}

TEST_F(RegFileTest, EachEncodingIsReadAndWrittenBackAsItIs) {
    const std::wstring key = L"\r\n[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n";
    for (const char* encoding :
         {"UTF-8", "UTF-8 with a mark", "Windows-1252", "UTF-16 little-endian", "UTF-16 big-endian"}) {
        SCOPED_TRACE(encoding);
        lay(encoded(L"; Schülerrechner" + key + L"\"Größe\"=\"ä€\"\r\n\"Pin\"=\"7294\"", encoding));
        EXPECT_EQ(read("GR\xD6\xDF"
                       "E"),
                  Content(Type::string, "\xE4\x80\0"s));
        EXPECT_EQ(read("Pin"), Content(Type::string, "7294\0"s));
        write("Pin", {Type::string, "1"});
        write("L\xE4nge", {Type::dword, "\2\0\0\0"s});
        EXPECT_EQ(dateiinhalt(path_),
                  encoded(L"; Schülerrechner" + key +
                              L"\"Größe\"=\"ä€\"\r\n\"Pin\"=hex(1):31\r\n\"Länge\"=dword:00000002\r\n",
                          encoding));
    }
    // Beyond the code page, in a pair of units and in one: UTF-8 behind its mark.
    lay("\xFF\xFE"s + encoded(key + L"\"Path\"=\"\xD83D\xDE00 шк\"\r\n", "UTF-16 little-endian").substr(2));
    EXPECT_EQ(read("Path"), Content(Type::string, "\xEF\xBB\xBF\xF0\x9F\x98\x80 \xD1\x88\xD0\xBA\0"s));
}

TEST_F(RegFileTest, TheFolderIsMadeForAllToReadWhateverTheUmask) {
    const auto folder = folder_.pfad() / "etc" / "klopfmeise";
    RegFile fresh((folder / "maschine.reg").string());
    const Umask umask(0077);
    const auto made = fresh.create(RegFile::localMachine, key_, RegFile::writeAccess);
    EXPECT_EQ(made.disposition, 1U);
    EXPECT_EQ(fresh.close(made.handle), RegistryStatus::success);
    const auto mode = [](const std::filesystem::path& path) {
        return static_cast<unsigned>(std::filesystem::status(path).permissions());
    };
    EXPECT_EQ(mode(folder), 0755U);
    EXPECT_EQ(mode(folder / "maschine.reg"), 0644U);
    // An administrator's own rights stay.
    std::filesystem::permissions(folder / "maschine.reg", std::filesystem::perms{0640});
    const auto opened = fresh.open(RegFile::localMachine, key_, RegFile::writeAccess);
    fresh.set(opened.handle, "Pin", {Type::string, "1"});
    EXPECT_EQ(fresh.close(opened.handle), RegistryStatus::success);
    EXPECT_EQ(mode(folder / "maschine.reg"), 0640U);
}

TEST_F(RegFileTest, AFailedWriteLeavesTheFileAndIsTold) {
    const std::string before = "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Pin\"=\"7294\"\r\n";
    const auto status = [&](FailingCall::Call call, int error) {
        lay(before);
        const auto opened = file_.open(RegFile::localMachine, key_, RegFile::writeAccess);
        file_.set(opened.handle, "Pin", {Type::string, "1"});
        const FailingCall failing(call, error, folder_.pfad());
        return file_.close(opened.handle);
    };
    for (const auto& [call, error] :
         {std::pair(FailingCall::Call::flush, EIO), {FailingCall::Call::close, ENOSPC}}) {
        EXPECT_EQ(status(call, error), RegistryStatus::accessDenied);
        EXPECT_EQ(dateiinhalt(path_), before);
    }
    // A file that is laid into its place by itself, as in a container, can only be written over.
    EXPECT_EQ(status(FailingCall::Call::rename, EBUSY), RegistryStatus::success);
    EXPECT_EQ(read("Pin"), Content(Type::string, "1"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.pfad()), {}), 1);
}

TEST_F(RegFileTest, AKeyIsMadeOnceAndOnlyInTheMachinesHive) {
    EXPECT_EQ(file_.open(RegFile::localMachine, key_, RegFile::readAccess).status,
              RegistryStatus::fileNotFound);
    EXPECT_EQ(file_.create(RegFile::localMachine, key_, RegFile::writeAccess).disposition, 1U);
    EXPECT_EQ(file_.create(RegFile::localMachine, key_, RegFile::writeAccess).disposition, 2U);
    EXPECT_EQ(dateiinhalt(path_), "Windows Registry Editor Version 5.00\r\n\r\n"
                                  "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n");
    constexpr std::uint32_t currentUser = 0x80000001;
    EXPECT_EQ(file_.create(currentUser, key_, RegFile::writeAccess).status, RegistryStatus::accessDenied);
    RegFile nowhere((folder_.pfad() / "machine.reg" / "below a file.reg").string());
    EXPECT_EQ(nowhere.create(RegFile::localMachine, key_, RegFile::writeAccess).status,
              RegistryStatus::accessDenied);
}

TEST_F(RegFileTest, AKeyOpenedForReadingIsNotWritten) {
    lay("[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Pin\"=\"7294\"\r\n");
    const auto opened = file_.open(RegFile::localMachine, key_, RegFile::readAccess);
    EXPECT_EQ(file_.set(opened.handle, "Pin", {Type::string, "1"}), RegistryStatus::accessDenied);
    EXPECT_EQ(file_.close(opened.handle), RegistryStatus::success);
    EXPECT_EQ(file_.close(opened.handle), RegistryStatus::invalidHandle);
    EXPECT_EQ(read("Pin"), Content(Type::string, "7294\0"s));
}

} // namespace
} // namespace klopfmeise
