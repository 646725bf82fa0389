#include "platform/input/dead_keys.h"
#include "platform/input/input_line.h"
#include "tests/platform/diary.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using enum InputMark::Kind;

class InputLineTest : public testing::Test {
protected:
    InputLineTest() {
        line.busy = [this] { return busy; };
        line.wake = [] {};
    }
    void enter(const std::string& event, const InputMark& mark) { line.enter(mark, diary.noting(event)); }
    void key(const std::string& event, InputMark::Kind kind, std::uint32_t key, bool repeat = false,
             std::uint64_t time = 0) {
        enter(event, {.kind = kind, .key = key, .repeat = repeat, .time = time});
    }
    std::string served() {
        for (int i = 0; i < 20; ++i)
            line.serve();
        EXPECT_TRUE(line.empty());
        return diary.take();
    }
    Diary diary;
    InputLine line;
    bool busy = false;
};

TEST_F(InputLineTest, EachInputIsServedToItsEndWithItsReactions) {
    diary.on["a"] = [this] {
        line.react(diary.noting("reaction"));
        enter("c", {});
        line.serve();
    };
    diary.on["reaction"] = [this] { line.react(diary.noting("consequence")); };
    enter("a", {});
    enter("b", {});
    line.react(diary.noting("before"));
    busy = true;
    line.serve();
    EXPECT_EQ(diary.take(), "") << "a handler runs";
    busy = false;
    line.serve();
    EXPECT_EQ(diary.take(), "before a reaction consequence") << "one input a turn";
    EXPECT_EQ(served(), "b c");
}

TEST_F(InputLineTest, OfAHeldKeyOneRepeatWaits) {
    key("a", keyDown, 1);
    for (int i = 0; i < 3; ++i) {
        key("lost", keyUp, 1, true);
        key("repeat", keyDown, 1, true);
    }
    key("b", keyDown, 2);
    key("lost", keyDown, 1, true);
    key("B", keyUp, 2);
    key("A", keyUp, 1);
    key("a", keyDown, 1);
    key("repeat", keyDown, 1, true);
    EXPECT_EQ(served(), "a repeat b B A a repeat");
    // A release and a press of the same time are a repeat.
    key("a", keyDown, 1, false, 10);
    key("lost", keyUp, 1, false, 40);
    key("repeat", keyDown, 1, false, 40);
    key("lost", keyUp, 1, false, 60);
    key("lost", keyDown, 1, false, 60);
    key("A", keyUp, 1, false, 70);
    key("b", keyDown, 2, false, 70);
    key("B", keyUp, 2, false, 80);
    key("b", keyDown, 2, false, 90);
    EXPECT_EQ(served(), "a repeat A b B b");
}

TEST_F(InputLineTest, AReleaseWaitsAMomentForThePressThatMakesItARepeat) {
    std::vector<std::function<void()>> later;
    line.shortly = [&](std::function<void()> then) { later.push_back(std::move(then)); };
    const auto served = [&] {
        for (int i = 0; i < 5; ++i)
            line.serve();
        return diary.take();
    };
    key("a", keyDown, 1, false, 10);
    key("lost", keyUp, 1, false, 40);
    EXPECT_EQ(served(), "a");
    EXPECT_FALSE(line.ready());
    key("repeat", keyDown, 1, false, 40);
    EXPECT_EQ(served(), "repeat");
    key("A", keyUp, 1, false, 70);
    later.front()();
    EXPECT_EQ(served(), "") << "the moment of an earlier release";
    later.back()();
    EXPECT_EQ(served(), "A");
    key("b", keyDown, 2, false, 80);
    key("B", keyUp, 2, false, 90);
    key("c", keyDown, 3, false, 95);
    EXPECT_EQ(served(), "b B c") << "behind a release comes something else";
}

TEST(DeadKeysTest, AnAccentJoinsTheNextCharacterWhereTheTwoGoTogether) {
    // Small letters and blanks are typed, accents are accent keys; the dash is a key without a character,
    // such as shift.
    for (const auto& [keys, text] : {std::pair(L"´e´", L"é"),
                                     {L"^A~nx", L"Âñx"},
                                     {L"^x", L"^x"},
                                     {L"^ e", L"^e"},
                                     {L"`^e", L"`ê"},
                                     {L"^-e", L"ê"}}) {
        DeadKeys deadKeys;
        std::wstring typed;
        for (const wchar_t key : std::wstring_view(keys))
            typed += std::wstring_view(L"´`^~").find(key) != std::wstring_view::npos
                         ? deadKeys.accent(key)
                         : deadKeys.typed(key == L'-' ? std::wstring_view() : std::wstring_view(&key, 1));
        EXPECT_EQ(typed, text);
    }
}

} // namespace
} // namespace klopfmeise
