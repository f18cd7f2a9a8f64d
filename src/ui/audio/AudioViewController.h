// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "ui/audio/Dragger.h"
#include "ui/audio/SongBeats.h"
#include "ui/audio/SongWaveform.h"
#include "ui/controls/MyButton.h"
#include "ui/controls/Services.h"

#include <QFileSystemWatcher>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqml.h>

#include <filesystem>
#include <functional>
#include <string>

namespace zelvo::ui {

/// A recorded press, as a mark on the ruler.
struct PressMark {
    Q_GADGET
    QML_VALUE_TYPE(pressMark)
    Q_PROPERTY(double time MEMBER time)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString title MEMBER title)

public:
    double time = 0; ///< seconds of the movie
    QString label;   ///< the time as a text
    QString title;   ///< the name of the action

    friend bool operator==(const PressMark&, const PressMark&) = default;
};

/// Makes the list type known to QML's tools.
struct PressMarkList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::PressMark>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::PressMark)
};

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
    Q_PROPERTY(zelvo::ui::MyButton* snapButton READ snapObject CONSTANT)
    Q_PROPERTY(zelvo::ui::SongBeats* beats READ beatsObject CONSTANT)
    Q_PROPERTY(zelvo::ui::Dragger* draggableView READ draggableObject CONSTANT)
    Q_PROPERTY(zelvo::ui::Dragger* leftDragger READ leftObject CONSTANT)
    Q_PROPERTY(zelvo::ui::Dragger* rightDragger READ rightObject CONSTANT)
    Q_PROPERTY(zelvo::ui::SongWaveform* waveform READ waveformObject CONSTANT)
    Q_PROPERTY(bool hasSong READ hasSong NOTIFY songChanged)
    Q_PROPERTY(double totalDuration READ totalDuration NOTIFY songChanged)
    Q_PROPERTY(double audioPreRoll READ audioPreRoll NOTIFY layoutChanged)
    Q_PROPERTY(double audioIn READ audioIn NOTIFY layoutChanged)
    Q_PROPERTY(double audioEnd READ audioEnd NOTIFY layoutChanged)
    Q_PROPERTY(double movieDuration READ movieDuration CONSTANT)
    Q_PROPERTY(bool isPreviewing READ isPreviewing NOTIFY progressChanged)
    Q_PROPERTY(double currentTimerTime READ currentTimerTime NOTIFY progressChanged)
    Q_PROPERTY(QList<zelvo::ui::PressMark> marks READ marks NOTIFY marksChanged)

public:
    /// `songBeats` may be null: then no beats are marked.
    explicit AudioViewController(
        const Services& given, SongBeats* songBeats = nullptr, QObject* parent = nullptr);
    /// Stops the preview.
    ~AudioViewController() override;
    AudioViewController(const AudioViewController&) = delete;
    AudioViewController& operator=(const AudioViewController&) = delete;

private:
    Services services; // first, because other members are built from it

public:
    MyButton playPauseButton;
    MyButton importButton;
    MyButton trashButton;
    MyButton fadesButton;
    MyButton snapButton;   ///< presses are recorded at the beats
    Dragger draggableView; ///< the whole stretch
    Dragger leftDragger;
    Dragger rightDragger;
    SongWaveform waveform;

    /// Told of the song's title; empty: there is no song. Called at once when it is set.
    void setSongTitleClosure(std::function<void(const QString&)> closure);

    /// Takes a song, which must be a file that can be decoded.
    void assignSong(const std::filesystem::path& url, const std::string& title);

    void togglePlay();
    void stop();
    void toggleFades();
    void toggleSnapping();
    void showAudioImport();
    /// Opens the file dialog.
    void askForFile();
    void deleteAudioAction();

    /// Opens the list of the user's albums; set by the owner.
    std::function<void()> presentMusicLibrary;
    /// Called with the file that the user has picked; set by the owner.
    std::function<void(const std::filesystem::path&)> openSong;
    Q_INVOKABLE void importFrom(const QUrl& file) const;
    /// Something else has given the AudioPlayer another song.
    void refresh();

    /// Plays the preview from a movie time on.
    Q_INVOKABLE void seekPreview(double movieTime);

    [[nodiscard]] bool hasSong() const;
    [[nodiscard]] double totalDuration() const;
    [[nodiscard]] double audioPreRoll() const;
    [[nodiscard]] double audioIn() const;
    [[nodiscard]] double audioEnd() const;
    [[nodiscard]] double movieDuration() const;

    /// In the order of time. Presses during the count-in have none.
    [[nodiscard]] const QList<PressMark>& marks() const { return marks_; }

    [[nodiscard]] bool isPreviewing() const { return playTimer.isValid(); }

    /// The movie time of the preview.
    [[nodiscard]] double currentTimerTime() const { return currentTimerTime_; }

    [[nodiscard]] MyButton* playPauseObject() { return &playPauseButton; }

    [[nodiscard]] MyButton* importObject() { return &importButton; }

    [[nodiscard]] MyButton* trashObject() { return &trashButton; }

    [[nodiscard]] MyButton* fadesObject() { return &fadesButton; }

    [[nodiscard]] MyButton* snapObject() { return &snapButton; }

    /// Null if there are none.
    [[nodiscard]] SongBeats* beatsObject() const { return songBeats_; }

    [[nodiscard]] Dragger* draggableObject() { return &draggableView; }

    [[nodiscard]] Dragger* leftObject() { return &leftDragger; }

    [[nodiscard]] Dragger* rightObject() { return &rightDragger; }

    [[nodiscard]] SongWaveform* waveformObject() { return &waveform; }

Q_SIGNALS:
    void songChanged();
    void layoutChanged();
    void progressChanged();
    void marksChanged();
    /// The user wants to pick a file; the dialog begins in that folder.
    void fileAsked(const QStringList& nameFilters, const QUrl& folder);

private:
    [[nodiscard]] Dragger::Calls draggerCalls(DraggedPart part);
    void startPreview(double movieTime);
    void timerFunc();
    void tick();
    void showIdle();
    void showFades();
    void showMarks();
    [[nodiscard]] QString title() const;
    void watchSong();
    /// Tells the user once if the file has gone.
    void checkSong();

    void refreshBeats();

    SongBeats* songBeats_;
    std::function<void(const QString&)> songTitleClosure;
    QList<PressMark> marks_;
    QFileSystemWatcher watcher;
    bool isSongMissing = false; ///< and the user knows
    double currentTimerTime_ = 0;
    double startedAt = 0; ///< time of the run loop at which the preview was at 0
    foundation::Timer playTimer;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
