#pragma once

#include "platform/controls/rich_text_box.h"

#include <string>

namespace klopfmeise {

/// Puts a text in the place of what is selected, as far as a document takes its characters: in the format
/// before it, each line end as the end of a paragraph.
void insertIntoEditor(RichTextBox& box, const std::wstring& text);

/// Takes away what is selected, or else the character before the caret or behind it.
void removeFromEditor(RichTextBox& box, bool before);

/// Moves the caret by one character; with a selection to its edge.
void moveInEditor(RichTextBox& box, bool back);

} // namespace klopfmeise
