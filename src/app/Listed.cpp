// SPDX-License-Identifier: MIT
#include "app/Listed.h"

#include "document/EngineNames.h"
#include "document/Templates.h"
#include "platform/foundation/Check.h"

namespace zelvo::app {

namespace {

using document::engineNames;

[[nodiscard]] std::vector<std::string> tabLines() {
    std::vector<std::string> lines;
    for (const auto& tab : engineNames().tabs)
        lines.push_back(tab.tab);
    return lines;
}

[[nodiscard]] std::vector<std::string> buttonLines() {
    std::vector<std::string> lines;
    for (const auto& tab : engineNames().tabs) {
        for (const auto& title : tab.titles)
            lines.push_back(tab.tab + "\t" + title);
    }
    return lines;
}

} // namespace

std::vector<std::string> listed(Listing what) {
    switch (what) {
    case Listing::tabs:
        return tabLines();
    case Listing::buttons:
        return buttonLines();
    case Listing::fonts:
        return engineNames().fonts;
    case Listing::materials:
        return engineNames().materials;
    case Listing::scenes:
        return engineNames().scenes;
    case Listing::speeds:
        return engineNames().speeds;
    case Listing::shapes:
        return engineNames().shapes;
    case Listing::masks:
        return engineNames().masks;
    case Listing::templates:
        return {document::kTemplates.begin(), document::kTemplates.end()};
    }
    FATAL("no listing {}", static_cast<int>(what));
}

} // namespace zelvo::app
