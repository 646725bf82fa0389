#include "platform/machine/reg_file.h"

#include "platform/values/text.h"
#include "platform/values/utf8.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace klopfmeise {

namespace {

constexpr std::string_view hiveName = "HKEY_LOCAL_MACHINE\\";
constexpr std::string_view firstLine = "Windows Registry Editor Version 5.00";

bool same(std::string_view a, std::string_view b) { return sameName(fromUtf8(a), fromUtf8(b)); }

std::vector<std::string> linesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (lines.empty() && line.starts_with(utf8ByteOrderMark))
            line.erase(0, utf8ByteOrderMark.size());
        while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
            line.pop_back();
        // A hex value may go on over several lines.
        if (!lines.empty() && lines.back().ends_with(",\\")) {
            lines.back().pop_back();
            line.erase(0, std::min(line.find_first_not_of(" \t"), line.size()));
            lines.back() += line;
        } else {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

/// The key of a line "[HKEY_LOCAL_MACHINE\key]"; none for any other line.
std::optional<std::string> keyOf(const std::string& line) {
    if (line.size() < hiveName.size() + 2 || line.front() != '[' || line.back() != ']')
        return std::nullopt;
    const std::string name = line.substr(1, line.size() - 2);
    if (!same(std::string_view(name).substr(0, hiveName.size()), hiveName))
        return std::nullopt;
    return name.substr(hiveName.size());
}

/// Takes a quoted text off the front of `line`; `\\` and `\"` stand for the sign itself.
std::optional<std::string> takeQuoted(std::string_view& line) {
    if (line.empty() || line.front() != '"')
        return std::nullopt;
    std::string text;
    for (std::size_t at = 1; at < line.size(); ++at) {
        if (line[at] == '"') {
            line.remove_prefix(at + 1);
            return text;
        }
        if (line[at] == '\\' && at + 1 < line.size())
            ++at;
        text += line[at];
    }
    return std::nullopt;
}

std::optional<std::string> hexBytes(std::string_view list) {
    std::string bytes;
    while (!list.empty()) {
        const auto item = list.substr(0, list.find(','));
        unsigned byte = 0;
        const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), byte, 16);
        if (error != std::errc() || end != item.data() + item.size() || byte > 255)
            return std::nullopt;
        bytes += static_cast<char>(byte);
        list.remove_prefix(std::min(item.size() + 1, list.size()));
    }
    return bytes;
}

std::optional<Registry::Value> parsedValue(std::string_view data) {
    using Type = Registry::Type;
    if (data.starts_with('"')) {
        const auto text = takeQuoted(data);
        if (!text)
            return std::nullopt;
        return Registry::Value{Type::string, toWindows1252(fromUtf8(*text)) + '\0'};
    }
    if (data.starts_with("dword:")) {
        data.remove_prefix(6);
        std::uint32_t number = 0;
        const auto [end, error] = std::from_chars(data.data(), data.data() + data.size(), number, 16);
        if (error != std::errc() || end != data.data() + data.size())
            return std::nullopt;
        std::string bytes;
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(number >> shift & 0xFF);
        return Registry::Value{Type::dword, bytes};
    }
    if (!data.starts_with("hex"))
        return std::nullopt;
    const auto colon = data.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const auto kind = data.substr(0, colon);
    const Type type = kind == "hex(1)" ? Type::string : kind == "hex(7)" ? Type::multiString : Type::binary;
    const auto bytes = hexBytes(data.substr(colon + 1));
    return bytes ? std::optional(Registry::Value{type, *bytes}) : std::nullopt;
}

/// The name and the data of a line `"name"=data`.
struct ValueLine {
    std::string name;
    std::string_view data;
};
std::optional<ValueLine> valueLine(std::string_view line) {
    const auto name = takeQuoted(line);
    if (!name || !line.starts_with('='))
        return std::nullopt;
    return ValueLine{*name, line.substr(1)};
}

std::string written(const std::string& name, const Registry::Value& value) {
    using Type = Registry::Type;
    std::ostringstream out;
    out << '"' << name << "\"=";
    if (value.type == Type::dword && value.bytes.size() == 4) {
        out << "dword:";
        for (std::size_t i = 4; i-- > 0;) {
            constexpr std::string_view digits = "0123456789abcdef";
            const auto byte = static_cast<unsigned char>(value.bytes[i]);
            out << digits[byte >> 4] << digits[byte & 15];
        }
        return out.str();
    }
    out << (value.type == Type::string ? "hex(1):" : value.type == Type::multiString ? "hex(7):" : "hex:");
    for (std::size_t i = 0; i < value.bytes.size(); ++i) {
        constexpr std::string_view digits = "0123456789abcdef";
        const auto byte = static_cast<unsigned char>(value.bytes[i]);
        out << (i ? "," : "") << digits[byte >> 4] << digits[byte & 15];
    }
    return out.str();
}

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, std::max<std::size_t>(slash, 1));
}

} // namespace

Registry::Opened RegFile::open(std::uint32_t hive, const std::string& key, std::uint32_t access) {
    bool found = false;
    Key opened{.name = key, .writable = access == writeAccess, .changed = false, .values = {}};
    bool inside = false;
    for (const std::string& line : linesOf(path_)) {
        if (const auto name = keyOf(line)) {
            inside = hive == localMachine && same(*name, key);
            found = found || inside;
        } else if (line.starts_with('[')) {
            inside = false;
        } else if (const auto value = valueLine(line); value && inside) {
            if (auto parsed = parsedValue(value->data))
                opened.values.insert_or_assign(toUtf8(upper(fromUtf8(value->name))), std::move(*parsed));
        }
    }
    if (!found)
        return {RegistryStatus::fileNotFound, 0};
    if (opened.writable && !writable())
        return {RegistryStatus::accessDenied, 0};
    open_.emplace(++last_, std::move(opened));
    return {RegistryStatus::success, last_};
}

Registry::Created RegFile::create(std::uint32_t hive, const std::string& key, std::uint32_t access) {
    if (const Opened existing = open(hive, key, access); existing.status != RegistryStatus::fileNotFound)
        return {existing.status, existing.handle, 2};
    if (hive != localMachine || !writable())
        return {RegistryStatus::accessDenied, 0, 0};
    Key made{.name = key, .writable = true, .changed = true, .values = {}};
    if (save(made) != RegistryStatus::success)
        return {RegistryStatus::accessDenied, 0, 0};
    open_.emplace(++last_, std::move(made));
    return {RegistryStatus::success, last_, 1};
}

RegFile::Key* RegFile::find(Handle handle) {
    const auto found = open_.find(handle);
    return found == open_.end() ? nullptr : &found->second;
}

RegistryStatus RegFile::flush(Handle handle) {
    Key* key = find(handle);
    return key ? save(*key) : RegistryStatus::invalidHandle;
}

RegistryStatus RegFile::query(Handle handle, const std::string& name, Value& value) {
    const Key* key = find(handle);
    if (!key)
        return RegistryStatus::invalidHandle;
    const auto found = key->values.find(toUtf8(upper(fromUtf8(name))));
    if (found == key->values.end())
        return RegistryStatus::fileNotFound;
    value = found->second;
    return RegistryStatus::success;
}

RegistryStatus RegFile::set(Handle handle, const std::string& name, const Value& value) {
    Key* key = find(handle);
    if (!key)
        return RegistryStatus::invalidHandle;
    if (!key->writable)
        return RegistryStatus::accessDenied;
    key->values.insert_or_assign(name, value);
    key->changed = true;
    return RegistryStatus::success;
}

RegistryStatus RegFile::close(Handle handle) {
    Key* key = find(handle);
    if (!key)
        return RegistryStatus::invalidHandle;
    const RegistryStatus status = save(*key);
    open_.erase(handle);
    return status;
}

bool RegFile::writable() const {
    if (::access(path_.c_str(), F_OK) == 0 && ::access(path_.c_str(), W_OK) != 0)
        return false;
    return ::access(folderOf(path_).c_str(), W_OK | X_OK) == 0;
}

RegistryStatus RegFile::save(Key& key) {
    if (!key.changed)
        return RegistryStatus::success;
    std::vector<std::string> lines = linesOf(path_);
    if (lines.empty())
        lines = {std::string(firstLine), ""};
    // Only this key's values are replaced; what stands around them stays. New values go to the end of the
    // key.
    auto pending = key.values;
    std::vector<std::string> result;
    bool inside = false;
    bool found = false;
    std::size_t behindKey = 0; // place behind the key's last value, where new ones go
    const auto addPending = [&] {
        std::vector<std::string> added;
        for (const auto& [name, value] : pending)
            added.push_back(written(name, value));
        result.insert(result.begin() + static_cast<std::ptrdiff_t>(behindKey), added.begin(), added.end());
        pending.clear();
    };
    for (std::string& line : lines) {
        if (line.starts_with('[')) {
            if (inside)
                addPending();
            const auto name = keyOf(line);
            inside = name && same(*name, key.name);
            found = found || inside;
            behindKey = result.size() + 1;
        } else if (const auto value = valueLine(line); value && inside) {
            behindKey = result.size() + 1;
            const auto known =
                std::ranges::find_if(pending, [&](const auto& p) { return same(p.first, value->name); });
            if (known != pending.end()) {
                // An unchanged value keeps the form in which an administrator laid it.
                const auto before = parsedValue(value->data);
                if (!before || before->type != known->second.type || before->bytes != known->second.bytes)
                    line = written(value->name, known->second);
                pending.erase(known);
            }
        }
        result.push_back(std::move(line));
    }
    if (!found) {
        result.push_back("[" + std::string(hiveName) + key.name + "]");
        behindKey = result.size();
        inside = true;
    }
    if (inside)
        addPending();

    std::string text;
    for (const std::string& line : result)
        text += line + "\r\n";
    std::string temporary = path_ + ".XXXXXX";
    const int file = ::mkstemp(temporary.data());
    if (file < 0)
        return RegistryStatus::accessDenied;
    struct stat status {};
    const mode_t mode = ::stat(path_.c_str(), &status) == 0 ? status.st_mode & 0777 : 0644;
    const bool ok = ::fchmod(file, mode) == 0 &&
                    ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
                    ::fsync(file) == 0;
    ::close(file);
    if (!ok || std::rename(temporary.c_str(), path_.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return RegistryStatus::accessDenied;
    }
    if (const int folder = ::open(folderOf(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
    key.changed = false;
    return RegistryStatus::success;
}

} // namespace klopfmeise
