// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::foundation {

/// Small values kept between launches. When a call returns, its change survives a crash of the
/// program, and by default one of the machine. A damaged or missing file counts as empty. If the
/// file cannot be written, this is reported once on the console and the values stay in memory.
class UserDefaults {
public:
    using Value = std::variant<bool, double, std::string, std::vector<std::string>>;

    /// In memory only.
    UserDefaults() = default;
    /// Stored in the given file (JSON), which is read now.
    explicit UserDefaults(std::filesystem::path path);

    /// Nothing if the key is missing or its value has another type.
    [[nodiscard]] std::optional<std::string> string(const std::string& key) const;
    [[nodiscard]] std::optional<std::vector<std::string>> strings(const std::string& key) const;
    [[nodiscard]] std::optional<bool> boolean(const std::string& key) const;
    [[nodiscard]] std::optional<double> number(const std::string& key) const;

    /// What a change must survive. The machine's crash takes milliseconds of waiting for the disk.
    enum class Outlives { program, machine };

    void set(const std::string& key, Value value, Outlives crash = Outlives::machine);
    void remove(const std::string& key, Outlives crash = Outlives::machine);

    /// Takes over what other windows of the program have changed since the last change here.
    void refresh();

private:
    void save(Outlives crash);

    std::filesystem::path file;
    std::map<std::string, Value> values;
    bool hasReportedUnwritable = false;
};

} // namespace zelvo::foundation
