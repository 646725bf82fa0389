#include "platform/richtext/rtf.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace klopfmeise;

/// A source that gives few bytes at a time, so that every word meets the edge of a block.
RtfReading readInPieces(const std::string& bytes) {
    return readRtf([&bytes](std::int64_t offset, std::size_t) {
        const std::size_t at = std::min(static_cast<std::size_t>(offset), bytes.size());
        return std::optional(bytes.substr(at, 1 + at % 3));
    });
}

} // namespace

// Whatever is read must come back the same from what is written of it, and be in the promised shape.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const auto [document, outcome] = readRtf(bytes);
    const std::string written = writeRtf(document);
    const bool ascii = std::ranges::all_of(written, [](char c) { return c > 0 && c < 0x7F; });
    const RtfReading again = readRtf(written);
    if (document.paragraphs.empty() || !ascii || again.document != document ||
        again.outcome != RtfOutcome::whole)
        std::abort();
    const RtfReading pieces = readInPieces(bytes);
    if (pieces.document != document || pieces.outcome != outcome)
        std::abort();
    for (const RtfParagraph& paragraph : document.paragraphs)
        for (std::size_t i = 0; i < paragraph.runs.size(); ++i) {
            const RtfRun& run = paragraph.runs[i];
            const bool plain =
                std::ranges::all_of(run.text, [](wchar_t c) { return c == rtfCharacter(c) && c != 0; });
            if (run.text.empty() || !plain || (i > 0 && run.format == paragraph.runs[i - 1].format))
                std::abort();
        }
    // The plain text ends each line with CR LF.
    const std::wstring text = document.plainText();
    if (text.size() > rtfMaxCharacters)
        std::abort();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool lineEnd = (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ||
                             (text[i] == L'\n' && i > 0 && text[i - 1] == L'\r');
        if (text[i] < L' ' && text[i] != L'\t' && !lineEnd)
            std::abort();
    }
    if (size < 512 && documentFromPlainText(text).document.plainText() != text)
        std::abort();
    return 0;
}
