// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "ui/controls/MyButton.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace zelvo::ui {

/// The audio editor: it cuts the song to a stretch, slides the stretch along the movie's time, and
/// chooses the fades. It writes into the AudioPlayer of the model, so the song outlives it.
///
/// Times are in seconds; the view makes points of them.
class AudioViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::MyButton* playPauseButton READ playPauseObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* importButton READ importObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* trashButton READ trashObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* fadesButton READ fadesObject CONSTANT)
    Q_PROPERTY(bool hasSong READ hasSong NOTIFY songChanged)
    Q_PROPERTY(QUrl song READ song NOTIFY songChanged)
    Q_PROPERTY(double totalDuration READ totalDuration NOTIFY songChanged)
    Q_PROPERTY(double audioPreRoll READ audioPreRoll NOTIFY layoutChanged)
    Q_PROPERTY(double audioIn READ audioIn NOTIFY layoutChanged)
    Q_PROPERTY(double audioEnd READ audioEnd NOTIFY layoutChanged)
    Q_PROPERTY(double movieDuration READ movieDuration CONSTANT)
    Q_PROPERTY(bool isPreviewing READ isPreviewing NOTIFY progressChanged)
    Q_PROPERTY(double currentTimerTime READ currentTimerTime NOTIFY progressChanged)

public:
    /// What a drag moves.
    enum class Part {
        stretch, ///< the whole stretch along the movie
        start,   ///< its left handle
        end      ///< its right handle
    };
    Q_ENUM(Part)

    static constexpr double kLeastStretch = 2.0; ///< seconds

    explicit AudioViewController(const Services& given, QObject* parent = nullptr);
    /// Stops the preview.
    ~AudioViewController() override;
    AudioViewController(const AudioViewController&) = delete;
    AudioViewController& operator=(const AudioViewController&) = delete;

    MyButton playPauseButton;
    MyButton importButton;
    MyButton trashButton;
    MyButton fadesButton;

    /// Told of the song's title; empty: there is no song. Called at once when it is set.
    void setSongTitleClosure(std::function<void(const QString&)> closure);

    /// Takes a song, which must be a file that can be decoded.
    void assignSong(const std::filesystem::path& url, const std::string& title);

    void togglePlay();
    void stop();
    void toggleFades();
    void showAudioImport();
    void deleteAudioAction();

    // --- drags: x is a time on the ruler
    Q_INVOKABLE void beginDrag(zelvo::ui::AudioViewController::Part part, double x);
    Q_INVOKABLE void dragTo(double x);
    Q_INVOKABLE void endDrag();
    /// Moves by keys.
    Q_INVOKABLE void nudge(zelvo::ui::AudioViewController::Part part, double seconds);
    /// Moves to the first or the last place that is possible; for the stretch, the last one ends
    /// with the movie.
    Q_INVOKABLE void moveToLimit(zelvo::ui::AudioViewController::Part part, bool isLast);

    [[nodiscard]] bool hasSong() const;
    [[nodiscard]] QUrl song() const;
    [[nodiscard]] double totalDuration() const;
    [[nodiscard]] double audioPreRoll() const;
    [[nodiscard]] double audioIn() const;
    [[nodiscard]] double audioEnd() const;
    [[nodiscard]] double movieDuration() const;

    [[nodiscard]] bool isPreviewing() const { return playTimer.isValid(); }

    /// The movie time of the preview.
    [[nodiscard]] double currentTimerTime() const { return currentTimerTime_; }

    [[nodiscard]] MyButton* playPauseObject() { return &playPauseButton; }

    [[nodiscard]] MyButton* importObject() { return &importButton; }

    [[nodiscard]] MyButton* trashObject() { return &trashButton; }

    [[nodiscard]] MyButton* fadesObject() { return &fadesButton; }

Q_SIGNALS:
    void songChanged();
    void layoutChanged();
    void progressChanged();

private:
    /// What a drag began with.
    struct Drag {
        Part part = Part::stretch;
        double second = 0; ///< of the finger
        double audioIn = 0;
        double audioEnd = 0;
        double audioPreRoll = 0;
    };

    void refresh();
    void move(const Drag& from, double seconds);
    void timerFunc();
    void showFades();

    Services services;
    std::function<void(const QString&)> songTitleClosure;
    std::optional<Drag> drag;
    double currentTimerTime_ = 0;
    foundation::Timer playTimer;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
