// SPDX-License-Identifier: MIT
#include "platform/scene/SkeletonCache.h"

#include <list>
#include <map>
#include <set>
#include <utility>

namespace zelvo::scene {

namespace {

using Skeleton = std::shared_ptr<const geometry::OutlineSkeleton>;

class Cache {
public:
    /// Null if it is not there.
    [[nodiscard]] Skeleton find(const SkeletonKey& key) {
        const auto found = byKey.find(key);
        if (found == byKey.end())
            return nullptr;
        entries.splice(entries.begin(), entries, found->second);
        return found->second->skeleton;
    }

    void add(const SkeletonKey& key, const Skeleton& skeleton) {
        if (byKey.contains(key))
            return;
        entries.push_front({key, skeleton});
        byKey.emplace(key, entries.begin());
        if (entries.size() > kSkeletonsKept) {
            byKey.erase(entries.back().key);
            entries.pop_back();
        }
    }

private:
    struct Entry {
        SkeletonKey key;
        Skeleton skeleton;
    };

    std::list<Entry> entries; ///< most recently used first
    std::map<SkeletonKey, std::list<Entry>::iterator> byKey;
};

Cache& cache() {
    static Cache kept;
    return kept;
}

SkeletonKey
keyOf(const std::string& string, const text::TextAttributes& attributes, double flatness) {
    return {
        attributes.font, attributes.fallbacks, string, attributes.size, attributes.kern, flatness};
}

Skeleton compute(const SkeletonKey& key, const geometry::BezierPath& outline) {
    return geometry::makeSkeleton(outline, static_cast<float>(std::get<5>(key)));
}

} // namespace

Skeleton
skeletonOf(const std::string& string, const text::TextAttributes& attributes, double flatness) {
    const SkeletonKey key = keyOf(string, attributes, flatness);
    Skeleton skeleton = cache().find(key);
    if (!skeleton) {
        skeleton = compute(key, text::outlineOf(string, attributes));
        cache().add(key, skeleton);
    }
    return skeleton;
}

MissingSkeleton::MissingSkeleton(SkeletonKey of, geometry::BezierPath from)
    : key(std::move(of))
    , outline(std::move(from)) {}

void MissingSkeleton::compute() {
    skeleton = scene::compute(key, outline);
    geometry::prepareChamfer(*skeleton);
}

void MissingSkeleton::keep() const {
    if (skeleton)
        cache().add(key, skeleton);
}

std::vector<MissingSkeleton> missingSkeletons(
    const std::vector<std::string>& strings,
    const text::TextAttributes& attributes,
    double flatness) {
    std::vector<MissingSkeleton> missing;
    for (const std::string& string : std::set<std::string>(strings.begin(), strings.end())) {
        SkeletonKey key = keyOf(string, attributes, flatness);
        if (!cache().find(key))
            missing.emplace_back(std::move(key), text::outlineOf(string, attributes));
    }
    return missing;
}

} // namespace zelvo::scene
