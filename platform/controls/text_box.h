#pragma once

#include "platform/controls/typed_control.h"
#include "platform/values/color.h"
#include "platform/values/font.h"

namespace klopfmeise {

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
    /// The user made another text of it.
    Handler change = {};
};

/// A box of plain text. Lines of a multi-line box end with CR LF.
class TextBox final : public TypedControl<TextBoxLook> {
public:
    TextBox(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex)
        : TypedControl(Kind::textBox, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::textBox; }

    const std::wstring& text() const { return look().text; }
    void setText(std::wstring text);
    const Font& font() const { return look().font; }
    void setFontPoints(double points);
    Color fore() const { return look().fore; }
    void setFore(Color color) { put(&Look::fore, color); }
    Color back() const { return look().back; }
    Align align() const { return look().align; }
    bool multiLine() const { return look().multiLine; }
    bool readOnly() const { return look().readOnly; }
    int maxLength() const { return look().maxLength; }
    wchar_t passwordSign() const { return look().passwordSign; }
    /// The caret, counted in characters from 0 to the length of the text.
    int caret() const { return caret_; }
    /// Beyond the text means behind its end.
    void setCaret(int position);
    /// Selects the whole text, so that what is typed next takes its place; the user undoes that by whatever
    /// is done in the box.
    void selectAll();
    bool allSelected() const { return allSelected_; }

    /// What the user made of the text; calls `change` if it is another.
    void edited(std::wstring text, int caret);

private:
    int caret_ = 0;
    bool allSelected_ = false;
};

} // namespace klopfmeise
