#include "platform/controls/checks.h"
#include "platform/controls/ranges.h"
#include "platform/qt/control_view.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/text_painter.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>

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

/// The toolkit hears clicks on sign and caption only; here the whole place of the control is meant.
template <class Base>
class WholePlace final : public Base {
public:
    using Base::Base;

protected:
    bool hitButton(const QPoint& at) const override { return this->rect().contains(at); }
};

class CheckView final : public ControlView {
public:
    CheckView(QtFormView& view, CheckControl& check, QAbstractButton* widget)
        : ControlView(view, check, widget)
        , check_(check)
        , button_(*widget) {
        // Which option excludes which is the model's business.
        button_.setAutoExclusive(false);
        QObject::connect(widget, &QAbstractButton::clicked, widget, [this] {
            // An option does not go off by a press.
            if (check_.kind() == Kind::optionButton)
                button_.setChecked(true);
            tell([this] { check_.pressed(); });
        });
    }

private:
    void syncLook(const Scale& scale) override {
        button_.setText(toQt(check_.caption()).replace(u'&', QStringLiteral("&&")));
        button_.setFont(widgetFont(check_.font(), scale));
        button_.setChecked(check_.value() != 0);
    }

    CheckControl& check_;
    QAbstractButton& button_;
};

} // namespace

std::unique_ptr<ControlView> makeScrollBarView(QtFormView& view, ScrollBar& bar, QWidget* parent) {
    auto* widget = new QScrollBar(bar.vertical() ? Qt::Vertical : Qt::Horizontal, parent);
    widget->setFocusPolicy(Qt::TabFocus);
    return std::make_unique<RangeView>(view, bar, widget);
}

std::unique_ptr<ControlView> makeSliderView(QtFormView& view, Slider& slider, QWidget* parent) {
    auto* widget = new QSlider(slider.vertical() ? Qt::Vertical : Qt::Horizontal, parent);
    // The least value lies at the top, as in a scroll bar.
    widget->setInvertedAppearance(slider.vertical());
    widget->setInvertedControls(slider.vertical());
    return std::make_unique<RangeView>(view, slider, widget);
}

std::unique_ptr<ControlView> makeOptionView(QtFormView& view, OptionButton& option, QWidget* parent) {
    return std::make_unique<CheckView>(view, option, new WholePlace<QRadioButton>(parent));
}

std::unique_ptr<ControlView> makeCheckBoxView(QtFormView& view, CheckBox& box, QWidget* parent) {
    return std::make_unique<CheckView>(view, box, new WholePlace<QCheckBox>(parent));
}

} // namespace klopfmeise
