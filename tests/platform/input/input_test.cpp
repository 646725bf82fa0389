#include "platform/input/dead_keys.h"
#include "platform/input/input_line.h"
#include "tests/platform/diary.h"

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
    EXPECT_TRUE(line.empty());
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

class Page final : public NotingForm {
public:
    using NotingForm::NotingForm;

    MouseHandler noting(const std::string& event) {
        return [=, this](MouseButton b) { diary.note(event + (b == MouseButton::left ? "Left" : "Other")); };
    }
    LabelLook heard(const std::string& event) {
        return {.click = diary.noting(event + "Click"),
                .mouseDown = noting(event),
                .mouseMove = diary.noting(event + "Move")};
    }
    KeyHandlers digits{
        .down = [this](const KeyDown& key) { diary.note("down" + std::to_string(key.codes[0])); },
        .press =
            [this](KeyPress& key) {
                diary.note("press" + std::to_string(key.code));
                key.swallowed = key.character < L'0' || key.character > L'9';
            },
        .up = diary.noting("up")};
    TextBox plain{*this, L"plain", {}};
    TextBox code{*this, L"code", {}, {.keys = digits}};
    Label label{*this, L"label", {0, 0, 1000, 1000}, heard("label")};
    Frame frame{*this, L"frame", {0, 2000, 3000, 3000}, {.mouseMove = diary.noting("frameMove")}};
    Label inside{frame, L"inside", {0, 0, 1000, 1000}, heard("inside")};
    PictureBox box{*this, L"box", {0, 6000, 3000, 3000}, {.mouseDown = noting("box")}};
    Button button{*this, L"button", {}, {.click = diary.noting("button")}};
};

class InputRouterTest : public testing::Test, public Playground {
protected:
    InputRouterTest() {
        line.busy = [this] { return runtime.busy(); };
        line.wake = [] {};
        add(L"Other");
        add<Page>(L"P");
        shown({L"Other", L"P"});
    }
    Page& page() { return form<Page>(L"P"); }
    std::string typed(std::wstring_view text) {
        user.type(text);
        return diary.take();
    }
    /// The mouse goes down at one point and up at another.
    std::string mouse(Container& from, int x, Container& to, int upX, MouseButton down = MouseButton::left,
                      MouseButton up = MouseButton::left) {
        router.mouseDown(from, x, 500, down);
        router.mouseUp(to, upX, 500, up);
        return reactions();
    }
    std::string reactions() {
        line.serve();
        return diary.take();
    }
    InputLine line;
    InputRouter router{runtime, line};
};

TEST_F(InputRouterTest, AControlWithKeyHandlersHearsTheKeysInsteadOfTheForm) {
    page().code.setFocus();
    EXPECT_EQ(typed(L"7x\b€Ω"),
              "down55 press55 up down88 press120 up down8 press8 up down8364 press128 up down937 up");
    EXPECT_EQ(page().code.text(), L"7") << "swallowed, or no character of the code page";
    // A pasted text passes the same filter.
    user.paste(L"7x2ü9\n\u007FΩ4");
    EXPECT_EQ(diary.take(), "press55 press120 press50 press252 press57 press52");
    EXPECT_EQ(page().code.text(), L"77294");
    page().code.setEnabled(false);
    EXPECT_EQ(typed(L"7"), "P.down55 P.press55 P.up") << "a disabled control has no use for keys";
}

TEST_F(InputRouterTest, AWidgetWithoutHandlersTakesTheKeysItHasAUseFor) {
    page().plain.setFocus();
    user.paste(L"a\tΩ\r\n\u007Fb");
    EXPECT_EQ(typed(L"xΩ"), "") << "who took the press takes the release";
    EXPECT_EQ(page().plain.text(), L"aΩbxΩ");
    EXPECT_EQ(typed(L"\r"), "P.down13 P.press13 P.up");
    page().button.setFocus();
    EXPECT_EQ(typed(L"\rx"), "button P.down88 P.press120 P.up");
    page().button.hide();
    EXPECT_EQ(typed(L"Ω"), "P.down937 P.up") << "hidden; and forms know the code page only";
}

TEST_F(InputRouterTest, APressAndReleaseOnOneControlIsAClick) {
    using enum MouseButton;
    Container& frame = page().frame;
    EXPECT_EQ(mouse(page(), 500, page(), 999), "labelLeft labelClick");
    EXPECT_EQ(mouse(page(), 500, page(), 1000), "labelLeft") << "released beside it";
    EXPECT_EQ(mouse(page(), 500, frame, 500), "labelLeft") << "released on another one";
    EXPECT_EQ(mouse(frame, 500, frame, 500), "insideLeft insideClick");
    EXPECT_EQ(mouse(page().box, 500, page().box, 500, middle, middle), "boxOther");
    EXPECT_EQ(mouse(page(), 500, page(), 500, right, right), "labelOther");
    EXPECT_EQ(mouse(page(), 500, page(), 500, left, right), "labelLeft");
    router.mouseDown(page(), 500, 500, left);
    router.forget(page().label);
    router.mouseUp(page(), 500, 500, left);
    router.press(page().button);
    EXPECT_EQ(reactions(), "labelLeft button");
    router.mouseMove(page(), 500, 500);
    router.mouseMove(frame, 1500, 500);
    EXPECT_EQ(reactions(), "labelMove frameMove");
}

TEST_F(InputRouterTest, WhatIsDisabledOrHiddenHearsNothing) {
    page().label.setEnabled(false);
    page().button.setEnabled(false);
    router.press(page().button);
    EXPECT_EQ(mouse(page(), 500, page(), 500), "");
    page().label.hide();
    router.mouseMove(page(), 500, 500);
    EXPECT_EQ(reactions(), "P.move");
    page().setEnabled(false);
    EXPECT_EQ(mouse(page().frame, 500, page().frame, 500) + typed(L"x"), "");
    page().setEnabled(true);
    router.mouseDown(page().frame, 500, 500, MouseButton::left);
    runtime.unload(L"P");
    EXPECT_EQ(reactions(), "P.unload Other.activate") << "the form is gone before it hears";
}

} // namespace
} // namespace klopfmeise
