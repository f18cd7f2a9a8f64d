// SPDX-License-Identifier: MIT
#include "ui/screens/Poster.h"

#include "shared/FrameClock.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

#include <algorithm>

namespace zelvo::ui {

namespace {

QString dataUrl(const render::FrameView& frame) {
    const QImage straight(
        frame.bytes.data(), frame.size.width, frame.size.height, QImage::Format_RGBA8888);
    QImage whole(straight.size(), QImage::Format_RGB32);
    whole.fill(Qt::black);
    QPainter(&whole).drawImage(0, 0, straight);
    const int width = std::min(frame.size.width, kPosterWidth);
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    if (!whole.scaledToWidth(width, Qt::SmoothTransformation).save(&file, "JPG"))
        return {};
    return QStringLiteral("data:image/jpeg;base64,") + QString::fromLatin1(file.data().toBase64());
}

} // namespace

movie::FrameTap posterTap(const std::shared_ptr<Poster>& poster, double at) {
    return {
        .wants = [frame =
                      shared::FrameClock::frameReaching(at)](int drawn) { return drawn == frame; },
        .take = [poster](int, const render::FrameView& frame) -> foundation::Result<void> {
            poster->isTaken = true;
            poster->source = dataUrl(frame);
            return {};
        }};
}

} // namespace zelvo::ui
