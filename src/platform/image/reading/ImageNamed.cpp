// SPDX-License-Identifier: MIT
#include "platform/image/reading/ImageNamed.h"

#include "platform/foundation/Folders.h"
#include "platform/foundation/JsonObject.h"
#include "platform/foundation/Process.h"
#include "platform/image/LightProbe.h"
#include "platform/image/reading/ImageReader.h"

#include <map>
#include <mutex>

namespace zelvo::image {

using foundation::Result;

namespace {

/// Whether the file is there; then it must be right.
template <class Value> Result<bool> found(const Result<Value>& loaded) {
    if (!loaded && loaded.error().cause != foundation::Cause::notFound)
        return tl::unexpected(loaded.error());
    return loaded.has_value();
}

Result<ImagePtr> loadResource(const std::filesystem::path& file) {
    auto loaded = loadImage(file);
    if (!loaded)
        return loaded;
    auto image = std::make_shared<Image>(**loaded);
    const auto hasNormals = found(image::loadFineNormals(*image, file.string() + ".normals"));
    if (!hasNormals)
        return tl::unexpected(hasNormals.error());
    if (*hasNormals)
        image->pixels = {}; // the same normals, but coarse
    auto probe = LightProbe::load(file.string() + ".probe");
    const auto hasProbe = found(probe);
    if (!hasProbe)
        return tl::unexpected(hasProbe.error());
    if (*hasProbe)
        image->lightProbe = std::make_shared<const LightProbe>(*std::move(probe));
    return *hasProbe || *hasNormals ? Result<ImagePtr>(image) : loaded;
}

std::string missing(const std::string& name) {
    return foundation::quoted(name) + " is missing";
}

/// Pictures by file, so that another bundle gets its own.
struct Cache {
    std::mutex mutex; ///< guards images
    std::map<std::filesystem::path, Result<ImagePtr>> images;
};

Cache& cache() {
    static Cache instance;
    return instance;
}

} // namespace

Result<ImagePtr> imageNamed(const std::string& name) {
    const auto file = foundation::mainBundle().path(name);
    if (file.empty())
        return foundation::fail(foundation::Cause::notFound, missing(name));
    Cache& kept = cache();
    const std::scoped_lock lock(kept.mutex);
    if (const auto found = kept.images.find(file); found != kept.images.end()) {
        return found->second;
    }
    return kept.images.emplace(file, loadResource(file)).first->second;
}

ImagePtr requiredImage(const std::string& name) {
    auto image = imageNamed(name);
    if (!image)
        foundation::endWithoutResource(image.error().message);
    return *std::move(image);
}

ImagePtr requiredEnvironment(const std::string& name) {
    ImagePtr image = requiredImage(name);
    if (image->lightProbe == nullptr)
        foundation::endWithoutResource(name + ".probe is missing");
    return image;
}

LazyImage::LazyImage(std::string resourceName)
    : name(std::move(resourceName)) {
    if (foundation::mainBundle().path(name).empty())
        foundation::endWithoutResource(missing(name));
}

const ImagePtr& LazyImage::image() const {
    std::call_once(isRead, [this] { read = requiredImage(name); });
    return read;
}

} // namespace zelvo::image
