#include "platform/rtf_bauer.h"

#include <utility>

namespace klopfmeise {

void RtfBauer::zeichen(wchar_t zeichen, const RtfZeichenformat& format) {
    if (zeichen < L' ' && zeichen != L'\t' && zeichen != L'\n')
        return;
    auto& läufe = absatz_.laeufe;
    const bool neu = läufe.empty() || (läufe_ < höchstzahlLäufe && läufe.back().format != format);
    if (neu) {
        läufe.push_back({{}, format});
        ++läufe_;
    }
    läufe.back().text += zeichen;
}

void RtfBauer::absatzende(Ausrichtung ausrichtung, const RtfZeichenformat& format) {
    if (dokument_.absaetze.size() + 1 >= höchstzahlAbsätze) {
        zeichen(L'\n', format);
        return;
    }
    absatz_.ausrichtung = ausrichtung;
    dokument_.absaetze.push_back(std::move(absatz_));
    absatz_ = {};
}

RtfDokument RtfBauer::fertig(Ausrichtung ausrichtung) {
    absatz_.ausrichtung = ausrichtung;
    dokument_.absaetze.push_back(std::move(absatz_));
    absatz_ = {};
    läufe_ = 0;
    return std::exchange(dokument_, {});
}

} // namespace klopfmeise
