// SPDX-License-Identifier: MIT
#include "app/Commands.h"
#include "platform/foundation/Console.h"
#include "platform/object/reading/ObjectReader.h"

#include <fmt/format.h>

#include <cstdio>
#include <string>

namespace zelvo::app {

namespace {

/// Without a minus before a zero.
[[nodiscard]] std::string textOf(const glm::dvec3& place) {
    return fmt::format("{:.6g} {:.6g} {:.6g}", place.x + 0.0, place.y + 0.0, place.z + 0.0);
}

[[nodiscard]] std::string textOf(const object::Figures& figures) {
    return fmt::format(
        "{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}",
        figures.meshes,
        figures.points,
        figures.faces,
        figures.triangles,
        figures.materials,
        figures.textures,
        textOf(figures.boxMin),
        textOf(figures.boxMax));
}

} // namespace

int run(const InspectCommand& command) {
    int status = ExitStatus::kDone;
    for (const std::filesystem::path& file : command.files) {
        const auto scene = object::readObject(file);
        std::string line = file.string() + "\t";
        if (scene) {
            line += textOf(scene->figures);
        } else {
            // The message begins with the file's name, which stands in front already.
            const std::string name = file.filename().string() + ": ";
            const std::string& message = scene.error().message;
            line += message.starts_with(name) ? message.substr(name.size()) : message;
            status = ExitStatus::kWrong;
        }
        fmt::print("{}\n", line);
        for (std::size_t i = 0; scene && i < scene->warnings.size(); ++i)
            foundation::logLine("zelvo: " + file.filename().string() + ": " + scene->warnings[i]);
    }
    return status;
}

} // namespace zelvo::app
