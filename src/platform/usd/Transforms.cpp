// SPDX-License-Identifier: MIT
#include "platform/usd/Transforms.h"

#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtc/type_ptr.hpp>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace zelvo::usd {
namespace {

constexpr std::string_view kInvert = "!invert!";
constexpr std::string_view kReset = "!resetXformStack!";
constexpr std::string_view kPrefix = "xformOp:";

/// "translate" of "xformOp:translate:pivot".
std::string_view kindOf(std::string_view operation) {
    operation.remove_prefix(kPrefix.size());
    return operation.substr(0, operation.find(':'));
}

/// Around the axis X, Y or Z, counter-clockwise.
glm::dmat4 rotation(char axis, double degrees) {
    glm::dvec3 direction(0);
    direction[axis - 'X'] = 1;
    return glm::rotate(glm::dmat4(1), glm::radians(degrees), direction);
}

/// The first axis of the order turns first.
glm::dmat4 rotations(std::string_view order, const Numbers& degrees) {
    glm::dmat4 matrix(1);
    for (const char axis : order)
        matrix = rotation(axis, degrees[static_cast<std::size_t>(axis - 'X')]) * matrix;
    return matrix;
}

bool isOrder(std::string_view letters) {
    std::string sorted(letters);
    std::ranges::sort(sorted);
    return sorted == "XYZ" || sorted == "X" || sorted == "Y" || sorted == "Z";
}

std::size_t numbersFor(std::string_view kind) {
    if (kind == "transform")
        return 16;
    if (kind == "orient")
        return 4;
    const bool isSingle = kind == "rotateX" || kind == "rotateY" || kind == "rotateZ";
    return isSingle ? 1 : 3;
}

glm::dmat4 matrixOf(std::string_view kind, const Numbers& values) {
    constexpr std::string_view kRotate = "rotate";
    const auto vector = [&values] { return glm::dvec3(values[0], values[1], values[2]); };
    if (kind == "transform") // written for row vectors, which is this memory layout
        return glm::make_mat4(values.data());
    if (kind == "translate")
        return glm::translate(glm::dmat4(1), vector());
    if (kind == "scale")
        return glm::scale(glm::dmat4(1), vector());
    if (kind == "orient") {
        const glm::dquat turn(values[3], values[0], values[1], values[2]);
        return glm::length(turn) > 0 ? glm::mat4_cast(glm::normalize(turn)) : glm::dmat4(1);
    }
    const std::string_view order =
        kind.starts_with(kRotate) ? kind.substr(kRotate.size()) : std::string_view();
    if (!isOrder(order))
        return glm::dmat4(1);
    if (order.size() == 1)
        return rotation(order.front(), values.front());
    return rotations(order, values);
}

/// Identity if the operation has no value, or one that cannot be used.
glm::dmat4 operationOf(const Prim& prim, std::string_view operation) {
    const bool isInverse = operation.starts_with(kInvert);
    if (isInverse)
        operation.remove_prefix(kInvert.size());
    if (!operation.starts_with(kPrefix))
        return glm::dmat4(1);
    const std::string_view kind = kindOf(operation);
    const Numbers values = prim.numbers(operation, numbersFor(kind));
    if (values.empty() || !std::ranges::all_of(values, [](double v) { return std::isfinite(v); }))
        return glm::dmat4(1);
    const glm::dmat4 matrix = matrixOf(kind, values);
    if (!isInverse)
        return matrix;
    return glm::determinant(matrix) == 0 ? glm::dmat4(1) : glm::inverse(matrix);
}

} // namespace

LocalTransform localTransformOf(const Prim& prim) {
    LocalTransform local;
    // From the outermost to the innermost.
    for (const std::string& operation : prim.texts("xformOpOrder")) {
        if (operation == kReset) {
            local = {glm::dmat4(1), true};
        } else {
            local.matrix = local.matrix * operationOf(prim, operation);
        }
    }
    return local;
}

} // namespace zelvo::usd
