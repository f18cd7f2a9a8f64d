// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Folders.h"
#include "platform/text/FontRegistry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace zelvo::text {

[[nodiscard]] inline std::filesystem::path fontFile(const std::string& name) {
    return foundation::mainBundle().path("fonts/" + name + ".ttf");
}

/// All files in the folder of a known font.
[[nodiscard]] inline std::set<std::filesystem::path> allFontFiles() {
    std::set<std::filesystem::path> files;
    for (const auto& entry :
         std::filesystem::directory_iterator(fontFile("Abel-Regular").parent_path())) {
        if (entry.path().extension() == ".ttf")
            files.insert(entry.path());
    }
    return files;
}

[[nodiscard]] inline FontPtr fontOf(const std::filesystem::path& file) {
    FontRegistry registry;
    const auto registered = registry.registerFile(file);
    EXPECT_TRUE(registered.has_value()) << file;
    return registry.fallback();
}

} // namespace zelvo::text
