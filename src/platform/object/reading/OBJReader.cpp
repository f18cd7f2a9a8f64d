// SPDX-License-Identifier: MIT
#include "platform/object/reading/OBJReader.h"

#include "platform/object/Polygons.h"
#include "platform/object/reading/MTLLibrary.h"
#include "platform/object/reading/OBJPolygons.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <utility>

namespace zelvo::object {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

namespace fs = std::filesystem;

/// A file to be read from its start. The reader shares the open file, because a source is copied.
[[nodiscard]] ByteSource sourceOfFile(const fs::path& file) {
    auto stream = std::make_shared<std::ifstream>(file, std::ios::binary);
    return [stream](std::span<char> target) {
        stream->read(target.data(), static_cast<std::streamsize>(target.size()));
        return static_cast<std::size_t>(stream->gcount());
    };
}

/// Several names in a line. A blank that belongs to a name has a backslash before it.
[[nodiscard]] std::vector<std::string> namesOf(std::string_view text) {
    std::vector<std::string> names;
    Words each(text);
    bool goesOn = false;
    for (auto word = each.next(); !word.empty(); word = each.next()) {
        if (goesOn) {
            names.back().back() = ' ';
            names.back() += word;
        } else {
            names.emplace_back(word);
        }
        goesOn = word.back() == '\\';
    }
    return names;
}

/// What a material is that no library defines.
[[nodiscard]] Material greyMaterial(const std::string& name) {
    Material material;
    material.name = name;
    material.baseColor.factor = glm::vec3(0.6F); // linear; 0.8 in sRGB
    material.isDoubleSided = true;
    return material;
}

/// Finds and reads the libraries of an OBJ file.
class Libraries {
public:
    Libraries(OBJSource& obj, ObjectScene& target)
        : source(obj)
        , scene(target) {}

    /// `named`: what stands behind each mtllib. That is one name with blanks, or several names.
    [[nodiscard]] MTLLibrary read(const std::vector<std::string>& named) {
        for (const std::string& names : named) {
            if (readFile(names))
                continue;
            for (const std::string& name : namesOf(names)) {
                if (!readFile(name))
                    missing.push_back(name);
            }
        }
        if (!hasRead)
            readNamesake();
        if (!hasRead) {
            for (const std::string& name : missing)
                scene.warn("the library " + name + " is missing");
        }
        return std::move(library);
    }

private:
    bool readFile(std::string_view name) {
        std::string plain(name);
        for (std::size_t at = plain.find("\\ "); at != std::string::npos; at = plain.find("\\ "))
            plain.erase(at, 1);
        const auto file = source.neighbours.find(plain);
        if (!file)
            return false;
        library.read(sourceOfFile(*file));
        hasRead = true;
        return true;
    }

    /// The library that has the object's name.
    void readNamesake() {
        const std::string stem = fs::path(source.name).stem().string();
        for (const std::string& name : {stem + ".mtl", source.name + ".mtl", stem + ".mat"}) {
            if (!hasRead)
                (void)readFile(name);
        }
    }

    OBJSource& source;
    ObjectScene& scene;
    MTLLibrary library;
    std::vector<std::string> missing;
    bool hasRead = false;
};

} // namespace

Result<ObjectScene> readOBJ(OBJSource source, const Watch& watch) {
    OBJPolygons reader(source.size);
    TextLines lines(source.bytes);
    std::uint64_t told = 0;
    while (const auto line = lines.next()) {
        if (!reader.take(*line))
            return fail(Cause::tooLarge, "the object has too many points or corners");
        constexpr std::uint64_t kStep = 1U << 20U;
        if (lines.bytesRead() < told + kStep)
            continue;
        told = lines.bytesRead();
        if (watch.stop.stop_requested())
            return tl::unexpected(cancelledError());
        if (watch.isAdvanced && source.size > 0) {
            constexpr double kReading = 0.8; // the rest is for the triangles
            watch.isAdvanced(
                kReading *
                std::min(1.0, static_cast<double>(told) / static_cast<double>(source.size)));
        }
    }
    Polygons polygons = reader.finish();
    if (polygons.faces.empty())
        return fail(Cause::malformed, "there are no faces in it that could be drawn");

    ObjectScene scene;
    scene.figures.meshes = std::max<std::size_t>(reader.objects(), 1);
    scene.figures.points = polygons.points.size();
    scene.figures.faces = polygons.faces.size();
    const MTLLibrary library = Libraries(source, scene).read(reader.libraries());
    for (const std::string& name : reader.materials()) {
        auto material = library.material(name, source.neighbours, scene);
        if (!material)
            scene.warn("the material " + name + " is not defined");
        scene.materials.push_back(material.value_or(greyMaterial(name)));
    }
    const auto pieces =
        addPieces(scene, std::move(polygons), {fs::path(source.name).stem().string(), true}, watch);
    if (!pieces)
        return tl::unexpected(pieces.error());
    // Programs write the colours beside a picture of the same, not to be multiplied with it.
    for (Piece& piece : scene.pieces) {
        if (piece.material && scene.materials[*piece.material].baseColor.picture)
            piece.colors = {};
    }
    place(scene, *pieces, glm::dmat4(1));
    completeFigures(scene);
    if (scene.figures.triangles == 0)
        return fail(Cause::malformed, "there are no faces in it that could be drawn");
    return scene;
}

} // namespace zelvo::object
