#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace klopfmeise {

/// A file descriptor that closes itself.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }
    /// Closes, and tells what the destructor cannot: a full share may say only now that something written
    /// before did not arrive.
    bool close();

private:
    int number_ = -1;
};

bool isFile(const Descriptor& file);

/// Up to `size` bytes at `offset`, fewer at the end of the file; no value if reading failed.
std::optional<std::string> readAt(const Descriptor& file, std::int64_t offset, std::size_t size);

/// Writes all bytes at `offset`. If they do not all arrive, what stood there before is put back, the length
/// of the file too, and the answer is false. `before` is what stood there, if the caller has just read it:
/// a read less.
bool overwrite(const Descriptor& file, std::int64_t offset, std::string_view bytes,
               std::optional<std::string> before = std::nullopt);

/// Waits until what was written has arrived on the disk or the server; false if it did not.
bool flush(const Descriptor& file);

} // namespace klopfmeise
