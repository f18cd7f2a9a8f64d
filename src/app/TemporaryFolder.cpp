// SPDX-License-Identifier: MIT
#include "app/TemporaryFolder.h"

#include <fmt/format.h>

#include <cstdlib>
#include <string>
#include <system_error>

namespace zelvo::app {

foundation::Result<TemporaryFolder> TemporaryFolder::make(const std::filesystem::path& parent) {
    std::error_code error;
    std::filesystem::create_directories(parent, error);
    auto name = (parent / "export-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        return foundation::fail(
            foundation::Cause::unwritable,
            fmt::format("no folder can be made in {}; is the disk full?", parent.string()));
    }
    return TemporaryFolder(name);
}

TemporaryFolder::~TemporaryFolder() {
    if (folder.empty())
        return;
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

} // namespace zelvo::app
