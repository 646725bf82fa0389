#pragma once

#include "platform/machine/services.h"

#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace klopfmeise {

/// A clock that stands until it is moved.
class ManualClock final : public Clock {
public:
    double seconds() const override { return now_; }
    void advance(double seconds) { now_ += seconds; }

private:
    double now_ = 0;
};

/// Alike in every run with the same seed.
class SeededRandom : public Random {
public:
    explicit SeededRandom(unsigned seed = 1)
        : generator_(seed) {}
    void randomize() override {}
    double next() override { return static_cast<double>(generator_() >> 5) / 134217728.0; }

private:
    std::mt19937 generator_;
};

/// Writes down what would be heard: the file names, in order.
class RecordedSound final : public Sound {
public:
    int play(const std::wstring& path) override {
        played.push_back(path.substr(path.rfind(L'\\') + 1));
        return length;
    }
    std::vector<std::wstring> played;
    /// What each sound says of its length, in milliseconds.
    int length = 100;
};

/// A shell whose answers the test sets.
class ScriptedShell final : public Shell {
public:
    void openDocument(const std::wstring& target) override { opened.push_back(target); }
    void showFolder(const std::wstring& path) override { opened.push_back(path); }
    std::wstring chooseFolder(const std::wstring& /*title*/) override { return chosenFolder; }
    std::wstring commonDataFolder() override { return commonFolder; }
    std::wstring programFolder() override { return program; }
    bool secondInstance() override { return second; }
    wchar_t decimalSign() override { return L','; }

    std::vector<std::wstring> opened;
    std::wstring chosenFolder;
    std::wstring commonFolder = L"\\var\\lib";
    std::wstring program = L"\\opt\\klopfmeise";
    bool second = false;
};

/// Machine-wide values in memory, one key; `refuseWrite` is what a restricted user finds.
class MemoryRegistry final : public Registry {
public:
    Opened open(std::uint32_t, const std::string&, std::uint32_t access) override {
        if (!keyThere)
            return {RegistryStatus::fileNotFound, 0};
        if (access != readOnly && refuseWrite)
            return {RegistryStatus::accessDenied, 0};
        ++openHandles;
        return {RegistryStatus::success, 1};
    }
    Created create(std::uint32_t, const std::string&, std::uint32_t) override {
        if (refuseWrite)
            return {RegistryStatus::accessDenied, 0, 0};
        ++openHandles;
        return {RegistryStatus::success, 1, std::exchange(keyThere, true) ? 2u : 1u};
    }
    RegistryStatus flush(Handle) override { return RegistryStatus::success; }
    RegistryStatus query(Handle, const std::string& name, Value& value) override {
        const auto found = values.find(name);
        if (found == values.end())
            return RegistryStatus::fileNotFound;
        value = found->second;
        return RegistryStatus::success;
    }
    RegistryStatus set(Handle, const std::string& name, const Value& value) override {
        values[name] = value;
        return RegistryStatus::success;
    }
    RegistryStatus close(Handle) override {
        --openHandles;
        return closing;
    }

    std::map<std::string, Value> values;
    int openHandles = 0;
    /// What a close answers.
    RegistryStatus closing = RegistryStatus::success;
    bool keyThere = true;
    bool refuseWrite = false;

private:
    static constexpr std::uint32_t readOnly = 25;
};

} // namespace klopfmeise
