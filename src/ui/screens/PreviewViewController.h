// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "ui/controls/Services.h"
#include "ui/screens/Sharing.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <memory>

namespace zelvo::ui {

/// Shows the finished movie, with actions for it. The view plays the movie; this class controls it.
/// Playing does not start by itself.
class PreviewViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(QUrl movieUrl READ movieUrl CONSTANT)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY isPlayingChanged)
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)
    Q_PROPERTY(QString poster MEMBER poster CONSTANT)
    Q_PROPERTY(QString place READ place NOTIFY placeChanged)
    Q_PROPERTY(bool isSharing READ isSharing NOTIFY isSharingChanged)

public:
    PreviewViewController(const Services& given, QString posterSource, Sharing sharing);

    const QString title = QStringLiteral("Movie");
    const std::filesystem::path moviePath; ///< "Movie.mov"
    const QString poster;                  ///< a picture from the movie; may be empty

    [[nodiscard]] QUrl movieUrl() const;

    [[nodiscard]] bool isPlaying() const { return isPlaying_; }

    /// Why the movie cannot be played here, and what to do; empty if it can.
    [[nodiscard]] QString failure() const { return failure_; }

    /// The movie's path for the user: the copy in the videos folder, or else `moviePath`, which the
    /// next export overwrites.
    [[nodiscard]] QString place() const;
    void setSavedCopy(const std::filesystem::path& copy);

    /// The sharing choices are shown.
    [[nodiscard]] bool isSharing() const { return isSharing_; }

    /// Formats a time of the player, given in milliseconds.
    Q_INVOKABLE [[nodiscard]] static QString timeText(double milliseconds);
    Q_INVOKABLE void togglePlaying();
    /// The view has reached the end of the movie.
    Q_INVOKABLE void reachedEnd();
    /// The view's player cannot play the movie.
    Q_INVOKABLE void playbackFailed(const QString& reason);
    /// Shows or hides the sharing choices.
    Q_INVOKABLE void share();
    Q_INVOKABLE void openInPlayer();
    Q_INVOKABLE void openFolder();
    Q_INVOKABLE void copyPath();
    /// An unused name in the user's videos folder.
    Q_INVOKABLE [[nodiscard]] QUrl suggestedCopy() const;
    /// Copies the movie to a file that the user has chosen; does not block the main thread.
    Q_INVOKABLE void saveCopy(const QUrl& target);
    Q_INVOKABLE void dismissController();

Q_SIGNALS:
    void isPlayingChanged();
    void failureChanged();
    void placeChanged();
    void isSharingChanged();
    void dismissed();

private:
    void setPlaying(bool plays);
    void endSharing();
    void open(const std::filesystem::path& what);
    void copied(const std::filesystem::path& to);

    Services services;
    Sharing desk;
    std::filesystem::path savedCopy;
    QString failure_;
    bool isPlaying_ = false;
    bool isSharing_ = false;
    std::unique_ptr<foundation::SerialQueue> copying;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
