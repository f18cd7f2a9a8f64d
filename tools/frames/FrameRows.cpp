// SPDX-License-Identifier: MIT
#include "FrameRows.h"

#include <QBuffer>
#include <QPainter>

#include <cstddef>

namespace zelvo::frames {

QImage inRows(const std::vector<QImage>& frames, const Rows& rows) {
    const QSize size = frames.front().size();
    const int lines = (rows.count + rows.columns - 1) / rows.columns;
    QImage sheet(rows.columns * size.width(), lines * size.height(), QImage::Format_RGB32);
    sheet.fill(Qt::black);
    QPainter painter(&sheet);
    for (int i = 0; i < rows.count; ++i) {
        const QPoint place(i % rows.columns * size.width(), i / rows.columns * size.height());
        painter.setOpacity(1);
        painter.drawImage(place, frames[static_cast<std::size_t>(i)]);
        if (i >= rows.passing)
            continue;
        painter.setOpacity(1 - (i + 1.0) / (rows.passing + 1));
        painter.drawImage(
            place, frames[static_cast<std::size_t>(rows.count) + static_cast<std::size_t>(i)]);
    }
    return sheet;
}

QByteArray packed(const QImage& sheet, int quality, int most) {
    constexpr int kWorst = 20;
    constexpr int kStep = 4;
    QByteArray bytes;
    for (; quality >= kWorst; quality -= kStep) {
        bytes.clear();
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        sheet.save(&buffer, "jpg", quality);
        if (bytes.size() <= most)
            break;
    }
    return bytes;
}

} // namespace zelvo::frames
