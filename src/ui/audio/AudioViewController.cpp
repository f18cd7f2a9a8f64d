// SPDX-License-Identifier: MIT
#include "ui/audio/AudioViewController.h"

#include "actions/ActionController.h"
#include "audio/AudioPlayer.h"
#include "model/Model.h"
#include "shared/FormatTime.h"
#include "shared/Signal.h"
#include "ui/audio/AudioImporter.h"
#include "ui/controls/Alerts.h"

#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cmath>
#include <system_error>
#include <utility>

namespace zelvo::ui {

using audio::FadeState;

namespace {

struct FadeFace {
    FadeState next; ///< after a press
    const char* image;
    const char* notice;
};

/// In the order of FadeState.
// clang-format off
constexpr auto kFadeFaces = std::to_array<FadeFace>({
    {FadeState::fadeIn,    "NoFade",    QT_TRANSLATE_NOOP("zelvo::ui::AudioViewController", "No Fade")    },
    {FadeState::fadeOut,   "FadeIn",    QT_TRANSLATE_NOOP("zelvo::ui::AudioViewController", "Fade In")    },
    {FadeState::fadeInOut, "FadeOut",   QT_TRANSLATE_NOOP("zelvo::ui::AudioViewController", "Fade Out")   },
    {FadeState::noFade,    "FadeInOut", QT_TRANSLATE_NOOP("zelvo::ui::AudioViewController", "Fade In+Out")},
});

// clang-format on

const FadeFace& faceOf(FadeState state) {
    return kFadeFaces.at(static_cast<std::size_t>(state));
}

} // namespace

AudioViewController::AudioViewController(
    const Services& given, SongBeats* songBeats, QObject* parent)
    : QObject(parent)
    , services(given)
    , playPauseButton({}, [this] { togglePlay(); })
    , importButton(
          {.image = "Import", .name = tr("Choose the music")}, [this] { showAudioImport(); })
    , trashButton(
          {.image = "Trashcan", .name = tr("Remove the music")}, [this] { deleteAudioAction(); })
    , fadesButton({}, [this] { toggleFades(); })
    , snapButton(
          {.image = "SnapToBeats", .name = tr("Record actions on the beats of the music")},
          [this] { toggleSnapping(); })
    , draggableView(
          DraggedPart::stretch, services.model.audioPlayer(), draggerCalls(DraggedPart::stretch))
    , leftDragger(
          DraggedPart::start, services.model.audioPlayer(), draggerCalls(DraggedPart::start))
    , rightDragger(DraggedPart::end, services.model.audioPlayer(), draggerCalls(DraggedPart::end))
    , waveform(services.runLoop)
    , songBeats_(songBeats) {
    for (const Dragger* const dragger : {&draggableView, &leftDragger, &rightDragger})
        connect(this, &AudioViewController::layoutChanged, dragger, &Dragger::moved);
    for (const Dragger* const handle : {&leftDragger, &rightDragger})
        connect(handle, &Dragger::heldChanged, this, [this, handle] {
            if (!handle->isHeld())
                refreshBeats();
        });
    snapButton.selectedColor = kAccentColor;
    snapButton.setEnabled(songBeats_ != nullptr);
    snapButton.setMySelected(songBeats_ != nullptr && songBeats_->isSnapping());
    signals().isPlayingSignal.subscribe(lifetime, [this](bool isPlaying) {
        if (isPlaying && isPreviewing())
            stop();
    });
    signals().undoStateSignal.subscribe(lifetime, [this] { showMarks(); });
    connect(&watcher, &QFileSystemWatcher::fileChanged, this, [this] { checkSong(); });
    showIdle();
    showFades();
    showMarks();
    refresh();
}

AudioViewController::~AudioViewController() {
    if (isPreviewing())
        stop();
}

Dragger::Calls AudioViewController::draggerCalls(DraggedPart part) {
    const auto stopIt = [this, part] {
        if (part != DraggedPart::end && isPreviewing())
            stop();
    };
    return {
        .movieDuration = [this] { return movieDuration(); },
        .willDrag = stopIt,
        .didMove =
            [this] {
                Q_EMIT layoutChanged();
                // While a handle is dragged, each step would ask for another estimate.
                if (!leftDragger.isHeld() && !rightDragger.isHeld())
                    refreshBeats();
            }};
}

void AudioViewController::refreshBeats() {
    if (songBeats_ != nullptr)
        songBeats_->refresh();
}

void AudioViewController::toggleSnapping() {
    if (songBeats_ == nullptr)
        return;
    songBeats_->setSnapping(!songBeats_->isSnapping());
    snapButton.setMySelected(songBeats_->isSnapping());
    signals().messageSignal.fire(
        (songBeats_->isSnapping() ? tr("Actions on beats") : tr("Actions at any time"))
            .toStdString());
}

void AudioViewController::setSongTitleClosure(std::function<void(const QString&)> closure) {
    songTitleClosure = std::move(closure);
    songTitleClosure(title());
}

void AudioViewController::assignSong(const std::filesystem::path& url, const std::string& title) {
    stop();
    services.model.audioPlayer().loadSong(url, title);
    refresh();
}

void AudioViewController::refresh() {
    if (songTitleClosure)
        songTitleClosure(title());
    playPauseButton.setEnabled(hasSong());
    trashButton.setEnabled(hasSong());
    watchSong();
    if (const auto& song = services.model.audioPlayer().audioURL)
        waveform.load(*song);
    else
        waveform.clear();
    refreshBeats();
    Q_EMIT songChanged();
    Q_EMIT layoutChanged();
}

QString AudioViewController::title() const {
    return QString::fromStdString(services.model.audioPlayer().songTitle.value_or(""));
}

void AudioViewController::watchSong() {
    if (!watcher.files().isEmpty())
        watcher.removePaths(watcher.files());
    isSongMissing = false;
    if (const auto& song = services.model.audioPlayer().audioURL)
        watcher.addPath(QString::fromStdString(song->string()));
    checkSong();
}

void AudioViewController::checkSong() {
    const auto& song = services.model.audioPlayer().audioURL;
    std::error_code error;
    const bool isMissing = song && !std::filesystem::exists(*song, error);
    if (!std::exchange(isSongMissing, isMissing) && isMissing)
        services.alerts.showAlert(
            tr("The music is gone.").toStdString(),
            tr("“%1” was moved or deleted. The movie stays silent until you choose other music.")
                .arg(QString::fromStdString(song->filename().string()))
                .toStdString());
}

void AudioViewController::toggleFades() {
    FadeState& state = services.model.audioPlayer().fadeState;
    state = faceOf(state).next;
    signals().messageSignal.fire(tr(faceOf(state).notice).toStdString());
    showFades();
}

void AudioViewController::showFades() {
    const FadeFace& face = faceOf(services.model.audioPlayer().fadeState);
    fadesButton.setFace({.image = face.image, .name = tr(face.notice)});
}

void AudioViewController::askForFile() {
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    Q_EMIT fileAsked(AudioImporter::nameFilters(), QUrl::fromLocalFile(folder));
}

void AudioViewController::showAudioImport() {
    stop();
    const auto showAlbums = [this] {
        if (presentMusicLibrary)
            presentMusicLibrary();
    };
    services.alerts.show({
        .title = tr("Import").toStdString(),
        .message = tr("from ...").toStdString(),
        .actions =
            {{.title = tr("Music").toStdString(), .handler = lifetime.guard(showAlbums)},
             {.title = tr("Documents").toStdString(),
              .handler = lifetime.guard([this] { askForFile(); })},
             {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel}},
    });
}

void AudioViewController::importFrom(const QUrl& file) const {
    if (openSong)
        openSong(file.toLocalFile().toStdString());
}

void AudioViewController::deleteAudioAction() {
    stop();
    services.alerts.show(
        {.title = tr("Remove Audio?").toStdString(),
         .actions = {
             {.title = tr("Yes").toStdString(),
              .role = AlertRole::destructive,
              .handler = lifetime.guard([this] {
                  services.model.audioPlayer().clearSong();
                  refresh();
              })},
             {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel}}});
}

bool AudioViewController::hasSong() const {
    return services.model.audioPlayer().audioURL.has_value();
}

double AudioViewController::totalDuration() const {
    return services.model.audioPlayer().totalDuration;
}

double AudioViewController::audioPreRoll() const {
    return services.model.audioPlayer().audioPreRoll;
}

double AudioViewController::audioIn() const {
    return services.model.audioPlayer().audioIn;
}

double AudioViewController::audioEnd() const {
    return services.model.audioPlayer().audioEnd;
}

double AudioViewController::movieDuration() const {
    return services.model.duration();
}

void AudioViewController::showMarks() {
    QList<PressMark> found;
    for (const actions::XACPtr& record : services.model.actionController().recordedActions()) {
        const double time = record->time - services.model.startCounter();
        if (record->registerUndo && time >= 0)
            found.append(
                {time,
                 QString::fromStdString(formatTime(time)),
                 QString::fromStdString(record->title)});
    }
    std::ranges::stable_sort(found, {}, &PressMark::time);
    if (std::exchange(marks_, found) != found)
        Q_EMIT marksChanged();
}

} // namespace zelvo::ui
