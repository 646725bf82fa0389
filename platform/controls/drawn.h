#pragma once

#include "platform/controls/control.h"
#include "platform/values/color.h"
#include "platform/values/font.h"

#include <optional>

namespace klopfmeise {

/// Looks are filled in by name at the field of a form, beside name and place.
struct LabelLook {
    std::wstring caption = {};
    Font font = {};
    Color fore = colors::black;
    /// None: transparent.
    std::optional<Color> back = {};
    Align align = Align::left;
    bool border = false;
    /// Takes the size of its caption at once; a centred label grows about its middle.
    bool autoSize = false;
    bool wrap = true;
    bool visible = true;
    Pointer pointer = Pointer::normal;
    std::wstring toolTip = {};
    Handler click = {};
    Handler mouseDown = {};
    Handler mouseMove = {};
};

/// A text on its container, with or without a ground of its own.
class Label final : public Control {
public:
    using Look = LabelLook;
    Label(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex);
    /// A copy of `pattern` as element `index` of the same control array.
    Label(const Label& pattern, int index);

    const std::wstring& caption() const { return caption_; }
    void setCaption(std::wstring caption);
    const Font& font() const { return font_; }
    void setFont(const Font& font);
    void setFontName(std::wstring_view name);
    Color fore() const { return fore_; }
    void setFore(Color color);
    const std::optional<Color>& back() const { return back_; }
    /// The ground's colour; none makes the label transparent.
    void setBack(std::optional<Color> color);
    Align align() const { return align_; }
    bool border() const { return border_; }
    void setBorder(bool border);
    bool wrap() const { return wrap_; }
    bool autoSize() const { return autoSize_; }

    bool windowed() const override { return false; }
    std::wstring spokenName() const override { return caption_.empty() ? toolTip() : caption_; }

private:
    void fit();

    std::wstring caption_;
    Font font_;
    Color fore_;
    std::optional<Color> back_;
    Align align_;
    bool border_;
    bool autoSize_;
    bool wrap_;
};

/// Where a picture comes from: a name of the program's own drawings, or a file of the data folder.
struct PictureSource {
    std::wstring name = {};
    bool file = false;

    bool empty() const { return name.empty(); }
    friend bool operator==(const PictureSource&, const PictureSource&) = default;
};

struct PictureLook {
    /// Name of one of the program's own drawings.
    std::wstring picture = {};
    bool border = false;
    bool visible = true;
    Pointer pointer = Pointer::normal;
    std::wstring toolTip = {};
    /// What is read out where the tool tip is empty.
    std::wstring spoken = {};
    Handler click = {};
    Handler mouseDown = {};
    Handler mouseMove = {};
};

/// A picture stretched to its place. One that is missing leaves the place empty.
class Picture final : public Control {
public:
    using Look = PictureLook;
    Picture(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
            int index = noIndex);

    const PictureSource& picture() const { return picture_; }
    /// Counts the pictures set, so that a view can tell a file that was set again.
    int revision() const { return revision_; }
    void setPicture(PictureSource picture);
    /// Shows a file of the data folder; it is read when it is next painted, and again at each call.
    void loadFile(const std::wstring& path) { setPicture({path, true}); }
    void clear() { setPicture({}); }
    bool border() const { return border_; }
    void setBorder(bool border);

    bool windowed() const override { return false; }
    std::wstring spokenName() const override { return toolTip().empty() ? spoken_ : toolTip(); }

private:
    PictureSource picture_;
    int revision_ = 0;
    bool border_;
    std::wstring spoken_;
};

enum class ShapeKind { rectangle, circle };

struct ShapeLook {
    ShapeKind kind = ShapeKind::rectangle;
    std::optional<Color> fill = {};
    std::optional<Color> outline = colors::black;
    bool visible = true;
};

/// A rectangle or circle that takes no mouse.
class Shape final : public Control {
public:
    using Look = ShapeLook;
    Shape(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex);

    ShapeKind kind() const { return kind_; }
    const std::optional<Color>& fill() const { return fill_; }
    void setFill(std::optional<Color> color);
    const std::optional<Color>& outline() const { return outline_; }

    bool windowed() const override { return false; }
    bool takesMouse() const override { return false; }

private:
    ShapeKind kind_;
    std::optional<Color> fill_;
    std::optional<Color> outline_;
};

/// The ends of a line, in twips.
struct LinePlace {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;

    Rect box() const;
    friend constexpr bool operator==(const LinePlace&, const LinePlace&) = default;
};

struct LineLook {
    Color color = colors::black;
    /// Unzoomed pixels.
    int width = 1;
    bool visible = true;
};

class Line final : public Control {
public:
    using Look = LineLook;
    Line(Container& parent, std::wstring_view name, const LinePlace& ends, Look look = {},
         int index = noIndex);

    const LinePlace& ends() const { return ends_; }
    void setEnds(const LinePlace& ends);
    Color color() const { return color_; }
    void setColor(Color color);
    int lineWidth() const { return lineWidth_; }

    bool windowed() const override { return false; }
    bool takesMouse() const override { return false; }

private:
    LinePlace ends_;
    Color color_;
    int lineWidth_;
};

} // namespace klopfmeise
