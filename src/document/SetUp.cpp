// SPDX-License-Identifier: MIT
#include "document/SetUp.h"

#include "document/EngineNames.h"
#include "document/StageReading.h"
#include "document/StageStyling.h"
#include "platform/foundation/Check.h"
#include "platform/media/AVAsset.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>

namespace zelvo::document {

namespace {

[[nodiscard]] audio::FadeState fadeNamed(std::string_view name) {
    const auto* const row = std::ranges::find(audio::kFades, name, &audio::FadeRow::name);
    CHECK(row != audio::kFades.end(), "no fade is called {}", name);
    return row->state;
}

[[nodiscard]] foundation::Result<void> checkSong(const std::filesystem::path& file) {
    const auto asset = media::AVAsset::open(file);
    if (!asset)
        return tl::unexpected(asset.error());
    if (!asset->tracksWithMediaType(media::MediaType::audio).empty())
        return {};
    return foundation::fail(
        foundation::Cause::malformed, file.string() + ": there is no sound in it");
}

/// The stretch that the music names, or an error if it does not lie within the song.
[[nodiscard]] foundation::Result<void> takeStretch(const Music& music, model::Model& model) {
    auto& player = model.audioPlayer();
    const double length = player.totalDuration;
    player.audioIn = music.in;
    player.audioEnd = music.end.value_or(music.in + model.duration());
    player.audioPreRoll = music.preRoll;
    if (music.fade)
        player.fadeState = fadeNamed(*music.fade);
    if (length <= 0)
        return {}; // it cannot be decoded; the export makes a silent movie and says so
    const double end = music.end.value_or(std::min(length, music.in + model.duration()));
    // The file may give the end of the song in rounded seconds.
    constexpr double kRounding = 0.05;
    // A short one, such as that of a video, is played as a whole.
    const double least = std::min(kMinStretch, length);
    if (end > length + kRounding || music.in + least > length + kRounding) {
        return foundation::fail(
            foundation::Cause::malformed,
            fmt::format(
                "the song lasts {:.2f} seconds; \"in\" and \"end\" must lie within it, at least {} "
                "seconds apart",
                length,
                kMinStretch));
    }
    player.audioEnd = std::min(end, length);
    return {};
}

[[nodiscard]] foundation::Result<void> takeSong(const Music& music, model::Model& model) {
    auto& player = model.audioPlayer();
    const std::filesystem::path song = music.file;
    auto taken = checkSong(song);
    if (player.audioURL != song)
        player.loadSong(song, music.title.value_or(song.stem().string()));
    auto cut = takeStretch(music, model);
    return taken ? cut : taken;
}

void takeMusic(const Style& style, model::Model& model, std::vector<foundation::Problem>& missing) {
    auto& player = model.audioPlayer();
    if (!style.music) {
        if (player.audioURL)
            player.clearSong();
        return;
    }
    if (const auto taken = takeSong(*style.music, model); !taken)
        missing.push_back({style.music->line.number, taken.error().message});
}

/// Takes over what `own` leaves out.
template <class Value> void fill(std::optional<Value>& own, const std::optional<Value>& other) {
    if (!own)
        own = other;
}

void fillLayout(LayoutStyle& own, const LayoutStyle& other) {
    fill(own.position, other.position);
    fill(own.scale, other.scale);
    fill(own.rotation, other.rotation);
    fill(own.visible, other.visible);
}

void fillText(TextStyle& own, const TextStyle& other) {
    fillLayout(own, other);
    fill(own.text, other.text);
    if (!own.font)
        own.fontFile = other.fontFile;
    fill(own.font, other.font);
    fill(own.material, other.material);
    fill(own.frontColor, other.frontColor);
    fill(own.bandColor, other.bandColor);
    fill(own.depth, other.depth);
    fill(own.bevel, other.bevel);
    fill(own.profile, other.profile);
    fill(own.fill, other.fill);
    fill(own.maxWidth, other.maxWidth);
}

void fillImage(ImageStyle& own, const ImageStyle& other) {
    fillLayout(own, other);
    fill(own.mask, other.mask);
    fill(own.flipH, other.flipH);
    fill(own.flipV, other.flipV);
    fill(own.quarterTurns, other.quarterTurns);
}

void fillMedia(MediaStyle& own, const MediaStyle& other) {
    fillLayout(own, other);
    if (own.object)
        return; // it has its own materials
    fill(own.shape, other.shape);
    fill(own.material, other.material);
    fill(own.color, other.color);
}

} // namespace

model::AnimationRatio speedTitled(std::string_view title) {
    const auto* const row = std::ranges::find(model::kSpeeds, title, &model::SpeedRow::title);
    CHECK(row != model::kSpeeds.end(), "no speed is called {}", title);
    return row->ratio;
}

Style completed(Style style, const Style& defaults) {
    fill(style.duration, defaults.duration);
    fill(style.speed, defaults.speed);
    fill(style.scene, defaults.scene);
    fill(style.background, defaults.background);
    for (const auto& [name, text] : defaults.nodes)
        fillText(style.nodes[name], text);
    if (style.picture && !style.picture->visible)
        style.picture->visible = true; // an entry of its own shows the picture
    if (!style.picture)
        style.picture = defaults.picture;
    fillImage(*style.picture, *defaults.picture);
    if (!style.object)
        style.object = defaults.object;
    fillMedia(*style.object, *defaults.object);
    return style;
}

std::vector<foundation::Problem>
applyStyle(const Style& style, StageMedia media, model::Model& model) {
    std::vector<foundation::Problem> missing = addFonts(style, model.nodes().fonts());
    missing.insert(missing.end(), media.missing.begin(), media.missing.end());
    styleContent(style, std::move(media), model.nodes());
    if (style.duration)
        model.setDuration(*style.duration);
    if (style.speed)
        model.animationRatio = speedTitled(*style.speed);
    if (style.scene && sceneIndexOf(*style.scene) != model.currentSceneIndex())
        model.setScene(sceneIndexOf(*style.scene));
    if (style.background && *style.background != model.currentBackgroundColor())
        model.setCurrentBackgroundColor(*style.background);
    takeMusic(style, model, missing);
    return missing;
}

tl::expected<void, foundation::Problem>
setUp(const Style& style, const std::filesystem::path& folder, model::Model& model) {
    const Style wanted = resolved(style, folder);
    const auto missing = applyStyle(wanted, readMedia(wanted), model);
    if (missing.empty())
        return {};
    return tl::unexpected(missing.front());
}

} // namespace zelvo::document
