// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRectF>
#include <QSizeF>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <filesystem>

namespace zelvo::ui {

/// Places what it presents in the middle of the container, in the size asked for.
struct HalfSizePresentationController {
    QSizeF presentationSize;

    [[nodiscard]] QRectF frameOfPresentedView(const QSizeF& container) const;
};

/// A short hint movie over the screen, played again and again until it is dismissed.
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
    static constexpr qreal kBarHeight = 44; ///< below the movie, with the button

    /// The size is that of the movie. The text says the same as the movie where none can be shown;
    /// a picture beside the movie, of its name and .png, stands in for it.
    VideoAlertViewController(
        const std::filesystem::path& path,
        QSizeF size,
        QString text = {},
        QObject* parent = nullptr);

    [[nodiscard]] QSizeF preferredContentSize() const { return presentation.presentationSize; }

    /// Where the view stands in its container.
    Q_INVOKABLE [[nodiscard]] QRectF frameIn(qreal width, qreal height) const;

    [[nodiscard]] QUrl movie() const { return movie_; }

    /// Empty where there is none.
    [[nodiscard]] QUrl still() const { return still_; }

    [[nodiscard]] QString text() const { return text_; }

    [[nodiscard]] static qreal barHeight() { return kBarHeight; }

    [[nodiscard]] bool isPlaying() const { return playing; }

    Q_INVOKABLE void viewDidAppear();
    Q_INVOKABLE void dismissAction();

Q_SIGNALS:
    void changed();
    /// Whoever shows it takes it away.
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
