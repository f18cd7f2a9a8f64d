// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/Stage.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zelvo::usd {

/// How many of each a mesh has.
struct MeshCounts {
    std::size_t points = 0;
    std::size_t faces = 0;
    std::size_t corners = 0;
};

/// A corner of a face, counted over the whole mesh.
struct CornerPlace {
    std::size_t point = 0;
    std::size_t face = 0;
    std::size_t corner = 0;
};

/// Values over a mesh: normals, colours, texture coordinates.
class Primvar {
public:
    /// Nothing if the prim has no such attribute with vectors of that width, or not as many as the
    /// mesh needs. `name` is the attribute's whole name.
    [[nodiscard]] static std::optional<Primvar>
    read(const Prim& prim, const std::string& name, std::size_t width, const MeshCounts& counts);

    [[nodiscard]] const FloatArray& values() const { return *values_; }

    /// The number of the value; nothing if its index is out of range.
    [[nodiscard]] std::optional<std::uint32_t> indexAt(const CornerPlace& place) const;

private:
    enum class Interpolation { constant, uniform, vertex, faceVarying };

    [[nodiscard]] static std::optional<Interpolation>
    interpolationOf(std::string_view authored, std::size_t count, const MeshCounts& counts);

    std::shared_ptr<const FloatArray> values_;
    std::optional<IntArray> indices;
    Interpolation interpolation = Interpolation::constant;
};

} // namespace zelvo::usd
