// SPDX-License-Identifier: MIT
#include "document/StylePaths.h"

#include <system_error>

namespace zelvo::document {

void forEachPath(Style& style, const std::function<void(std::string& path)>& call) {
    for (auto& [name, text] : style.nodes) {
        if (text.fontFile)
            call(*text.fontFile);
    }
    if (style.picture && style.picture->image)
        call(*style.picture->image);
    if (style.object && style.object->object)
        call(*style.object->object);
    if (style.music)
        call(style.music->file);
}

Style resolved(Style style, const std::filesystem::path& folder) {
    std::error_code noFolder; // the process's folder may be gone; then nothing is found there
    const auto base = std::filesystem::absolute(folder / ".", noFolder);
    forEachPath(
        style, [&](std::string& path) { path = (base / path).lexically_normal().string(); });
    return style;
}

Style relativeTo(Style style, const std::filesystem::path& folder) {
    forEachPath(style, [&](std::string& path) {
        const auto shorter = std::filesystem::path(path).lexically_relative(folder);
        if (!shorter.empty() && *shorter.begin() != "..")
            path = shorter.string();
    });
    return style;
}

} // namespace zelvo::document
