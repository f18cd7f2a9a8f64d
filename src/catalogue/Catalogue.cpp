// SPDX-License-Identifier: MIT
#include "catalogue/Catalogue.h"

#include "catalogue/Tabs.h"

#include <algorithm>

namespace zelvo::catalogue {

std::span<const Tab> tabs() {
    return kTabs;
}

const Tab* tabNamed(std::string_view shortTitle) {
    const auto* const found = std::ranges::find(kTabs, shortTitle, &Tab::shortTitle);
    return found == kTabs.end() ? nullptr : &*found;
}

} // namespace zelvo::catalogue
