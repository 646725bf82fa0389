#include "platform/values/windows1252.h"

#include <gtest/gtest.h>

#include <set>

namespace klopfmeise {
namespace {

TEST(Windows1252, EveryByteSurvivesTheWayThereAndBack) {
    std::set<wchar_t> characters;
    for (int byte = 0; byte < 256; ++byte) {
        const wchar_t character = fromWindows1252(static_cast<unsigned char>(byte));
        EXPECT_EQ(toWindows1252(character), byte);
        characters.insert(character);
    }
    EXPECT_EQ(characters.size(), 256U);
}

TEST(Windows1252, CharactersOfTheTable) {
    EXPECT_EQ(fromWindows1252("\x80\x84\x8A\x8E\x93\x96\x99\x9E\x9F\xA0\xDF\xE4\x81\x9D"),
              L"\u20AC\u201E\u0160\u017D\u201C\u2013\u2122\u017E\u0178\u00A0\u00DF\u00E4\x81\x9D");
    EXPECT_EQ(toWindows1252(L"\u20AC \u2026 \u0152 \u00FF"), "\x80 \x85 \x8C \xFF");
}

TEST(Windows1252, WhatIsMissingBecomesAQuestionMark) {
    EXPECT_EQ(toWindows1252(L"a\u03BBb\U0001F600\u0080"), "a?b??");
    for (const wchar_t missing : {L'\u0100', L'\u0080', L'\u2028', L'\U0001F600', static_cast<wchar_t>(-1)})
        EXPECT_EQ(toWindows1252(missing), -1);
}

} // namespace
} // namespace klopfmeise
