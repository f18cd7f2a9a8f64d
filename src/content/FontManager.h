// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Folders.h"
#include "platform/foundation/Result.h"
#include "platform/text/FontRegistry.h"
#include "platform/text/SystemFonts.h"
#include "shared/Signal.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::foundation {
class UserDefaults;
} // namespace zelvo::foundation

namespace zelvo::content {

/// A font that comes with the program: its name, and its file in fonts/ of the resources.
struct BuiltInFont {
    std::string_view name;
    std::string_view file;
};

enum class FontSource { builtIn, imported, system };

/// A row of a font menu.
struct FontEntry {
    std::string name; ///< finds the font; shown to the user
    std::filesystem::path file;
    unsigned faceIndex = 0; ///< in a collection
    FontSource source = FontSource::builtIn;
    bool isCorrupt = false; ///< crashed the process once (CrashGuard)
};

/// What an installation did.
struct Installation {
    bool isNew = false; ///< the file was copied
    /// If it was not, and the user could not guess why: a font of this name was there before.
    std::string nameTaken;
};

/// The fonts that the user can choose: built-in ones, imported ones, and those of the system.
///
/// Imported fonts are copies in the folder "ImportedFonts" of the program's data. A font is known
/// by its full name there, a file by its file name. Fonts of the system are registered when a text
/// first asks for their name.
class FontManager {
public:
    /// Without folders there are only built-in fonts. With folders, the registry asks this object
    /// for names that it does not know; then this object must outlive the use of the registry.
    explicit FontManager(
        text::FontRegistry& fonts, std::optional<foundation::Folders> userFolders = {});
    ~FontManager();
    FontManager(const FontManager&) = delete;
    FontManager& operator=(const FontManager&) = delete;

    /// In the order of the table; the user sees them sorted.
    [[nodiscard]] static std::span<const BuiltInFont> builtInFonts();

    /// Registers all built-in fonts of the bundle and sets the registry's fallbacks. A missing or
    /// broken font is reported on the console; texts with that font are set in the fallback.
    void registerBuiltIns(const foundation::Bundle& bundle);

    /// The folder of imported fonts; made if it is missing.
    [[nodiscard]] std::filesystem::path folder() const;
    /// A folder for unpacking archives.
    [[nodiscard]] const std::filesystem::path& temporaryFolder() const;

    /// The names of the imported files, in no order. Registers them all.
    [[nodiscard]] std::vector<std::string> importedFiles();
    /// The full name of each imported file (of a collection: of its first face), in no order. Files
    /// without a readable name are left out.
    [[nodiscard]] std::vector<std::string> importedNames();
    /// The full name of a font file; nothing if it is no font.
    [[nodiscard]] static std::optional<std::string> nameOf(const std::filesystem::path& file);

    /// Copies a font into the folder and registers it. Nothing is copied if a file of that name, or
    /// a font of that full name, is there already. Errors: `notFound`, `unreadable`, `malformed`,
    /// `tooLarge`, `unwritable`; the message is for the user.
    [[nodiscard]] foundation::Result<Installation> install(const std::filesystem::path& file);
    /// Deletes an imported font by its file name; false if there is no such file. Texts with this
    /// font keep its name and are set in the fallback when they are built again.
    bool deleteFont(const std::string& fileName);

    /// All fonts: first the built-in and imported ones, sorted together by name, then those of the
    /// system, sorted as well. A name stands there once.
    [[nodiscard]] std::vector<FontEntry> fontMenu(const foundation::UserDefaults& defaults);

    ui::Signal<> fontsInstalled;   ///< by an archive, at least one
    ui::Signal<bool> fontsDeleted; ///< after each deletion; whether there was such a file
    ui::Signal<> fontsChanged;     ///< after each file that came or went

private:
    [[nodiscard]] std::vector<FontEntry> ownFonts();
    [[nodiscard]] std::vector<FontEntry> systemFonts(const std::set<std::string>& taken);
    [[nodiscard]] const std::vector<text::SystemFont>& knownSystemFonts();
    void addByName(std::string_view name);

    text::FontRegistry& registry;
    std::optional<foundation::Folders> folders;
    std::optional<std::vector<text::SystemFont>> systemFonts_; ///< read when first needed
    std::set<std::string, std::less<>> unknownNames; ///< looked up in vain since the last import
};

} // namespace zelvo::content
