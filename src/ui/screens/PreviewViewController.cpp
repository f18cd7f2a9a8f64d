// SPDX-License-Identifier: MIT
#include "ui/screens/PreviewViewController.h"

#include "model/Model.h"
#include "shared/FormatTime.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"

#include <fmt/format.h>

#include <system_error>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr double kReviewDelay = 0.01; ///< seconds

QString shown(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

std::error_code copyMovie(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code error;
    std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, error);
    return error;
}

void tell(Alerts& alerts, const std::filesystem::path& file, const std::error_code& error) {
    alerts.showAlert(
        PreviewViewController::tr("Error").toStdString(),
        PreviewViewController::tr("%1 was not written: %2")
            .arg(shown(file), QString::fromStdString(error.message()))
            .toStdString());
}

} // namespace

PreviewViewController::PreviewViewController(
    const Services& given, QString posterSource, Sharing sharing)
    : moviePath(given.model.movieURL())
    , poster(std::move(posterSource))
    , services(given)
    , desk(std::move(sharing))
    , copying(given.runLoop.makeSerialQueue("moviecopy")) {}

QUrl PreviewViewController::movieUrl() const {
    return QUrl::fromLocalFile(shown(moviePath));
}

QString PreviewViewController::place() const {
    return shown(savedCopy.empty() ? moviePath : savedCopy);
}

void PreviewViewController::setSavedCopy(const std::filesystem::path& copy) {
    savedCopy = copy;
    Q_EMIT placeChanged();
}

QString PreviewViewController::timeText(double milliseconds) {
    return QString::fromStdString(formatTime(milliseconds / 1000));
}

void PreviewViewController::togglePlaying() {
    setPlaying(!isPlaying_);
}

void PreviewViewController::reachedEnd() {
    setPlaying(false);
}

void PreviewViewController::setPlaying(bool plays) {
    if (plays == isPlaying_ || (plays && !failure_.isEmpty()))
        return;
    isPlaying_ = plays;
    Q_EMIT isPlayingChanged();
}

void PreviewViewController::playbackFailed(const QString& reason) {
    setPlaying(false);
    std::error_code error;
    failure_ = std::filesystem::exists(moviePath, error)
                   ? tr("This movie cannot be played here (%1). Choose Share, then Open in "
                        "Player, to watch it.")
                         .arg(reason.isEmpty() ? tr("no decoder") : reason)
                   : tr("There is no movie here yet.");
    Q_EMIT failureChanged();
}

void PreviewViewController::share() {
    isSharing_ = !isSharing_;
    Q_EMIT isSharingChanged();
}

void PreviewViewController::endSharing() {
    if (isSharing_)
        share();
}

void PreviewViewController::openInPlayer() {
    setPlaying(false); // otherwise two players would play the same sound
    open(place().toStdString());
}

void PreviewViewController::openFolder() {
    open(std::filesystem::path(place().toStdString()).parent_path());
}

void PreviewViewController::open(const std::filesystem::path& what) {
    endSharing();
    if (desk.open(QUrl::fromLocalFile(shown(what))))
        return;
    services.alerts.showAlert(
        tr("Error").toStdString(),
        tr("No program was found to open %1.").arg(shown(what)).toStdString());
}

void PreviewViewController::copyPath() {
    endSharing();
    desk.copyText(place());
    signals().messageSignal.fire(tr("Path copied").toStdString());
}

QUrl PreviewViewController::suggestedCopy() const {
    return QUrl::fromLocalFile(shown(services.model.movieWriter().freeVideoPlace()));
}

void PreviewViewController::saveCopy(const QUrl& target) {
    endSharing();
    const std::filesystem::path to = target.toLocalFile().toStdString();
    if (to.empty())
        return;
    const auto say = lifetime.guard([this, to] { copied(to); });
    copying->async([to, from = moviePath, say, given = services] {
        const std::error_code error = copyMovie(from, to);
        given.runLoop.post([to, error, say, given] {
            if (error)
                tell(given.alerts, to, error);
            else
                say();
        });
    });
}

void PreviewViewController::copied(const std::filesystem::path& to) {
    setSavedCopy(to);
    signals().messageSignal.fire(tr("Copy saved").toStdString());
}

void PreviewViewController::dismissController() {
    setPlaying(false);
    if (desk.requestReview)
        services.runLoop.asyncAfter(kReviewDelay, desk.requestReview);
    Q_EMIT dismissed();
}

} // namespace zelvo::ui
