// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"
#include "platform/object/reading/NeighbourFiles.h"

#include <cstdint>
#include <span>

namespace zelvo::object {

/// Reads a glTF 2.0 file, as text or binary (GLB): the default scene with its meshes, placed by the
/// nodes, and the metal and roughness materials. A skinned mesh is shown in its bind pose, as it
/// stands by its first joint; morph targets and animations are left out. Units are metres, y is up.
///
/// Extensions: KHR_texture_transform, KHR_materials_unlit, KHR_materials_emissive_strength,
/// KHR_mesh_quantization, EXT_texture_webp. Compressed geometry is `unsupported`. Other errors:
/// `malformed`, `tooLarge`, `cancelled`.
[[nodiscard]] foundation::Result<ObjectScene>
readGLTF(std::span<const std::uint8_t> bytes, NeighbourFiles neighbours, const Watch& watch);

} // namespace zelvo::object
