// SPDX-License-Identifier: MIT
#include "platform/object/reading/GLTFAccessor.h"

#include "platform/object/ObjectScene.h"

#include <tiny_gltf.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace zelvo::object {

namespace {

template <class List> [[nodiscard]] auto elementAt(const List& list, int index) {
    const bool isInside = index >= 0 && static_cast<std::size_t>(index) < list.size();
    return isInside ? &list[static_cast<std::size_t>(index)] : nullptr;
}

/// Numbers in a buffer, checked to lie within it.
class Numbers {
public:
    struct Layout {
        int view = -1;
        std::size_t byteOffset = 0;
        int componentType = -1;
        std::size_t components = 1;
        std::size_t count = 0;
        bool isNormalized = false;
    };

    [[nodiscard]] static std::optional<Numbers>
    at(const tinygltf::Model& model, const Layout& layout) {
        const auto* view = elementAt(model.bufferViews, layout.view);
        const int size =
            tinygltf::GetComponentSizeInBytes(static_cast<std::uint32_t>(layout.componentType));
        if (view == nullptr || size <= 0 || layout.count == 0)
            return std::nullopt;
        const std::span<const std::uint8_t> bytes = viewBytes(model, layout.view);
        const std::size_t element = static_cast<std::size_t>(size) * layout.components;
        const std::size_t stride = view->byteStride > 0 ? view->byteStride : element;
        // No product overflows: count and stride are limited.
        const bool fits = layout.count <= Limits::kMaxCorners && stride <= 4096 &&
                          layout.byteOffset <= bytes.size() &&
                          stride * (layout.count - 1) + element <= bytes.size() - layout.byteOffset;
        if (!fits)
            return std::nullopt;
        return Numbers(bytes.subspan(layout.byteOffset), stride, layout);
    }

    [[nodiscard]] double get(std::size_t index, std::size_t component) const {
        const std::size_t place = index * stride;
        switch (layout.componentType) {
        case TINYGLTF_COMPONENT_TYPE_BYTE:
            return number<std::int8_t>(place, component);
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE:
            return number<std::uint8_t>(place, component);
        case TINYGLTF_COMPONENT_TYPE_SHORT:
            return number<std::int16_t>(place, component);
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT:
            return number<std::uint16_t>(place, component);
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT:
            return number<std::uint32_t>(place, component);
        case TINYGLTF_COMPONENT_TYPE_FLOAT:
            return number<float>(place, component);
        default:
            return 0;
        }
    }

    [[nodiscard]] std::size_t count() const { return layout.count; }

private:
    Numbers(std::span<const std::uint8_t> given, std::size_t step, const Layout& kind)
        : bytes(given)
        , stride(step)
        , layout(kind) {}

    template <class Kind>
    [[nodiscard]] double number(std::size_t place, std::size_t component) const {
        static_assert(std::endian::native == std::endian::little);
        Kind value{};
        std::memcpy(&value, &bytes[place + component * sizeof(Kind)], sizeof(Kind));
        if constexpr (std::is_floating_point_v<Kind>) {
            constexpr Kind kMax = 1e30F;
            return std::abs(value) <= kMax ? value : 0;
        } else {
            constexpr double kMost = std::numeric_limits<Kind>::max();
            return layout.isNormalized ? std::max(value / kMost, -1.0) : value;
        }
    }

    std::span<const std::uint8_t> bytes;
    std::size_t stride;
    Layout layout;
};

[[nodiscard]] Numbers::Layout layoutOf(const tinygltf::Accessor& accessor) {
    const int components =
        tinygltf::GetNumComponentsInType(static_cast<std::uint32_t>(accessor.type));
    return {
        accessor.bufferView,
        accessor.byteOffset,
        accessor.componentType,
        static_cast<std::size_t>(std::max(components, 1)),
        accessor.count,
        accessor.normalized};
}

[[nodiscard]] glm::vec4
vectorAt(const Numbers& numbers, std::size_t index, std::size_t components) {
    glm::vec4 vector(0, 0, 0, 1);
    for (std::size_t i = 0; i < std::min<std::size_t>(components, 4); ++i)
        vector[static_cast<int>(i)] = static_cast<float>(numbers.get(index, i));
    return vector;
}

/// Elements of an accessor without a buffer; more would let a tiny file take all memory.
constexpr std::size_t kMaxSparse = 4'000'000;

/// Single elements that replace those of the buffer.
void applySparse(
    const tinygltf::Model& model,
    const tinygltf::Accessor& accessor,
    std::vector<glm::vec4>& vectors) {
    const auto& sparse = accessor.sparse;
    if (!sparse.isSparse || sparse.count <= 0 || sparse.indices.byteOffset < 0 ||
        sparse.values.byteOffset < 0) {
        return;
    }
    const auto count = static_cast<std::size_t>(sparse.count);
    Numbers::Layout values = layoutOf(accessor);
    values.view = sparse.values.bufferView;
    values.byteOffset = static_cast<std::size_t>(sparse.values.byteOffset);
    values.count = count;
    const auto places = Numbers::at(
        model,
        {sparse.indices.bufferView,
         static_cast<std::size_t>(sparse.indices.byteOffset),
         sparse.indices.componentType,
         1,
         count});
    const auto replacements = Numbers::at(model, values);
    for (std::size_t i = 0; places && replacements && i < count; ++i) {
        const double at = places->get(i, 0);
        if (at >= 0 && at < static_cast<double>(vectors.size()))
            vectors[static_cast<std::size_t>(at)] = vectorAt(*replacements, i, values.components);
    }
}

} // namespace

std::span<const std::uint8_t> viewBytes(const tinygltf::Model& model, int view) {
    const auto* found = elementAt(model.bufferViews, view);
    const auto* buffer = found != nullptr ? elementAt(model.buffers, found->buffer) : nullptr;
    if (buffer == nullptr || found->byteOffset > buffer->data.size() ||
        found->byteLength > buffer->data.size() - found->byteOffset) {
        return {};
    }
    return std::span(buffer->data).subspan(found->byteOffset, found->byteLength);
}

std::vector<glm::vec4> vectorsOf(const tinygltf::Model& model, int accessor) {
    const auto* found = elementAt(model.accessors, accessor);
    if (found == nullptr)
        return {};
    const Numbers::Layout layout = layoutOf(*found);
    std::vector<glm::vec4> vectors;
    if (const auto numbers = Numbers::at(model, layout)) {
        vectors.reserve(numbers->count());
        for (std::size_t i = 0; i < numbers->count(); ++i)
            vectors.push_back(vectorAt(*numbers, i, layout.components));
    } else if (layout.view < 0 && found->sparse.isSparse && layout.count <= kMaxSparse) {
        vectors.assign(layout.count, glm::vec4(0, 0, 0, 1)); // only the sparse elements are given
    }
    applySparse(model, *found, vectors);
    return vectors;
}

std::vector<std::uint32_t> indicesOf(const tinygltf::Model& model, int accessor) {
    const auto* found = elementAt(model.accessors, accessor);
    std::vector<std::uint32_t> indices;
    const auto numbers =
        found != nullptr ? Numbers::at(model, layoutOf(*found)) : std::optional<Numbers>();
    indices.reserve(numbers ? numbers->count() : 0);
    for (std::size_t i = 0; numbers && i < numbers->count(); ++i)
        indices.push_back(static_cast<std::uint32_t>(std::max(numbers->get(i, 0), 0.0)));
    return indices;
}

std::optional<glm::mat4> firstMatrixOf(const tinygltf::Model& model, int accessor) {
    const auto* found = elementAt(model.accessors, accessor);
    if (found == nullptr || found->type != TINYGLTF_TYPE_MAT4)
        return std::nullopt;
    const auto numbers = Numbers::at(model, layoutOf(*found));
    if (!numbers)
        return std::nullopt;
    glm::mat4 matrix;
    for (int i = 0; i < 16; ++i)
        matrix[i / 4][i % 4] = static_cast<float>(numbers->get(0, static_cast<std::size_t>(i)));
    return matrix;
}

} // namespace zelvo::object
