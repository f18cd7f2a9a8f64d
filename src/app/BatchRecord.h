// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "document/Performance.h"
#include "platform/foundation/Result.h"

#include <filesystem>
#include <map>
#include <string>

namespace zelvo::app {

/// What a batch has made, kept in a file beside the movies, so that the next run makes only the
/// rest. The file is written whole after each movie.
class BatchRecord {
public:
    static constexpr const char* kFileName = "zelvo-batch.json";

    /// Reads the record of a folder. One that is missing or damaged is empty: all movies are made.
    [[nodiscard]] static BatchRecord of(const std::filesystem::path& folder);

    /// Whether the movie is there and was made with this key.
    [[nodiscard]] bool has(const std::string& movie, const std::string& key) const;

    /// Error: `unwritable`.
    [[nodiscard]] foundation::Result<void> add(const std::string& movie, const std::string& key);

private:
    explicit BatchRecord(std::filesystem::path of)
        : folder(std::move(of)) {}

    std::filesystem::path folder;
    std::map<std::string, std::string> keys; ///< by file name
};

/// A text that changes with all that a movie depends on: the performance, whose paths must be
/// absolute (`resolved`), the sizes and times of the files that it names, and the options.
[[nodiscard]] std::string
batchKey(const document::Performance& performance, const BatchCommand& command);

} // namespace zelvo::app
