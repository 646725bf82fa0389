#include "platform/qt/picture_cache.h"
#include "platform/qt/picture_file.h"
#include "tests/fenster/ein_backend.h"

#include <QAccessible>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLineEdit>
#include <QPaintEvent>

namespace klopfmeise {
namespace {

/// The program on the Qt backend.
class FormenQt : public OnToolkit<Bühne, nullptr> {
protected:
    Form& zeigen(std::wstring_view name) {
        öffnen(name);
        settle();
        return *runtime.loaded(name);
    }
    void lehrkraft(std::wstring_view name) {
        öffnen(L"Lern1");
        runtime.show(L"einst0");
        global.AktuelleKlasse = L"Hasen\\";
        runtime.show(name);
        settle();
    }
    /// What assistive technology reads on a page.
    static std::map<QString, QAccessibleInterface*> vorlesen(QAccessibleInterface& page) {
        std::map<QString, QAccessibleInterface*> heard;
        for (int i = 0; i < page.childCount(); ++i) {
            QAccessibleInterface* child = page.child(i);
            EXPECT_TRUE(child && child->isValid() && page.indexOfChild(child) == i) << i;
            if (!child || child->state().invisible)
                continue;
            heard.emplace(child->text(QAccessible::Name), child);
            heard.merge(vorlesen(*child));
        }
        return heard;
    }
    static void alle(const Container& container, std::vector<Control*>& liste) {
        for (std::size_t slot = 0; slot < container.controlCount(); ++slot) {
            liste.push_back(&container.control(slot));
            if (const Container* inner = liste.back()->asContainer())
                alle(*inner, liste);
        }
    }
};

TEST_F(FormenQt, EveryFormOfTheTableStandsWholeOnTheScreen) {
    ASSERT_GE(runtime.names().size(), 7U);
    int windowed = 0;
    for (const auto name : runtime.names()) {
        SCOPED_TRACE(toUtf8(name));
        // The splash is gone once it was shown in earnest; this only looks at it.
        const bool splash = name == L"frmStart";
        Form& form = splash ? *runtime.load(name) : zeigen(name);
        std::unique_ptr<FormView> own = splash ? toolkit().makeView(form) : nullptr;
        auto& shown = *static_cast<QtFormView*>(splash ? own.get() : form.view());
        if (splash)
            shown.openWindow();
        std::vector<Control*> controls;
        alle(form, controls);
        // A hidden control gets its widget when it first shows.
        for (Control* control : controls)
            control->show();
        QCoreApplication::processEvents();

        FormWidget& widget = shown.widget();
        ASSERT_TRUE(widget.isVisible());
        for (const Control* control : controls) {
            if (!control->windowed())
                continue;
            ++windowed;
            SCOPED_TRACE(toUtf8(control->fullName()));
            const auto found = widget.findChildren<QWidget*>(toQt(control->fullName()));
            ASSERT_EQ(found.size(), 1);
            const QWidget* part = found.front();
            EXPECT_EQ(shown.controlView(part) ? &shown.controlView(part)->control() : nullptr, control);
            EXPECT_EQ(part->isVisibleTo(part->parentWidget()), control->visible());
            EXPECT_EQ(part->isEnabled(), control->enabled());
            const double zoom = widget.scale().zoom / widget.scale().ratio / twipsPerPixel;
            EXPECT_NEAR(part->width(), control->width() * zoom, 2);
            EXPECT_NEAR(part->height(), control->height() * zoom, 2);
        }
        const QImage image = widget.grab().toImage();
        QImage plain = image;
        plain.fill(image.pixelColor(0, 0));
        EXPECT_EQ(image == plain, form.kind() == FormKind::backdrop);
        own.reset();
        runtime.unload(name);
        settle();
        EXPECT_FALSE(runtime.loaded(name));
    }
    EXPECT_GE(windowed, 30);
}

TEST_F(FormenQt, TheTitlePageIsReadOutAndCanBePressed) {
    start();
    settle();
    const auto heard = vorlesen(*QAccessible::queryAccessibleInterface(&widget(L"Lern1")));
    for (const char* text : {"Wähle deine Gruppe!", "Hasen", "Name:", "Klasse:", "Einstellungsmodus",
                             "über Klopfmeise...", "Klopfmeise beenden", "Gruppen blättern"})
        EXPECT_TRUE(heard.contains(QString::fromUtf8(text))) << "not read out: " << text;
    EXPECT_FALSE(heard.contains(QStringLiteral("Wähle deinen Namen!"))) << "what is hidden is read out";

    QAccessibleInterface* group = heard.at(QStringLiteral("Hasen"));
    EXPECT_EQ(group->role(), QAccessible::Button);
    const QPoint middle = group->rect().center();
    EXPECT_EQ(group->parent()->childAt(middle.x(), middle.y()), group);
    group->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_TRUE(control<Frame>(L"frmNamen").visible()) << "pressing it by assistive technology does nothing";
}

TEST_F(FormenQt, TheTypingPageTellsWhatToTypeNext) {
    lektion(1, "Einzeiler", {"fj \xFC", "ff jj"});
    zeigen(L"Tastatur1");
    QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&widget(L"Tastatur1"));
    std::string told;
    for (const auto& [key, text] : {std::pair{Qt::Key_F, "f"}, {Qt::Key_J, "j"}, {Qt::Key_Space, " "}}) {
        told += page->text(QAccessible::Name).toStdString() + " ";
        strike(widget(L"Tastatur1"), key, text);
    }
    EXPECT_EQ(told + page->text(QAccessible::Name).toStdString(), "f j Leertaste ü");
}

TEST_F(FormenQt, ARepaintInAHandlerPaintsWhatChangedAndNotThePage) {
    struct Painted final : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint)
                for (const QRect& part : static_cast<const QPaintEvent&>(*event).region())
                    pixels += part.width() * part.height();
            return false;
        }
        int pixels = 0;
    } painted;
    Form& page = zeigen(L"Konto");
    control<Label>(L"LblLektion").setCaption(L"x");
    const QSize whole = widget(L"Konto").size();
    qApp->installEventFilter(&painted);
    page.repaint();
    qApp->removeEventFilter(&painted);
    EXPECT_GT(painted.pixels, 0);
    EXPECT_LT(painted.pixels, whole.width() * whole.height() / 4);
}

TEST_F(FormenQt, ANameThatIsThereIsSelectedSoThatTheNextOneTakesItsPlace) {
    lehrkraft(L"einstTastatur");
    user.click(L"cmdNeu");
    settle();
    auto& feld = control<TextBox>(L"Text1");
    auto& box = static_cast<QLineEdit&>(widget(feld));
    box.setFocus();
    const auto wählt = [&](const char* text) {
        for (const char* c = text; *c; ++c)
            strike(box, *c == '\r' ? Qt::Key_Return : Qt::Key_X, QChar(*c));
        return control<FileList>(L"File1").selectedName();
    };
    wählt("Mia\r");
    EXPECT_EQ(box.selectedText(), QStringLiteral("Mia"));
    // It stays selected while nothing is typed, and can be gone on with after an arrow key.
    feld.repaint();
    settle();
    EXPECT_EQ(wählt("Ole\r"), L"Ole._");
    wählt("Mia\r");
    strike(box, Qt::Key_End);
    feld.setFocus();
    settle();
    EXPECT_EQ(wählt("2\r"), L"Mia2._");
}

TEST_F(FormenQt, TheWheelOverTheClassesScrollsThem) {
    for (int i = 0; i < 20; ++i)
        fs::create_directory(daten() / "Gruppen" / ("Klasse " + std::to_string(10 + i)));
    lehrkraft(L"einstKlassen");
    for (const auto& [mal, winkel, oben] :
         {std::tuple(0, 0, L"Hasen"), {1, -120, L"Klasse 12"}, {20, 120, L"Hasen"}}) {
        for (int i = 0; i < mal; ++i)
            turn(widget(control<Frame>(L"frmHaupt")), winkel);
        EXPECT_EQ(caption(L"LblGruppe", 0), oben);
    }
}

TEST(LessonPicture, KeepsItsOwnSizeOrIsAveragedWhenStretched) {
    const Wegwerfordner ordner;
    PosixFiles dateien;
    // Black and white cells in turns, with a palette, as a dithered picture has them.
    QImage muster(40, 20, QImage::Format_Indexed8);
    muster.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    for (int i = 0; i < 800; ++i)
        muster.setPixel(i % 40, i / 40, static_cast<uint>((i % 40 + i / 40) % 2));
    const std::string pfad = (ordner.pfad() / "bild.bmp").string();
    ASSERT_TRUE(muster.save(QString::fromStdString(pfad)));
    PictureCache cache;
    HeldPictures bilder(cache);
    const PictureSource quelle{logikpfad(pfad), true};
    const auto gezeigt = [&](const QSize& platz, double zoom) {
        return bilder.picture(&quelle, quelle, 1, platz, zoom, dateien);
    };
    const Image halb = gezeigt({20, 10}, 0);
    ASSERT_TRUE(halb);
    for (int x = 2; x < 18; ++x)
        EXPECT_NEAR(qRed(halb->pixel(x, 5)), 127, 40) << x;
    for (const auto& [platz, zoom, größe] : {std::tuple(QSize(200, 200), 1.0, QSize(40, 20)),
                                             {QSize(200, 200), 2.5, QSize(100, 50)},
                                             {QSize(30, 200), 1.0, QSize(30, 20)}})
        EXPECT_EQ(gezeigt(platz, zoom)->size(), größe);
}

/// A bitmap with a palette of black and white and one run of pixels, which tells of itself what it likes.
std::string bitmap(std::int32_t width, std::int32_t height) {
    std::string bytes = "BM";
    const auto add = [&](std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i)
            bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    };
    for (const auto value :
         {66U, 0U, 62U, 40U, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)})
        add(value, 4);
    add(1, 2);
    add(8, 2);
    for (const auto value : {1U, 4U, 0U, 0U, 2U, 2U, 0U, 0xFFFFFFU})
        add(value, 4);
    return bytes + std::string("\xFF\1\0\1", 4);
}

TEST(LessonPicture, WhatIsTooLargeIsNoneBeforeAPixelIsMade) {
    const QSize place(186, 95);
    EXPECT_EQ(pictureIn(bitmap(2048, 2048), place, 0).size(), place);
    EXPECT_EQ(pictureIn(bitmap(2048, 2048), place, 2.5).size(), place);
    EXPECT_EQ(pictureIn(bitmap(20, 20), place, 2.5).size(), QSize(50, 50));
    // Some that the decoder itself would take, and some beyond all bounds.
    for (const auto& [width, height] : {std::pair(2049, 2048),
                                        {2048, -2049},
                                        {5000, 5000},
                                        {1, 4194305},
                                        {60000, 60000},
                                        {2147483647, 2147483647},
                                        {-5, 5},
                                        {0, 5},
                                        {5, 0}})
        EXPECT_TRUE(pictureIn(bitmap(width, height), place, 0).isNull()) << width << " x " << height;
    EXPECT_TRUE(pictureIn(bitmap(20, 20) + std::string(longestPictureFile, ' '), place, 0).isNull());
    // The name says bitmap: nothing else is tried, whatever the first bytes are.
    const std::string drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    EXPECT_TRUE(pictureIn(drawing, place, 0).isNull());
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
}

} // namespace
} // namespace klopfmeise
