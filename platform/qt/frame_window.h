#pragma once

#include "platform/qt/scale.h"

#include <QMainWindow>
#include <QMdiSubWindow>

class QMdiArea;
class QVBoxLayout;

namespace klopfmeise {

class ChildWindow;
class QtFormView;

/// The window of a frame: its menu bar, the controls of the frame itself docked below it, and the area of the
/// child windows.
class FrameWindow final : public QMainWindow {
public:
    explicit FrameWindow(QtFormView& view);

    QtFormView& view() const { return view_; }
    QMdiArea& area() const { return *area_; }
    /// Docks the widget that holds the frame's own controls.
    void dock(QWidget& strip);
    /// Gives strip, menu and child windows their measures, and tells the form its size.
    void layoutForms();
    /// Maximised or as the form tells.
    void takeState();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildMenu();
    /// The area made a child the active one.
    void childActivated(ChildWindow& child);

    QtFormView& view_;
    QVBoxLayout* rows_ = nullptr;
    QMdiArea* area_ = nullptr;
    QWidget* strip_ = nullptr;
};

/// The window of a child inside a frame. Its close box asks the form.
class ChildWindow final : public QMdiSubWindow {
public:
    ChildWindow(QtFormView& view, QWidget* parent);

    QtFormView& view() const { return view_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QtFormView& view_;
};

} // namespace klopfmeise
