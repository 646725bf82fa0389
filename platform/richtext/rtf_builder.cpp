#include "platform/richtext/rtf_builder.h"

#include <utility>

namespace klopfmeise {

bool RtfBuilder::takes(std::size_t characters) {
    full_ = full_ || size_ + characters > rtfMaxCharacters;
    if (!full_)
        size_ += characters;
    return !full_;
}

bool RtfBuilder::takesLineEnd() {
    lineEndTaken_ = lineEndTaken_ || takes(2);
    return lineEndTaken_;
}

void RtfBuilder::add(wchar_t character, const RtfFormat& format) {
    const wchar_t taken = rtfCharacter(character);
    if (taken == 0 || !takesLineEnd() || !takes(taken == L'\n' ? 2 : 1))
        return;
    auto& runs = paragraph_.runs;
    if (runs.empty() || runs.back().format != format)
        runs.push_back({{}, format});
    runs.back().text += taken;
}

void RtfBuilder::endParagraph(RtfAlignment alignment) {
    if (!takesLineEnd())
        return;
    close(alignment);
    lineEndTaken_ = false;
}

void RtfBuilder::close(RtfAlignment alignment) {
    paragraph_.alignment = alignment;
    document_.paragraphs.push_back(std::exchange(paragraph_, {}));
}

RtfDocument RtfBuilder::finish(RtfAlignment alignment) {
    if (lineEndTaken_)
        close(alignment);
    return std::move(document_);
}

RtfDocument RtfBuilder::finishLines() {
    if (takesLineEnd())
        close(RtfAlignment::left);
    return std::move(document_);
}

} // namespace klopfmeise
