#include "platform/controls/lists.h"

#include "platform/machine/services.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

std::wstring ListControl::selectedName() const { return selected_ < 0 ? std::wstring() : item(selected_); }

void ListControl::select(int row) {
    if (row < 0 || row >= itemCount()) {
        unselect();
        return;
    }
    selected_ = row;
    changed();
    if (look().click)
        look().click();
}

void ListControl::unselect() {
    if (std::exchange(selected_, -1) != -1)
        changed();
}

void ListControl::setPath(std::wstring path) {
    path_ = std::move(path);
    selected_ = -1;
    refresh();
}

void ListControl::refresh() {
    const std::wstring before = selectedName();
    auto names = listing(host().files());
    listed_ = names.has_value();
    items_ = std::make_shared<Items>(std::move(names).value_or(Items()));
    const auto found = before.empty() ? items_->end() : std::ranges::find(*items_, before);
    selected_ = found == items_->end() ? -1 : static_cast<int>(found - items_->begin());
    changed();
}

void ListControl::pressed(int row, MouseButton button) {
    const bool hit = row >= 0 && row < itemCount();
    if (hit && row != selected_) {
        selected_ = row;
        changed();
    }
    if (look().mouseDown)
        look().mouseDown(button);
}

void ListControl::clicked() {
    if (look().click)
        look().click();
}

void ListControl::movedTo(int row) {
    if (row != selected_)
        select(row);
}

std::optional<ListControl::Items> FileList::listing(Files& files) const {
    return files.listFiles(path(), look().pattern);
}

std::optional<ListControl::Items> FolderList::listing(Files& files) const {
    return files.listFolders(path());
}

} // namespace klopfmeise
