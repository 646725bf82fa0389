#include "platform/richtext/rtf_builder.h"

#include <utility>

namespace klopfmeise {

void RtfBuilder::add(wchar_t character, const RtfFormat& format) {
    if (character < L' ' && character != L'\t' && character != L'\n')
        return;
    auto& runs = paragraph_.runs;
    const bool fresh = runs.empty() || (runCount_ < maxRuns && runs.back().format != format);
    if (fresh) {
        runs.push_back({{}, format});
        ++runCount_;
    }
    runs.back().text += character;
}

void RtfBuilder::endParagraph(RtfAlignment alignment, const RtfFormat& format) {
    if (document_.paragraphs.size() + 1 >= maxParagraphs) {
        add(L'\n', format);
        return;
    }
    paragraph_.alignment = alignment;
    document_.paragraphs.push_back(std::move(paragraph_));
    paragraph_ = {};
}

RtfDocument RtfBuilder::finish(RtfAlignment alignment) {
    paragraph_.alignment = alignment;
    document_.paragraphs.push_back(std::move(paragraph_));
    paragraph_ = {};
    runCount_ = 0;
    return std::exchange(document_, {});
}

} // namespace klopfmeise
