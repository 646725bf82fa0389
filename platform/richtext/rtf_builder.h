#pragma once

#include "platform/richtext/rtf.h"

#include <cstddef>

namespace klopfmeise {

/// Gathers characters into runs and paragraphs, and keeps the document within bounds: beyond them no text is
/// lost, but a new format is no longer taken up, and a paragraph's end becomes a line break.
class RtfBuilder {
public:
    /// Control characters but tab and line break are dropped.
    void zeichen(wchar_t zeichen, const RtfFormat& format);
    void absatzende(RtfAlignment alignment, const RtfFormat& format);
    [[nodiscard]] bool absatzLeer() const { return absatz_.runs.empty(); }
    /// Closes the last paragraph; the builder is empty afterwards.
    [[nodiscard]] RtfDocument fertig(RtfAlignment alignment);

private:
    static constexpr std::size_t höchstzahlLäufe = 200'000;
    static constexpr std::size_t höchstzahlAbsätze = 500'000;

    RtfDocument dokument_;
    RtfParagraph absatz_;
    std::size_t läufe_ = 0;
};

} // namespace klopfmeise
