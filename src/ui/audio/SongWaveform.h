// SPDX-License-Identifier: MIT
#pragma once

#include "platform/sound/Waveform.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <vector>

namespace zelvo::ui {

/// The waveform of a song, for views.
class SongWaveform final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY changed)
    Q_PROPERTY(QString failure READ failure NOTIFY changed)

public:
    explicit SongWaveform(foundation::RunLoop& loop, QObject* parent = nullptr);

    /// Begins anew with this song, and gives up another one.
    void load(const std::filesystem::path& song);
    /// No song.
    void clear();

    [[nodiscard]] const std::vector<float>& values() const { return waveform.values(); }

    /// 0 until the first values are there.
    [[nodiscard]] double valuesASecond() const { return waveform.valuesASecond(); }

    [[nodiscard]] bool isLoading() const { return waveform.isLoading(); }

    /// Why there is no waveform; empty if there is no reason.
    [[nodiscard]] QString failure() const;

Q_SIGNALS:
    void changed();

private:
    sound::Waveform waveform;
};

} // namespace zelvo::ui
