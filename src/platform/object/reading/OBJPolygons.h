// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/Polygons.h"
#include "platform/object/reading/Words.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::object {

/// Collects the polygons of a Wavefront OBJ file from its lines.
class OBJPolygons {
public:
    /// `bytes`: the size of the file, to set memory aside.
    explicit OBJPolygons(std::uint64_t bytes);

    /// Takes the next line. False if there is too much of something.
    [[nodiscard]] bool take(std::string_view line);

    /// Call it once, after the last line. Materials are numbered as in materials().
    [[nodiscard]] Polygons finish();

    /// The names in use, in the order of their first use.
    [[nodiscard]] const std::vector<std::string>& materials() const { return materialNames; }

    /// What stood behind each mtllib.
    [[nodiscard]] const std::vector<std::string>& libraries() const { return libraries_; }

    /// How many objects have faces; if the file has no objects, how many groups have.
    [[nodiscard]] std::size_t objects() const { return objects_ > 0 ? objects_ : groups; }

private:
    void takePoint(Words& words);
    void takeFace(Words& words);
    void takeSmoothing(Words& words);
    void takeMaterial(std::string_view name);
    void takeLibrary(std::string_view names);
    void takeZBrushColors(std::string_view line);
    void setPointColors();

    Polygons polygons;
    std::vector<glm::vec4> colors; ///< of the first points; those without have a negative red
    std::vector<glm::u8vec4> zBrushColors;
    std::map<std::string, std::uint32_t, std::less<>> materialNumbers;
    std::vector<std::string> materialNames;
    std::vector<std::string> libraries_;
    std::optional<std::string> nextMaterial; ///< named, but not used yet
    std::uint32_t material = Polygons::kNone;
    std::uint32_t smoothing = Polygons::kFlat;
    bool hasSmoothing = false; ///< the file has an `s`
    bool isNewObject = false;
    bool isNewGroup = false;
    std::size_t objects_ = 0;
    std::size_t groups = 0;
};

} // namespace zelvo::object
