// SPDX-License-Identifier: MIT
#include "document/PerformanceReader.h"

#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const zelvo::document::Names kNames{
        .fonts = {"Abel-Regular", "Bungee"},
        .materials = {"Iron", "Plain"},
        .objectMaterials = {"Plain"},
        .shapes = {"None", "Heart"},
        .masks = {"None", "Mask 1"},
        .scenes = {"Plain", "Stage"},
        .speeds = {"Normal", "Fast"},
        .fades = {"noFade", "fadeIn"},
        .tabs = {{"IN1", {"Left In", "Right In"}}, {"CAM", {}}}};
    const auto* const chars =
        reinterpret_cast<const char*>(data); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
    const auto read = zelvo::document::readPerformance(std::string_view(chars, size), kNames);
    return read.has_value() && read->cues.size() > zelvo::document::kMaxCues ? 1 : 0;
}
