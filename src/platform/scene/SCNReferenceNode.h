// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/object/ObjectScene.h"
#include "platform/scene/SCNNode.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::scene {

/// What takes time when a 3D file is loaded.
enum class LoadStep {
    reading,  ///< the geometry
    pictures, ///< decoding the textures
};

/// How far the loading of a 3D file is.
struct LoadProgress {
    LoadStep step = LoadStep::reading;
    double share = 0; ///< 0 to 1, of all steps together; never falls
};

/// A 3D file that is read, with its materials. Needs no more than a moment to become nodes.
struct ReadObject {
    object::ObjectScene scene;
    std::vector<SCNMaterialPtr> materials; ///< those of the scene
};

/// How readObjectFile() is watched from another thread, and ended.
struct LoadWatch {
    std::stop_token stop; ///< then `cancelled` is returned
    /// On the reader's thread. May be empty.
    std::function<void(const LoadProgress&)> isAdvanced;
};

/// Reads a 3D file and decodes its pictures. Any thread. Errors: those of object::readObject.
[[nodiscard]] foundation::Result<ReadObject>
readObjectFile(const std::filesystem::path& file, const LoadWatch& watch = {});

/// A node whose subtree is a 3D file: USDZ, OBJ, glTF or STL, by the extension. The subtree has a
/// node for each placement of a mesh (if there are very many, the small ones are joined), the file's
/// materials, and the default `categoryBitMask`. Lengths are the file's own.
///
/// `castsShadow` concerns the node alone, as with every node, so the meshes below it cast shadows.
class SCNReferenceNode final : public SCNNode {
public:
    /// The subtree is empty until it is loaded.
    explicit SCNReferenceNode(std::filesystem::path referenced)
        : file_(std::move(referenced)) {}

    [[nodiscard]] const std::filesystem::path& file() const { return file_; }

    /// Reads the file on this thread, which may take seconds; ObjectLoader does it on another one.
    /// On an error the subtree stays as it was.
    [[nodiscard]] foundation::Result<void> load();

    /// Replaces the subtree by what was read before.
    void load(ReadObject read);

    /// What the file contains. All zero before it is loaded.
    [[nodiscard]] const object::Figures& figures() const { return figures_; }

    /// What is missing or was left out, one line each.
    [[nodiscard]] const std::vector<std::string>& warnings() const { return warnings_; }

private:
    std::filesystem::path file_;
    object::Figures figures_;
    std::vector<std::string> warnings_;
};

using SCNReferenceNodePtr = std::shared_ptr<SCNReferenceNode>;

} // namespace zelvo::scene
