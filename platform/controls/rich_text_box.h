#pragma once

#include "platform/controls/typed_control.h"
#include "platform/richtext/rtf.h"
#include "platform/values/font.h"

namespace klopfmeise {

struct RichTextLook {
    Font font = {};
    bool readOnly = false;
    bool visible = true;
    std::wstring spoken = {};
    /// The user made another document of it.
    Handler change = {};
    /// Of what the user typed or pasted not all did fit; called behind `change`.
    Handler overflow = {};
};

/// A box that loads, shows, edits and saves rich text. Positions count the characters of `text`, in which
/// each line ends with CR LF. There is no undo.
///
/// Where a document could not be loaded whole, or was set longer than one can be, the box shows what it has
/// of it, but it can neither be edited nor saved until it is given another: what was left out would be lost.
class RichTextBox final : public TypedControl<RichTextLook> {
public:
    RichTextBox(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
                int index = noIndex);
    static constexpr bool is(Kind kind) { return kind == Kind::richTextBox; }

    const RtfDocument& document() const { return document_; }
    /// The characters alone.
    const std::wstring& text() const { return text_; }
    /// Replaces all by plain text in the box's own format.
    void setText(std::wstring_view text);
    /// Loads a file, RTF or plain text. A box whose file could not be read is empty.
    RtfOutcome loadFile(const std::wstring& path);
    /// Saves as RTF. False if that failed, or if the box does not hold all of its document.
    bool saveFile(const std::wstring& path) const;

    int selectionStart() const { return selectionStart_; }
    int selectionLength() const { return selectionLength_; }
    /// Selects `length` characters from `start` on, brought into the text.
    void select(int start, int length);
    /// Gives the selected characters this format, and the paragraphs that they touch this alignment.
    void formatSelection(const RtfFormat& format, RtfAlignment alignment);

    /// Places that are free for a text that is put where so many characters are.
    std::size_t room(int replaced) const;
    /// What the user made of document and selection; calls `change` if the document is another. One that is
    /// too long is not taken.
    void edited(RtfDocument document, int selectionStart, int selectionLength);
    /// Some of what the user typed or pasted did not fit.
    void overflowed();
    /// The user moved the caret or selected something.
    void movedTo(int selectionStart, int selectionLength);

    const Font& font() const { return look().font; }
    /// What is typed into an empty box looks like this.
    RtfFormat ownFormat() const;
    bool readOnly() const { return look().readOnly || !whole_; }

private:
    void setDocument(RtfReading reading);

    RtfDocument document_;
    bool whole_ = true;
    std::wstring text_;
    int selectionStart_ = 0;
    int selectionLength_ = 0;
};

} // namespace klopfmeise
