#pragma once

#include "platform/machine/services.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// How the characters of a file are stored: UTF-16 where its mark says so, UTF-8 where all bytes fit, else
/// Windows-1252.
enum class RegEncoding { utf8, windows1252, utf16Little, utf16Big };

/// The text of an exported registry file. What is not changed stays byte for byte: comments, other keys,
/// order, line ends, encoding. Names of keys (below HKEY_LOCAL_MACHINE) and values compare without regard to
/// case; of several values of one name the last counts, and "-" in its place takes away those before it.
class RegText {
public:
    explicit RegText(std::string_view bytes);

    bool hasKey(std::wstring_view key) const;
    void addKey(std::wstring_view key);
    /// The values of a key by their names in upper case.
    std::map<std::wstring, Registry::Value> values(std::wstring_view key) const;
    /// Replaces a value where it stands, or adds it behind the last one of the key, which must be there.
    void set(std::wstring_view key, std::wstring_view name, const Registry::Value& value);

    std::string bytes() const;

private:
    struct Line {
        /// The bytes as they stand in the file, line end included. A value that goes on over several lines
        /// is one.
        std::string raw;
        std::wstring text;
    };

    std::wstring decoded(std::string_view bytes) const;
    std::string encoded(std::wstring_view text) const;
    Line line(const std::wstring& text) const;
    /// Adds a line before the one at `at`, behind a line that has an end.
    void insert(std::size_t at, const std::wstring& text);

    RegEncoding encoding_ = RegEncoding::utf8;
    std::string mark_;
    std::wstring lineEnd_ = L"\r\n";
    std::vector<Line> lines_;
    /// The last line says that it goes on, and the file ends there.
    bool open_ = false;
};

} // namespace klopfmeise
