// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"

#include <array>

namespace zelvo::ui {

/// The forty colours that the user can choose, in the order of the colour strip: five greys, the
/// circle of hues, four earth tones.
inline constexpr std::array<image::Color, 40> kPalette = {
    image::Color::white(1.0f),
    image::Color::white(2.0f / 3.0f), // light gray
    image::Color::white(0.5f),        // gray
    image::Color::white(1.0f / 3.0f), // dark gray
    image::Color::white(0.0f),        image::Color::hex(0xE61919), image::Color::hex(0xE64C19),
    image::Color::hex(0xE67F19),      image::Color::hex(0xE6B219), image::Color::hex(0xE6CC19),
    image::Color::hex(0xE6E619),      image::Color::hex(0xCCE619), image::Color::hex(0x6CE71E),
    image::Color::hex(0x19E633),      image::Color::hex(0x3AC408), image::Color::hex(0x2AA400),
    image::Color::hex(0x118800),      image::Color::hex(0x017500), image::Color::hex(0x009E17),
    image::Color::hex(0x00B826),      image::Color::hex(0x09D152), image::Color::hex(0x19E6A2),
    image::Color::hex(0x19E6E6),      image::Color::hex(0x19CCE6), image::Color::hex(0x19B2E6),
    image::Color::hex(0x197FE6),      image::Color::hex(0x194CE6), image::Color::hex(0x1919E6),
    image::Color::hex(0x4C19E6),      image::Color::hex(0x7F19E6), image::Color::hex(0xB219E6),
    image::Color::hex(0xCC19E6),      image::Color::hex(0xE619E6), image::Color::hex(0xE619BF),
    image::Color::hex(0xE6197F),      image::Color::hex(0xE71E41), image::Color::hex(0xB33E2C),
    image::Color::hex(0x9C5821),      image::Color::hex(0x8A4E1B), image::Color::hex(0x7D4217),
};

inline constexpr std::size_t kWhiteIndex = 0;
inline constexpr std::size_t kNodeColorIndex = 2; ///< the initial front and band colour of a node
inline constexpr std::size_t kBlackIndex = 4;
inline constexpr std::size_t kDefaultBackgroundIndex = 26;

} // namespace zelvo::ui
