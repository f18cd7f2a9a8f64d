// SPDX-License-Identifier: MIT
#include "platform/archive/Archive.h"
#include "platform/foundation/Check.h"

#include <algorithm>
#include <cstdint>
#include <string>

// Any bytes as a ZIP archive: its entries, their paths and contents. Nothing is written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using zelvo::archive::Archive;
    constexpr zelvo::archive::Limits kLimits{
        .packed = 64U << 10U, .unpacked = 256U << 10U, .file = 64U << 10U, .entries = 64};
    if (size > kLimits.packed)
        return 0;
    const auto opened = Archive::openBytes(std::string(data, data + size), kLimits);
    if (!opened)
        return 0;
    for (const auto& file : opened->files()) {
        const auto climbs = [](const std::filesystem::path& part) { return part == ".."; };
        CHECK(
            file.path.is_relative() && std::ranges::none_of(file.path, climbs),
            "{} leads outside",
            file.path.string());
        if (const auto content = opened->contentOf(file))
            CHECK(content->size() == file.size, "{} bytes are not {}", content->size(), file.size);
    }
    return 0;
}
