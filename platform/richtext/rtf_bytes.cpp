#include "platform/richtext/rtf_bytes.h"

#include <algorithm>

namespace klopfmeise {

namespace {

constexpr std::size_t blockSize = 65'536;

} // namespace

bool RtfBytes::startsWith(std::string_view beginning) {
    return reach(beginning.size()) && std::string_view(block_).substr(at_).starts_with(beginning);
}

void RtfBytes::leap(std::size_t count) {
    const std::size_t atHand = std::min(count, block_.size() - at_);
    at_ += atHand;
    offset_ += static_cast<std::int64_t>(count - atHand);
}

void RtfBytes::goTo(std::string_view bytes) {
    while (reach(1)) {
        at_ = std::min(block_.find_first_of(bytes, at_), block_.size());
        if (at_ < block_.size())
            return;
    }
}

std::string RtfBytes::rest(std::size_t limit) {
    std::string bytes;
    while (bytes.size() < limit && reach(1)) {
        const std::size_t piece = std::min(limit - bytes.size(), block_.size() - at_);
        bytes.append(block_, at_, piece);
        at_ += piece;
    }
    return bytes;
}

bool RtfBytes::fill(std::size_t count) {
    block_.erase(0, at_);
    at_ = 0;
    while (block_.size() < count && !ended_) {
        const auto piece = source_(offset_, blockSize);
        failed_ = !piece;
        ended_ = failed_ || piece->empty();
        if (ended_)
            break;
        cut_ = length_ + piece->size() > rtfMaxLength;
        ended_ = cut_;
        block_ += *piece;
        offset_ += static_cast<std::int64_t>(piece->size());
        length_ += piece->size();
    }
    return block_.size() >= count;
}

} // namespace klopfmeise
