// SPDX-License-Identifier: MIT

#include "platform/scene/SCNScene.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const auto scene = zelvo::scene::SCNScene::fromJSON(text, "fuzz.scn");
    if (scene)
        (*scene)->applyAnimations(0);
    return 0;
}
