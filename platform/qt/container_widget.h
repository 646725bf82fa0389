#pragma once

#include "platform/controls/control.h"
#include "platform/qt/dirty_areas.h"
#include "platform/qt/drawn_painter.h"
#include "platform/qt/scale.h"

#include <QWidget>

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
    /// Where the widget's corner lies on its form, in logical pixels.
    const QPoint& corner() const { return corner_; }
    /// The scale of what lies inside; set when the widget has its place.
    void setScale(const Scale& scale);
    /// The logical pixels of the widget that an area covers (twips).
    QRect logical(const Rect& area) const;
    /// Marks an area (twips); nothing is painted yet.
    void addDirty(const Rect& area);
    void flushDirty();
    void paintNow(const Rect& area);

protected:
    virtual void paintGround(const Canvas& canvas, const QRect& dirty) = 0;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QPoint twipsAt(const QPointF& position) const { return scale_.twipsAt(position + corner_); }
    Control* controlAt(const QPointF& position) const;

    QtFormView& view_;
    Container& container_;
    Scale scale_;
    QPoint corner_;
    DirtyAreas dirty_;
};

/// Which button of the mouse an event is of.
MouseButton buttonOf(const QMouseEvent& event);

/// Where the corner of a form's widget, or of one that lies in it, lies on the form, in logical pixels.
QPoint cornerOnForm(const QWidget& widget);

} // namespace klopfmeise
