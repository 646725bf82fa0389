#pragma once

#include "platform/richtext/rtf.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace klopfmeise {

/// The bytes of a source in their order, held a block at a time.
class RtfBytes {
public:
    explicit RtfBytes(const RtfSource& source)
        : source_(source) {}

    /// The byte `ahead` places further on, -1 behind the end.
    [[nodiscard]] int peek(std::size_t ahead = 0) {
        return reach(ahead + 1) ? static_cast<unsigned char>(block_[at_ + ahead]) : -1;
    }
    /// Takes a byte that `peek` has seen.
    char next() { return block_[at_++]; }
    [[nodiscard]] bool startsWith(std::string_view beginning);
    /// Leaps over bytes without reading more of them than is at hand.
    void leap(std::size_t count);
    /// Goes on to the next one of these bytes, or to the end.
    void goTo(std::string_view bytes);
    /// All that is left, at most `limit` bytes.
    [[nodiscard]] std::string rest(std::size_t limit);

    /// The source failed, or had more than the greatest length.
    [[nodiscard]] bool failed() const { return failed_; }
    [[nodiscard]] bool cut() const { return cut_; }

private:
    /// True if so many bytes can be had.
    bool reach(std::size_t count) { return block_.size() - at_ >= count || fill(count); }
    bool fill(std::size_t count);

    const RtfSource& source_;
    std::string block_;
    std::size_t at_ = 0;
    std::int64_t offset_ = 0; ///< of the next block
    std::size_t length_ = 0;  ///< bytes read so far
    bool ended_ = false;
    bool failed_ = false;
    bool cut_ = false;
};

} // namespace klopfmeise
