// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stop_token>

namespace zelvo::ui {

/// Tells whether everything that a Wavefront file refers to stands beside it: its material
/// libraries, and the images that these name. Reads the files as text only.
///
/// An image is looked for by the last word of its line, so a name with blanks is not found. The key
/// of a bump map counts as one of an alpha map.
class ObjInfo {
    Q_DECLARE_TR_FUNCTIONS(zelvo::ui::ObjInfo)

public:
    static constexpr std::uint64_t kMaxObjectBytes = 2ULL << 30U; ///< more is not read
    static constexpr std::uint64_t kMaxLibraryBytes = 16ULL << 20U;
    static constexpr int kMaxLibraries = 32;     ///< more are not listed
    static constexpr int kMaxImages = 1000;      ///< of a library; more are not listed
    static constexpr std::size_t kMaxName = 255; ///< bytes; longer ones are cut off

    /// Takes long for a large file. Any thread; ends early if it is stopped.
    [[nodiscard]] static QString
    report(const std::filesystem::path& file, const std::stop_token& stop = {});

    /// The report as it is shown: escapes in names ("\u00e9", "\303") become characters. A text with
    /// anything else behind a backslash stays as it is.
    [[nodiscard]] static QString withoutEscapes(const QString& report);
};

} // namespace zelvo::ui
