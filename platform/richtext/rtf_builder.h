#pragma once

#include "platform/richtext/rtf.h"

#include <cstddef>

namespace klopfmeise {

/// Gathers characters into runs and paragraphs, up to the greatest size of a document.
class RtfBuilder {
public:
    /// Adds what a document takes the character for.
    void add(wchar_t character, const RtfFormat& format);
    void endParagraph(RtfAlignment alignment);
    [[nodiscard]] bool paragraphEmpty() const { return paragraph_.runs.empty(); }
    /// Something did not fit; nothing more is taken.
    [[nodiscard]] bool full() const { return full_; }
    /// Closes the last paragraph. Behind the end of a paragraph an empty one is none.
    [[nodiscard]] RtfDocument finish(RtfAlignment alignment);
    /// As `finish`, for lines: behind a line end stands a further line, be it empty.
    [[nodiscard]] RtfDocument finishLines();

private:
    bool takes(std::size_t characters);
    bool takesLineEnd();
    void close(RtfAlignment alignment);

    RtfDocument document_;
    RtfParagraph paragraph_;
    std::size_t size_ = 0;
    /// The line end before the current paragraph counts from its first character on.
    bool lineEndTaken_ = true;
    bool full_ = false;
};

} // namespace klopfmeise
