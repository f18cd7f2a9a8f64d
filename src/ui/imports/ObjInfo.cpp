// SPDX-License-Identifier: MIT
#include "ui/imports/ObjInfo.h"

#include "platform/object/reading/TextLines.h"
#include "platform/object/reading/Words.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

struct ImageKey {
    std::string_view key;
    const char* label;
};

// clang-format off
constexpr auto kImageKeys = std::to_array<ImageKey>({
    {"map_ka",   QT_TRANSLATE_NOOP("zelvo::ui::ObjInfo", "Ambient texture: ")   },
    {"map_kd",   QT_TRANSLATE_NOOP("zelvo::ui::ObjInfo", "Diffuse texture: ")   },
    {"map_ks",   QT_TRANSLATE_NOOP("zelvo::ui::ObjInfo", "Specular color: ")    },
    {"map_ns",   QT_TRANSLATE_NOOP("zelvo::ui::ObjInfo", "Specular highlight: ")},
    {"map_d",    QT_TRANSLATE_NOOP("zelvo::ui::ObjInfo", "Alpha texture: ")     },
    {"map_bump", QT_TRANSLATE_NOOP("zelvo::ui::ObjInfo", "Alpha texture: ")     },
    {"bump",     QT_TRANSLATE_NOOP("zelvo::ui::ObjInfo", "Alpha texture: ")     },
});

// clang-format on

using Pieces = std::vector<std::string_view>;

[[nodiscard]] Pieces piecesOf(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r\n\v\f";
    Pieces pieces;
    for (auto begin = line.find_first_not_of(kBlanks); begin != std::string_view::npos;
         begin = line.find_first_not_of(kBlanks)) {
        line.remove_prefix(begin);
        pieces.push_back(line.substr(0, line.find_first_of(kBlanks)));
        line.remove_prefix(pieces.back().size());
    }
    return pieces;
}

/// Calls back with each line that is not empty, until it returns false. False if the file cannot be
/// opened.
bool forEachFilledLine(
    const fs::path& file, std::uint64_t maxBytes, const std::function<bool(const Pieces&)>& take) {
    return object::forEachLine(file, maxBytes, [&take](std::string_view line) {
        const Pieces pieces = piecesOf(line);
        return pieces.empty() || take(pieces);
    });
}

[[nodiscard]] QString shown(std::string_view name) {
    const auto size = std::min(name.size(), ObjInfo::kMaxName);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(size));
}

/// Whether the folder has the file. Nothing outside of the folder counts.
[[nodiscard]] bool isBeside(const fs::path& folder, std::string_view name) {
    const fs::path path = fs::path(name).lexically_normal();
    if (name.size() > ObjInfo::kMaxName || path.is_absolute() || *path.begin() == "..")
        return false;
    std::error_code error;
    return fs::exists(folder / path, error);
}

/// Draws up the report.
class Reporter {
    Q_DECLARE_TR_FUNCTIONS(zelvo::ui::ObjInfo)

public:
    Reporter(const fs::path& object, std::stop_token isStopped)
        : file(object)
        , folder(object.parent_path())
        , stop(std::move(isStopped)) {}

    [[nodiscard]] QString report() {
        const QString name = QString::fromStdString(file.filename().string());
        if (name.endsWith("usdz"))
            return tr("Universal Scene Description (Usdz) File:") + "\n" + name + "\n\n";
        if (!name.endsWith("obj"))
            return tr("File: ") + name + "\n\n";
        text = tr("Wavefront .obj File: ") + name + "\n\n";
        std::error_code error;
        if (!fs::exists(file, error))
            return text + tr("🚫 File not found.") + "\n";
        const bool isOpen =
            forEachFilledLine(file, ObjInfo::kMaxObjectBytes, [this](const Pieces& pieces) {
                if (object::lowered(pieces.front()) == "mtllib")
                    addLibrary(pieces.back());
                return libraries < ObjInfo::kMaxLibraries && !stop.stop_requested();
            });
        return isOpen ? text : text + tr("🚫 Unknown error.") + "\n";
    }

private:
    void addLibrary(std::string_view name) {
        ++libraries;
        text += tr("Material template library: ") + shown(name) + "\n";
        if (!isBeside(folder, name)) {
            text += tr("🚫 File %1 not found.").arg(shown(name)) + "\n\n";
            return;
        }
        text += tr("✅ File %1 is at its place.").arg(shown(name)) + "\n";
        text += "\n" + materialReport(folder / fs::path(name));
    }

    [[nodiscard]] QString materialReport(const fs::path& library) {
        QString lines;
        int images = 0;
        const bool isOpen =
            forEachFilledLine(library, ObjInfo::kMaxLibraryBytes, [&](const Pieces& pieces) {
                const auto line = imageLine(library.parent_path(), pieces);
                lines += line.value_or(QString());
                images += line ? 1 : 0;
                return images < ObjInfo::kMaxImages && !stop.stop_requested();
            });
        if (!isOpen)
            return tr("🚫 Couldn't read .mtl file.") + "\n";
        if (images == 0)
            return lines;
        const QString count = images == 1
                                  ? tr("%1 image is referenced in the .mtl library:") + "\n\n"
                                  : tr("%1 images are referenced in the .mtl library:") + "\n\n";
        return count.arg(images) + lines;
    }

    /// Nothing if the line names no image.
    [[nodiscard]] static std::optional<QString>
    imageLine(const fs::path& place, const Pieces& pieces) {
        if (pieces.size() < 2)
            return std::nullopt;
        const std::string key = object::lowered(pieces.front());
        const auto* const found = std::ranges::find(kImageKeys, key, &ImageKey::key);
        if (found == kImageKeys.end())
            return std::nullopt;
        const QString name = shown(pieces.back());
        const QString verdict = isBeside(place, pieces.back())
                                    ? tr("✅ The image %1 is at its place.") + "\n\n"
                                    : tr("⚠️ The image %1 is missing.") + "\n\n";
        return tr(found->label) + name + "\n" + verdict.arg(name);
    }

    fs::path file;
    fs::path folder;
    std::stop_token stop;
    QString text;
    int libraries = 0;
};

/// What stands behind a backslash.
struct Escape {
    QChar character;
    qsizetype length = 0;
};

/// Nothing if the text begins with no escape.
std::optional<Escape> escapeAt(QStringView text) {
    if (text.startsWith(u'\\'))
        return Escape{u'\\', 1};
    const bool isHex = text.startsWith(u'u');
    const qsizetype prefix = isHex ? 1 : 0;
    const qsizetype digits = isHex ? 4 : 3;
    bool isNumber = false;
    const uint code = text.mid(prefix, digits).toUInt(&isNumber, isHex ? 16 : 8);
    if (!isNumber || text.size() < prefix + digits)
        return std::nullopt;
    return Escape{static_cast<char16_t>(code), prefix + digits};
}

} // namespace

QString ObjInfo::report(const fs::path& file, const std::stop_token& stop) {
    return Reporter(file, stop).report();
}

QString ObjInfo::withoutEscapes(const QString& report) {
    QString plain;
    for (qsizetype at = 0; at < report.size(); ++at) {
        if (report[at] != u'\\') {
            plain += report[at];
            continue;
        }
        const auto escape = escapeAt(QStringView(report).mid(at + 1));
        if (!escape)
            return report;
        plain += escape->character;
        at += escape->length;
    }
    return plain;
}

} // namespace zelvo::ui
