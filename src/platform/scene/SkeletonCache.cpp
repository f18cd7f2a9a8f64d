// SPDX-License-Identifier: MIT
#include "platform/scene/SkeletonCache.h"

#include <list>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace zelvo::scene {

namespace {

using Skeleton = std::shared_ptr<const geometry::OutlineSkeleton>;

/// The fonts are held, so that no other font can get such an address.
using Key =
    std::tuple<text::FontPtr, std::vector<text::FontPtr>, std::string, double, double, double>;

struct Cache {
    struct Entry {
        Key key;
        Skeleton skeleton;
    };

    std::list<Entry> entries; ///< most recently used first
    std::map<Key, std::list<Entry>::iterator> byKey;
};

} // namespace

Skeleton
skeletonOf(const std::string& string, const text::TextAttributes& attributes, double flatness) {
    static Cache cache;
    Key key{
        attributes.font, attributes.fallbacks, string, attributes.size, attributes.kern, flatness};
    if (const auto found = cache.byKey.find(key); found != cache.byKey.end()) {
        cache.entries.splice(cache.entries.begin(), cache.entries, found->second);
        return found->second->skeleton;
    }
    Skeleton skeleton =
        geometry::makeSkeleton(text::outlineOf(string, attributes), static_cast<float>(flatness));
    cache.entries.push_front({key, skeleton});
    cache.byKey.emplace(std::move(key), cache.entries.begin());
    if (cache.entries.size() > kSkeletonsKept) {
        cache.byKey.erase(cache.entries.back().key);
        cache.entries.pop_back();
    }
    return skeleton;
}

} // namespace zelvo::scene
