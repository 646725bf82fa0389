#include "platform/controls/lists.h"
#include "platform/qt/container_widget.h"
#include "platform/qt/control_view.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/text_painter.h"

#include <QAbstractListModel>
#include <QListView>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace klopfmeise {

namespace {

class ListModel final : public QAbstractListModel {
public:
    explicit ListModel(const ListControl& list)
        : list_(list)
        , shown_(list.items()) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(shown_->size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
            return {};
        return toQt(shown_->at(static_cast<std::size_t>(index.row())));
    }
    void reload() {
        if (*shown_ == *list_.items())
            return;
        beginResetModel();
        shown_ = list_.items();
        endResetModel();
    }

private:
    const ListControl& list_;
    /// What the view knows of; the control's items can change before the view is told.
    std::shared_ptr<const ListControl::Items> shown_;
};

/// Rows of one size, which the toolkit asks of one row only: that of the longest name, so that it can be
/// scrolled to.
class RowPainter final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QAbstractItemModel& rows = *index.model();
        QModelIndex longest = index;
        qsizetype most = 0;
        for (int row = 0; row < rows.rowCount(); ++row)
            if (const qsizetype length = rows.index(row, 0).data().toString().size(); length > most) {
                most = length;
                longest = rows.index(row, 0);
            }
        return QStyledItemDelegate::sizeHint(option, longest);
    }
};

class ListWidget final : public QListView {
public:
    ListWidget(QtFormView& view, ListControl& list, QWidget* parent)
        : QListView(parent)
        , model_(list)
        , view_(view)
        , list_(list) {
        setModel(&model_);
        setUniformItemSizes(true);
        setItemDelegate(new RowPainter(this));
        setEditTriggers(NoEditTriggers);
        setSelectionMode(SingleSelection);
        setVerticalScrollMode(ScrollPerItem);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        setTextElideMode(Qt::ElideNone);
        setAttribute(Qt::WA_InputMethodEnabled, false);
    }
    void reload() {
        syncing_ = true;
        model_.reload();
        const QModelIndex row = model_.index(list_.selected());
        if (currentIndex() != row || !selectionModel()->isSelected(row)) {
            if (row.isValid()) {
                setCurrentIndex(row);
                scrollTo(row);
            } else {
                selectionModel()->clear();
            }
        }
        syncing_ = false;
    }

protected:
    void focusInEvent(QFocusEvent* event) override {
        // The toolkit makes the first row the current one where none is; that is no choice of the user.
        syncing_ = true;
        QListView::focusInEvent(event);
        if (list_.selected() < 0)
            selectionModel()->clear();
        syncing_ = false;
    }
    void currentChanged(const QModelIndex& current, const QModelIndex& before) override {
        QListView::currentChanged(current, before);
        if (!syncing_ && current.isValid())
            view_.router().tell(view_.form(), [this, row = current.row()] { list_.movedTo(row); });
    }
    void mousePressEvent(QMouseEvent* event) override {
        // An invalid index, where there is no row, counts -1.
        const int row = indexAt(event->position().toPoint()).row();
        view_.router().tell(view_.form(),
                            [this, row, button = buttonOf(*event)] { list_.pressed(row, button); });
        if (row >= 0)
            view_.router().tell(view_.form(), [this] { list_.clicked(); });
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}

private:
    ListModel model_;
    QtFormView& view_;
    ListControl& list_;
    bool syncing_ = false;
};

class ListControlView final : public ControlView {
public:
    ListControlView(QtFormView& view, ListControl& list, ListWidget* widget)
        : ControlView(view, list, widget)
        , list_(list)
        , widget_(*widget) {}

private:
    void syncLook(const Scale& scale) override {
        widget_.setFont(widgetFont(list_.font(), scale));
        QPalette palette = widget_.palette();
        palette.setColor(QPalette::Base, toQt(list_.back()));
        widget_.setPalette(palette);
        widget_.reload();
    }

    ListControl& list_;
    ListWidget& widget_;
};

} // namespace

std::unique_ptr<ControlView> makeListView(QtFormView& view, ListControl& list, QWidget* parent) {
    return std::make_unique<ListControlView>(view, list, new ListWidget(view, list, parent));
}

} // namespace klopfmeise
