// SPDX-License-Identifier: MIT
#include "document/PerformanceFile.h"

#include "document/PerformanceWriter.h"
#include "document/StylePaths.h"
#include "platform/foundation/NewFile.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <optional>
#include <span>
#include <system_error>

namespace zelvo::document {

namespace {

using Lines = std::vector<std::string>;

/// Reads only as much as the parser needs to see that a file is too large.
[[nodiscard]] tl::expected<std::string, std::string> bytesOf(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error))
        return tl::unexpected(std::string("no such file"));
    if (std::filesystem::is_directory(file, error)) {
        return tl::unexpected(std::string("this is a folder, not a performance file"));
    }
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return tl::unexpected(fmt::format("cannot be opened: {}", std::strerror(errno)));
    std::string bytes(foundation::kMaxJsonBytes + 1, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (in.bad())
        return tl::unexpected(std::string("cannot be read"));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

} // namespace

tl::expected<Performance, Lines> loadPerformance(
    const std::filesystem::path& file, const Names& names, const std::vector<Setting>& settings) {
    const auto bytes = bytesOf(file);
    if (!bytes)
        return tl::unexpected(Lines{fmt::format("{}: {}", file.string(), bytes.error())});
    auto read = readPerformance(*bytes, names, settings);
    if (read)
        return std::move(*read);
    Lines lines;
    for (const auto& problem : read.error())
        lines.push_back(message(problem, file, settings));
    return tl::unexpected(lines);
}

foundation::Result<void>
savePerformance(Performance performance, const std::filesystem::path& file) {
    const auto folder = std::filesystem::absolute(file).parent_path();
    static_cast<Style&>(performance) = relativeTo(performance, folder);
    const std::string text = written(performance);
    return foundation::NewFile::create(file).and_then([&](foundation::NewFile made) {
        return made.write(std::as_bytes(std::span(text))).and_then([&] { return made.commit(); });
    });
}

} // namespace zelvo::document
