// SPDX-License-Identifier: MIT
#include "platform/usd/Primvar.h"

#include <utility>

namespace zelvo::usd {

/// What is authored if the count fits; otherwise what the count fits.
std::optional<Primvar::Interpolation>
Primvar::interpolationOf(std::string_view authored, std::size_t count, const MeshCounts& counts) {
    using enum Interpolation;
    if (authored == "constant" && count == 1)
        return constant;
    if (authored == "uniform" && count == counts.faces)
        return uniform;
    if ((authored == "vertex" || authored == "varying") && count == counts.points)
        return vertex;
    if (count == counts.corners)
        return faceVarying;
    if (count == counts.points)
        return vertex;
    if (count == counts.faces)
        return uniform;
    return count == 1 ? std::optional(constant) : std::nullopt;
}

std::optional<Primvar> Primvar::read(
    const Prim& prim, const std::string& name, std::size_t width, const MeshCounts& counts) {
    Primvar primvar;
    primvar.values_ = prim.floats(name, width);
    if (primvar.values_ == nullptr || primvar.values_->values.empty())
        return std::nullopt;
    std::size_t count = primvar.values_->values.size() / width;
    if (IntArray indices = prim.ints(name + ":indices"); !indices.empty()) {
        count = indices.size();
        primvar.indices = std::move(indices);
    }
    std::string authored = prim.interpolation(name);
    if (authored.empty())
        authored = name == "normals" ? "vertex" : "constant";
    const auto fitting = interpolationOf(authored, count, counts);
    if (!fitting)
        return std::nullopt;
    primvar.interpolation = *fitting;
    return primvar;
}

std::optional<std::uint32_t> Primvar::indexAt(const CornerPlace& place) const {
    std::size_t at = 0;
    switch (interpolation) {
    case Interpolation::constant:
        break;
    case Interpolation::uniform:
        at = place.face;
        break;
    case Interpolation::vertex:
        at = place.point;
        break;
    case Interpolation::faceVarying:
        at = place.corner;
        break;
    }
    if (indices) {
        if (at >= indices->size() || (*indices)[at] < 0)
            return std::nullopt;
        at = static_cast<std::size_t>((*indices)[at]);
    }
    const bool isInside = at < values_->values.size() / values_->width;
    return isInside ? std::optional(static_cast<std::uint32_t>(at)) : std::nullopt;
}

} // namespace zelvo::usd
