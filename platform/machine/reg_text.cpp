#include "platform/machine/reg_text.h"

#include "platform/machine/value_text.h"
#include "platform/values/text.h"
#include "platform/values/utf8.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

namespace klopfmeise {

namespace {

using Type = Registry::Type;

constexpr std::wstring_view hiveName = L"HKEY_LOCAL_MACHINE\\";
constexpr std::wstring_view firstLine = L"Windows Registry Editor Version 5.00";
constexpr std::wstring_view blanks = L" \t";
constexpr std::string_view littleMark = "\xFF\xFE";
constexpr std::string_view bigMark = "\xFE\xFF";

bool startsWith(std::wstring_view text, std::wstring_view beginning) {
    return text.size() >= beginning.size() && sameName(text.substr(0, beginning.size()), beginning);
}

std::wstring_view trimmed(std::wstring_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

bool isUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const auto length = utf8CharacterAt(bytes, at).length;
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

bool isLineEnd(wchar_t c) { return c == L'\r' || c == L'\n'; }

/// The key of a line "[HKEY_LOCAL_MACHINE\key]"; empty for another key, none for any other line.
std::optional<std::wstring_view> keyOf(std::wstring_view line) {
    line = trimmed(line);
    if (!line.starts_with(L'[') || line.starts_with(L"[-"))
        return std::nullopt;
    const auto end = line.rfind(L']');
    const auto name = line.substr(1, end == std::wstring_view::npos ? 0 : end - 1);
    return startsWith(name, hiveName) ? name.substr(hiveName.size()) : std::wstring_view();
}

/// The key of a line "[-HKEY_LOCAL_MACHINE\key]", which takes away what stood before.
std::optional<std::wstring> removedKeyOf(std::wstring_view line) {
    line = trimmed(line);
    if (!line.starts_with(L"[-"))
        return std::nullopt;
    const std::wstring plain = L"[" + std::wstring(line.substr(2));
    const auto key = keyOf(plain);
    return key ? std::optional(std::wstring(*key)) : std::nullopt;
}

/// A quoted text at the front of `rest`, which is moved behind it; `\\` and `\"` stand for the sign itself.
std::optional<std::wstring> takeQuoted(std::wstring_view& rest) {
    if (!rest.starts_with(L'"'))
        return std::nullopt;
    std::wstring text;
    for (std::size_t at = 1; at < rest.size(); ++at) {
        if (rest[at] == L'"') {
            rest.remove_prefix(at + 1);
            return text;
        }
        if (rest[at] == L'\\' && at + 1 < rest.size())
            ++at;
        text += rest[at];
    }
    return std::nullopt;
}

/// A line `"name"=data`.
struct ValueLine {
    std::wstring name;
    /// Everything up to the data, as it is written.
    std::wstring_view head;
    std::wstring_view data;
};
std::optional<ValueLine> valueLine(std::wstring_view line) {
    std::wstring_view rest = line;
    const auto skip = [&] { rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size())); };
    skip();
    const auto name = takeQuoted(rest);
    skip();
    if (!name || !rest.starts_with(L'='))
        return std::nullopt;
    rest.remove_prefix(1);
    skip();
    return ValueLine{*name, line.substr(0, line.size() - rest.size()), rest};
}

/// Where the data of a line ends and a comment of the administrator may begin.
std::size_t dataEnd(std::wstring_view data) {
    std::wstring_view rest = data;
    if (takeQuoted(rest))
        return data.size() - rest.size();
    if (data.starts_with(L'"'))
        return data.size();
    const auto item = data.substr(0, data.find(L';'));
    return item.find_last_not_of(blanks) + 1;
}

/// What stays behind the data of a line that takes another value: a comment, blanks included. Anything else
/// there would be part of the new value.
std::wstring_view commentBehind(std::wstring_view data) {
    const auto rest = data.substr(dataEnd(data));
    return trimmed(rest).starts_with(L';') ? rest : std::wstring_view();
}

/// Hexadecimal digits, up to `highest`.
std::optional<std::uint32_t> hexNumber(std::wstring_view digits, std::uint32_t highest) {
    const std::string plain = toWindows1252(trimmed(digits));
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number, 16);
    if (error != std::errc() || end != plain.data() + plain.size() || number > highest)
        return std::nullopt;
    return number;
}

std::optional<std::string> hexBytes(std::wstring_view list) {
    std::string bytes;
    while (!trimmed(list).empty()) {
        const auto item = list.substr(0, list.find(L','));
        const auto byte = hexNumber(item, 0xFF);
        if (!byte)
            return std::nullopt;
        bytes += static_cast<char>(*byte);
        list.remove_prefix(std::min(item.size() + 1, list.size()));
    }
    return bytes;
}

std::optional<Registry::Value> parsedValue(std::wstring_view data) {
    data = data.substr(0, dataEnd(data));
    std::wstring_view rest = data;
    if (const auto text = takeQuoted(rest))
        return Registry::Value{Type::string, valueBytes(*text) + '\0'};
    constexpr std::wstring_view number = L"dword:";
    if (startsWith(data, number)) {
        const auto value = hexNumber(data.substr(number.size()), 0xFFFFFFFF);
        if (!value)
            return std::nullopt;
        std::string bytes;
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(*value >> shift & 0xFF);
        return Registry::Value{Type::dword, bytes};
    }
    const auto colon = data.find(L':');
    if (!startsWith(data, L"hex") || colon == std::wstring_view::npos)
        return std::nullopt;
    const auto kind = data.substr(0, colon);
    const Type type = sameName(kind, L"hex(1)")   ? Type::string
                      : sameName(kind, L"hex(7)") ? Type::multiString
                                                  : Type::binary;
    const auto bytes = hexBytes(data.substr(colon + 1));
    return bytes ? std::optional(Registry::Value{type, *bytes}) : std::nullopt;
}

/// A string as an export in UTF-16 has it, in units of two bytes with a zero at its end; as it is if these
/// are none.
std::string narrowed(std::string bytes) {
    if (bytes.size() % 2 != 0 || !bytes.ends_with(std::string_view("\0\0", 2)))
        return bytes;
    std::wstring text;
    for (std::size_t at = 0; at + 2 < bytes.size(); at += 2)
        text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[at + 1]) << 8 |
                                     static_cast<unsigned char>(bytes[at]));
    return valueBytes(text) + '\0';
}

/// True if taking away `removed` takes `key` away too.
bool takesAway(std::wstring_view removed, std::wstring_view key) {
    return sameName(removed, key.substr(0, removed.size())) &&
           (key.size() == removed.size() || key[removed.size()] == L'\\');
}

void appendHex(std::wstring& text, char byte) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    text += digits[static_cast<unsigned char>(byte) >> 4];
    text += digits[byte & 15];
}

std::wstring writtenData(const Registry::Value& value) {
    if (value.type == Type::dword && value.bytes.size() == 4) {
        std::wstring data = L"dword:";
        std::for_each(value.bytes.rbegin(), value.bytes.rend(), [&](char byte) { appendHex(data, byte); });
        return data;
    }
    std::wstring data = value.type == Type::string        ? L"hex(1):"
                        : value.type == Type::multiString ? L"hex(7):"
                                                          : L"hex:";
    for (std::size_t i = 0; i < value.bytes.size(); ++i) {
        if (i > 0)
            data += L',';
        appendHex(data, value.bytes[i]);
    }
    return data;
}

std::wstring quoted(std::wstring_view text) {
    std::wstring result = L"\"";
    for (const wchar_t c : text) {
        if (c == L'"' || c == L'\\')
            result += L'\\';
        result += c;
    }
    return result + L"\"";
}

/// True if the value of this line goes on in the next one.
bool goesOn(std::wstring_view line) {
    const auto value = valueLine(line);
    return value && startsWith(value->data, L"hex") && value->data.ends_with(L'\\');
}

} // namespace

RegText::RegText(std::string_view bytes) {
    if (bytes.starts_with(littleMark))
        encoding_ = RegEncoding::utf16Little;
    else if (bytes.starts_with(bigMark))
        encoding_ = RegEncoding::utf16Big;
    else if (!isUtf8(bytes))
        encoding_ = RegEncoding::windows1252;
    if (encoding_ == RegEncoding::utf16Little || encoding_ == RegEncoding::utf16Big)
        mark_ = bytes.substr(0, 2);
    else if (bytes.starts_with(utf8ByteOrderMark))
        mark_ = utf8ByteOrderMark;
    bytes.remove_prefix(mark_.size());

    const std::string end = encoded(L"\n");
    bool more = false; // the line before goes on
    while (!bytes.empty()) {
        std::size_t length = 0;
        do
            length = std::min(length + end.size(), bytes.size());
        while (length < bytes.size() && bytes.substr(length - end.size(), end.size()) != end);
        std::string raw(bytes.substr(0, length));
        bytes.remove_prefix(length);
        std::wstring text = decoded(raw);
        if (lines_.empty() && text.ends_with(L'\n') && !text.ends_with(L"\r\n"))
            lineEnd_ = L"\n";
        while (!text.empty() && (isLineEnd(text.back()) || blanks.find(text.back()) != blanks.npos))
            text.pop_back();
        if (more) {
            Line& last = lines_.back();
            last.raw += raw;
            last.text.pop_back();
            last.text += trimmed(text);
            more = text.ends_with(L'\\');
        } else {
            lines_.push_back({std::move(raw), std::move(text)});
            more = goesOn(lines_.back().text);
        }
    }
    open_ = more;
    if (open_)
        lines_.back().text.pop_back();
}

std::wstring RegText::decoded(std::string_view bytes) const {
    if (encoding_ == RegEncoding::windows1252)
        return fromWindows1252(bytes);
    if (encoding_ == RegEncoding::utf8)
        return fromUtf8(bytes);
    const std::size_t high = encoding_ == RegEncoding::utf16Little ? 1 : 0;
    const auto unit = [&](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + high]) << 8 |
                                          static_cast<unsigned char>(bytes[at + 1 - high]));
    };
    std::wstring text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        std::uint32_t code = unit(at);
        // A character beyond the first 65536 takes a pair of units.
        if (code >= 0xD800 && code < 0xDC00 && at + 3 < bytes.size())
            if (const std::uint32_t second = unit(at + 2); second >= 0xDC00 && second < 0xE000) {
                code = 0x10000 + ((code - 0xD800) << 10) + (second - 0xDC00);
                at += 2;
            }
        text += static_cast<wchar_t>(code);
    }
    return text;
}

std::string RegText::encoded(std::wstring_view text) const {
    if (encoding_ == RegEncoding::windows1252)
        return toWindows1252(text);
    if (encoding_ == RegEncoding::utf8)
        return toUtf8(text);
    std::string bytes;
    const auto unit = [&](std::uint32_t code) {
        const char high = static_cast<char>(code >> 8 & 0xFF);
        const char low = static_cast<char>(code & 0xFF);
        bytes += encoding_ == RegEncoding::utf16Little ? low : high;
        bytes += encoding_ == RegEncoding::utf16Little ? high : low;
    };
    for (const wchar_t c : text) {
        const auto code = static_cast<std::uint32_t>(c);
        if (code >= 0x10000) {
            unit(0xD800 + ((code - 0x10000) >> 10));
            unit(0xDC00 + (code & 0x3FF));
        } else {
            unit(code);
        }
    }
    return bytes;
}

RegText::Line RegText::line(const std::wstring& text) const { return {encoded(text + lineEnd_), text}; }

void RegText::insert(std::size_t at, const std::wstring& text) {
    const std::string end = encoded(L"\n");
    if (at > 0) {
        std::string& before = lines_[at - 1].raw;
        // A file that was cut may end with half a character.
        before.resize(before.size() - before.size() % end.size());
        if (!before.ends_with(end))
            before += encoded(lineEnd_);
    }
    // What comes now must not be taken for the rest of the line before: an empty one is.
    if (open_ && at == lines_.size())
        lines_[at - 1].raw += encoded(lineEnd_);
    open_ = open_ && at < lines_.size();
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), line(text));
}

bool RegText::hasKey(std::wstring_view key) const {
    bool there = false;
    for (const Line& line : lines_) {
        if (const auto name = keyOf(line.text); name && sameName(*name, key))
            there = true;
        if (const auto name = removedKeyOf(line.text); name && takesAway(*name, key))
            there = false;
    }
    return there;
}

void RegText::addKey(std::wstring_view key) {
    if (lines_.empty()) {
        insert(0, std::wstring(firstLine));
        insert(1, L"");
    }
    insert(lines_.size(), L"[" + std::wstring(hiveName) + std::wstring(key) + L"]");
}

std::map<std::wstring, Registry::Value> RegText::values(std::wstring_view key) const {
    std::map<std::wstring, Registry::Value> found;
    const bool wide = encoding_ == RegEncoding::utf16Little || encoding_ == RegEncoding::utf16Big;
    bool inside = false;
    for (const Line& line : lines_) {
        if (const auto name = keyOf(line.text)) {
            inside = sameName(*name, key);
            continue;
        }
        if (const auto name = removedKeyOf(line.text)) {
            inside = false;
            if (takesAway(*name, key))
                found.clear();
            continue;
        }
        const auto value = valueLine(line.text);
        if (!value || !inside)
            continue;
        if (value->data.substr(0, dataEnd(value->data)) == L"-")
            found.erase(upper(value->name));
        else if (auto parsed = parsedValue(value->data)) {
            if (wide && parsed->type == Type::string)
                parsed->bytes = narrowed(std::move(parsed->bytes));
            found.insert_or_assign(upper(value->name), std::move(*parsed));
        }
    }
    return found;
}

void RegText::set(std::wstring_view key, std::wstring_view name, const Registry::Value& value) {
    bool inside = false;
    bool done = false;
    std::size_t behind = 0; // where a new value goes
    for (std::size_t at = 0; at < lines_.size(); ++at) {
        Line& there = lines_[at];
        if (const auto other = keyOf(there.text)) {
            inside = sameName(*other, key);
            behind = inside ? at + 1 : behind;
            continue;
        }
        if (const auto removed = removedKeyOf(there.text)) {
            inside = false;
            // What stands before counts no more.
            done = done && !takesAway(*removed, key);
            continue;
        }
        const auto old = valueLine(there.text);
        if (!old || !inside)
            continue;
        behind = at + 1;
        if (!sameName(old->name, name))
            continue;
        if (done) {
            // A second line of the same name would count in place of the first.
            open_ = open_ && at + 1 < lines_.size();
            lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(at--));
            continue;
        }
        done = true;
        // A value that says the same keeps the form in which an administrator laid it.
        const auto before = parsedValue(old->data);
        if (before && before->type == value.type && before->bytes == value.bytes)
            continue;
        std::wstring text =
            std::wstring(old->head) + writtenData(value) + std::wstring(commentBehind(old->data));
        // Behind bytes a backslash at the end would take the next line in.
        while (goesOn(text))
            text.pop_back();
        open_ = open_ && at + 1 < lines_.size();
        // The last of its lines keeps its end, or has none at the end of the file.
        const std::wstring whole = decoded(there.raw);
        const auto content = static_cast<std::size_t>(
            std::find_if_not(whole.rbegin(), whole.rend(), isLineEnd).base() - whole.begin());
        there = {encoded(text + whole.substr(content)), text};
    }
    if (!done)
        insert(behind, quoted(name) + L"=" + writtenData(value));
}

std::string RegText::bytes() const {
    std::string all = mark_;
    for (const Line& line : lines_)
        all += line.raw;
    // Without what made it none before, the rest may look like UTF-8, and would be read as that.
    const bool ascii = std::ranges::all_of(all, [](char byte) { return (byte & 0x80) == 0; });
    if (encoding_ == RegEncoding::windows1252 && !ascii && isUtf8(all))
        return toUtf8(fromWindows1252(all));
    return all;
}

} // namespace klopfmeise
