#include "platform/richtext/rtf_tables.h"

#include <algorithm>

namespace klopfmeise {

namespace {

constexpr std::size_t höchsteFarbzahl = 65'536;
constexpr std::size_t längsterName = 128;
constexpr int höchsteSchriftnummer = 32'767;

} // namespace

void RtfTabellen::schriftnummer(int nummer) {
    schriftnummer_ = nummer;
    schriftname_.clear();
}

void RtfTabellen::namenszeichen(wchar_t zeichen) {
    const bool führendesLeerzeichen = zeichen == L' ' && schriftname_.empty();
    if (zeichen >= L' ' && !führendesLeerzeichen && schriftname_.size() < längsterName)
        schriftname_ += zeichen;
}

void RtfTabellen::schriftFertig() {
    while (!schriftname_.empty() && schriftname_.back() == L' ')
        schriftname_.pop_back();
    if (schriftnummer_ >= 0 && schriftnummer_ <= höchsteSchriftnummer)
        schriften_.insert_or_assign(schriftnummer_, schriftname_);
    schriftname_.clear();
}

std::wstring RtfTabellen::schrift(int nummer) const {
    auto fund = schriften_.find(nummer);
    if (fund == schriften_.end())
        fund = schriften_.find(schriftVorgabe_);
    return fund == schriften_.end() ? std::wstring() : fund->second;
}

void RtfTabellen::farbanteil(unsigned versatz, int anteil) {
    mischung_ &= ~(0xFFU << versatz);
    mischung_ |= static_cast<std::uint32_t>(std::clamp(anteil, 0, 255)) << versatz;
}

void RtfTabellen::farbeFertig() {
    if (farben_.size() < höchsteFarbzahl)
        farben_.push_back(mischung_);
    mischung_ = 0;
}

std::uint32_t RtfTabellen::color(int nummer) const {
    const bool bekannt = nummer >= 0 && static_cast<std::size_t>(nummer) < farben_.size();
    return bekannt ? farben_[static_cast<std::size_t>(nummer)] : 0;
}

} // namespace klopfmeise
