// SPDX-License-Identifier: MIT
#include "ui/audio/SongWaveform.h"

namespace zelvo::ui {

SongWaveform::SongWaveform(foundation::RunLoop& loop, QObject* parent)
    : QObject(parent)
    , waveform(loop, [this] { Q_EMIT changed(); }) {}

void SongWaveform::load(const std::filesystem::path& song) {
    waveform.load(song);
    Q_EMIT changed();
}

void SongWaveform::clear() {
    waveform.clear();
    Q_EMIT changed();
}

QString SongWaveform::failure() const {
    return waveform.error() ? QString::fromStdString(waveform.error()->message) : QString();
}

} // namespace zelvo::ui
