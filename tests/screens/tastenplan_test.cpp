#include "screens/tastenplan.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Tastenplan, CharactersLieOnTheirKeyAndFingerAndSomeOnNone) {
    struct Reihe {
        int erste;
        /// Without, with shift, with Alt Gr; and the fingers, A the tenth.
        std::vector<std::wstring> ebenen;
        std::string finger;
    };
    const Reihe reihen[]{
        {1, {L"^1234567890ß´", L"°! §$%&/()=?`", L"  ²³   {[]}\\ "}, "11123447789AA"},
        {16, {L"qwertzuiopü+", L"QWERTZUIOPÜ*", L"@ €        ~"}, "123447789AAA"},
        {30, {L"asdfghjklöä#", L"ASDFGHJKLÖÄ'"}, "123447789AAA"},
        {43, {L"<yxcvbnm,.-", L">YXCVBNM;:_", L"|          "}, "1123447789A"},
    };
    for (const auto& [erste, ebenen, finger] : reihen)
        for (const std::wstring& ebene : ebenen)
            for (std::size_t i = 0; i < ebene.size(); ++i)
                if (const wchar_t z = ebene[i]; z != L' ') {
                    const int taste = erste + static_cast<int>(i);
                    EXPECT_EQ(tasteFür(z), taste) << static_cast<int>(z);
                    EXPECT_EQ(tasteFürZeichencode(z), taste) << static_cast<int>(z);
                    EXPECT_EQ(fingerFür(taste), std::vector{finger[i] == 'A' ? 10 : finger[i] - '0'});
                }
    EXPECT_EQ(fingerFür(tasteFür(L' ')), (std::vector{5, 6}));
    EXPECT_TRUE(fingerFür(42).empty());
    for (const wchar_t z : {L'"', L'\b', L'\r', L'\n', L'\t', L'\0', L'µ', L'ẞ'})
        EXPECT_EQ(tasteFür(z), 0) << static_cast<int>(z);
    for (const auto& [code, taste] : {std::pair(int{L'"'}, 0), {8, 14}, {13, 28}, {32, 57}})
        EXPECT_EQ(tasteFürZeichencode(code), taste) << code;
}

} // namespace
} // namespace klopfmeise
