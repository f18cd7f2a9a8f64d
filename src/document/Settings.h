// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Json.h"
#include "platform/foundation/Result.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::document {

/// A value that takes the place of one in the file, given on the command line or in a table.
///
/// The key is the path to the value, with dots: "background", "TX1.text" (short for
/// "nodes.TX1.text"), "audio.file", "cues.0.at" (the first cue). The value is a text where the file
/// has a free text or a path; elsewhere it is JSON, with no quotes around a name: `5`, `[0, 40, 0]`,
/// `Iron`. `null` leaves the key out.
struct Setting {
    std::string origin; ///< for messages: "--set TX1.text"
    std::string key;
    std::string value;
    std::filesystem::path folder; ///< that relative paths are relative to; absolute
};

inline constexpr std::size_t kMaxSettings = 1000;
inline constexpr std::size_t kMaxSettingBytes = 64UL * 1024; ///< of one value

/// Splits "KEY=VALUE" at the first "=". Error: `malformed`; the message begins with `option`.
[[nodiscard]] foundation::Result<Setting>
parseSetting(std::string_view text, std::string_view option, const std::filesystem::path& folder);

/// Whether the key holds a free text, such as a title or a path, for which "" is a value, too.
[[nodiscard]] bool isFreeText(std::string_view key);

/// Puts the values into the JSON of a performance, in their order. They are not checked yet: that is
/// for the reader. Returns the keys that lead nowhere.
[[nodiscard]] std::vector<foundation::Problem>
applySettings(const std::vector<Setting>& settings, foundation::JsonValue& root);

// What a setting has put into the JSON has no line in the file. It has a negative one in its place,
// so that a problem names the setting: -1 for the last setting, -2 for the one before it.

/// The setting that a problem's line stands for; null for a line of the file.
[[nodiscard]] const Setting* settingAt(int line, const std::vector<Setting>& settings);

/// A problem as the user reads it: "night.json:12: …" or "--set TX1.text: …".
[[nodiscard]] std::string message(
    const foundation::Problem& problem,
    const std::filesystem::path& file,
    const std::vector<Setting>& settings);

} // namespace zelvo::document
