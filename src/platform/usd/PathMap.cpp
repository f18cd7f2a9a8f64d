// SPDX-License-Identifier: MIT
#include "platform/usd/PathMap.h"

#include <algorithm>

namespace zelvo::usd {

std::string withoutVariants(std::string_view path) {
    std::string result;
    while (!path.empty()) {
        const std::size_t open = std::min(path.find('{'), path.size());
        if (!result.empty() && open > 0 && path.front() != '/' && path.front() != '.')
            result += '/';
        result += path.substr(0, open);
        const std::size_t close = path.find('}', open);
        path = close == std::string_view::npos ? std::string_view() : path.substr(close + 1);
    }
    return result;
}

bool isAtOrBelow(std::string_view path, std::string_view start) {
    if (start == "/")
        return path.starts_with('/');
    if (!path.starts_with(start))
        return false;
    return path.size() == start.size() || path[start.size()] == '/' || path[start.size()] == '.';
}

std::vector<std::string> elementsOf(std::string_view path) {
    std::vector<std::string> elements;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (end > 0)
            elements.emplace_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return elements;
}

std::string PathMap::apply(std::string_view path) const {
    std::string mapped = withoutVariants(path);
    for (const PathMap* map = this; map != nullptr && !mapped.empty(); map = map->next.get()) {
        if (isAtOrBelow(mapped, map->source)) {
            mapped.erase(0, map->source == "/" ? 0 : map->source.size());
            if (map->target != "/")
                mapped.insert(0, map->target);
        } else if (!map->keepsOthers) {
            return {};
        }
    }
    return mapped;
}

} // namespace zelvo::usd
