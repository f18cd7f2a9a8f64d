// SPDX-License-Identifier: MIT
#pragma once

#include <glm/mat4x4.hpp>
#include <glm/vec4.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tinygltf {
class Model;
} // namespace tinygltf

namespace zelvo::object {

/// The bytes of a buffer view; empty if it does not lie within its buffer.
[[nodiscard]] std::span<const std::uint8_t> viewBytes(const tinygltf::Model& model, int view);

/// The elements of a glTF accessor, with missing components 0 and w 1. Empty if the accessor is
/// broken: wrong indices, or beyond its buffer. Numbers that are not finite become 0.
[[nodiscard]] std::vector<glm::vec4> vectorsOf(const tinygltf::Model& model, int accessor);

/// The same for a list of indices.
[[nodiscard]] std::vector<std::uint32_t> indicesOf(const tinygltf::Model& model, int accessor);

/// The first matrix of a list of matrices.
[[nodiscard]] std::optional<glm::mat4> firstMatrixOf(const tinygltf::Model& model, int accessor);

} // namespace zelvo::object
