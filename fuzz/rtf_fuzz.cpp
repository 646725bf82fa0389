#include "platform/richtext/rtf.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

// Whatever is read must come back the same from what is written of it, and be in the promised shape.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace klopfmeise;
    const std::string bytes(data, data + size);
    const RtfDocument document = readRtf(bytes);
    const std::string written = writeRtf(document);
    const bool ascii = std::ranges::all_of(written, [](char c) { return c > 0 && c < 0x7F; });
    if (document.paragraphs.empty() || !ascii || readRtf(written) != document)
        std::abort();
    for (const RtfParagraph& paragraph : document.paragraphs)
        for (std::size_t i = 0; i < paragraph.runs.size(); ++i)
            if (paragraph.runs[i].text.empty() ||
                (i > 0 && paragraph.runs[i].format == paragraph.runs[i - 1].format))
                std::abort();
    // The plain text ends each line with CR LF and holds no other control characters than the tab.
    const std::wstring text = document.plainText();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool lineEnd = (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ||
                             (text[i] == L'\n' && i > 0 && text[i - 1] == L'\r');
        if (text[i] < L' ' && text[i] != L'\t' && !lineEnd)
            std::abort();
    }
    if (size < 512 && documentFromPlainText(text).plainText() != text)
        std::abort();
    return 0;
}
