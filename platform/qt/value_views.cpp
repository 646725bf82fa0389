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
        QObject::connect(widget, &QAbstractSlider::valueChanged, widget, [this](int value) {
            this->view().react([this, value] { range_.setValue(value); });
        });
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

class CheckView final : public ControlView {
public:
    CheckView(QtFormView& view, CheckControl& check, QAbstractButton* widget)
        : ControlView(view, check, widget)
        , check_(check)
        , button_(*widget) {
        // Which option excludes which is the model's business.
        button_.setAutoExclusive(false);
        QObject::connect(widget, &QAbstractButton::clicked, widget, [this](bool on) {
            if (check_.exclusive() && !on)
                button_.setChecked(true);
            this->view().react([this, on] { check_.setValue(on || check_.exclusive() ? 1 : 0); });
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

std::unique_ptr<ControlView> makeRangeView(QtFormView& view, RangeControl& range, QWidget* parent) {
    const Qt::Orientation orientation = range.vertical() ? Qt::Vertical : Qt::Horizontal;
    if (dynamic_cast<ScrollBar*>(&range)) {
        auto* bar = new QScrollBar(orientation, parent);
        bar->setFocusPolicy(Qt::TabFocus);
        return std::make_unique<RangeView>(view, range, bar);
    }
    auto* slider = new QSlider(orientation, parent);
    // The least value lies at the top, as in a scroll bar.
    slider->setInvertedAppearance(range.vertical());
    slider->setInvertedControls(range.vertical());
    return std::make_unique<RangeView>(view, range, slider);
}

std::unique_ptr<ControlView> makeCheckView(QtFormView& view, CheckControl& check, QWidget* parent) {
    QAbstractButton* widget = nullptr;
    if (check.exclusive())
        widget = new QRadioButton(parent);
    else
        widget = new QCheckBox(parent);
    return std::make_unique<CheckView>(view, check, widget);
}

} // namespace klopfmeise
