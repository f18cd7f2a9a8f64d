// SPDX-License-Identifier: MIT
#include "platform/archive/Archive.h"
#include "platform/foundation/Check.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace {

using zelvo::archive::Archive;
using zelvo::archive::ArchivedFile;

void check(const Archive& opened, const ArchivedFile& file) {
    const auto climbs = [](const std::filesystem::path& part) { return part == ".."; };
    const bool isInside = file.path.is_relative() && std::ranges::none_of(file.path, climbs);
    CHECK(isInside, "{} leads outside", file.path.string());
    if (const auto content = opened.contentOf(file))
        CHECK(content->size() == file.size, "{} bytes are not {}", content->size(), file.size);
}

} // namespace

// Any bytes as a ZIP archive: its entries, their paths and contents. Nothing is written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr zelvo::archive::Limits kLimits{
        .packed = 64U << 10U, .unpacked = 256U << 10U, .file = 64U << 10U, .entries = 64};
    if (size > kLimits.packed)
        return 0;
    const auto opened = Archive::openBytes({reinterpret_cast<const char*>(data), size}, kLimits);
    if (!opened)
        return 0;
    for (const auto& file : opened->files())
        check(*opened, file);
    return 0;
}
