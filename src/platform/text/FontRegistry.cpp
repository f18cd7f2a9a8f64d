// SPDX-License-Identifier: MIT
#include "platform/text/FontRegistry.h"

#include "platform/text/FontFace.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>

namespace zelvo::text {

namespace {

using foundation::Cause;
using foundation::Result;
using Faces = std::vector<std::shared_ptr<const FontFace>>;

Result<std::string> readBytes(const std::filesystem::path& file) {
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

Result<Faces> readFile(const std::filesystem::path& file) {
    return readBytes(file).and_then(readFaces).map_error(
        [&file](const foundation::Error& error) { return error.in(file.string()); });
}

struct Entry {
    std::filesystem::path file;
    std::shared_ptr<const FontFace> face;
    std::vector<std::string> aliases;
};

} // namespace

struct FontRegistry::State {
    std::vector<Entry> entries;
    std::vector<FontPtr> fallbacks;
};

FontRegistry::FontRegistry()
    : state(std::make_unique<State>()) {}

FontRegistry::~FontRegistry() = default;

Result<void> FontRegistry::registerFile(
    const std::filesystem::path& file, const std::vector<std::string>& aliases) {
    Result<Faces> faces = readFile(file);
    if (!faces)
        return tl::unexpected(faces.error());
    unregisterFile(file);
    for (const auto& face : *faces) {
        state->entries.push_back({file.lexically_normal(), face, aliases});
    }
    return {};
}

void FontRegistry::unregisterFile(const std::filesystem::path& file) {
    std::erase_if(state->entries, [normal = file.lexically_normal()](const Entry& entry) {
        return entry.file == normal;
    });
}

FontPtr FontRegistry::find(std::string_view name) const {
    using Match = bool (*)(const Entry&, std::string_view);
    constexpr auto kMatches = std::to_array<Match>({
        [](const Entry& entry, std::string_view asked) {
            return entry.face->postScriptName() == asked;
        },
        [](const Entry& entry, std::string_view asked) { return entry.face->fullName() == asked; },
        [](const Entry& entry, std::string_view asked) { return entry.face->family() == asked; },
        [](const Entry& entry, std::string_view asked) {
            return std::find(entry.aliases.begin(), entry.aliases.end(), asked) !=
                   entry.aliases.end();
        },
    });
    if (name.empty())
        return nullptr;
    for (const Match matches : kMatches) {
        for (const Entry& entry : state->entries) {
            if (matches(entry, name))
                return entry.face;
        }
    }
    return nullptr;
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

Result<std::string> fullNameOfFile(const std::filesystem::path& file) {
    return readFile(file).map([](const Faces& faces) {
        const FontFace& face = *faces.front();
        return face.fullName().empty() ? face.postScriptName() : face.fullName();
    });
}

} // namespace zelvo::text
