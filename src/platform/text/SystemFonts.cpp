// SPDX-License-Identifier: MIT
#include "platform/text/SystemFonts.h"

#include <fontconfig/fontconfig.h>

#include <memory>
#include <optional>
#include <string_view>

namespace zelvo::text {

namespace {

struct Deleter {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }

    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }

    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }

    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};

template <class T> using Owned = std::unique_ptr<T, Deleter>;

std::string_view textOf(const FcPattern* font, const char* object, int place) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(font, object, place, &text) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(text);
}

/// The English full name, or else the first in any language.
std::string fullNameOf(const FcPattern* font) {
    for (int place = 0;; ++place) {
        const std::string_view language = textOf(font, FC_FULLNAMELANG, place);
        if (language.empty())
            return std::string(textOf(font, FC_FULLNAME, 0));
        if (language == "en")
            return std::string(textOf(font, FC_FULLNAME, place));
    }
}

bool hasReadableFormat(const FcPattern* font) {
    const std::string_view format = textOf(font, FC_FONTFORMAT, 0);
    return format == "TrueType" || format == "CFF";
}

std::optional<SystemFont> systemFont(const FcPattern* pattern) {
    int index = 0;
    (void)FcPatternGetInteger(pattern, FC_INDEX, 0, &index);
    constexpr int kMaxFace = 0xFFFF; // higher bits: an instance of a variable font
    SystemFont font{
        fullNameOf(pattern),
        std::string(textOf(pattern, FC_FILE, 0)),
        static_cast<unsigned>(index)};
    if (index > kMaxFace || font.name.empty() || font.file.empty() || !hasReadableFormat(pattern))
        return {};
    return font;
}

} // namespace

std::vector<SystemFont> systemFonts() {
    const Owned<FcConfig> config(FcInitLoadConfigAndFonts());
    if (!config)
        return {};
    const Owned<FcPattern> wanted(FcPatternCreate());
    (void)FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
    (void)FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    const Owned<FcObjectSet> objects(
        FcObjectSetBuild(FC_FULLNAME, FC_FULLNAMELANG, FC_FILE, FC_INDEX, FC_FONTFORMAT, nullptr));
    const Owned<FcFontSet> found(FcFontList(config.get(), wanted.get(), objects.get()));
    std::vector<SystemFont> fonts;
    for (int i = 0; found && i < found->nfont; ++i) {
        if (auto font = systemFont(found->fonts[i]))
            fonts.push_back(*std::move(font));
    }
    return fonts;
}

} // namespace zelvo::text
