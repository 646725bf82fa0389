#pragma once

#include "platform/richtext/rtf.h"

#include <cstddef>

namespace klopfmeise {

/// Gathers characters into runs and paragraphs, and keeps the document within bounds: beyond them no text is
/// lost, but a new format is no longer taken up, and a paragraph's end becomes a line break.
class RtfBuilder {
public:
    /// Control characters but tab and line break are dropped.
    void add(wchar_t character, const RtfFormat& format);
    void endParagraph(RtfAlignment alignment, const RtfFormat& format);
    [[nodiscard]] bool paragraphEmpty() const { return paragraph_.runs.empty(); }
    /// Closes the last paragraph; the builder is empty afterwards.
    [[nodiscard]] RtfDocument finish(RtfAlignment alignment);

private:
    static constexpr std::size_t maxRuns = 200'000;
    static constexpr std::size_t maxParagraphs = 500'000;

    RtfDocument document_;
    RtfParagraph paragraph_;
    std::size_t runCount_ = 0;
};

} // namespace klopfmeise
