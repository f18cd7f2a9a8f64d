// SPDX-License-Identifier: MIT
#include "platform/image/reading/ImageNamed.h"

#include "platform/foundation/Console.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/Process.h"
#include "platform/image/LightProbe.h"
#include "platform/image/reading/ImageReader.h"

#include <map>
#include <mutex>

namespace zelvo::image {

namespace {

/// The light probe of a picture; null if there is none.
std::shared_ptr<const LightProbe> probeOf(const std::filesystem::path& picture) {
    auto probe = LightProbe::load(picture.string() + ".probe");
    if (probe)
        return std::make_shared<const LightProbe>(*std::move(probe));
    if (probe.error().cause != foundation::Cause::notFound) {
        foundation::logLine(probe.error().message);
    }
    return nullptr;
}

ImagePtr loadResource(const std::filesystem::path& file) {
    const auto loaded = loadImage(file);
    if (!loaded) {
        foundation::logLine(loaded.error().message);
        return nullptr;
    }
    auto probe = probeOf(file);
    if (!probe)
        return *loaded;
    auto image = std::make_shared<Image>(**loaded);
    image->lightProbe = std::move(probe);
    return image;
}

/// Pictures by file, so that another bundle gets its own.
struct Cache {
    std::mutex mutex; ///< guards images
    std::map<std::filesystem::path, ImagePtr> images;
};

Cache& cache() {
    static Cache instance;
    return instance;
}

} // namespace

ImagePtr imageNamed(const std::string& name) {
    const auto file = foundation::mainBundle().path(name);
    if (file.empty())
        return nullptr;
    Cache& kept = cache();
    const std::scoped_lock lock(kept.mutex);
    if (const auto found = kept.images.find(file); found != kept.images.end()) {
        return found->second;
    }
    return kept.images.emplace(file, loadResource(file)).first->second;
}

ImagePtr requiredImage(const std::string& name) {
    if (foundation::mainBundle().path(name).empty())
        foundation::endWithoutResource(name + " is missing");
    ImagePtr image = imageNamed(name);
    if (image == nullptr)
        foundation::endWithoutResource(name + " cannot be read");
    return image;
}

ImagePtr requiredEnvironment(const std::string& name) {
    const ImagePtr image = requiredImage(name);
    if (image->lightProbe == nullptr)
        foundation::endWithoutResource(name + ".probe is missing or damaged");
    return image;
}

} // namespace zelvo::image
