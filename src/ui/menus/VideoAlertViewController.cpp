// SPDX-License-Identifier: MIT
#include "ui/menus/VideoAlertViewController.h"

#include <utility>

namespace zelvo::ui {

namespace {

QUrl urlOf(const std::filesystem::path& path) {
    std::error_code unreadable;
    if (!std::filesystem::is_regular_file(path, unreadable))
        return {};
    return QUrl::fromLocalFile(QString::fromStdString(path.string()));
}

} // namespace

QRectF HalfSizePresentationController::frameOfPresentedView(const QSizeF& container) const {
    QRectF frame(QPointF(), presentationSize);
    frame.moveCenter({container.width() / 2, container.height() / 2});
    return frame;
}

VideoAlertViewController::VideoAlertViewController(
    const std::filesystem::path& path, QSizeF size, QString text, QObject* parent)
    : QObject(parent)
    , presentation{size + QSizeF(0, kBarHeight)}
    , movie_(urlOf(path))
    , still_(urlOf(std::filesystem::path(path).replace_extension(".png")))
    , text_(std::move(text)) {}

QRectF VideoAlertViewController::frameIn(qreal width, qreal height) const {
    return presentation.frameOfPresentedView({width, height});
}

void VideoAlertViewController::viewDidAppear() {
    setPlaying(true);
}

void VideoAlertViewController::dismissAction() {
    setPlaying(false);
    Q_EMIT dismissed();
}

void VideoAlertViewController::setPlaying(bool plays) {
    if (std::exchange(playing, plays) != plays)
        Q_EMIT changed();
}

} // namespace zelvo::ui
