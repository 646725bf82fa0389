#include "platform/controls/visit.h"
#include "tests/platform/diary.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

class Page final : public NotingForm {
public:
    using NotingForm::NotingForm;

    MouseHandler noting(const std::string& event) {
        return [this, event](MouseButton with) {
            diary.note(event + (with == MouseButton::left ? "Left" : "Other"));
        };
    }
    LabelLook heard(const std::string& event) {
        return {.click = diary.noting(event + "Click"),
                .mouseDown = noting(event),
                .mouseMove = diary.noting(event + "Move")};
    }
    KeyHandlers digits() {
        return {
            .down = [this](const KeyDown& key) { diary.note("down" + std::to_string(key.codes.front())); },
            .press =
                [this](KeyPress& key) {
                    diary.note("press" + std::to_string(key.code));
                    key.swallowed = key.character < L'0' || key.character > L'9';
                },
            .up = diary.noting("up")};
    }

    TextBox plain{*this, L"plain", {}};
    TextBox code{*this, L"code", {}, {.keys = digits()}};
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
        runtime.show(L"Other");
        runtime.show(L"P");
        diary.take();
    }
    Page& page() { return form<Page>(L"P"); }
    std::string typed(std::wstring_view text) {
        user.type(text);
        return diary.take();
    }
    /// The mouse goes down at one point and up at another.
    std::string mouse(Container& from, int x, Container& to, int upX,
                      MouseButton button = MouseButton::left) {
        router.mouseDown(from, x, 500, button);
        router.mouseUp(to, upX, 500, button);
        return reactions();
    }
    std::string moved(Container& container, int x) {
        router.mouseMove(container, x, 500);
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
    EXPECT_EQ(typed(L"7x€Ω"), "down55 press55 up down88 press120 up down8364 press128 up down937 up");
    EXPECT_EQ(page().code.text(), L"7") << "swallowed, or no character of the code page";
    user.accent(L'^');
    EXPECT_EQ(diary.take(), "down94 up");
    EXPECT_EQ(typed(L"1"), "down49 press94 press49 up");
    EXPECT_EQ(page().code.text(), L"71");
    page().code.setEnabled(false);
    EXPECT_EQ(typed(L"7"), "P.down55 P.press55 P.up") << "a disabled control has no use for keys";
}

TEST_F(InputRouterTest, AWidgetWithoutHandlersTakesTheKeysItHasAUseFor) {
    page().plain.setFocus();
    EXPECT_EQ(typed(L"xΩ"), "") << "who took the press takes the release";
    EXPECT_EQ(page().plain.text(), L"xΩ");
    EXPECT_EQ(typed(L"\r"), "P.down13 P.press13 P.up");
    page().button.setFocus();
    EXPECT_EQ(typed(L"\rx"), "button P.down88 P.press120 P.up");
    page().button.hide();
    EXPECT_EQ(typed(L"Ω"), "P.down937 P.up") << "hidden; and forms know the code page only";
}

TEST_F(InputRouterTest, APastedTextPassesTheFilterOfItsBox) {
    page().code.setFocus();
    user.paste(L"7x2ü9\n\u007FΩ4");
    EXPECT_EQ(diary.take(), "press55 press120 press50 press252 press57 press52");
    EXPECT_EQ(page().code.text(), L"7294");
    page().plain.setFocus();
    user.paste(L"a\tΩ\r\n\u007Fb");
    EXPECT_EQ(page().plain.text(), L"aΩb");
}

TEST_F(InputRouterTest, NothingMoreOfAKeyIsHeardOnceAHandlerHasUnloadedTheForm) {
    diary.on["down49"] = diary.on["press94"] = diary.on["P.down50"] = [this] { runtime.unload(L"P"); };
    const auto widget = [this](const std::wstring&) { return diary.note("widget"), false; };
    const auto pressed = [&](bool inBox, int code, const std::wstring& text) {
        runtime.show(L"P");
        if (inBox)
            page().code.setFocus();
        diary.take();
        router.keyPress(page(), {{code}, text}, widget);
        EXPECT_FALSE(runtime.loaded(L"P"));
        return diary.take();
    };
    const std::string gone = " P.unload Other.activate";
    EXPECT_EQ(pressed(true, '1', L"1"), "down49" + gone);
    EXPECT_EQ(pressed(true, 0, L"^1"), "down0 press94" + gone);
    EXPECT_EQ(pressed(false, '2', L"2"), "widget P.down50" + gone);
}

TEST_F(InputRouterTest, APressAndReleaseOnOneControlIsAClick) {
    EXPECT_EQ(mouse(page(), 500, page(), 999), "labelLeft labelClick");
    EXPECT_EQ(mouse(page(), 500, page(), 500, MouseButton::right), "labelOther");
    EXPECT_EQ(mouse(page(), 500, page(), 1000), "labelLeft") << "released beside it";
    EXPECT_EQ(mouse(page(), 500, page().frame, 500), "labelLeft") << "released on another one";
    EXPECT_EQ(mouse(page().frame, 500, page().frame, 500), "insideLeft insideClick");
    EXPECT_EQ(mouse(page().box, 500, page().box, 500, MouseButton::middle), "boxOther");
    EXPECT_EQ(mouse(page(), 1500, page(), 1500), "");
    EXPECT_EQ(moved(page(), 500) + moved(page(), 1500), "labelMoveP.move");
    EXPECT_EQ(moved(page().frame, 500) + moved(page().frame, 1500) + moved(page().box, 0),
              "insideMoveframeMove");
    router.press(page().button);
    EXPECT_EQ(reactions(), "button");
    router.mouseDown(page(), 500, 500, MouseButton::left);
    router.forget(page().label);
    router.mouseUp(page(), 500, 500, MouseButton::left);
    EXPECT_EQ(reactions(), "labelLeft");
}

TEST_F(InputRouterTest, WhatIsDisabledOrHiddenHearsNothing) {
    page().label.setEnabled(false);
    page().button.setEnabled(false);
    router.press(page().button);
    EXPECT_EQ(mouse(page(), 500, page(), 500) + moved(page(), 500), "");
    page().label.hide();
    EXPECT_EQ(moved(page(), 500), "P.move");
    page().frame.hide();
    user.click(page().inside);
    EXPECT_EQ(diary.take(), "");
    page().setEnabled(false);
    EXPECT_EQ(mouse(page().box, 500, page().box, 500) + moved(page(), 500) + typed(L"x"), "");
    page().setEnabled(true);
    router.mouseDown(page().box, 500, 500, MouseButton::left);
    runtime.unload(L"P");
    EXPECT_EQ(reactions(), "P.unload Other.activate") << "the form is gone before it hears";
}

} // namespace
} // namespace klopfmeise
