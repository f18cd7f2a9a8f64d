// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/Result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::ui {

/// Keeps the unsaved document of a window, so that it survives the end of the process.
///
///     state/recovery/<private folder>/document.zelvo   the document, with absolute paths
///                                     origin           the path that it was opened from; may be missing
///
/// Each window has a folder of its own and holds a lock on it, which the system releases when the
/// process ends in any way. A folder without a lock was left behind. Any thread, but one at a time.
class Recovery {
public:
    explicit Recovery(const std::filesystem::path& stateFolder)
        : all(stateFolder / "recovery") {}

    /// Replaces what was kept before. `origin` is empty for a document without a file. Error:
    /// `unwritable`.
    [[nodiscard]] foundation::Result<void>
    keep(const std::string& text, const std::filesystem::path& origin);

    /// The document is saved or given up: removes the folder.
    void clear();

    /// What a process that has ended has left behind.
    struct Left {
        std::filesystem::path folder;
        std::filesystem::path document;
        std::filesystem::path origin; ///< empty: it had no file
    };

    /// The newest first.
    [[nodiscard]] std::vector<Left> left() const;

    /// Makes a folder that was left behind this window's own, so that no other window is offered it.
    /// Error: `notFound` if another window was faster.
    [[nodiscard]] foundation::Result<void> take(const Left& left);

private:
    [[nodiscard]] foundation::Result<void> makeFolder();

    std::filesystem::path all;
    std::filesystem::path own; ///< empty: nothing is kept
    foundation::Descriptor lock;
};

} // namespace zelvo::ui
