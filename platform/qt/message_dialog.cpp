#include "platform/qt/message_dialog.h"

#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

/// Width of the text's column in unzoomed pixels; a text that needs less gets less.
constexpr int textColumn = 560;
constexpr int fontPixels = 14;

/// The sign of a message: a coloured disc with a cross, a question mark or an i.
QPixmap signOf(MessageIcon icon, int size, double ratio) {
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQt(icon == MessageIcon::stop ? look::coral : look::blue));
    painter.drawEllipse(QRectF(0, 0, size, size));
    if (icon == MessageIcon::stop) {
        painter.setPen(QPen(Qt::white, size / 9.0, Qt::SolidLine, Qt::RoundCap));
        const double low = size * 0.32;
        const double high = size * 0.68;
        painter.drawLine(QPointF(low, low), QPointF(high, high));
        painter.drawLine(QPointF(low, high), QPointF(high, low));
        return pixmap;
    }
    QFont font(QStringLiteral("Liberation Sans"));
    font.setBold(true);
    font.setPixelSize(std::max(1, size * 7 / 10));
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(0, 0, size, size), Qt::AlignCenter,
                     icon == MessageIcon::question ? QStringLiteral("?") : QStringLiteral("i"));
    return pixmap;
}

} // namespace

Answer askUser(const Message& message, QWidget* parent, double zoom) {
    const auto pixels = [zoom](int unzoomed) { return static_cast<int>(std::lround(unzoomed * zoom)); };
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("Meldung"));
    dialog.setWindowTitle(toQt(message.title));
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixels(fontPixels));
    dialog.setFont(font);

    auto* rows = new QVBoxLayout(&dialog);
    auto* upper = new QHBoxLayout;
    auto* lower = new QHBoxLayout;
    rows->setContentsMargins(pixels(20), pixels(18), pixels(20), pixels(14));
    rows->setSpacing(pixels(16));
    upper->setSpacing(pixels(16));
    lower->setSpacing(pixels(10));
    rows->addLayout(upper);
    rows->addLayout(lower);
    rows->setSizeConstraint(QLayout::SetFixedSize);

    if (message.icon != MessageIcon::none) {
        auto* sign = new QLabel(&dialog);
        sign->setPixmap(signOf(message.icon, pixels(32), dialog.devicePixelRatioF()));
        upper->addWidget(sign, 0, Qt::AlignTop);
    }
    auto* text = new QLabel(toQt(message.text), &dialog);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    const int room = (parent ? parent->screen() : QApplication::primaryScreen())->availableGeometry().width();
    const int column = std::min(pixels(textColumn), room - pixels(120));
    const QRect needed = text->fontMetrics().boundingRect(QRect(0, 0, column, 1 << 20),
                                                          Qt::TextWordWrap | Qt::AlignLeft, text->text());
    text->setFixedSize(std::min(column, needed.width() + pixels(8)), needed.height());
    upper->addWidget(text, 1, Qt::AlignVCenter);

    const bool ask = message.buttons == MessageButtons::yesNoCancel;
    Answer answer = ask ? Answer::cancel : Answer::ok;
    const auto addButton = [&](const QString& caption, Answer meaning) {
        auto* button = new QPushButton(caption, &dialog);
        button->setMinimumSize(pixels(96), pixels(30));
        QObject::connect(button, &QPushButton::clicked, &dialog, [&dialog, &answer, meaning] {
            answer = meaning;
            dialog.accept();
        });
        button->setDefault(meaning == answer);
        lower->addWidget(button);
        if (meaning == answer)
            button->setFocus();
    };
    lower->addStretch(1);
    if (ask) {
        addButton(QStringLiteral("Ja"), Answer::yes);
        addButton(QStringLiteral("Nein"), Answer::no);
        addButton(QStringLiteral("Abbrechen"), Answer::cancel);
    } else {
        addButton(QStringLiteral("OK"), Answer::ok);
    }
    dialog.exec();
    return answer;
}

} // namespace klopfmeise
