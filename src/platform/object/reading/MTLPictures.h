// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"

#include <string>
#include <string_view>

namespace zelvo::object {

/// A picture in a material library: options, then the file's name.
struct MTLPicture {
    std::string name;
    glm::vec2 scale{1};  ///< -s
    glm::vec2 offset{0}; ///< -o: u' = u * scale + offset, v upwards
    float base = 0;      ///< -mm: value = texel * gain + base
    float gain = 1;
    float strength = 1; ///< -bm, of a normal or height map
    bool isClamped = false;
    char channel = '\0'; ///< -imfchan: r, g, b, m (alpha), l or z; 0 if not given
};

/// Reads what stands behind the keyword. Numbers are taken by an option only while a word for the
/// name is left. Options may also stand behind the name.
[[nodiscard]] MTLPicture readMTLPicture(std::string_view text);

} // namespace zelvo::object
