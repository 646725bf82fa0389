#pragma once

#include "platform/rtf.h"

#include <cstddef>

namespace klopfmeise {

/// Gathers characters into runs and paragraphs, and keeps the document within bounds: beyond them no text is
/// lost, but a new format is no longer taken up, and a paragraph's end becomes a line break.
class RtfBauer {
public:
    /// Control characters but tab and line break are dropped.
    void zeichen(wchar_t zeichen, const RtfZeichenformat& format);
    void absatzende(Ausrichtung ausrichtung, const RtfZeichenformat& format);
    [[nodiscard]] bool absatzLeer() const { return absatz_.laeufe.empty(); }
    /// Closes the last paragraph; the builder is empty afterwards.
    [[nodiscard]] RtfDokument fertig(Ausrichtung ausrichtung);

private:
    static constexpr std::size_t höchstzahlLäufe = 200'000;
    static constexpr std::size_t höchstzahlAbsätze = 500'000;

    RtfDokument dokument_;
    RtfAbsatz absatz_;
    std::size_t läufe_ = 0;
};

} // namespace klopfmeise
