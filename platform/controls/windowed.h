#pragma once

#include "platform/controls/control.h"
#include "platform/values/color.h"
#include "platform/values/font.h"

#include <memory>
#include <optional>

namespace klopfmeise {

class Files;

/// Handlers of controls that take keys. Key codes are those of Windows' virtual keys.
struct KeyHandlers {
    std::function<void(int keyCode)> down = {};
    std::function<void(KeyPress&)> press = {};
    std::function<void()> up = {};
};

struct FrameLook {
    std::wstring caption = {};
    Color back = colors::panel;
    bool border = true;
    bool visible = true;
    Font font = {};
    Handler mouseMove = {};
};

/// A panel that holds, paints and clips controls of its own.
class Frame final : public Control, public Container {
public:
    using Look = FrameLook;
    Frame(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex);

    const std::wstring& caption() const { return caption_; }
    Color back() const { return back_; }
    bool border() const { return border_; }
    const Font& font() const { return font_; }

    Form& ownerForm() override { return form(); }
    Control* asControl() override { return this; }
    std::wstring spokenName() const override { return caption_; }

private:
    std::wstring caption_;
    Color back_;
    bool border_;
    Font font_;
};

struct PictureBoxLook {
    Color back = colors::white;
    std::wstring picture = {};
    bool visible = true;
    std::wstring toolTip = {};
    KeyHandlers keys = {};
};

/// A panel with a picture or a plain ground that holds and clips controls and can take the keys.
class PictureBox final : public Control, public Container {
public:
    using Look = PictureBoxLook;
    PictureBox(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
               int index = noIndex);

    Color back() const { return back_; }
    const std::wstring& picture() const { return picture_; }
    void setPicture(std::wstring name);

    Form& ownerForm() override { return form(); }
    Control* asControl() override { return this; }

    KeyHandlers keys;

private:
    Color back_;
    std::wstring picture_;
};

struct ButtonLook {
    std::wstring caption = {};
    Font font = {};
    std::optional<Color> back = {};
    std::wstring picture = {};
    bool visible = true;
    bool enabled = true;
    /// False: neither Tab nor a click gives it the focus, and the keys stay with the form.
    bool tabStop = true;
    std::wstring toolTip = {};
    Handler click = {};
};

class Button final : public Control {
public:
    using Look = ButtonLook;
    Button(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex);

    const std::wstring& caption() const { return caption_; }
    void setCaption(std::wstring caption);
    const Font& font() const { return font_; }
    const std::optional<Color>& back() const { return back_; }
    const std::wstring& picture() const { return picture_; }
    bool tabStop() const { return tabStop_; }

    std::wstring spokenName() const override { return caption_.empty() ? toolTip() : caption_; }

private:
    std::wstring caption_;
    Font font_;
    std::optional<Color> back_;
    std::wstring picture_;
    bool tabStop_;
};

struct TextBoxLook {
    std::wstring text = {};
    Font font = {};
    Color fore = colors::black;
    Color back = colors::white;
    Align align = Align::left;
    bool multiLine = false;
    bool readOnly = false;
    /// Characters that can be typed; 0 sets no bound. The program itself may set longer texts.
    int maxLength = 0;
    /// Shown in place of each character; 0 shows the text.
    wchar_t passwordSign = 0;
    bool visible = true;
    std::wstring spoken = {};
    KeyHandlers keys = {};
    Handler change = {};
};

class TextBox final : public Control {
public:
    using Look = TextBoxLook;
    TextBox(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
            int index = noIndex);

    const std::wstring& text() const { return text_; }
    void setText(std::wstring text);
    const Font& font() const { return font_; }
    void setFontPoints(double points);
    Color fore() const { return fore_; }
    void setFore(Color color);
    Color back() const { return back_; }
    Align align() const { return align_; }
    bool multiLine() const { return multiLine_; }
    bool readOnly() const { return readOnly_; }
    int maxLength() const { return maxLength_; }
    wchar_t passwordSign() const { return passwordSign_; }
    /// The caret, counted in characters from 0; beyond the text means behind its end.
    int caret() const { return caret_; }
    void setCaret(int position);
    /// What the user made of the text; told by the view, and so not told back to it.
    void edited(std::wstring text, int caret);

    std::wstring spokenName() const override { return spoken_; }

    KeyHandlers keys;
    Handler change;

private:
    std::wstring text_;
    Font font_;
    Color fore_;
    Color back_;
    Align align_;
    bool multiLine_;
    bool readOnly_;
    int maxLength_;
    wchar_t passwordSign_;
    int caret_ = 0;
    std::wstring spoken_;
};

struct ListLook {
    std::wstring pattern = L"*.*";
    Font font = {};
    Color back = colors::white;
    bool visible = true;
    std::wstring spoken = {};
    Handler mouseDown = {};
    Handler click = {};
};

/// A list of names with one selected row or none. Rows count from 0, -1 is none.
class ListControl : public Control {
public:
    using Items = std::vector<std::wstring>;
    /// The names; they can be kept beyond the next listing.
    std::shared_ptr<const Items> items() const { return items_; }
    int itemCount() const { return static_cast<int>(items_->size()); }
    const std::wstring& item(int row) const { return items_->at(static_cast<std::size_t>(row)); }
    int selected() const { return selected_; }
    /// Selects a row and calls `click`, as a selection by the user does.
    void select(int row);
    /// Takes the selection away, silently.
    void unselect();
    /// The selected name; empty if none is.
    std::wstring selectedName() const;
    const std::wstring& path() const { return path_; }
    /// Points the list at a folder and lists it.
    void setPath(std::wstring path);
    /// Lists the folder again; a selected name stays selected if it is still there.
    void refresh();
    const Font& font() const { return look_.font; }
    Color back() const { return look_.back; }
    std::wstring spokenName() const override { return look_.spoken; }

protected:
    ListControl(Container& parent, std::wstring_view name, const Rect& place, ListLook look, int index);
    const std::wstring& pattern() const { return look_.pattern; }

private:
    virtual std::vector<std::wstring> listing(Files& files) const = 0;

    ListLook look_;
    std::wstring path_;
    std::shared_ptr<const Items> items_ = std::make_shared<Items>();
    int selected_ = -1;
};

/// The files of a folder that match a pattern, sorted.
class FileList final : public ListControl {
public:
    using Look = ListLook;
    FileList(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
             int index = noIndex);

private:
    std::vector<std::wstring> listing(Files& files) const override;
};

/// The folders of a folder, sorted; an entry is the last component of its path.
class FolderList final : public ListControl {
public:
    using Look = ListLook;
    FolderList(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
               int index = noIndex);

private:
    std::vector<std::wstring> listing(Files& files) const override;
};

struct RangeLook {
    int min = 0;
    int max = 0;
    int value = 0;
    int smallStep = 1;
    int largeStep = 1;
    bool vertical = false;
    bool visible = true;
    std::wstring spoken = {};
    Handler change = {};
};

/// A scroll bar or slider: a whole number between two bounds. A value set beyond them is brought to the
/// nearer one.
class RangeControl : public Control {
public:
    int min() const { return look_.min; }
    int max() const { return look_.max; }
    int value() const { return look_.value; }
    int smallStep() const { return look_.smallStep; }
    int largeStep() const { return look_.largeStep; }
    bool vertical() const { return look_.vertical; }
    void setMin(int min);
    void setMax(int max);
    /// Calls `change` if the value becomes another.
    void setValue(int value);
    std::wstring spokenName() const override { return look_.spoken; }

protected:
    RangeControl(Container& parent, std::wstring_view name, const Rect& place, RangeLook look, int index);

private:
    RangeLook look_;
};

class ScrollBar final : public RangeControl {
public:
    using Look = RangeLook;
    ScrollBar(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
              int index = noIndex)
        : RangeControl(parent, name, place, std::move(look), index) {}
};

class Slider final : public RangeControl {
public:
    using Look = RangeLook;
    Slider(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex)
        : RangeControl(parent, name, place, std::move(look), index) {}
};

struct CheckLook {
    std::wstring caption = {};
    Font font = {};
    int value = 0;
    bool visible = true;
    bool enabled = true;
    Handler click = {};
};

/// An option button or check box: 1 is on, 0 is off. Turning an option on turns the others of its container
/// off.
class CheckControl : public Control {
public:
    const std::wstring& caption() const { return look_.caption; }
    const Font& font() const { return look_.font; }
    int value() const { return look_.value; }
    /// Calls `click` if the value becomes another, as a click does.
    void setValue(int value);
    virtual bool exclusive() const = 0;
    std::wstring spokenName() const override { return look_.caption; }

protected:
    CheckControl(Container& parent, std::wstring_view name, const Rect& place, CheckLook look, int index);

private:
    CheckLook look_;
};

class OptionButton final : public CheckControl {
public:
    using Look = CheckLook;
    OptionButton(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
                 int index = noIndex)
        : CheckControl(parent, name, place, std::move(look), index) {}
    bool exclusive() const override { return true; }
};

class CheckBox final : public CheckControl {
public:
    using Look = CheckLook;
    CheckBox(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
             int index = noIndex)
        : CheckControl(parent, name, place, std::move(look), index) {}
    bool exclusive() const override { return false; }
};

} // namespace klopfmeise
