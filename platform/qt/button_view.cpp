#include "platform/controls/button.h"
#include "platform/qt/container_widget.h"
#include "platform/qt/control_view.h"
#include "platform/qt/desk.h"
#include "platform/qt/drawn_painter.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

class ButtonWidget final : public QAbstractButton {
public:
    ButtonWidget(QtFormView& view, Button& button, QWidget* parent)
        : QAbstractButton(parent)
        , view_(view)
        , button_(button) {
        setFocusPolicy(button.tabStop() ? Qt::StrongFocus : Qt::NoFocus);
        setAttribute(Qt::WA_Hover);
        connect(this, &QAbstractButton::clicked, this, [this] { view_.router().press(button_); });
    }
    void setScale(const Scale& scale) {
        scale_ = scale;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override;
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QAbstractButton::keyPressEvent(event);
    }

private:
    QColor ground() const;
    void paintContent(const Canvas& canvas);

    QtFormView& view_;
    Button& button_;
    Scale scale_;
};

QColor ButtonWidget::ground() const {
    const QColor base = toQt(button_.back().value_or(look::button));
    if (!isEnabled())
        return base;
    return isDown() ? base.darker(112) : underMouse() ? base.darker(104) : base;
}

void ButtonWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    countDevicePixels(painter, *this, cornerOnForm(*this));
    const Canvas canvas{painter, scale_, view_.desk().texts, view_.pictures(), view_.files()};
    const double pixel = std::max(1.0, std::round(scale_.zoom));
    const QRectF place =
        QRectF(scale_.device(button_.place())).adjusted(pixel / 2, pixel / 2, -pixel / 2, -pixel / 2);
    const double round = std::min(4 * scale_.zoom, place.height() / 4);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(ground());
    const bool active = isEnabled() && underMouse();
    painter.setPen(QPen(toQt(active ? look::blue : look::rim), pixel));
    painter.drawRoundedRect(place, round, round);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(toQt(look::blue), 2 * pixel));
        painter.drawRoundedRect(place.adjusted(pixel, pixel, -pixel, -pixel), round, round);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    paintContent(canvas);
}

void ButtonWidget::paintContent(const Canvas& canvas) {
    // Blanks at the ends of its lines would move a line out of the middle.
    const std::wstring caption = fromQt(toQt(button_.caption()).simplified());
    const int inset = 3 * twipsPerPixel;
    Rect room = button_.place().grown(-inset);
    if (!button_.picture().empty()) {
        Rect place = room;
        if (!caption.empty()) {
            // The caption lies below the picture.
            const int lines = wrappedLines(caption, button_.font(), room.width);
            const int text = lines * metricsOf(button_.font()).lineHeight;
            place.height = std::max(0, room.height - text);
            room = {room.left, room.bottom() - std::min(text, room.height), room.width,
                    std::min(text, room.height)};
        }
        const int side = std::min(place.width, place.height);
        const Rect square{place.left + (place.width - side) / 2, place.top + (place.height - side) / 2, side,
                          side};
        if (!isEnabled())
            canvas.painter.setOpacity(0.4);
        paintPicture(canvas, canvas.scale.device(square), &button_, {button_.picture(), false});
        canvas.painter.setOpacity(1);
    }
    canvas.texts.draw(canvas.painter, canvas.scale, room, caption,
                      {.font = button_.font(),
                       .color = isEnabled() ? look::ink : look::paleInk,
                       .align = Align::center,
                       .middle = true});
}

class ButtonView final : public ControlView {
public:
    ButtonView(QtFormView& view, Button& button, ButtonWidget* widget)
        : ControlView(view, button, widget)
        , button_(*widget) {}

private:
    void syncLook(const Scale& scale) override { button_.setScale(scale); }
    ButtonWidget& button_;
};

} // namespace

std::unique_ptr<ControlView> makeButtonView(QtFormView& view, Button& button, QWidget* parent) {
    return std::make_unique<ButtonView>(view, button, new ButtonWidget(view, button, parent));
}

} // namespace klopfmeise
