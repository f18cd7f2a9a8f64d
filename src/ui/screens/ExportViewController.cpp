// SPDX-License-Identifier: MIT
#include "ui/screens/ExportViewController.h"

#include "model/Model.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"

#include <QGuiApplication>

#include <utility>

namespace zelvo::ui {

namespace {

/// Seconds; the screen appears before the main thread starts to draw the movie.
constexpr double kStartDelay = 0.3;

/// As a share of the movie's duration; titles are usually complete there.
constexpr double kPosterMoment = 0.5;

const QString kPreparing = QStringLiteral("Preparing");
const QString kRecording = QStringLiteral("Recording the movie");
const QString kSaving = QStringLiteral("Saving the movie");
const QString kFailed = QStringLiteral("The movie could not be made");

} // namespace

ExportViewController::ExportViewController(
    const Services& given, BlurCover& presenterCover, Sharing sharing)
    : services(given)
    , cover(presenterCover)
    , desk(std::move(sharing))
    , ring(given)
    , status_(kPreparing) {
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
        setStatus(progress.framesDone < progress.framesTotal ? kRecording : kSaving);
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
    auto& model = services.model;
    model.movieWriter().options.tap = posterTap(poster, kPosterMoment * model.duration());
    if (const auto started = model.startMovie(); !started) {
        setStatus(kFailed);
        services.alerts.showAlert(tr("Error").toStdString(), started.error().message);
    }
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
        setStatus(kFailed);
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
