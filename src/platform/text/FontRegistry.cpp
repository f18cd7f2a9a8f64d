// SPDX-License-Identifier: MIT
#include "platform/text/FontRegistry.h"

#include "platform/text/FontFace.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <span>
#include <system_error>
#include <utility>

namespace zelvo::text {

namespace {

using foundation::Cause;
using foundation::Result;
using Faces = std::vector<std::shared_ptr<const FontFace>>;

Result<Faces> readFile(const std::filesystem::path& file) {
    return readFontBytes(file).and_then(readFaces).map_error(
        [&file](const foundation::Error& error) { return error.in(file.string()); });
}

enum class Origin { program, added };

struct Entry {
    std::filesystem::path file;
    Origin origin;
    std::shared_ptr<const FontFace> face;
    std::vector<std::string> aliases;
};

using Match = bool (*)(const Entry&, std::string_view);

bool matchesPostScript(const Entry& entry, std::string_view asked) {
    return entry.face->postScriptName() == asked;
}

bool matchesFullName(const Entry& entry, std::string_view asked) {
    return entry.face->fullName() == asked;
}

bool matchesFamily(const Entry& entry, std::string_view asked) {
    return entry.face->family() == asked;
}

bool matchesAlias(const Entry& entry, std::string_view asked) {
    return std::ranges::find(entry.aliases, asked) != entry.aliases.end();
}

struct Step {
    Origin origin;
    Match matches;
};

constexpr auto kKnown = std::to_array<Step>({
    {Origin::program, &matchesPostScript},
    {Origin::program, &matchesFullName},
    {Origin::program, &matchesAlias},
    {Origin::added, &matchesPostScript},
    {Origin::added, &matchesFullName},
    {Origin::added, &matchesAlias},
});
constexpr auto kFamilies = std::to_array<Step>({
    {Origin::program, &matchesFamily},
    {Origin::added, &matchesFamily},
});

FontPtr
firstMatch(std::span<const Step> steps, const std::vector<Entry>& entries, std::string_view name) {
    for (const Step& step : steps) {
        const auto found = std::ranges::find_if(entries, [&](const Entry& entry) {
            return entry.origin == step.origin && step.matches(entry, name);
        });
        if (found != entries.end())
            return found->face;
    }
    return nullptr;
}

} // namespace

struct FontRegistry::State {
    std::vector<Entry> entries;
    std::vector<FontPtr> fallbacks;
    Lookup lookup;

    Result<void> read(
        const std::filesystem::path& file, Origin origin, const std::vector<std::string>& aliases) {
        Result<Faces> faces = readFile(file);
        if (!faces)
            return tl::unexpected(faces.error());
        remove(file);
        for (const auto& face : *faces)
            entries.push_back({file.lexically_normal(), origin, face, aliases});
        return {};
    }

    void remove(const std::filesystem::path& file) {
        std::erase_if(entries, [normal = file.lexically_normal()](const Entry& entry) {
            return entry.file == normal;
        });
    }
};

FontRegistry::FontRegistry()
    : state(std::make_unique<State>()) {}

FontRegistry::~FontRegistry() = default;

Result<void> FontRegistry::registerFile(
    const std::filesystem::path& file, const std::vector<std::string>& aliases) {
    return state->read(file, Origin::program, aliases);
}

Result<void> FontRegistry::addFile(const std::filesystem::path& file) {
    return state->read(file, Origin::added, {});
}

Result<void> FontRegistry::addFace(
    const std::filesystem::path& file, unsigned faceIndex, const std::string& alias) {
    const auto normal = file.lexically_normal();
    if (facesOf(normal).empty()) {
        if (auto added = addFile(normal); !added)
            return added;
    }
    for (Entry& entry : state->entries) {
        if (entry.file == normal && entry.face->faceIndex() == faceIndex)
            entry.aliases.push_back(alias);
    }
    return {};
}

void FontRegistry::unregisterFile(const std::filesystem::path& file) {
    state->remove(file);
}

std::vector<FontPtr> FontRegistry::facesOf(const std::filesystem::path& file) const {
    std::vector<FontPtr> faces;
    for (const Entry& entry : state->entries) {
        if (entry.file == file.lexically_normal())
            faces.push_back(entry.face);
    }
    return faces;
}

std::filesystem::path FontRegistry::addedFileOf(std::string_view name) const {
    const FontPtr font = find(name);
    const auto entry =
        std::ranges::find_if(state->entries, [&](const Entry& each) { return each.face == font; });
    const bool isAdded = entry != state->entries.end() && entry->origin == Origin::added;
    return isAdded ? entry->file : std::filesystem::path();
}

void FontRegistry::setLookup(Lookup lookup) {
    state->lookup = std::move(lookup);
}

FontPtr FontRegistry::findKnown(std::string_view name) const {
    return name.empty() ? nullptr : firstMatch(kKnown, state->entries, name);
}

FontPtr FontRegistry::find(std::string_view name) const {
    FontPtr found = findKnown(name);
    if (found || name.empty())
        return found;
    if (state->lookup) {
        state->lookup(name);
        found = findKnown(name);
    }
    return found ? found : firstMatch(kFamilies, state->entries, name);
}

std::vector<FontPtr> FontRegistry::fallbacks() const {
    if (!state->fallbacks.empty() || state->entries.empty())
        return state->fallbacks;
    return {state->entries.front().face};
}

void FontRegistry::setFallbacks(std::vector<FontPtr> fonts) {
    std::erase(fonts, nullptr);
    state->fallbacks = std::move(fonts);
}

FontPtr FontRegistry::fallback() const {
    const std::vector<FontPtr> fonts = fallbacks();
    return fonts.empty() ? nullptr : fonts.front();
}

const std::string& shownName(const Font& font) {
    return font.fullName().empty() ? font.postScriptName() : font.fullName();
}

Result<std::string> readFontBytes(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        return foundation::fail(Cause::notFound, "there is no such file");
    }
    const auto size = std::filesystem::file_size(file, error);
    if (error)
        return foundation::fail(Cause::unreadable, "is no file that can be read");
    if (size > kMaxFontFile) {
        return foundation::fail(Cause::tooLarge, "is over 64 MiB, more than a font file may have");
    }
    std::ifstream in(file, std::ios::binary);
    std::string bytes(size, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(size));
    if (!in)
        return foundation::fail(Cause::unreadable, "cannot be read; check its permissions");
    return bytes;
}

Result<std::string> nameOfFontBytes(std::string bytes) {
    return readFaces(std::move(bytes)).map([](const Faces& faces) {
        return shownName(*faces.front());
    });
}

Result<std::string> fullNameOfFile(const std::filesystem::path& file) {
    return readFontBytes(file)
        .and_then(nameOfFontBytes)
        .map_error([&file](const foundation::Error& error) { return error.in(file.string()); });
}

} // namespace zelvo::text
