// SPDX-License-Identifier: MIT
#include "ui/screens/ExportViewController.h"

#include "export/MovieMux.h"
#include "model/Model.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"

#include <QGuiApplication>

#include <cmath>
#include <utility>

namespace zelvo::ui {

namespace {

/// Seconds; the screen appears before the main thread starts to draw the movie.
constexpr double kStartDelay = 0.3;

/// As a share of the movie's duration; titles are usually complete there.
constexpr double kPosterMoment = 0.5;

/// Fewer frames would tell nothing: the first ones load what they show.
constexpr int kFramesToEstimate = 10;

/// Minutes and seconds, rounded up.
QString shortTime(double seconds) {
    const auto whole = static_cast<int>(std::ceil(seconds));
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

ExportViewController::ExportViewController(
    const Services& given, BlurCover& presenterCover, Sharing sharing)
    : services(given)
    , cover(presenterCover)
    , desk(std::move(sharing))
    , ring(given)
    , status_(tr("Preparing")) {
    subscribe();
    services.runLoop.asyncAfter(kStartDelay, lifetime.guard([this] {
        if (!isDismissed)
            startMovie();
    }));
}

ExportViewController::~ExportViewController() {
    cover.hide();
}

void ExportViewController::subscribe() {
    auto& writer = services.model.movieWriter();
    signals().timeSignal.subscribe(lifetime, [this](const TimeState& time) {
        services.runLoop.post(
            lifetime.guard([this, whole = time.wholeFraction] { follow(whole); }));
    });
    writer.progressSignal.subscribe(lifetime, [this](const movie::MovieProgress& progress) {
        setStatus(
            progress.framesDone < progress.framesTotal ? tr("Recording the movie")
                                                       : tr("Saving the movie"));
        estimate(progress);
    });
    writer.showVideoSignal.subscribe(lifetime, [this] {
        services.runLoop.post(lifetime.guard([this] {
            if (!isDismissed)
                showVideo();
        }));
    });
    writer.completedSignal.subscribe(
        lifetime, [this](const foundation::Result<movie::MovieOutcome>& outcome) {
            services.runLoop.post(lifetime.guard([this, outcome] { finished(outcome); }));
        });
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](auto state) {
        if (state == Qt::ApplicationSuspended)
            applicationWillResignActive();
    });
}

void ExportViewController::startMovie() {
    const auto started = prepareTap().and_then([this] { return services.model.startMovie(); });
    if (!started) {
        setStatus(tr("The movie could not be made"));
        services.alerts.showAlert(tr("Error").toStdString(), started.error().message);
    }
}

foundation::Result<void> ExportViewController::prepareTap() {
    auto& options = services.model.movieWriter().options;
    const double duration = services.model.duration();
    options.tap = posterTap(poster, kPosterMoment * duration);
    if (options.writesMovie)
        return {};
    auto made = movie::FrameFolder::make(options.copyPlace);
    if (!made)
        return tl::unexpected(made.error());
    pictures.emplace(std::move(*made));
    options.tap = pictures->tap(movie::framesIn(duration));
    return {};
}

void ExportViewController::estimate(const movie::MovieProgress& progress) {
    const auto frames = services.model.movieWriter().timings().frames;
    const double spent = (frames.animateMs + frames.drawMs + frames.readBackMs) / 1000;
    const int left = progress.framesTotal - progress.framesDone;
    QString text;
    if (progress.framesDone >= kFramesToEstimate && left > 0 && spent > 0)
        text = tr("%1 left").arg(shortTime(spent / progress.framesDone * left));
    if (text == timeLeft_)
        return;
    timeLeft_ = text;
    Q_EMIT timeLeftChanged();
}

void ExportViewController::placePictures() {
    const auto placed = pictures->putInPlace();
    pictures.reset();
    cover.hide();
    if (!placed) {
        setStatus(tr("The movie could not be made"));
        services.alerts.showAlert(tr("Error").toStdString(), placed.error().message);
        return;
    }
    picturesPlace_ = QString::fromStdString(placed->string());
    setStatus(tr("The pictures are saved"));
}

void ExportViewController::openPictures() {
    (void)desk.open(QUrl::fromLocalFile(picturesPlace_));
}

QString ExportViewController::progressLabel() const {
    return QStringLiteral("%1 %").arg(currentPerc);
}

void ExportViewController::setStatus(const QString& text) {
    if (text == status_)
        return;
    status_ = text;
    Q_EMIT statusChanged();
}

void ExportViewController::follow(double wholeFraction) {
    const int percent = static_cast<int>(wholeFraction * 100);
    if (percent <= currentPerc)
        return;
    currentPerc = percent;
    Q_EMIT currentPercChanged();
}

void ExportViewController::showVideo() {
    preview_ = std::make_unique<PreviewViewController>(services, poster->source, desk);
    connect(preview_.get(), &PreviewViewController::dismissed, this, [this] {
        isDismissed = true;
        Q_EMIT dismissed();
    });
    Q_EMIT previewChanged();
    cover.hide();
}

void ExportViewController::finished(const foundation::Result<movie::MovieOutcome>& outcome) {
    if (!outcome) {
        setStatus(tr("The movie could not be made"));
        return;
    }
    if (pictures) {
        placePictures();
        return;
    }
    if (preview_ && outcome->savedCopy)
        preview_->setSavedCopy(*outcome->savedCopy);
}

void ExportViewController::dismissViewController() {
    if (isDismissed)
        return;
    isDismissed = true;
    // A movie that was drawn completely is also finished and saved, even if nobody waits for it.
    if (services.model.isRecordingMovie())
        services.model.cancelMovie();
    cover.hide();
    Q_EMIT dismissed();
}

void ExportViewController::applicationWillResignActive() {
    dismissViewController();
}

} // namespace zelvo::ui
