// SPDX-License-Identifier: MIT
#include "ui/imports/ObjectCompanions.h"

#include "platform/object/reading/MTLPictures.h"
#include "platform/object/reading/NeighbourFiles.h"
#include "platform/object/reading/TextLines.h"
#include "platform/object/reading/Words.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

/// Collects existing files, each once.
class Found {
public:
    explicit Found(const fs::path& file)
        : neighbours(file.parent_path()) {}

    /// False if there is no such file.
    bool takeFile(std::string_view name) { return take(neighbours.find(name)); }

    bool takePicture(std::string_view name) { return take(neighbours.findPicture(name)); }

    [[nodiscard]] const std::vector<fs::path>& files() const { return files_; }

private:
    bool take(const std::optional<fs::path>& found) {
        const bool isNew = found && std::ranges::find(files_, *found) == files_.end() && !isFull();
        if (isNew)
            files_.push_back(*found);
        return found.has_value();
    }

    [[nodiscard]] bool isFull() const { return files_.size() >= CompanionLimits::kFiles; }

    object::NeighbourFiles neighbours;
    std::vector<fs::path> files_;
};

/// Calls back with the lowered keyword and the rest of each line.
void forEachStatement(
    const fs::path& file,
    std::uint64_t maxBytes,
    const std::function<void(const std::string& key, object::Words& rest)>& take) {
    object::forEachLine(file, maxBytes, [&take](std::string_view line) {
        object::Words words(line);
        const std::string key = object::lowered(words.next());
        take(key, words);
        return true;
    });
}

[[nodiscard]] bool namesPicture(std::string_view key) {
    constexpr auto kOthers =
        std::to_array<std::string_view>({"bump", "decal", "disp", "norm", "refl"});
    return key.starts_with("map_") || std::ranges::find(kOthers, key) != kOthers.end();
}

/// The names behind an mtllib: one name with blanks, or several names.
void takeLibraries(object::Words& rest, Found& found) {
    if (found.takeFile(rest.name()))
        return;
    for (std::string_view name = rest.next(); !name.empty(); name = rest.next())
        found.takeFile(name);
}

void takeOfWavefront(const fs::path& file, Found& found) {
    forEachStatement(
        file, CompanionLimits::kObjectBytes, [&](const std::string& key, object::Words& rest) {
            if (key == "mtllib")
                takeLibraries(rest, found);
        });
    if (found.files().empty())
        found.takeFile(file.stem().string() + ".mtl");
    const std::vector<fs::path> libraries = found.files();
    for (const fs::path& library : libraries) {
        forEachStatement(
            library, CompanionLimits::kTextBytes, [&](const std::string& key, object::Words& rest) {
                if (namesPicture(key))
                    found.takePicture(object::readMTLPicture(rest.rest()).name);
            });
    }
}

void takeOfGLTF(const fs::path& file, Found& found) {
    std::error_code error;
    const auto size = fs::file_size(file, error);
    if (error || size > CompanionLimits::kTextBytes)
        return;
    std::ifstream stream(file, std::ios::binary);
    QByteArray bytes(static_cast<qsizetype>(size), '\0');
    stream.read(bytes.data(), bytes.size());
    const QJsonObject root = QJsonDocument::fromJson(bytes).object();
    for (const char* const list : {"buffers", "images"}) {
        for (const auto& each : root[QLatin1String(list)].toArray()) {
            const QByteArray uri = each.toObject()["uri"].toString().toUtf8();
            if (!uri.isEmpty() && !uri.startsWith("data:"))
                found.takeFile(QByteArray::fromPercentEncoding(uri).toStdString());
        }
    }
}

} // namespace

std::vector<fs::path> companionsOf(const fs::path& file) {
    Found found(fs::absolute(file));
    const std::string extension = object::lowered(file.extension().string());
    if (extension == ".obj")
        takeOfWavefront(file, found);
    if (extension == ".gltf")
        takeOfGLTF(file, found);
    return found.files();
}

} // namespace zelvo::ui
