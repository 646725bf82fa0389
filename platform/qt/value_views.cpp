#include "platform/controls/checks.h"
#include "platform/controls/ranges.h"
#include "platform/qt/container_widget.h"
#include "platform/qt/control_view.h"
#include "platform/qt/desk.h"
#include "platform/qt/drawn_painter.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

#include <QCheckBox>
#include <QPainter>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyleOptionButton>
#include <QWheelEvent>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace klopfmeise {

namespace {

class RangeView final : public ControlView {
public:
    RangeView(QtFormView& view, RangeControl& range, QAbstractSlider* widget)
        : ControlView(view, range, widget)
        , range_(range)
        , slider_(*widget) {
        QObject::connect(widget, &QAbstractSlider::valueChanged, widget,
                         [this] { tell([this] { range_.movedTo(slider_.value()); }); });
    }

private:
    void syncLook(const Scale&) override {
        const QSignalBlocker quiet(slider_);
        slider_.setSingleStep(range_.smallStep());
        slider_.setPageStep(range_.largeStep());
        slider_.setRange(range_.min(), range_.max());
        slider_.setValue(range_.value());
    }

    RangeControl& range_;
    QAbstractSlider& slider_;
};

/// A slider that one notch of the wheel moves by its small step; the toolkit would take three.
class SliderWidget final : public QSlider {
public:
    using QSlider::QSlider;

protected:
    void wheelEvent(QWheelEvent* event) override {
        constexpr int notch = 120;
        turned_ += event->angleDelta().y();
        const int notches = turned_ / notch;
        turned_ %= notch;
        setValue(value() + (invertedControls() ? -notches : notches) * singleStep());
        // At its end too it does not scroll what lies around it.
        event->accept();
    }

private:
    int turned_ = 0;
};

/// An option button or check box. The toolkit knows captions of one line only, so the caption is drawn here;
/// it stays the widget's text, too, by which assistive technology knows it.
template <class Base>
class CheckWidget final : public Base {
public:
    CheckWidget(QtFormView& view, CheckControl& check, QWidget* parent)
        : Base(parent)
        , view_(view)
        , check_(check) {}
    void setScale(const Scale& scale) {
        scale_ = scale;
        this->update();
    }

protected:
    /// The toolkit hears clicks on sign and caption only; here the whole place of the control is meant.
    bool hitButton(const QPoint& at) const override { return this->rect().contains(at); }
    void paintEvent(QPaintEvent*) override {
        constexpr bool radio = std::is_same_v<Base, QRadioButton>;
        QPainter painter(this);
        QStyleOptionButton sign;
        this->initStyleOption(&sign);
        const int side = this->style()->pixelMetric(QStyle::PM_IndicatorWidth, &sign, this);
        sign.rect = QRect(0, (this->height() - side) / 2, side, side);
        this->style()->drawPrimitive(radio ? QStyle::PE_IndicatorRadioButton : QStyle::PE_IndicatorCheckBox,
                                     &sign, &painter, this);
        Rect caption = check_.place();
        caption.left += CheckControl::signRoom;
        caption.width -= CheckControl::signRoom;
        countDevicePixels(painter, *this, cornerOnForm(*this));
        view_.desk().texts.draw(
            painter, scale_, caption, check_.caption(),
            {.font = check_.font(), .color = this->isEnabled() ? look::ink : look::paleInk, .middle = true});
        if (this->hasFocus()) {
            constexpr int clearance = 3 * twipsPerPixel;
            const Rect around{caption.left - clearance, caption.top, caption.width + clearance,
                              caption.height};
            paintInnerLine(painter, scale_.device(around), std::max(1, scale_.length(twipsPerPixel)),
                           toQt(look::blue));
        }
    }

private:
    QtFormView& view_;
    CheckControl& check_;
    Scale scale_;
};

template <class Widget>
class CheckView final : public ControlView {
public:
    CheckView(QtFormView& view, CheckControl& check, Widget* widget)
        : ControlView(view, check, widget)
        , check_(check)
        , button_(*widget) {
        // Assistive technology toggles without a click, and a click on an option that is on does not toggle.
        QObject::connect(widget, &QAbstractButton::toggled, widget, [this](bool on) {
            if (on || !button_.autoExclusive()) {
                toggled_ = true;
                press();
            }
        });
        QObject::connect(widget, &QAbstractButton::clicked, widget, [this] {
            if (!std::exchange(toggled_, false))
                press();
        });
    }

private:
    void syncLook(const Scale& scale) override {
        button_.setText(toQt(check_.caption()).replace(u'&', QStringLiteral("&&")));
        button_.setScale(scale);
        const QSignalBlocker quiet(button_);
        if (check_.value() != 0) {
            button_.setChecked(true);
            return;
        }
        // The toolkit, too, knows which option excludes which, and would not let the last one go off.
        const bool exclusive = button_.autoExclusive();
        button_.setAutoExclusive(false);
        button_.setChecked(false);
        button_.setAutoExclusive(exclusive);
    }
    void press() {
        tell([this] { check_.pressed(); });
    }

    CheckControl& check_;
    Widget& button_;
    bool toggled_ = false;
};

template <class Base>
std::unique_ptr<ControlView> makeCheckView(QtFormView& view, CheckControl& check, QWidget* parent) {
    using Widget = CheckWidget<Base>;
    return std::make_unique<CheckView<Widget>>(view, check, new Widget(view, check, parent));
}

} // namespace

std::unique_ptr<ControlView> makeScrollBarView(QtFormView& view, ScrollBar& bar, QWidget* parent) {
    auto* widget = new QScrollBar(bar.vertical() ? Qt::Vertical : Qt::Horizontal, parent);
    widget->setFocusPolicy(Qt::TabFocus);
    return std::make_unique<RangeView>(view, bar, widget);
}

std::unique_ptr<ControlView> makeSliderView(QtFormView& view, Slider& slider, QWidget* parent) {
    auto* widget = new SliderWidget(slider.vertical() ? Qt::Vertical : Qt::Horizontal, parent);
    // The least value lies at the top, as in a scroll bar.
    widget->setInvertedAppearance(slider.vertical());
    widget->setInvertedControls(slider.vertical());
    return std::make_unique<RangeView>(view, slider, widget);
}

std::unique_ptr<ControlView> makeOptionView(QtFormView& view, OptionButton& option, QWidget* parent) {
    return makeCheckView<QRadioButton>(view, option, parent);
}

std::unique_ptr<ControlView> makeCheckBoxView(QtFormView& view, CheckBox& box, QWidget* parent) {
    return makeCheckView<QCheckBox>(view, box, parent);
}

} // namespace klopfmeise
