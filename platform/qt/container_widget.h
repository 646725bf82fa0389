#pragma once

#include "platform/controls/control.h"
#include "platform/qt/dirty_areas.h"
#include "platform/qt/drawn_painter.h"
#include "platform/qt/scale.h"

#include <QWidget>

#include <functional>

namespace klopfmeise {

class QtFormView;

/// The widget of a form, frame or picture box: it paints the drawn controls and finds the one the mouse is
/// on.
class ContainerWidget : public QWidget {
public:
    ContainerWidget(QtFormView& view, Container& container, QWidget* parent);

    Container& container() const { return container_; }
    QtFormView& view() const { return view_; }
    const Scale& scale() const { return scale_; }
    /// The scale of what lies inside; set when the widget has its place.
    void setScale(const Scale& scale);
    /// The logical pixels of the widget that an area covers (twips).
    QRect logical(const Rect& area) const;
    /// Marks an area (twips); nothing is painted yet.
    void addDirty(const Rect& area);
    void flushDirty();
    void paintNow(const Rect& area);
    /// A drawn control is about to go.
    void forget(const Control& control);
    /// A click as assistive technology asks for it.
    void press(Control& control);

protected:
    virtual void paintGround(const Canvas& canvas, const QRect& dirty) = 0;
    /// What is called where the mouse moves over no drawn control.
    virtual std::function<void()> groundMouseMove() = 0;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    Control* controlAt(const QPointF& position) const;
    void react(const Control& control, Handler Control::*handler);

    QtFormView& view_;
    Container& container_;
    Scale scale_;
    /// The widget's corner in its window, in logical pixels.
    QPoint corner_;
    DirtyAreas dirty_;
    Control* pressed_ = nullptr;
};

} // namespace klopfmeise
