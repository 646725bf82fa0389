#include "platform/machine/posix_files.h"
#include "platform/qt/picture_cache.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>

namespace klopfmeise {

namespace {

TEST(LessonPicture, KeepsItsOwnSizeOrIsAveragedWhenStretched) {
    const Wegwerfordner ordner;
    PosixFiles dateien;
    // Black and white cells in turns, with a palette, as a dithered picture has them.
    QImage muster(40, 20, QImage::Format_Indexed8);
    muster.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    for (int y = 0; y < muster.height(); ++y)
        for (int x = 0; x < muster.width(); ++x)
            muster.setPixel(x, y, static_cast<uint>((x + y) % 2));
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
    EXPECT_EQ(gezeigt({200, 200}, 1)->size(), QSize(40, 20));
    EXPECT_EQ(gezeigt({200, 200}, 2.5)->size(), QSize(100, 50));
    EXPECT_EQ(gezeigt({30, 200}, 1)->size(), QSize(30, 20));
}

} // namespace

} // namespace klopfmeise
