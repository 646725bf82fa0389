#pragma once

#include "platform/controls/typed_control.h"
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
    /// Takes the size of its caption at once.
    bool autoSize = false;
    /// Above 0: a caption that does not fit makes the label wider, up to so many twips, a centred one about
    /// its middle; one that does not fit then either is set in smaller type.
    int mostWidth = 0;
    bool wrap = true;
    bool visible = true;
    Pointer pointer = Pointer::normal;
    std::wstring toolTip = {};
    Handler click = {};
    MouseHandler mouseDown = {};
    Handler mouseMove = {};
};

/// A text on its container, with or without a ground of its own.
class Label final : public TypedControl<LabelLook> {
public:
    Label(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex);
    /// A hidden copy of `pattern` as element `index` of the same control array.
    Label(const Label& pattern, int index);
    static constexpr bool is(Kind kind) { return kind == Kind::label; }

    const std::wstring& caption() const { return look().caption; }
    void setCaption(std::wstring caption);
    const Font& font() const { return look().font; }
    /// The font in which the caption is drawn: smaller where it would not fit.
    Font shownFont() const;
    void setFont(const Font& font);
    void setFontName(std::wstring_view name);
    Color fore() const { return look().fore; }
    void setFore(Color color) { put(&Look::fore, color); }
    const std::optional<Color>& back() const { return look().back; }
    /// The ground's colour; none makes the label transparent.
    void setBack(std::optional<Color> color) { put(&Look::back, color); }
    Align align() const { return look().align; }
    bool border() const { return look().border; }
    bool wrap() const { return look().wrap; }
    bool autoSize() const { return look().autoSize; }
    void setPointer(Pointer pointer) { put(&Look::pointer, pointer); }

private:
    void fit();

    /// The width it was made with.
    int leastWidth_;
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
    /// False: a file keeps its own size, a pixel of it an unzoomed pixel, and is cut at the picture's place.
    bool stretch = true;
    bool border = false;
    bool visible = true;
    Pointer pointer = Pointer::normal;
    std::wstring toolTip = {};
    /// What is read out where the tool tip is empty.
    std::wstring spoken = {};
    Handler click = {};
    MouseHandler mouseDown = {};
    Handler mouseMove = {};
};

/// A picture stretched to its place, or in its own size. One that is missing leaves the place empty.
class Picture final : public TypedControl<PictureLook> {
public:
    Picture(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
            int index = noIndex);
    static constexpr bool is(Kind kind) { return kind == Kind::picture; }

    PictureSource picture() const { return {look().picture, file_}; }
    /// Counts the pictures set, so that a view can tell a file that was set again.
    int revision() const { return revision_; }
    void setPicture(PictureSource picture);
    /// Shows a file of the data folder; it is read when it is next painted, and again at each call.
    void loadFile(const std::wstring& path) { setPicture({path, true}); }
    void clear() { setPicture({}); }
    bool stretch() const { return look().stretch; }
    bool border() const { return look().border; }
    void setBorder(bool border) { put(&Look::border, border); }

private:
    bool file_ = false;
    int revision_ = 0;
};

enum class ShapeKind { rectangle, circle };

struct ShapeLook {
    ShapeKind kind = ShapeKind::rectangle;
    std::optional<Color> fill = {};
    std::optional<Color> outline = colors::black;
    bool visible = true;
};

/// A rectangle or circle that takes no mouse.
class Shape final : public TypedControl<ShapeLook> {
public:
    Shape(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex)
        : TypedControl(Kind::shape, parent, name, place, look, index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::shape; }

    ShapeKind shapeKind() const { return look().kind; }
    const std::optional<Color>& fill() const { return look().fill; }
    void setFill(std::optional<Color> color) { put(&Look::fill, color); }
    const std::optional<Color>& outline() const { return look().outline; }
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

class Line final : public TypedControl<LineLook> {
public:
    Line(Container& parent, std::wstring_view name, const LinePlace& ends, Look look = {},
         int index = noIndex);
    static constexpr bool is(Kind kind) { return kind == Kind::line; }

    const LinePlace& ends() const { return ends_; }
    void setEnds(const LinePlace& ends);
    Color color() const { return look().color; }
    void setColor(Color color) { put(&Look::color, color); }
    int lineWidth() const { return look().width; }

private:
    LinePlace ends_;
};

} // namespace klopfmeise
