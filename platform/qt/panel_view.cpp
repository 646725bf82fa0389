#include "platform/controls/panels.h"
#include "platform/qt/container_widget.h"
#include "platform/qt/control_view.h"
#include "platform/qt/desk.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

/// Twips between a frame's edge and its title.
constexpr int titleIndent = 8 * twipsPerPixel;

class FrameWidget final : public ContainerWidget {
public:
    FrameWidget(QtFormView& view, Frame& frame, QWidget* parent)
        : ContainerWidget(view, frame, parent)
        , frame_(frame) {}

protected:
    void paintGround(const Canvas& canvas, const QRect& dirty) override {
        const Rect whole{0, 0, frame_.width(), frame_.height()};
        const QRect place = canvas.scale.device(whole);
        canvas.painter.fillRect(dirty & place, toQt(frame_.back()));
        const int lineHeight = metricsOf(frame_.font()).lineHeight;
        const int lowered = frame_.caption().empty() ? 0 : lineHeight / 2;
        if (frame_.border()) {
            const QRect line = canvas.scale.device({0, lowered, whole.width, whole.height - lowered});
            const int width = std::max(1, static_cast<int>(std::lround(canvas.scale.zoom)));
            paintInnerLine(canvas.painter, line, width, toQt(look::rim));
        }
        if (frame_.caption().empty())
            return;
        const int width = sizeOf(frame_.caption(), frame_.font()).width;
        const Rect title{titleIndent, 0, std::min(width, whole.width - titleIndent), lineHeight};
        const Rect ground{title.left - 60, 0, title.width + 120, lineHeight};
        canvas.painter.fillRect(canvas.scale.device(ground), toQt(frame_.back()));
        canvas.texts.draw(canvas.painter, canvas.scale, title, frame_.caption(),
                          {.font = frame_.font(), .wrap = false});
    }

private:
    Frame& frame_;
};

class BoxWidget final : public ContainerWidget {
public:
    BoxWidget(QtFormView& view, PictureBox& box, QWidget* parent)
        : ContainerWidget(view, box, parent)
        , box_(box) {
        if (box.keys())
            setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void paintGround(const Canvas& canvas, const QRect& dirty) override {
        const QRect place = canvas.scale.device({0, 0, box_.width(), box_.height()});
        canvas.painter.fillRect(dirty & place, toQt(box_.back()));
        if (!box_.picture().empty())
            paintPicture(canvas, place, &box_, {box_.picture(), false});
    }
    // A box that takes the keys takes Tab too, unless there is another place for the focus.
    bool focusNextPrevChild(bool next) override {
        return !view().canMoveFocus(*this) ? false : ContainerWidget::focusNextPrevChild(next);
    }

private:
    PictureBox& box_;
};

class PanelView final : public ControlView {
public:
    using ControlView::ControlView;

private:
    void syncLook(const Scale& scale) override {
        container()->setScale(scale.within(control().place()));
        container()->update();
    }
};

} // namespace

std::unique_ptr<ControlView> makeFrameView(QtFormView& view, Frame& frame, QWidget* parent) {
    return std::make_unique<PanelView>(view, frame, new FrameWidget(view, frame, parent));
}

std::unique_ptr<ControlView> makeBoxView(QtFormView& view, PictureBox& box, QWidget* parent) {
    return std::make_unique<PanelView>(view, box, new BoxWidget(view, box, parent));
}

} // namespace klopfmeise
