#include "platform/qt/frame_window.h"
#include "tests/fenster/ein_backend.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QListView>
#include <QMdiArea>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

namespace klopfmeise {
namespace {

class FrameForm final : public NotingForm {
public:
    using NotingForm::NotingForm;
    PictureBox strip{*this, L"strip", {0, 0, 14880, 450}};
};

/// A child window with a control of each kind that takes a value from the user.
class Child final : public NotingForm {
public:
    Child(FormRuntime& runtime, std::wstring_view name, const FormLook& look, Diary& book)
        : NotingForm(runtime, name, look, book) {
        moveTo(100, 100);
        code.setFocus();
    }
    CheckLook check(const std::string& event) {
        return {.caption = L"Eine Wahl in zwei Zeilen", .click = diary.noting(event)};
    }
    KeyHandlers digits{.press = [this](KeyPress& key) {
        diary.note("key");
        key.swallowed = key.character < L'0' || key.character > L'9';
    }};

    TextBox code{*this, L"code", {150, 150, 3000, 375}, {.keys = digits, .change = diary.noting("code")}};
    Slider slider{*this,
                  L"slider",
                  {150, 600, 3000, 435},
                  {.min = 1, .max = 30, .smallStep = 1, .largeStep = 5, .change = diary.noting("slider")}};
    Frame group{*this, L"group", {150, 1200, 3000, 900}, {.caption = L"Gruppe"}};
    OptionButton first{group, L"first", {100, 300, 1400, 500}, check("first")};
    OptionButton second{group, L"second", {1500, 300, 1400, 500}, check("second")};
    CheckBox box{*this, L"box", {150, 2250, 3000, 300}, check("box")};
    FolderList list{*this, L"list", {3300, 150, 2500, 2400}, {.click = diary.noting("list")}};
};

/// A frame with a menu, two children of it and one too large for it, and a window.
class RahmenQt : public OnToolkit<Playground> {
protected:
    RahmenQt() {
        add<FrameForm>(
            L"Frame",
            {.kind = FormKind::frame, .menu = {{L"Top", L"Gruppen"}}, .state = WindowState::maximised});
        FormLook child{.kind = FormKind::child, .width = 6000, .height = 3000, .frame = L"Frame"};
        add<Child>(L"One", child);
        add<Child>(L"Two", child);
        child.width = child.height = 12000;
        add<Child>(L"Large", child);
        add(L"Small", {.kind = FormKind::window, .width = 3000, .height = 2000});
    }

    std::string shown(std::initializer_list<std::wstring_view> names) {
        for (const auto name : names)
            runtime.show(name);
        return happened();
    }
    std::string happened() {
        settle();
        return diary.take();
    }
    Child& one() { return form<Child>(L"One"); }
    FrameWindow& frame() { return static_cast<FrameWindow&>(*widget(L"Frame").window()); }
    QMdiSubWindow& window(std::wstring_view form) {
        return static_cast<QMdiSubWindow&>(*widget(form).parentWidget());
    }

    std::string clicked(const QWidget& on, const QPoint& at) {
        QWindow* to = on.window()->windowHandle();
        const QPointF point = on.mapTo(on.window(), at);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, point, to->mapToGlobal(point), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(to, &event);
        }
        return happened();
    }
    std::string clicked(const Control& control) {
        return clicked(widget(control), widget(control).rect().center());
    }
    std::string struck(int key, const char* text = "") {
        strike(frame(), key, QString::fromUtf8(text));
        return diary.take();
    }
    std::string turned(const Control& control, int angle) {
        turn(widget(control), angle);
        return diary.take();
    }
};

TEST_F(RahmenQt, TheFrameFillsTheScreenAndHoldsItsMenuItsStripAndItsChildren) {
    EXPECT_TRUE(shown({L"One"}).starts_with("Frame.load Frame.activate One.load One.activate Frame.resize"));
    const QMdiArea& area = frame().area();
    EXPECT_TRUE(frame().isMaximized());
    const double pixel = toolkit().screen().width / static_cast<double>(frame().screen()->size().width());
    EXPECT_NEAR(runtime.loaded(L"Frame")->width(), frame().width() * pixel, 1);
    const QWidget& strip = widget(L"Frame");
    EXPECT_EQ(strip.mapTo(&frame(), QPoint()), QPoint(0, frame().menuBar()->height()));
    EXPECT_NEAR(strip.height(), 450 / pixel, 1);
    EXPECT_EQ(strip.width(), frame().width());
    EXPECT_EQ(area.mapTo(&frame(), QPoint()).y(), frame().menuBar()->height() + strip.height());
    shown({L"Large"});
    EXPECT_NEAR(window(L"One").x(), 100 / pixel, 1);
    for (const auto name : {L"One", L"Large"}) {
        EXPECT_TRUE(area.viewport()->rect().contains(window(name).geometry())) << "reaches beyond the frame";
        EXPECT_TRUE(window(name).contentsRect().contains(widget(name).geometry()));
    }
    EXPECT_NEAR(widget(L"One").width(), 6000 / pixel, 1);
    EXPECT_NEAR(widget(L"Large").width(), widget(L"Large").height(), 1);
}

TEST_F(RahmenQt, TheUserMovesAmongTheChildrenAndAWindowOverThemStaysActive) {
    shown({L"One", L"Two"});
    window(L"Two").move(300, 300);
    EXPECT_EQ(clicked(window(L"One"), {60, 10}), "Two.deactivate One.activate");
    EXPECT_EQ(struck(Qt::Key_7, "7"), "key code");
    EXPECT_EQ(one().code.text(), L"7") << "the keys do not go to the active child";

    shown({L"Two"});
    diary.on["One.activate"] = [this] { runtime.show(L"Small"); };
    EXPECT_EQ(shown({L"One"}), "Two.deactivate One.activate Small.load Frame.deactivate Small.activate")
        << "the toolkit tells of the child last";
    QWindow* small = widget(L"Small").windowHandle();
    EXPECT_EQ(QGuiApplication::focusWindow(), small);
    diary.on.clear();
    runtime.unload(L"One");
    EXPECT_EQ(happened(), "One.unload Two.activate");
    EXPECT_EQ(QGuiApplication::focusWindow(), small);
    EXPECT_EQ(active(), L"Small");
    EXPECT_EQ(clicked(frame(), {100, 500}), "Small.deactivate Frame.activate");
    EXPECT_EQ(active(), L"Two");
    small->close();
    EXPECT_EQ(happened(), "Small.unload");
    window(L"Two").close();
    frame().windowHandle()->close();
    EXPECT_EQ(happened(), "Two.unload Frame.unload");
}

TEST_F(RahmenQt, WidgetsStandInTheOrderOfTheirControlsHoweverLateTheyAreMade) {
    runtime.load(L"One");
    const std::initializer_list<Control*> late{&one().box, &one().first, &one().group, &one().code};
    for (Control* control : late)
        control->hide();
    shown({L"One"});
    for (Control* control : late) {
        control->show();
        settle();
    }
    one().slider.setFocus();
    // Inside a group of options the arrow keys lead on.
    for (const Control* next :
         std::initializer_list<Control*>{&one().first, &one().box, &one().list, &one().code}) {
        struck(Qt::Key_Tab, "\t");
        EXPECT_EQ(one().focus(), next);
        EXPECT_EQ(frame().focusWidget()->objectName(), toQt(next->fullName()));
    }
}

TEST_F(RahmenQt, WhatTheUserSetsIsHeardOnceAndWhatTheProgramSetsNever) {
    const Wegwerfordner folder;
    const std::wstring path = logikpfad(folder.pfad());
    files.makeFolder(path + L"\\a");
    files.makeFolder(path + L"\\ein Name, der nicht in die Liste passt");
    shown({L"One"});
    one().list.setPath(path);
    one().slider.setValue(5);
    one().first.setValue(1);
    one().box.setValue(1);
    one().code.setText(L"");
    EXPECT_EQ(happened(), "");
    EXPECT_EQ(static_cast<QAbstractSlider&>(widget(one().slider)).value(), 5);

    EXPECT_EQ(clicked(one().second), "second");
    EXPECT_EQ(clicked(one().second), "second");
    EXPECT_EQ(struck(Qt::Key_Left), "first");
    EXPECT_EQ(struck(Qt::Key_Right), "second");
    EXPECT_EQ(one().first.value(), 0);
    EXPECT_FALSE(static_cast<QAbstractButton&>(widget(one().first)).isChecked());
    EXPECT_TRUE(static_cast<QAbstractButton&>(widget(one().second)).isChecked());
    EXPECT_EQ(clicked(one().box), "box");
    EXPECT_EQ(one().box.value(), 0);
    one().slider.setFocus();
    for (const auto& [key, after] :
         {std::pair(Qt::Key_Right, 6), {Qt::Key_PageUp, 11}, {Qt::Key_PageDown, 6}, {Qt::Key_End, 30}}) {
        EXPECT_EQ(struck(key), "slider");
        EXPECT_EQ(one().slider.value(), after);
    }
    // A notch of the wheel is the small step.
    EXPECT_EQ(turned(one().slider, -120), "slider");
    EXPECT_EQ(turned(one().slider, -60), "");
    EXPECT_EQ(turned(one().slider, -60), "slider");
    EXPECT_EQ(one().slider.value(), 28);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(clicked(widget(one().list), {20, 5}), "list");
    EXPECT_EQ(struck(Qt::Key_Down), "list");
    EXPECT_EQ(one().list.selected(), 1);
    const auto& rows = dynamic_cast<QListView&>(widget(one().list));
    EXPECT_GT(rows.horizontalScrollBar()->maximum(), 0);
}

TEST_F(RahmenQt, AnOptionInTwoLinesIsTextForWhoHearsItAndCanBePressed) {
    shown({L"One"});
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&widget(one().first));
    EXPECT_EQ(heard->text(QAccessible::Name), QStringLiteral("Eine Wahl in zwei Zeilen"));
    EXPECT_EQ(heard->role(), QAccessible::RadioButton);
    heard->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(happened(), "first");
    EXPECT_TRUE(heard->state().checked);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(&widget(one().second))->state().checked);
    // Its caption is drawn, in each of the two lines.
    const QImage image = widget(one().first).grab().toImage();
    for (const int half : {0, 1}) {
        const QImage line =
            image.copy(image.width() / 4, half * image.height() / 2, image.width() / 2, image.height() / 2);
        QImage plain = line;
        plain.fill(plain.pixelColor(0, 0));
        EXPECT_NE(line, plain) << half;
    }
}

} // namespace
} // namespace klopfmeise
