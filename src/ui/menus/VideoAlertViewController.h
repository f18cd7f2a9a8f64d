// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRectF>
#include <QSizeF>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <filesystem>

namespace zelvo::ui {

/// Centres the presented view in the container, in the requested size.
struct HalfSizePresentationController {
    QSizeF presentationSize;

    [[nodiscard]] QRectF frameOfPresentedView(const QSizeF& container) const;
};

/// A short hint movie on top of the screen. It repeats until it is dismissed.
class VideoAlertViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QUrl movie READ movie CONSTANT)
    Q_PROPERTY(QUrl still READ still CONSTANT)
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(qreal barHeight READ barHeight CONSTANT)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY changed)

public:
    static constexpr qreal kBarHeight = 44; ///< bar with the button, below the movie

    /// The size is that of the movie. If no movie can be shown, the text is shown instead, and a
    /// picture with the movie's name and the extension .png, if there is one.
    VideoAlertViewController(
        const std::filesystem::path& path,
        QSizeF size,
        QString text = {},
        QObject* parent = nullptr);

    [[nodiscard]] QSizeF preferredContentSize() const { return presentation.presentationSize; }

    /// The place of the view in its container.
    Q_INVOKABLE [[nodiscard]] QRectF frameIn(qreal width, qreal height) const;

    [[nodiscard]] QUrl movie() const { return movie_; }

    /// Empty if there is none.
    [[nodiscard]] QUrl still() const { return still_; }

    [[nodiscard]] QString text() const { return text_; }

    [[nodiscard]] static qreal barHeight() { return kBarHeight; }

    [[nodiscard]] bool isPlaying() const { return playing; }

    Q_INVOKABLE void viewDidAppear();
    Q_INVOKABLE void dismissAction();

Q_SIGNALS:
    void changed();
    /// The receiver must remove it.
    void dismissed();

private:
    void setPlaying(bool plays);

    HalfSizePresentationController presentation;
    QUrl movie_;
    QUrl still_;
    QString text_;
    bool playing = false;
};

} // namespace zelvo::ui
