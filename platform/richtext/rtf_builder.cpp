#include "platform/richtext/rtf_builder.h"

#include <utility>

namespace klopfmeise {

void RtfBuilder::zeichen(wchar_t zeichen, const RtfFormat& format) {
    if (zeichen < L' ' && zeichen != L'\t' && zeichen != L'\n')
        return;
    auto& läufe = absatz_.runs;
    const bool neu = läufe.empty() || (läufe_ < höchstzahlLäufe && läufe.back().format != format);
    if (neu) {
        läufe.push_back({{}, format});
        ++läufe_;
    }
    läufe.back().text += zeichen;
}

void RtfBuilder::absatzende(RtfAlignment alignment, const RtfFormat& format) {
    if (dokument_.paragraphs.size() + 1 >= höchstzahlAbsätze) {
        zeichen(L'\n', format);
        return;
    }
    absatz_.alignment = alignment;
    dokument_.paragraphs.push_back(std::move(absatz_));
    absatz_ = {};
}

RtfDocument RtfBuilder::fertig(RtfAlignment alignment) {
    absatz_.alignment = alignment;
    dokument_.paragraphs.push_back(std::move(absatz_));
    absatz_ = {};
    läufe_ = 0;
    return std::exchange(dokument_, {});
}

} // namespace klopfmeise
