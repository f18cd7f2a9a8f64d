// SPDX-License-Identifier: MIT
#include "catalogue/ActionLoop.h"

#include <cctype>

namespace zelvo::catalogue {

std::string loopName(std::string_view title) {
    std::string name = "loops/";
    for (const char character : title) {
        const auto letter = static_cast<unsigned char>(character);
        // One character for each: titles may differ in a sign only.
        name += std::isalnum(letter) != 0 ? static_cast<char>(std::tolower(letter)) : '-';
    }
    return name + ".jpg";
}

} // namespace zelvo::catalogue
