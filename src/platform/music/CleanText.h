// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zelvo::music {

/// Makes one readable line of a foreign text, which comes in UTF-16 code units, as UTF-8.
///
/// Programs often write UTF-8 or Windows-1252 into fields that are for Latin-1; then each byte stands
/// as one character, and is read again as what it was. Control characters, the marks that turn the
/// direction of a text, and unpaired surrogates are left out; blanks become single spaces.
[[nodiscard]] std::string cleanText(std::u16string_view units, std::size_t maxLength);

} // namespace zelvo::music
