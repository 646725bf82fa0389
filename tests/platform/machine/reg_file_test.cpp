#include "platform/machine/reg_file.h"
#include "platform/values/windows1252.h"
#include "tests/platform/machine/troubles.h"
#include "tests/probe.h"

#include <cerrno>
#include <iterator>
#include <optional>

namespace klopfmeise {
namespace {

using Type = Registry::Type;

/// Type and bytes, comparable.
using Content = std::pair<Type, std::string>;

const std::string keyLine = "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n";

class RegFileTest : public testing::Test {
protected:
    static constexpr const char* key_ = "Software\\Klopfmeise";

    Registry::Handle open(std::uint32_t access) {
        return file_.open(RegFile::localMachine, key_, access).handle;
    }
    std::optional<Content> read(const std::string& name) {
        const auto opened = open(RegFile::readAccess);
        Registry::Value value;
        const bool found = file_.query(opened, name, value) == RegistryStatus::success;
        file_.close(opened);
        return found ? std::optional(Content(value.type, value.bytes)) : std::nullopt;
    }
    void write(const std::string& name, const Content& value) {
        const auto opened = open(RegFile::writeAccess);
        EXPECT_EQ(file_.set(opened, name, {value.first, value.second}), RegistryStatus::success);
        EXPECT_EQ(file_.close(opened), RegistryStatus::success);
    }
    void lay(const std::string& lines) { dateiSchreiben(path_, lines); }
    auto entries() const { return std::distance(fs::directory_iterator(folder_.pfad()), {}); }

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
        "\"Behind\"=hex(1):\\\r\n  37,32\r\n"
        "\"Gone\"=\"a\"\n\"gone\"=- ; no more\n"
        "\"Twice\"=\"a\"\n\"TWICE\"=\"b\"\n"
        "\"Broken\"=hex:2z\n\"Open\"=\"abc\n\"Large\"=dword:1ffffffff\n"
        "[HKEY_CURRENT_USER\\Software\\Klopfmeise]\n\"Foreign\"=\"x\"\n");
    EXPECT_EQ(read("Pin"), Content(Type::string, "72\"\\94\0"s));
    EXPECT_EQ(read("pATH"), Content(Type::string, "C:\\D"));
    EXPECT_EQ(read("Lines"), Content(Type::multiString, "a\0b"s));
    EXPECT_EQ(read("Number"), Content(Type::dword, "\x2a\0\0\0"s));
    EXPECT_EQ(read("Bytes"), Content(Type::binary, "\0\xff"s));
    EXPECT_EQ(read("Twice"), Content(Type::string, "b\0"s));
    EXPECT_EQ(read("Behind"), Content(Type::string, "72"));
    for (const char* name : {"Gone", "Broken", "Open", "Large", "Foreign", "Missing"})
        EXPECT_FALSE(read(name)) << name;
}

TEST_F(RegFileTest, WhatIsSetComesBackAndTheRestOfTheFileStays) {
    const std::string other = "; by hand\r\n[HKEY_LOCAL_MACHINE\\Software\\Other]\r\n\"Pin\"=\"11\"\r\n\r\n";
    const std::string sloppy = "\n[HKEY_Local_Machine\\SOFTWARE\\KLOPFMEISE] ; Schlüssel\n\"Kept\"=\"a;b\"\n";
    const Content text(Type::string, "1\"2");
    const Content lines(Type::multiString, "a\0b"s);
    const Content number(Type::dword, "\7\0\0\x80"s);
    const std::tuple<std::string, std::string, Content, std::string> cases[]{
        {other + keyLine + "\"Kept\"=\"a\"\r\n\"Pin\"=\"7\"\r\n\r\n" + other, "PIN", text,
         other + keyLine + "\"Kept\"=\"a\"\r\n\"Pin\"=hex(1):31,22,32\r\n\r\n" + other},
        {other + keyLine + "\"Kept\"=\"a\"\r\n\r\n" + other, "N", lines,
         other + keyLine + "\"Kept\"=\"a\"\r\n\"N\"=hex(7):61,00,62\r\n\r\n" + other},
        {sloppy + "  \"pin\" = \"72\"  ; Lehrkräfte\n", "Pin", text,
         sloppy + "  \"pin\" = hex(1):31,22,32  ; Lehrkräfte\n"},
        {sloppy + "\"Z\"=\"x\"", "P\"\\", number, sloppy + "\"Z\"=\"x\"\n\"P\\\"\\\\\"=dword:80000007\n"},
        {keyLine + "\"Pin\"=\"1\"\r\n\"PIN\"=hex(1):32,\\\r\n  32\r\n\"Z\"=\"x\"\r\n", "Pin", number,
         keyLine + "\"Pin\"=dword:80000007\r\n\"Z\"=\"x\"\r\n"},
        {keyLine + "[-HKEY_LOCAL_MACHINE\\Software\\Other]\r\n\"Pin\"=\"7\"\r\n", "Pin", number,
         keyLine + "\"Pin\"=dword:80000007\r\n[-HKEY_LOCAL_MACHINE\\Software\\Other]\r\n\"Pin\"=\"7\"\r\n"},
    };
    for (const auto& [before, name, value, after] : cases) {
        lay(before);
        write(name, value);
        EXPECT_EQ(dateiinhalt(path_), after);
        EXPECT_EQ(read(name), value);
        EXPECT_EQ(entries(), 1) << "a temporary file is left";
    }
    // A file that was cut, and what stands behind a value and is no comment.
    const std::string cut = keyLine + "\"Path\"=hex(1):31,\\";
    for (const auto& [before, after] : {std::pair(cut, cut + "\r\n\r\n\"Pin\"=dword:80000007\r\n"),
                                        {cut + "\\", cut + "\\\r\n\r\n\"Pin\"=dword:80000007\r\n"},
                                        {keyLine + "\"Pin\"=\"7\" \xFF\\\r\n\"Z\"=\"x\"\r\n",
                                         keyLine + "\"Pin\"=dword:80000007\r\n\"Z\"=\"x\"\r\n"},
                                        {keyLine + "\"Pin\"=\"\xFF\"\r\n\"Z\"=\"\xC3\xA4\"\r\n",
                                         keyLine + "\"Pin\"=dword:80000007\r\n\"Z\"=\"Ã¤\"\r\n"}}) {
        lay(before);
        const auto path = read("Path");
        const auto z = read("Z");
        write("Pin", number);
        EXPECT_EQ(dateiinhalt(path_), after);
        EXPECT_EQ(read("Pin"), number);
        EXPECT_EQ(read("Path"), path);
        EXPECT_EQ(read("Z"), z);
    }
    // What an administrator writes meanwhile stays too.
    const auto opened = open(RegFile::writeAccess);
    lay(keyLine + "\"Pin\"=\"2222\"\r\n\"Path\"=\"a\"\r\n");
    file_.set(opened, "Path", {Type::string, "b"});
    EXPECT_EQ(file_.close(opened), RegistryStatus::success);
    EXPECT_EQ(dateiinhalt(path_), keyLine + "\"Pin\"=\"2222\"\r\n\"Path\"=hex(1):62\r\n");
}

template <bool bigEndian>
std::string toUtf16(std::wstring_view text) {
    std::string bytes;
    for (const wchar_t c : text)
        for (const bool high : {bigEndian, !bigEndian})
            bytes += static_cast<char>(high ? c >> 8 : c & 0xFF);
    return bytes;
}

TEST_F(RegFileTest, EachEncodingIsReadAndWrittenBackAsItIs) {
    const std::wstring mark = L"\uFEFF";
    const std::wstring laid = L"; Süd\r\n[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Öl\"=\"ä€\"\r\n";
    using Encoding = std::string (*)(std::wstring_view);
    for (const auto& [text, encoded] : {std::pair<std::wstring, Encoding>{laid, toUtf8},
                                        {mark + laid, toUtf8},
                                        {laid, toWindows1252},
                                        {mark + laid, toUtf16<false>},
                                        {mark + laid, toUtf16<true>}}) {
        lay(encoded(text + L"\"Pin\"=\"7294\""));
        SCOPED_TRACE(dateiinhalt(path_));
        EXPECT_EQ(read("\xD6L"), Content(Type::string, "\xE4\x80\0"s));
        EXPECT_EQ(read("Pin"), Content(Type::string, "7294\0"s));
        write("Pin", {Type::string, "1"});
        write("L\xE4nge", {Type::dword, "\2\0\0\0"s});
        EXPECT_EQ(dateiinhalt(path_), encoded(text + L"\"Pin\"=hex(1):31\r\n\"Länge\"=dword:00000002\r\n"));
    }
    // Cut in the middle of a character.
    const std::string half = toUtf16<false>((mark + laid).substr(0, laid.size() - 1)) + "x";
    lay(half);
    write("Pin", {Type::string, "1"});
    EXPECT_EQ(dateiinhalt(path_), toUtf16<false>(mark + laid + L"\"Pin\"=hex(1):31\r\n"));
    // An export in UTF-16 tells a string's bytes in units of two. Beyond the code page, in a pair of units
    // and in one, it is UTF-8 behind its mark. A key that is taken away takes its values.
    for (const auto& [line, value] :
         {std::pair(L"\"Pin\"=hex(1):37,00,32,00,00,00\r\n", "72\0"s),
          {L"\"Pin\"=hex(1):dc,00,1a,04,00,00\r\n", "\xEF\xBB\xBF\u00DC\u041A\0"s},
          {L"\"Pin\"=\"\xD83D\xDE00 шк\"\r\n", "\xEF\xBB\xBF😀 шк\0"s}}) {
        lay(toUtf16<false>(mark + laid + line));
        EXPECT_EQ(read("Pin"), Content(Type::string, value));
    }
    lay(toUtf16<false>(mark + laid + L"[-HKEY_LOCAL_MACHINE\\Software\\KLOPFMEISE]\r\n\"Pin\"=\"1\"\r\n"));
    EXPECT_FALSE(read("Pin"));
}

TEST_F(RegFileTest, AFailedWriteLeavesTheFileAndIsTold) {
    using Call = FailingCall::Call;
    const std::string before = keyLine + "\"Pin\"=\"7294\"\r\n";
    // A file that is laid into its place by itself, as in a container, can only be written over.
    for (const auto& [call, error, after] : {std::tuple(Call::flush, EIO, before),
                                             {Call::close, ENOSPC, before},
                                             {Call::rename, EBUSY, keyLine + "\"Pin\"=hex(1):31\r\n"}}) {
        lay(before);
        const auto opened = open(RegFile::writeAccess);
        file_.set(opened, "Pin", {Type::string, "1"});
        const FailingCall failing(call, error, folder_.pfad());
        EXPECT_EQ(file_.close(opened) == RegistryStatus::success, after != before);
        EXPECT_EQ(dateiinhalt(path_), after);
        EXPECT_EQ(entries(), 1);
    }
}

TEST_F(RegFileTest, AKeyIsMadeOnceForAllToReadWhateverTheUmaskAndWrittenOnlyIfOpenedForIt) {
    path_ = (folder_.pfad() / "etc" / "klopfmeise" / "maschine.reg").string();
    file_ = RegFile(path_);
    const auto mode = [](const fs::path& path) {
        return static_cast<unsigned>(fs::status(path).permissions());
    };
    const auto create = [&](std::uint32_t hive = RegFile::localMachine) {
        return file_.create(hive, key_, RegFile::writeAccess);
    };
    EXPECT_EQ(file_.open(RegFile::localMachine, key_, RegFile::readAccess).status,
              RegistryStatus::fileNotFound);
    const Umask umask(0077);
    EXPECT_EQ(create().disposition, 1U);
    EXPECT_EQ(create().disposition, 2U);
    EXPECT_EQ(create(0x80000001).status, RegistryStatus::accessDenied) << "the user's hive";
    EXPECT_EQ(mode(path_), 0644U);
    EXPECT_EQ(mode(fs::path(path_).parent_path()), 0755U);

    const auto opened = open(RegFile::readAccess);
    EXPECT_EQ(file_.set(opened, "Pin", {Type::string, "1"}), RegistryStatus::accessDenied);
    EXPECT_EQ(file_.close(opened), RegistryStatus::success);
    EXPECT_EQ(file_.close(opened), RegistryStatus::invalidHandle);
    EXPECT_EQ(dateiinhalt(path_), "Windows Registry Editor Version 5.00\r\n\r\n" + keyLine);
    // An administrator's own rights stay.
    fs::permissions(path_, fs::perms{0640});
    write("Pin", {Type::string, "1"});
    EXPECT_EQ(mode(path_), 0640U);
}

} // namespace
} // namespace klopfmeise
