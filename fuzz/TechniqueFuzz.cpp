// SPDX-License-Identifier: MIT

#include "platform/scene/SCNTechnique.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    if (const auto list = zelvo::scene::readPropertyList(text))
        (void)zelvo::scene::SCNTechnique::techniqueWithDictionary(*list);
    return 0;
}
