#include "platform/controls/visit.h"
#include "platform/qt/frame_window.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "tests/fenster/ein_backend.h"
#include "tests/platform/diary.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QWindow>

namespace klopfmeise {
namespace {

class FrameForm final : public NotingForm {
public:
    using NotingForm::NotingForm;
    PictureBox strip{*this, L"strip", {0, 0, 14880, 450}};
    Label line{strip, L"line", {0, 0, 14865, 390}, {.caption = L" Hasen\\ ", .align = Align::center}};
};

/// A child window with a control of each kind that takes a value from the user.
class Child final : public NotingForm {
public:
    Child(FormRuntime& runtime, std::wstring_view name, const FormLook& look, Diary& book)
        : NotingForm(runtime, name, look, book) {
        moveTo(100, 100);
    }
    CheckLook check(const std::string& event) { return {.caption = L"Wahl", .click = diary.noting(event)}; }
    KeyHandlers digits() {
        return {.press = [this](KeyPress& key) {
            diary.note("key");
            key.swallowed = key.character < L'0' || key.character > L'9';
        }};
    }

    TextBox code{*this, L"code", {150, 150, 3000, 375}, {.keys = digits(), .change = diary.noting("code")}};
    Slider slider{
        *this, L"slider", {150, 600, 3000, 435}, {.min = 1, .max = 9, .change = diary.noting("slider")}};
    Frame group{*this, L"group", {150, 1200, 3000, 900}, {.caption = L"Gruppe"}};
    OptionButton first{group, L"first", {100, 300, 1300, 300}, check("first")};
    OptionButton second{group, L"second", {1500, 300, 1300, 300}, check("second")};
    CheckBox box{*this, L"box", {150, 2250, 3000, 300}, check("box")};
    FolderList list{*this, L"list", {3300, 150, 2500, 2400}, {.click = diary.noting("list")}};
};

class RahmenQt : public testing::Test {
protected:
    RahmenQt() {
        backend().setRuntime(runtime);
        add<FrameForm>(L"Frame",
                       {.kind = FormKind::frame,
                        .caption = L"Einstellungsmodus",
                        .back = {128, 128, 0},
                        .menu = {{L"Top", L"Gruppen", diary.noting("top")},
                                 {L"Sub", L"Daten", {}, {{L"Deep", L"Code", diary.noting("deep")}}}},
                        .state = WindowState::maximised});
        for (const auto name : {L"One", L"Two"})
            add<Child>(name, child(6000, 3000));
        add<Child>(L"Large", child(12000, 12000));
        add<NotingForm>(L"Small", {.kind = FormKind::window, .width = 3000, .height = 2000});
    }
    ~RahmenQt() override {
        for (const auto name : runtime.names())
            runtime.unload(name);
        settle();
    }
    static FormLook child(int width, int height) {
        return {.kind = FormKind::child,
                .caption = L"Hauptmenü",
                .width = width,
                .height = height,
                .frame = L"Frame"};
    }
    template <class Made>
    void add(std::wstring_view name, const FormLook& look) {
        runtime.add(name, [this, name, look] { return std::make_unique<Made>(runtime, name, look, diary); });
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
    Child& one() { return static_cast<Child&>(*runtime.loaded(L"One")); }
    QWidget& widget(std::wstring_view form) {
        return static_cast<QtFormView*>(runtime.loaded(form)->view())->widget();
    }
    QWidget& widget(const Control& control) {
        return *static_cast<QtFormView*>(formOf(control).view())
                    ->widget()
                    .findChild<QWidget*>(toQt(control.fullName()));
    }
    FrameWindow& frame() { return static_cast<FrameWindow&>(*widget(L"Frame").window()); }
    QMdiSubWindow& window(std::wstring_view form) {
        return static_cast<QMdiSubWindow&>(*widget(form).parentWidget());
    }
    std::wstring active() { return std::wstring(runtime.active() ? runtime.active()->name() : L""); }

    std::string clicked(const QWidget& on, const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        QWindow* to = on.window()->windowHandle();
        const QPointF point = on.mapTo(on.window(), at);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, point, to->mapToGlobal(point), button,
                              type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(to, &event);
        }
        return happened();
    }
    std::string clicked(const Control& control) {
        return clicked(widget(control), widget(control).rect().center());
    }
    std::string struck(int key, const char* text = "", Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, QString::fromUtf8(text));
            QCoreApplication::sendEvent(frame().windowHandle(), &event);
        }
        return happened();
    }

    Playground ground;
    Diary& diary = ground.diary;
    FormRuntime runtime{backend(), ground.runtime.services()};
};

TEST_F(RahmenQt, TheFrameFillsTheScreenAndHoldsItsMenuItsStripAndItsChildren) {
    EXPECT_TRUE(shown({L"One"}).starts_with("Frame.load Frame.activate One.load One.activate Frame.resize"));
    const QMdiArea& area = frame().area();
    EXPECT_TRUE(frame().isMaximized());
    EXPECT_EQ(frame().windowTitle(), QStringLiteral("Einstellungsmodus"));
    const double pixel = backend().screen().width / static_cast<double>(frame().screen()->size().width());
    EXPECT_NEAR(runtime.loaded(L"Frame")->width(), frame().width() * pixel, 1);
    const QWidget& strip = widget(L"Frame");
    EXPECT_EQ(strip.mapTo(&frame(), QPoint()), QPoint(0, frame().menuBar()->height()));
    EXPECT_NEAR(strip.height(), 450 / pixel, 1);
    EXPECT_EQ(strip.width(), frame().width());
    EXPECT_EQ(area.mapTo(&frame(), QPoint()).y(), frame().menuBar()->height() + strip.height());
    EXPECT_EQ(frame().grab().toImage().pixelColor(area.mapTo(&frame(), QPoint(2, 2))), QColor(128, 128, 0));

    shown({L"Large"});
    for (const auto name : {L"One", L"Large"}) {
        EXPECT_NEAR(window(name).x(), 100 / pixel, 1);
        EXPECT_TRUE(area.viewport()->rect().contains(window(name).geometry())) << "reaches beyond the frame";
        EXPECT_TRUE(window(name).contentsRect().contains(widget(name).geometry()));
        EXPECT_EQ(window(name).windowTitle(), QStringLiteral("Hauptmenü"));
    }
    if (const char* to = std::getenv("H1PIC")) {
        frame().grab().save(QString(to) + "a.png");
        window(L"One").raise();
        runtime.unload(L"Large");
        settle();
        frame().grab().save(QString(to) + "b.png");
    }
    EXPECT_NEAR(widget(L"One").width(), 6000 / pixel, 1);
    EXPECT_NEAR(widget(L"Large").width(), widget(L"Large").height(), 1);
}

} // namespace
} // namespace klopfmeise
