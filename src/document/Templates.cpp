// SPDX-License-Identifier: MIT
#include "document/Templates.h"

#include "platform/foundation/Folders.h"
#include "platform/foundation/JsonObject.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <vector>

namespace zelvo::document {

std::string previewName(std::string_view name) {
    return fmt::format("templates/{}.jpg", name);
}

foundation::Result<std::filesystem::path> templateFile(std::string_view name) {
    if (std::ranges::find(kTemplates, name) == kTemplates.end()) {
        const std::vector<std::string> names(kTemplates.begin(), kTemplates.end());
        return foundation::fail(
            foundation::Cause::notFound, foundation::unknownName("template", name, names));
    }
    auto file = foundation::mainBundle().path(fmt::format("templates/{}.json", name));
    if (file.empty()) {
        return foundation::fail(
            foundation::Cause::notFound,
            fmt::format("the template {} is missing: install the program anew", name));
    }
    return file;
}

} // namespace zelvo::document
