// SPDX-License-Identifier: MIT
#include "platform/scene/SCNReferenceNode.h"

#include "platform/object/reading/ObjectReader.h"
#include "platform/scene/ObjectBatches.h"
#include "platform/scene/ObjectNodes.h"

#include <utility>

namespace zelvo::scene {

using foundation::Result;

namespace {

constexpr double kReadingShare = 0.7; ///< of the time, by and large

/// A step's own share as one of the whole.
[[nodiscard]] object::Watch watchOf(const LoadWatch& watch, LoadStep step) {
    object::Watch result{watch.stop, {}};
    if (!watch.isAdvanced)
        return result;
    result.isAdvanced = [&tell = watch.isAdvanced, step](double share) {
        const bool isReading = step == LoadStep::reading;
        tell(
            {step,
             isReading ? share * kReadingShare : kReadingShare + share * (1 - kReadingShare)});
    };
    return result;
}

} // namespace

Result<ReadObject> readObjectFile(const std::filesystem::path& file, const LoadWatch& watch) {
    auto scene = object::readObject(file, watchOf(watch, LoadStep::reading));
    if (!scene)
        return tl::unexpected(scene.error());
    ReadObject read{std::move(*scene), {}};
    joinSmallPieces(read.scene);
    read.materials = materialsOf(read.scene, watchOf(watch, LoadStep::pictures));
    if (watch.stop.stop_requested())
        return tl::unexpected(object::cancelledError());
    return read;
}

Result<void> SCNReferenceNode::load() {
    auto read = readObjectFile(file_);
    if (!read)
        return tl::unexpected(read.error());
    load(std::move(*read));
    return {};
}

void SCNReferenceNode::load(ReadObject read) {
    figures_ = read.scene.figures;
    warnings_ = std::move(read.scene.warnings);
    const std::vector<SCNNodePtr> former = childNodes();
    for (const SCNNodePtr& child : former)
        child->removeFromParentNode();
    const std::vector<SCNNodePtr> made =
        nodeOf(std::move(read.scene), read.materials)->childNodes();
    for (const SCNNodePtr& child : made)
        addChildNode(child);
}

} // namespace zelvo::scene
