#include "tests/platform/diary.h"

namespace klopfmeise {
namespace {

/// A, B and C are full-screen forms, Small is a window, One and Two are children of Frame.
class FormRuntimeTest : public testing::Test, public Playground {
protected:
    FormRuntimeTest() {
        for (const auto name : {L"A", L"B", L"C"})
            add(name);
        add(L"Small", {.kind = FormKind::window});
        add(L"Frame", {.kind = FormKind::frame});
        for (const auto name : {L"One", L"Two"})
            add(name, {.kind = FormKind::child, .frame = L"Frame"});
    }
};

TEST_F(FormRuntimeTest, AFormLivesFromItsLoadToItsUnload) {
    EXPECT_EQ(shown({L"A"}), "A.load A.activate");
    EXPECT_EQ(shown({L"B", L"B"}), "B.load A.deactivate B.activate");
    user.activate(form(L"A"));
    user.activate(*runtime.load(L"C"));
    EXPECT_EQ(diary.take(), "B.deactivate A.activate C.load");
    const auto life = form(L"B").life();
    runtime.unload(L"B");
    runtime.unload(L"B");
    EXPECT_TRUE(life.expired());
    EXPECT_EQ(shown({L"B"}), "B.unload B.load A.deactivate B.activate");
    runtime.unload(L"B");
    user.close(form(L"A"));
    EXPECT_EQ(diary.take(), "B.unload A.activate A.unload") << "C was never shown";
    EXPECT_EQ(active(), L"");
    EXPECT_FALSE(runtime.ended());
    runtime.unload(L"C");
    EXPECT_TRUE(runtime.ended() && backend.quitAsked) << "no form is left";
}

TEST_F(FormRuntimeTest, InsideAFrameOneChildIsActiveWhateverLiesOverTheFrame) {
    EXPECT_EQ(shown({L"One", L"Two"}),
              "Frame.load Frame.activate One.load One.activate Two.load One.deactivate Two.activate");
    user.activate(form(L"One"));
    EXPECT_EQ(shown({L"Small"}), "Two.deactivate One.activate Small.load Frame.deactivate Small.activate");
    EXPECT_EQ(active(), L"Small");
    user.close(form(L"Small"));
    EXPECT_EQ(diary.take(), "Small.unload Frame.activate");
    EXPECT_EQ(active(), L"One");
    shown({L"Small"});
    user.activate(form(L"Two"));
    EXPECT_EQ(diary.take(), "Small.deactivate Frame.activate One.deactivate Two.activate");
    shown({L"Small"});
    form(L"Frame").timer.setInterval(100);
    diary.on["Frame.tick"] = [this] { runtime.unload(L"Two"); };
    user.pass(100);
    EXPECT_EQ(diary.take(), "Frame.tick Two.unload One.activate");
    EXPECT_EQ(active(), L"Small") << "a timer of the frame below took it away";
    // A child that comes while its frame goes would outlive it.
    diary.on["One.unload"] = [this] { EXPECT_FALSE(runtime.show(L"Two")); };
    user.close(form(L"Frame"));
    EXPECT_EQ(diary.take(), "One.unload Frame.unload");
}

TEST_F(FormRuntimeTest, AFormThatUnloadsItselfGoesWhenItsHandlerHasReturned) {
    shown({L"A"});
    diary.on["B.load"] = diary.on["B.tick"] = diary.on["B.up"] = [this] {
        const auto life = form(L"B").life();
        runtime.dispatch(form(L"A"), [this] { runtime.unload(L"B"); });
        EXPECT_FALSE(life.expired());
        EXPECT_FALSE(runtime.loaded(L"B"));
    };
    EXPECT_FALSE(runtime.show(L"B"));
    EXPECT_EQ(diary.take(), "B.load B.unload");
    diary.on.erase("B.load");
    for (const bool byTimer : {true, false}) {
        shown({L"B"});
        const auto life = form(L"B").life();
        form(L"B").timer.setInterval(50);
        if (!byTimer)
            user.type(L'x');
        user.pass(500);
        EXPECT_EQ(diary.take(), (byTimer ? "B.tick"s : "B.down88 B.press120 B.up"s) + " B.unload A.activate");
        EXPECT_TRUE(life.expired());
    }
    EXPECT_EQ(runtime.nextTick(), -1);
}

TEST_F(FormRuntimeTest, TimersTickInTheOrderInWhichTheyAreDueButNoneInAHandler) {
    shown({L"A", L"B", L"C"});
    form(L"A").timer.setInterval(300);
    form(L"B").timer.setInterval(200);
    form(L"C").timer.setInterval(1000);
    form(L"C").timer.setInterval(0);
    clock.advance(5);
    runtime.serveTimers();
    EXPECT_EQ(diary.take(), "B.tick A.tick") << "one tick of each is outstanding";
    user.pass(190);
    form(L"B").timer.setInterval(250);
    form(L"A").timer.setEnabled(false);
    user.pass(300);
    EXPECT_EQ(diary.take(), "B.tick") << "another interval begins anew";
    form(L"A").timer.setEnabled(true);
    diary.on["C.down88"] = [this] {
        runtime.wait(1000);
        runtime.serveTimers();
        diary.note("waited");
    };
    user.type(L'x');
    EXPECT_EQ(diary.take(), "C.down88 waited C.press120 B.tick A.tick C.up");
    user.pass(240);
    EXPECT_EQ(diary.take(), "") << "the next one is due an interval after the late one";
}

} // namespace
} // namespace klopfmeise
