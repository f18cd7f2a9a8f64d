// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::foundation {

/// Small values kept between launches, by key. Every change is on disk when the call returns (a
/// process that dies in the next line has left its mark). A damaged or missing file counts as
/// empty; a file that cannot be written is said once on the console, and the values live on in
/// memory.
class UserDefaults {
public:
    using Value = std::variant<bool, double, std::string, std::vector<std::string>>;

    /// Kept in memory only.
    UserDefaults() = default;
    /// Kept in the given file (JSON), which is read now.
    explicit UserDefaults(std::filesystem::path path);

    /// Absent if the key was never written or holds a value of another type.
    [[nodiscard]] std::optional<std::string> string(const std::string& key) const;
    [[nodiscard]] std::optional<std::vector<std::string>> strings(const std::string& key) const;
    [[nodiscard]] std::optional<bool> boolean(const std::string& key) const;
    [[nodiscard]] std::optional<double> number(const std::string& key) const;

    void set(const std::string& key, Value value);
    void remove(const std::string& key);

private:
    void save();

    std::filesystem::path file;
    std::map<std::string, Value> values;
    bool hasReportedUnwritable = false;
};

} // namespace zelvo::foundation
