// SPDX-License-Identifier: MIT
#include "ui/timeline/TimelineMusic.h"

#include "audio/AudioPlayer.h"
#include "model/Model.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

TimelineMusic::TimelineMusic(const Services& given, SongBeats* beats, QObject* parent)
    : QObject(parent)
    , services(given)
    , songBeats(beats)
    , waveform(given.runLoop) {
    if (songBeats != nullptr) {
        for (const auto signal : {&SongBeats::snappingChanged, &SongBeats::changed})
            connect(songBeats, signal, this, &TimelineMusic::changed);
    }
}

void TimelineMusic::refresh() {
    const std::filesystem::path song = services.model.audioPlayer().audioURL.value_or("");
    if (std::exchange(loaded, song) != song) {
        if (song.empty())
            waveform.clear();
        else
            waveform.load(song);
    }
    if (songBeats != nullptr)
        songBeats->refresh();
    Q_EMIT changed();
}

bool TimelineMusic::hasSong() const {
    return services.model.audioPlayer().audioURL.has_value();
}

double TimelineMusic::begins() const {
    return services.model.audioPlayer().audioPreRoll;
}

double TimelineMusic::length() const {
    const audio::AudioPlayer& player = services.model.audioPlayer();
    return std::max(0.0, player.audioEnd - player.audioIn);
}

double TimelineMusic::songTime() const {
    return services.model.audioPlayer().audioIn;
}

double TimelineMusic::songDuration() const {
    return services.model.audioPlayer().totalDuration;
}

QList<double> TimelineMusic::beats() const {
    return isSnapping() ? songBeats->marks() : QList<double>();
}

bool TimelineMusic::isSnapping() const {
    return songBeats != nullptr && songBeats->isSnapping();
}

void TimelineMusic::setSnapping(bool snaps) {
    if (songBeats != nullptr)
        songBeats->setSnapping(snaps);
}

} // namespace zelvo::ui
