// SPDX-License-Identifier: MIT
#pragma once

#include "export/FrameFiles.h"
#include "export/MovieOptions.h"
#include "platform/foundation/Lifetime.h"
#include "platform/foundation/Result.h"
#include "ui/controls/Services.h"
#include "ui/screens/BlurCover.h"
#include "ui/screens/ExportProgressView.h"
#include "ui/screens/Poster.h"
#include "ui/screens/PreviewViewController.h"
#include "ui/screens/Sharing.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace zelvo::ui {

/// The export screen: ring and percentage while the movie is made, then the preview.
///
///     waiting ──0.3 s──> exporting ──"ShowVideo"──> preview ──Cancel──> dismissed
///        └───────close────────┴─────────────────────────────────────────^
///
/// Exports what the options of the movie writer say. Pictures in place of a movie have no preview:
/// the screen then tells where they are.
///
/// Only closing the screen cancels an export. Switching to another window or minimising this one
/// does not.
class ExportViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString progressLabel READ progressLabel NOTIFY currentPercChanged)
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)
    Q_PROPERTY(QString timeLeft READ timeLeft NOTIFY timeLeftChanged)
    Q_PROPERTY(QString picturesPlace READ picturesPlace NOTIFY statusChanged)
    Q_PROPERTY(zelvo::ui::ExportProgressView* progressView READ progressView CONSTANT)
    Q_PROPERTY(zelvo::ui::PreviewViewController* preview READ preview NOTIFY previewChanged)

public:
    /// The cover must outlive the screen. The presenter shows the cover; this class hides it.
    ExportViewController(
        const Services& given, BlurCover& presenterCover, Sharing sharing = Sharing::desktop());
    ~ExportViewController() override;

    int currentPerc = 0; ///< the highest shown so far

    /// For example "12 %".
    [[nodiscard]] QString progressLabel() const;

    /// The current step, in a few words.
    [[nodiscard]] QString status() const { return status_; }

    /// For example "0:35 left"; empty before it can be estimated.
    [[nodiscard]] QString timeLeft() const { return timeLeft_; }

    /// The folder of the finished pictures; empty if a movie is made.
    [[nodiscard]] QString picturesPlace() const { return picturesPlace_; }

    Q_INVOKABLE void openPictures();

    [[nodiscard]] ExportProgressView* progressView() { return &ring; }

    /// Shown on top of this screen when the movie is ready; null before.
    [[nodiscard]] PreviewViewController* preview() const { return preview_.get(); }

    /// Cancels the export, if it is still drawing, and closes the screen.
    Q_INVOKABLE void dismissViewController();
    /// The system suspends the program, which ends the export. Not for a window that only loses the
    /// focus.
    void applicationWillResignActive();

Q_SIGNALS:
    void currentPercChanged();
    void statusChanged();
    void timeLeftChanged();
    void previewChanged();
    void dismissed();

private:
    void subscribe();
    void startMovie();
    void setStatus(const QString& text);
    void follow(double wholeFraction);
    void estimate(const movie::MovieProgress& progress);
    [[nodiscard]] foundation::Result<void> prepareTap();
    void placePictures();
    void showVideo();
    void finished(const foundation::Result<movie::MovieOutcome>& outcome);

    Services services;
    BlurCover& cover;
    Sharing desk;
    ExportProgressView ring;
    std::shared_ptr<Poster> poster = std::make_shared<Poster>();
    std::unique_ptr<PreviewViewController> preview_;
    std::optional<movie::FrameFolder> pictures; ///< empty if a movie is made
    QString status_;
    QString timeLeft_;
    QString picturesPlace_;
    bool isDismissed = false;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
