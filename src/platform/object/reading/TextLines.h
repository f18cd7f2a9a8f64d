// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace zelvo::object {

/// Reads the next bytes of a file into the span; returns how many, 0 at the end.
using ByteSource = std::function<std::size_t(std::span<char>)>;

/// A source that reads these bytes, which must stay.
[[nodiscard]] ByteSource sourceOf(std::string_view bytes);

/// A source that reads a file; nothing if it cannot be opened or is no regular file.
[[nodiscard]] std::optional<ByteSource> sourceOfFile(const std::filesystem::path& file);

/// The lines of a text file that some unknown program wrote. The file is read in blocks, and lines
/// are not copied.
///
/// Lines end with LF, CR LF or CR. A byte-order mark is skipped, and UTF-16 becomes UTF-8 if its
/// mark is there. Control characters become blanks. A line that ends with a backslash goes on with
/// the next one, if it is no comment.
class TextLines {
public:
    explicit TextLines(ByteSource bytes);

    /// Without the line end; valid until the next call. Nothing at the end of the file. A line above
    /// kMaxLineBytes is cut off.
    [[nodiscard]] std::optional<std::string_view> next();

    [[nodiscard]] std::uint64_t bytesRead() const { return bytesRead_; }

    static constexpr std::size_t kMaxLineBytes = 64U << 20U;

private:
    [[nodiscard]] bool loadMore();
    void skipMark();
    [[nodiscard]] std::size_t lineEnd();
    void skipToLineEnd();

    ByteSource source;
    std::vector<char> buffer;
    std::size_t start = 0;   ///< of what is not given out yet, in the buffer
    std::size_t end = 0;     ///< of what is loaded
    std::size_t scanned = 0; ///< no line ends before this
    std::uint64_t bytesRead_ = 0;
    bool isAtEnd = false;
    bool endedWithReturn = false; ///< the last byte loaded was a CR
    bool isCutOff = false;        ///< the last line was too long
};

/// Calls back with each line of a file until it returns false, or this many bytes are read. False if
/// the file cannot be opened.
bool forEachLine(
    const std::filesystem::path& file,
    std::uint64_t maxBytes,
    const std::function<bool(std::string_view line)>& take);

} // namespace zelvo::object
