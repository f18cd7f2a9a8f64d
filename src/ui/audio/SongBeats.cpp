// SPDX-License-Identifier: MIT
#include "ui/audio/SongBeats.h"

#include "model/Model.h"
#include "platform/foundation/UserDefaults.h"
#include "shared/FrameClock.h"
#include "shared/Signal.h"

#include <algorithm>
#include <cmath>

namespace zelvo::ui {

using shared::FrameClock;

namespace {

constexpr auto kSnapsKey = "snapsToBeats";

/// The music begins with a frame, both of the movie and of the song.
double onFrame(double seconds) {
    return FrameClock::secondsOf(FrameClock::nearestFrame(seconds));
}

} // namespace

SongBeats::SongBeats(const Services& given, QObject* parent)
    : QObject(parent)
    , services(given)
    , isSnapping_(given.defaults.boolean(kSnapsKey).value_or(false))
    , estimate(given.runLoop, [this] { Q_EMIT changed(); }) {
    signals().isPlayingSignal.subscribe(lifetime, [this](bool plays) {
        if (plays)
            refresh();
    });
    services.model.actionController().snapTime = [this](double time) {
        return isSnapping_ ? snapped(time) : time;
    };
}

SongBeats::~SongBeats() {
    services.model.actionController().snapTime = {};
}

SongBeats::Stretch SongBeats::present() const {
    const audio::AudioPlayer& player = services.model.audioPlayer();
    return {player.audioURL.value_or(""), player.audioIn, player.audioEnd};
}

void SongBeats::refresh() {
    const Stretch wanted = present();
    if (wanted != asked) {
        asked = wanted;
        if (wanted.song.empty())
            estimate.clear();
        else
            estimate.estimate(wanted.song, wanted.from, wanted.to);
    }
    Q_EMIT changed();
}

QList<double> SongBeats::marks() const {
    const Stretch stretch = present();
    if (stretch.song != asked.song)
        return {};
    const audio::AudioPlayer& player = services.model.audioPlayer();
    const double shift = onFrame(player.audioPreRoll) - onFrame(player.audioIn);
    QList<double> marks;
    for (const double beat : estimate.beats()) {
        if (beat >= stretch.from && beat < stretch.to)
            marks.push_back(beat + shift);
    }
    return marks;
}

void SongBeats::setSnapping(bool snaps) {
    if (snaps == isSnapping_)
        return;
    isSnapping_ = snaps;
    services.defaults.set(kSnapsKey, snaps);
    Q_EMIT snappingChanged();
}

double SongBeats::snapped(double clockTime) const {
    const double time = clockTime - services.model.startCounter();
    const auto beats = marks();
    double nearest = time;
    double distance = estimate.tempo() > 0.0 ? 30.0 / estimate.tempo() : 0.0;
    for (const double beat : beats) {
        const bool isInMovie = beat >= 0.0 && beat < services.model.duration();
        if (isInMovie && std::abs(beat - time) <= distance) {
            nearest = beat;
            distance = std::abs(beat - time);
        }
    }
    return clockTime + (nearest - time);
}

} // namespace zelvo::ui
