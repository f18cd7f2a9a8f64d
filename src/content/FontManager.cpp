// SPDX-License-Identifier: MIT
#include "content/FontManager.h"

#include "content/CrashGuard.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/NewFile.h"
#include "platform/foundation/Process.h"
#include "platform/foundation/WritingError.h"
#include "platform/text/NameOrder.h"
#include "platform/text/SystemFontIndex.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

namespace zelvo::content {
namespace {

// covers many languages, and is heavy enough for a title
constexpr auto kFallbackFont = "HelveticaNeue-Bold";

// For scripts that the list does not cover: Hebrew and Arabic; Chinese, Japanese and Korean.
constexpr auto kScriptFonts =
    std::to_array<std::string_view>({"DejaVuSans-Bold.ttf", "DroidSansFallback.ttf"});

/// A font that is not in the list; null if the file is missing or damaged.
text::FontPtr scriptFont(const foundation::Bundle& bundle, std::string_view name) {
    text::FontRegistry alone;
    const auto registered = alone.registerFile(bundle.path(fmt::format("fonts/{}", name)));
    return registered ? alone.fallback() : nullptr;
}

foundation::Result<void> writeFile(const std::filesystem::path& target, const std::string& bytes) {
    using foundation::NewFile;
    (void)NewFile::check(target); // removes leftovers; errors show in the next line
    auto file = NewFile::create(target);
    if (!file)
        return tl::unexpected(file.error());
    return file->write(std::as_bytes(std::span(bytes))).and_then([&file] {
        return file->commit(NewFile::Placing::onlyIfFree);
    });
}

/// A font of the system that a text has used goes, so that an imported one can have its name. False
/// if the font is none of the system's.
bool giveWay(
    text::FontRegistry& registry,
    const std::vector<text::SystemFont>& systemFonts,
    const text::FontPtr& known) {
    const auto found = std::ranges::find_if(systemFonts, [&](const text::SystemFont& font) {
        const auto faces = registry.facesOf(font.file);
        return std::ranges::find(faces, known) != faces.end();
    });
    if (found == systemFonts.end())
        return false;
    registry.unregisterFile(found->file);
    return true;
}

void sortByName(std::vector<FontEntry>& fonts) {
    std::ranges::sort(fonts, &text::comesBefore, &FontEntry::name);
}

} // namespace

FontManager::FontManager(text::FontRegistry& fonts, std::optional<foundation::Folders> userFolders)
    : registry(fonts)
    , folders(std::move(userFolders)) {
    if (folders)
        registry.setLookup([this](std::string_view name) { addByName(name); });
}

FontManager::~FontManager() {
    if (folders)
        registry.setLookup({});
}

void FontManager::registerBuiltIns(const foundation::Bundle& bundle) {
    std::vector<std::string_view> missing;
    for (const BuiltInFont& font : builtInFonts()) {
        const auto file = bundle.path(fmt::format("fonts/{}", font.file));
        if (!registry.registerFile(file, {std::string(font.name)}))
            missing.push_back(font.file);
    }
    std::vector<text::FontPtr> fallbacks{registry.find(kFallbackFont)};
    for (const std::string_view font : kScriptFonts) {
        fallbacks.push_back(scriptFont(bundle, font));
        if (fallbacks.back() == nullptr)
            missing.push_back(font);
    }
    if (!missing.empty()) {
        foundation::endWithoutResource(fmt::format(
            "{} built-in fonts are missing or damaged, {} first", missing.size(), missing.front()));
    }
    registry.setFallbacks(std::move(fallbacks));
}

std::filesystem::path FontManager::folder() const {
    CHECK(folders.has_value(), "fonts can only be imported with a folder");
    auto path = folders->documents / "ImportedFonts";
    std::error_code ignored; // shows when a file is copied
    std::filesystem::create_directories(path, ignored);
    return path;
}

const std::filesystem::path& FontManager::temporaryFolder() const {
    CHECK(folders.has_value(), "fonts can only be imported with a folder");
    return folders->temporary;
}

std::vector<std::string> FontManager::importedFiles() {
    if (!folders)
        return {};
    const auto place = folder();
    auto names = foundation::visibleFilesIn(place);
    for (const std::string& name : names) {
        if (registry.facesOf(place / name).empty())
            (void)registry.addFile(place / name); // a damaged file is only not found by name
    }
    return names;
}

std::vector<std::string> FontManager::importedNames() {
    std::vector<std::string> names;
    for (const std::string& file : importedFiles()) {
        const auto faces = registry.facesOf(folder() / file);
        if (!faces.empty())
            names.push_back(text::shownName(*faces.front()));
    }
    return names;
}

std::optional<std::string> FontManager::nameOf(const std::filesystem::path& file) {
    const auto name = text::fullNameOfFile(file);
    return name ? std::optional(*name) : std::nullopt;
}

foundation::Result<Installation> FontManager::install(const std::filesystem::path& file) {
    const auto inFile = [&file](const foundation::Error& error) {
        return error.in(file.filename().string());
    };
    const auto target = folder() / file.filename();
    std::error_code error;
    if (std::filesystem::exists(target, error))
        return Installation{};
    std::filesystem::create_directories(target.parent_path(), error);
    if (error)
        return tl::unexpected(foundation::writingError(error.value(), target.parent_path()));
    const auto bytes = text::readFontBytes(file).map_error(inFile);
    if (!bytes)
        return tl::unexpected(bytes.error());
    const auto name = text::nameOfFontBytes(*bytes).map_error(inFile);
    if (!name)
        return tl::unexpected(name.error());
    (void)importedFiles(); // registers them
    const auto known = registry.findKnown(*name);
    if (known && !giveWay(registry, knownSystemFonts(), known))
        return Installation{.isNew = false, .nameTaken = *name};
    if (auto written = writeFile(target, *bytes); !written)
        return tl::unexpected(written.error());
    (void)registry.addFile(target);
    unknownNames.clear();
    fontsChanged.fire();
    return Installation{.isNew = true, .nameTaken = {}};
}

bool FontManager::deleteFont(const std::string& fileName) {
    const auto names = foundation::visibleFilesIn(folder());
    const bool isThere = std::ranges::find(names, fileName) != names.end();
    if (isThere) {
        registry.unregisterFile(folder() / fileName);
        std::error_code error;
        std::filesystem::remove(folder() / fileName, error);
        if (error)
            foundation::logLine("oops: " + error.message());
        unknownNames.clear();
    }
    fontsDeleted.fire(isThere);
    if (isThere)
        fontsChanged.fire();
    return isThere;
}

std::vector<FontEntry> FontManager::fontMenu(const foundation::UserDefaults& defaults) {
    std::vector<FontEntry> menu = ownFonts();
    std::set<std::string> taken;
    std::erase_if(
        menu, [&taken](const FontEntry& font) { return !taken.insert(font.name).second; });
    sortByName(menu);
    std::ranges::move(systemFonts(taken), std::back_inserter(menu));
    const auto corrupt = CrashGuard::corruptFonts(defaults);
    for (FontEntry& font : menu)
        font.isCorrupt = std::ranges::find(corrupt, font.name) != corrupt.end();
    return menu;
}

std::vector<FontEntry> FontManager::ownFonts() {
    std::vector<FontEntry> fonts;
    for (const BuiltInFont& font : builtInFonts()) {
        fonts.push_back(
            {.name = std::string(font.name),
             .file = foundation::mainBundle().path(fmt::format("fonts/{}", font.file))});
    }
    for (const std::string& file : importedFiles()) {
        const auto path = folder() / file;
        for (const text::FontPtr& face : registry.facesOf(path)) {
            fonts.push_back(
                {.name = text::shownName(*face),
                 .file = path,
                 .faceIndex = face->faceIndex(),
                 .source = FontSource::imported});
        }
    }
    return fonts;
}

/// None as long as they are being read.
std::vector<FontEntry> FontManager::systemFonts(const std::set<std::string>& taken) {
    std::vector<FontEntry> fonts;
    if (folders && text::systemFontsIfRead() == nullptr)
        return fonts;
    std::set<std::string> listed = taken;
    for (const text::SystemFont& font : knownSystemFonts()) {
        if (listed.insert(font.name).second)
            fonts.push_back({font.name, font.file, font.faceIndex, FontSource::system});
    }
    sortByName(fonts);
    return fonts;
}

const std::vector<text::SystemFont>& FontManager::knownSystemFonts() {
    if (!systemFonts_)
        systemFonts_ = folders ? text::awaitedSystemFonts() : std::vector<text::SystemFont>{};
    return *systemFonts_;
}

/// The registry asks for a name that it does not know: an imported font before the first listing,
/// or a font of the system.
void FontManager::addByName(std::string_view name) {
    if (unknownNames.contains(name))
        return;
    (void)importedFiles();
    if (registry.findKnown(name))
        return;
    const auto& fonts = knownSystemFonts();
    const auto found = std::ranges::find(fonts, name, &text::SystemFont::name);
    if (found == fonts.end() || !registry.addFace(found->file, found->faceIndex, found->name))
        unknownNames.emplace(name);
}

} // namespace zelvo::content
