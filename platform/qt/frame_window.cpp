#include "platform/qt/frame_window.h"

#include "platform/forms/form_runtime.h"
#include "platform/qt/desk.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/stage.h"

#include <QCloseEvent>
#include <QIcon>
#include <QMdiArea>
#include <QMenuBar>
#include <QPixmap>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

QIcon programIcon(Desk& desk) {
    constexpr QSize size(64, 64);
    const Image image = desk.pictures.drawing(L"programm", size);
    return image ? QIcon(QPixmap::fromImage(*image)) : QIcon();
}

QString menuText(const std::wstring& caption) { return toQt(caption).replace(u'&', QStringLiteral("&&")); }

void fill(QMenu& menu, const std::vector<MenuItem>& items, QtFormView& view) {
    for (const MenuItem& item : items) {
        if (!item.items.empty()) {
            fill(*menu.addMenu(menuText(item.caption)), item.items, view);
            continue;
        }
        QAction* action = menu.addAction(menuText(item.caption));
        action->setObjectName(toQt(item.name));
        QObject::connect(action, &QAction::triggered, action,
                         [&view, handler = item.click] { view.router().tell(view.form(), handler); });
    }
}

} // namespace

FrameWindow::FrameWindow(QtFormView& view)
    : view_(view)
    , area_(new QMdiArea) {
    const Form& form = view.form();
    setObjectName(toQt(form.name()) + QStringLiteral("_frame"));
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setWindowIcon(programIcon(view.desk()));
    auto* inside = new QWidget;
    rows_ = new QVBoxLayout(inside);
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
    rows_->addWidget(area_);
    setCentralWidget(inside);
    area_->setBackground(toQt(form.look().back));
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    buildMenu();
    connect(area_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        if (auto* child = dynamic_cast<ChildWindow*>(window))
            view_.router().tell(child->view().form(), [this, child] { childActivated(*child); });
    });
}

void FrameWindow::childActivated(ChildWindow& child) {
    // The area tells of what the program does too, and of what another one has followed meanwhile. Under a
    // window over the frame nobody activates a child but the program.
    const Form* active = view_.form().runtime().active();
    const bool here = active == &view_.form() || (active && active == view_.form().activeChild());
    if (here && area_->activeSubWindow() == &child)
        active->runtime().windowActivated(child.view().form());
}

void FrameWindow::buildMenu() {
    for (const MenuItem& item : view_.form().look().menu) {
        // Its first letter opens an entry of the bar, with Alt.
        const QString caption = QLatin1Char('&') + menuText(item.caption);
        if (!item.items.empty()) {
            fill(*menuBar()->addMenu(caption), item.items, view_);
            continue;
        }
        QAction* action = menuBar()->addAction(caption);
        action->setObjectName(toQt(item.name));
        connect(action, &QAction::triggered, action,
                [this, handler = item.click] { view_.router().tell(view_.form(), handler); });
    }
}

void FrameWindow::dock(QWidget& strip) {
    strip_ = &strip;
    rows_->insertWidget(0, strip_);
}

void FrameWindow::takeState() {
    if (view_.form().windowState() == WindowState::maximised)
        showMaximized();
    else
        showNormal();
}

void FrameWindow::layoutForms() {
    const Stage& stage = *view_.desk().stage;
    Scale scale;
    scale.ratio = stage.ratio();
    scale.zoom = stage.zoom();
    Form& form = view_.form();
    int docked = 0;
    for (std::size_t slot = 0; slot < form.controlCount(); ++slot)
        docked = std::max(docked, form.control(slot).bottom());
    strip_->setFixedHeight(scale.logical(scale.device({0, 0, form.width(), docked}), true).height());
    view_.layout(scale);
    for (QMdiSubWindow* window : area_->subWindowList())
        if (auto* child = dynamic_cast<ChildWindow*>(window))
            child->view().layoutWindow();
    const auto twips = [&](int logical) {
        return static_cast<int>(std::lround(logical * scale.ratio / scale.zoom * twipsPerPixel));
    };
    view_.router().tell(form, [&form, width = twips(width()), height = twips(height()),
                               state = isMaximized() ? WindowState::maximised : WindowState::normal] {
        form.runtime().windowResized(form, width, height, state);
    });
}

void FrameWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    layoutForms();
}

void FrameWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || !strip_)
        return;
    // Some window managers offer it all the same; behind the backdrop nothing would lead back.
    if (isMinimized())
        QMetaObject::invokeMethod(this, &FrameWindow::takeState, Qt::QueuedConnection);
    else
        layoutForms();
}

ChildWindow::ChildWindow(QtFormView& view, QWidget* parent)
    : QMdiSubWindow(parent)
    , view_(view) {
    setObjectName(toQt(view.form().name()) + QStringLiteral("_child"));
    setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setWindowIcon(programIcon(view.desk()));
    // The toolkit's own menu speaks another language.
    setSystemMenu(nullptr);
    setAttribute(Qt::WA_DeleteOnClose, false);
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    Form& form = view_.form();
    view_.router().tell(form, [&form] { form.runtime().windowClosed(form); });
}

} // namespace klopfmeise
