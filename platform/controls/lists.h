#pragma once

#include "platform/controls/typed_control.h"
#include "platform/values/color.h"
#include "platform/values/font.h"

#include <memory>
#include <optional>
#include <vector>

namespace klopfmeise {

struct ListLook {
    /// What the names of a file list have to match.
    std::wstring pattern = L"*.*";
    Font font = {};
    Color back = colors::white;
    bool visible = true;
    std::wstring spoken = {};
    /// A press with any mouse button; what lies under it is selected by then.
    MouseHandler mouseDown = {};
    /// A row was selected, by the user or by the program.
    Handler click = {};
};

/// A list of names with one selected row or none. Rows count from 0, -1 is none.
class ListControl : public TypedControl<ListLook> {
public:
    static constexpr bool is(Kind kind) { return kind == Kind::fileList || kind == Kind::folderList; }
    using Items = std::vector<std::wstring>;

    /// The names; they can be kept beyond the next listing.
    std::shared_ptr<const Items> items() const { return items_; }
    int itemCount() const { return static_cast<int>(items_->size()); }
    const std::wstring& item(int row) const { return items_->at(static_cast<std::size_t>(row)); }
    int selected() const { return selected_; }
    /// The selected name; empty if none is.
    std::wstring selectedName() const;
    /// Selects a row. This counts as a click, on the row that is selected already too.
    void select(int row);
    /// Takes the selection away, silently.
    void unselect();
    const std::wstring& path() const { return path_; }
    /// Points the list at a folder and lists it; nothing is selected then.
    void setPath(std::wstring path);
    /// Lists the folder again; a selected name stays selected if it is still there.
    void refresh();
    /// False if the folder could not be listed the last time; the list is empty then.
    bool listed() const { return listed_; }
    const Font& font() const { return look().font; }
    Color back() const { return look().back; }

    /// The user pressed a mouse button on a row, or where there is none (-1): the row is selected, and
    /// `mouseDown` called. `clicked` follows as an event of its own, as the press may have unloaded the form.
    void pressed(int row, MouseButton button);
    void clicked();
    /// The user moved the selection with the keyboard.
    void movedTo(int row);

protected:
    using TypedControl::TypedControl;

private:
    virtual std::optional<Items> listing(Files& files) const = 0;

    std::wstring path_;
    std::shared_ptr<const Items> items_ = std::make_shared<Items>();
    int selected_ = -1;
    bool listed_ = true;
};

/// The files of a folder that match a pattern, sorted.
class FileList final : public ListControl {
public:
    FileList(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
             int index = noIndex)
        : ListControl(Kind::fileList, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::fileList; }

private:
    std::optional<Items> listing(Files& files) const override;
};

/// The folders of a folder, sorted; an entry is the last component of its path.
class FolderList final : public ListControl {
public:
    FolderList(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
               int index = noIndex)
        : ListControl(Kind::folderList, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::folderList; }

private:
    std::optional<Items> listing(Files& files) const override;
};

} // namespace klopfmeise
