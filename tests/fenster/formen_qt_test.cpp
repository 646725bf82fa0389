#include "formen.h"
#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/controls/text_box.h"
#include "platform/forms/form_runtime.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "tests/buehne.h"
#include "tests/fenster/ein_backend.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace klopfmeise {

namespace {

/// The program on the Qt backend, on the data folder of a Bühne. Class and child are chosen already.
class FormenQt : public testing::Test {
protected:
    FormenQt()
        : runtime(backend(),
                  {bühne.clock, bühne.random, bühne.sound, bühne.echteDateien, bühne.registry, bühne.shell}) {
        backend().setRuntime(runtime);
        global.Programmpfad = L"\\opt\\klopfmeise\\";
        global.Datenpfad = logikpfad(bühne.daten()) + L"\\";
        global.AktuelleKlasse = L"Hasen\\";
        global.AktuellesKonto = L"Mia._";
        formenEintragen({runtime, global});
    }
    ~FormenQt() override {
        for (const auto name : runtime.names())
            runtime.unload(name);
        settle();
    }

    QtFormView& view(Form& form) { return *static_cast<QtFormView*>(form.view()); }

    /// Shows a form over the backdrop, as the program does.
    Form* zeigen(std::wstring_view name) {
        runtime.show(L"frmTemp");
        runtime.show(name);
        settle();
        return runtime.loaded(name);
    }

    Bühne bühne;
    FormRuntime runtime;
    Globale global;
};

void alle(const Container& container, std::vector<Control*>& liste) {
    for (std::size_t slot = 0; slot < container.controlCount(); ++slot) {
        Control& control = container.control(slot);
        liste.push_back(&control);
        if (const auto* inner = dynamic_cast<const Container*>(&control))
            alle(*inner, liste);
    }
}

/// The names of the program's own drawings that a form can show at once.
std::set<std::wstring> zeichnungen(const Form& form, const std::vector<Control*>& controls) {
    std::set<std::wstring> namen{form.look().picture};
    for (const Control* control : controls) {
        if (const auto* picture = dynamic_cast<const Picture*>(control); picture && !picture->picture().file)
            namen.insert(picture->picture().name);
        else if (const auto* box = dynamic_cast<const PictureBox*>(control))
            namen.insert(box->picture());
        else if (const auto* button = dynamic_cast<const Button*>(control))
            namen.insert(button->picture());
    }
    namen.erase(L"");
    return namen;
}

/// True if the drawing exists, is sound and leaves a mark.
bool zeichnet(const std::wstring& name) {
    QSvgRenderer renderer(QStringLiteral(":/bilder/%1.svg").arg(toQt(name)));
    if (!renderer.isValid())
        return false;
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                return true;
    return false;
}

bool einfarbig(const QImage& image) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != image.pixel(0, 0))
                return false;
    return true;
}

/// All that assistive technology reads below an interface.
void vorlesen(QAccessibleInterface* ding, std::vector<QString>& gehört) {
    ASSERT_TRUE(ding && ding->isValid());
    for (int i = 0; i < ding->childCount(); ++i) {
        QAccessibleInterface* child = ding->child(i);
        ASSERT_TRUE(child) << "child " << i << " of " << ding->text(QAccessible::Name).toStdString();
        EXPECT_EQ(ding->indexOfChild(child), i);
        if (child->state().invisible)
            continue;
        gehört.push_back(child->text(QAccessible::Name));
        vorlesen(child, gehört);
    }
}

QAccessibleInterface* kind(QAccessibleInterface* ding, const QString& name) {
    for (int i = 0; ding && i < ding->childCount(); ++i) {
        QAccessibleInterface* child = ding->child(i);
        if (!child || child->state().invisible)
            continue;
        if (child->text(QAccessible::Name) == name)
            return child;
        if (QAccessibleInterface* found = kind(child, name))
            return found;
    }
    return nullptr;
}

TEST_F(FormenQt, everyFormOfTheTableStandsWholeOnTheScreen) {
    ASSERT_GE(runtime.names().size(), 7U);
    ASSERT_FALSE(zeichnet(L"gibt_es_nicht"));
    std::set<std::wstring> drawings;
    int windowed = 0;
    for (const auto name : runtime.names()) {
        SCOPED_TRACE(toQt(std::wstring(name)).toStdString());
        // The splash is gone once it was shown in earnest; this only looks at it.
        const bool splash = name == L"frmStart";
        Form* form = splash ? runtime.load(name) : zeigen(name);
        ASSERT_TRUE(form) << "is not loaded after it was shown";
        std::unique_ptr<FormView> own = splash ? backend().makeView(*form) : nullptr;
        auto& shown = *static_cast<QtFormView*>(splash ? own.get() : form->view());
        if (splash)
            shown.openWindow();
        std::vector<Control*> controls;
        alle(*form, controls);
        // A hidden control gets its widget when it first shows.
        for (Control* control : controls)
            control->show();
        QCoreApplication::processEvents();

        std::set<std::wstring> names;
        for (const Control* control : controls)
            EXPECT_TRUE(names.insert(control->fullName()).second)
                << "twice: " << toQt(control->fullName()).toStdString();
        drawings.merge(zeichnungen(*form, controls));
        for (const auto& drawing : zeichnungen(*form, controls))
            EXPECT_TRUE(zeichnet(drawing)) << "no drawing: " << toQt(drawing).toStdString();

        FormWidget& widget = shown.widget();
        ASSERT_TRUE(widget.isVisible());
        EXPECT_EQ(widget.objectName(), toQt(std::wstring(name)));
        for (const Control* control : controls) {
            if (!control->windowed())
                continue;
            ++windowed;
            const QString full = toQt(control->fullName());
            SCOPED_TRACE(full.toStdString());
            const auto found = widget.findChildren<QWidget*>(full);
            ASSERT_EQ(found.size(), 1);
            const QWidget* part = found.front();
            EXPECT_EQ(shown.controlView(part) ? &shown.controlView(part)->control() : nullptr, control);
            EXPECT_EQ(part->isVisibleTo(part->parentWidget()), control->visible());
            EXPECT_EQ(part->isEnabled(), control->enabled());
            const double zoom = widget.scale().zoom / widget.scale().ratio / twipsPerPixel;
            EXPECT_NEAR(part->width(), control->width() * zoom, 2);
            EXPECT_NEAR(part->height(), control->height() * zoom, 2);
        }
        EXPECT_EQ(einfarbig(widget.grab().toImage()), form->kind() == FormKind::backdrop);

        own.reset();
        runtime.unload(name);
        settle();
        EXPECT_FALSE(runtime.loaded(name));
    }
    // The keys and fingers of the typing page alone are more than this.
    EXPECT_GE(drawings.size(), 69U);
    EXPECT_GE(windowed, 30);
}

TEST_F(FormenQt, theSplashHandsOverToTheTitlePage) {
    runtime.show(L"frmStart");
    settle();
    ASSERT_TRUE(runtime.active());
    EXPECT_EQ(runtime.active()->name(), L"Lern1");
    EXPECT_FALSE(runtime.loaded(L"frmStart"));
    EXPECT_TRUE(view(*runtime.active()).widget().isVisible());
}

TEST_F(FormenQt, theTitlePageIsReadOutAndCanBePressed) {
    Form* form = zeigen(L"Lern1");
    ASSERT_TRUE(form);
    QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&view(*form).widget());
    std::vector<QString> heard;
    vorlesen(page, heard);
    for (const char* text : {"Wähle deine Gruppe!", "Hasen", "Name:", "Klasse:", "Einstellungsmodus",
                             "über Klopfmeise...", "Klopfmeise beenden", "Gruppen blättern"})
        EXPECT_NE(std::ranges::find(heard, QString::fromUtf8(text)), heard.end()) << "not read out: " << text;
    EXPECT_EQ(std::ranges::find(heard, QStringLiteral("Wähle deinen Namen!")), heard.end())
        << "what is hidden is read out";

    QAccessibleInterface* group = kind(page, QStringLiteral("Hasen"));
    ASSERT_TRUE(group);
    EXPECT_EQ(group->role(), QAccessible::Button);
    EXPECT_FALSE(group->rect().isEmpty());
    const QPoint middle = group->rect().center();
    QAccessibleInterface* frame = group->parent();
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->childAt(middle.x(), middle.y()), group);
    ASSERT_TRUE(group->actionInterface());
    group->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_TRUE(form->find(L"frmNamen")->visible())
        << "pressing the class by assistive technology does nothing";
}

TEST_F(FormenQt, theTypingPageTellsWhatToTypeNext) {
    bühne.lektion(1, "Einzeiler", {"fj \xFC", "ff jj"});
    Form* form = zeigen(L"Tastatur1");
    ASSERT_TRUE(form);
    FormWidget& widget = view(*form).widget();
    QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&widget);
    std::vector<QString> heard;
    vorlesen(page, heard);
    for (const char* text : {"Durchgang", "Erfolgreiche Durchgänge", "Fehler", "Tipp-Genauigkeit:", "0 / 3",
                             "Lektion 1 (Stufe 1)", "Zurück zur Startseite"})
        EXPECT_NE(std::ranges::find(heard, QString::fromUtf8(text)), heard.end()) << "not read out: " << text;

    QWindow* window = widget.window()->windowHandle();
    ASSERT_TRUE(window);
    const auto type = [&](int key, const char* text) {
        for (const auto art : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(art, key, Qt::NoModifier, QString::fromUtf8(text));
            QCoreApplication::sendEvent(window, &event);
        }
        settle();
    };
    EXPECT_EQ(page->text(QAccessible::Name), QStringLiteral("f"));
    type(Qt::Key_F, "f");
    EXPECT_EQ(page->text(QAccessible::Name), QStringLiteral("j"));
    type(Qt::Key_J, "j");
    EXPECT_EQ(page->text(QAccessible::Name), QStringLiteral("Leertaste"));
    type(Qt::Key_Space, " ");
    EXPECT_EQ(page->text(QAccessible::Name), QStringLiteral("ü"));
}

TEST_F(FormenQt, theCodeFieldTakesNoFifthDigitFromTheKeyboard) {
    Form* form = zeigen(L"Lern1");
    ASSERT_TRUE(form);
    form->find(L"frmPin")->show();
    auto& field = *form->find<TextBox>(L"Text1");
    // More than four come from the buttons beside it.
    field.setText(L"72945");
    field.setFocus();
    field.setCaret(5);
    settle();
    const auto strike = [&](int key, const char* text) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, QString::fromUtf8(text));
            QCoreApplication::sendEvent(view(*form).widget().window()->windowHandle(), &event);
        }
        settle();
    };
    strike(Qt::Key_1, "1");
    EXPECT_EQ(field.text(), L"72945");
    strike(Qt::Key_Backspace, "\b");
    strike(Qt::Key_1, "1");
    EXPECT_EQ(field.text(), L"7294");
    strike(Qt::Key_Backspace, "\b");
    strike(Qt::Key_1, "1");
    EXPECT_EQ(field.text(), L"7291");
}

TEST(Fonts, TheToolkitSeesTheProgramsOwnAlone) {
    const auto drawnWith = [](const QString& family) {
        return QFontInfo(QFont(family)).family().toStdString();
    };
    // Names such as "Serif" stand for others.
    for (const QString& family : QFontDatabase::families())
        EXPECT_TRUE(drawnWith(family).starts_with("Liberation") || drawnWith(family).starts_with("DejaVu"))
            << family.toStdString();
    EXPECT_EQ(drawnWith("Courier New"), "Liberation Mono");
    EXPECT_EQ(drawnWith("Times New Roman"), "Liberation Serif");
    EXPECT_EQ(drawnWith("Keine Schrift"), "Liberation Sans");
    EXPECT_EQ(drawnWith("Liberation Mono"), "Liberation Mono");
}

} // namespace

} // namespace klopfmeise
