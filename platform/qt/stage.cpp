#include "platform/qt/stage.h"

#include "platform/qt/desk.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

constexpr Rect fullForm{0, 0, 12000, 9000};
/// What a window manager puts around a window, unzoomed pixels: sides, title and lower edge together.
constexpr int decorationWidth = 12;
constexpr int decorationHeight = 40;

} // namespace

class Stage::Window final : public QWidget {
public:
    explicit Window(Stage& stage)
        : stage_(stage) {
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        setAttribute(Qt::WA_OpaquePaintEvent);
        setAttribute(Qt::WA_InputMethodEnabled, false);
        setWindowTitle(QStringLiteral("Klopfmeise"));
        setObjectName(QStringLiteral("Klopfmeise"));
    }

protected:
    void resizeEvent(QResizeEvent*) override { stage_.layout(); }

private:
    Stage& stage_;
};

Stage::Stage(Desk& desk)
    : desk_(desk) {}
Stage::~Stage() { delete window_.data(); }

QWidget* Stage::window() {
    if (window_)
        return window_;
    window_ = new Window(*this);
    window_->winId();
    desk_.queue.watch(*window_->windowHandle());
    QObject::connect(window_->windowHandle(), &QWindow::screenChanged, window_, [this] { layout(); });
    window_->setGeometry(screen());
    return window_;
}

QWidget* Stage::shownWindow() const { return window_ && window_->isVisible() ? window_.data() : nullptr; }

bool Stage::isWindow(const QWindow& window) const { return window_ && window_->windowHandle() == &window; }

void Stage::raise(QtFormView& view) {
    QWidget* window = this->window();
    std::erase(views_, &view);
    views_.push_back(&view);
    if (!window->isVisible())
        window->showFullScreen();
    place(view);
    FormWidget& widget = view.widget();
    widget.raise();
    widget.show();
    // Forms below are covered whole and need not be painted.
    refresh();
}

void Stage::leave(QtFormView& view) {
    if (std::erase(views_, &view) == 0)
        return;
    refresh();
    // Looked at when the running handler is through: the next form may come at once.
    if (views_.empty() && window_)
        QMetaObject::invokeMethod(
            window_, [this] { closeIfEmpty(); }, Qt::QueuedConnection);
}

void Stage::closeIfEmpty() {
    if (views_.empty() && window_ && window_->children().isEmpty())
        delete window_.data();
    else if (views_.empty() && window_)
        window_->hide();
}

void Stage::refresh() {
    QtFormView* view = top();
    if (!window_ || !view)
        return;
    const QString title = toQt(view->form().caption());
    if (window_->windowTitle() != title)
        window_->setWindowTitle(title);
    const bool topMost = std::ranges::any_of(views_, [](const auto* v) { return v->form().topMost(); });
    if (window_->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint) != topMost)
        window_->windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topMost);
}

void Stage::layout() {
    if (resized)
        resized();
    for (QtFormView* view : views_)
        place(*view);
}

void Stage::place(QtFormView& view) {
    view.widget().setGeometry(window_->rect());
    Scale scale;
    scale.ratio = ratio();
    scale.zoom = zoom();
    const bool backdrop = view.form().kind() == FormKind::backdrop;
    const QSize size = devicePixels();
    const int width = static_cast<int>(std::lround(scale.exact(view.form().width())));
    const int height = static_cast<int>(std::lround(scale.exact(view.form().height())));
    if (!backdrop)
        scale.origin = {std::max(0, (size.width() - width) / 2), std::max(0, (size.height() - height) / 2)};
    for (const QtFormView* other : views_)
        if (other->form().kind() == FormKind::backdrop)
            view.widget().setSurroundings(other->form().look().back);
    if (scale != view.widget().scale() || !view.widget().isVisible())
        view.layout(scale);
}

QRect Stage::screen() const {
    const QScreen* screen = window_ ? window_->screen() : QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect(0, 0, 800, 600);
}

double Stage::ratio() const {
    if (window_)
        return window_->devicePixelRatioF();
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->devicePixelRatio() : 1;
}

QSize Stage::devicePixels() const {
    const QSize size = shownWindow() ? window_->size() : screen().size();
    return {static_cast<int>(std::lround(size.width() * ratio())),
            static_cast<int>(std::lround(size.height() * ratio()))};
}

double Stage::zoom() const { return std::max(1.0, zoomToFit(fullForm, devicePixels())); }

double Stage::windowZoom(const Rect& form) const {
    const QSize size = screen().size() * ratio();
    const double wanted = std::max(1.0, zoomToFit(fullForm, size));
    const auto decoration = [&](int pixels) { return static_cast<int>(std::lround(pixels * wanted)); };
    return std::min(wanted, zoomToFit(form, {size.width() - decoration(decorationWidth),
                                             size.height() - decoration(decorationHeight)}));
}

} // namespace klopfmeise
