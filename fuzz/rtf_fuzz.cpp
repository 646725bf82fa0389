#include "platform/richtext/rtf.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

// Whatever is read must come back the same from what is written of it, and be in the promised shape.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t größe) {
    using namespace klopfmeise;
    const std::string bytes(daten, daten + größe);
    const RtfDocument dokument = readRtf(bytes);
    const std::string geschrieben = writeRtf(dokument);
    const bool ascii = std::ranges::all_of(geschrieben, [](char c) { return c > 0 && c < 0x7F; });
    if (dokument.paragraphs.empty() || !ascii || readRtf(geschrieben) != dokument)
        std::abort();
    for (const RtfParagraph& absatz : dokument.paragraphs)
        for (std::size_t i = 0; i < absatz.runs.size(); ++i)
            if (absatz.runs[i].text.empty() || (i > 0 && absatz.runs[i].format == absatz.runs[i - 1].format))
                std::abort();
    // The plain text ends each line with CR LF and holds no other control characters than the tab.
    const std::wstring text = dokument.plainText();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool zeilenende = (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ||
                                (text[i] == L'\n' && i > 0 && text[i - 1] == L'\r');
        if (text[i] < L' ' && text[i] != L'\t' && !zeilenende)
            std::abort();
    }
    if (größe < 512 && documentFromPlainText(text).plainText() != text)
        std::abort();
    return 0;
}
