// SPDX-License-Identifier: MIT
#include "ui/controls/FontPictures.h"

#include "platform/text/FontFace.h"
#include "platform/text/LineLayout.h"
#include "ui/controls/PainterPath.h"

#include <QHash>
#include <QPainter>

#include <algorithm>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace zelvo::ui {

namespace {

/// More samples than a window shows. Older ones are forgotten: they have scrolled out of sight, or
/// they are asked for again.
constexpr std::size_t kMostAsked = 64;
constexpr int kEdge = 1; ///< pixels around the letters, for their smooth edges

std::shared_ptr<const text::FontFace> faceOf(const FontFile& font) {
    auto bytes = text::readFontBytes(font.path.toStdString());
    if (!bytes)
        return nullptr;
    const auto faces = text::readFaces(std::move(*bytes));
    if (!faces)
        return nullptr;
    const auto found = std::ranges::find(*faces, font.face, &text::FontFace::faceIndex);
    return found == faces->end() ? nullptr : *found;
}

bool canShow(const text::FontFace& face, const QString& line) {
    return std::ranges::all_of(
        line.toUcs4(), [&face](uint character) { return face.drawnGlyph(character) != 0; });
}

} // namespace

size_t qHash(const FontSample& sample, size_t seed) {
    return qHashMulti(
        seed,
        sample.font.path,
        sample.font.face,
        sample.text,
        sample.size,
        sample.width,
        sample.height);
}

QImage drawSample(const FontSample& sample) {
    const auto face = faceOf(sample.font);
    if (!face || !canShow(*face, sample.text))
        return {};
    const text::TextAttributes style{
        .font = face, .fallbacks = {}, .size = static_cast<double>(sample.size)};
    const QPainterPath outline = painterPath(text::outlineOf(sample.text.toStdString(), style));
    const QRectF box = outline.boundingRect();
    if (box.isEmpty())
        return {};
    const double room = 2.0 * kEdge;
    const double scale =
        std::min({1.0, (sample.width - room) / box.width(), (sample.height - room) / box.height()});
    const QSizeF size = box.size() * scale + QSizeF(room, room);
    QImage picture(
        static_cast<int>(std::ceil(size.width())),
        static_cast<int>(std::ceil(size.height())),
        QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(kEdge, kEdge);
    painter.scale(scale, scale);
    painter.translate(-box.topLeft());
    painter.fillPath(outline, Qt::white);
    return picture;
}

/// The samples that wait for the thread.
struct FontPictures::Asked {
    std::mutex mutex;
    std::deque<FontSample> samples; ///< guarded by the mutex; the newest is the last

    void add(const FontSample& sample) {
        const std::scoped_lock lock(mutex);
        std::erase(samples, sample);
        samples.push_back(sample);
        if (samples.size() > kMostAsked)
            samples.pop_front();
    }

    [[nodiscard]] std::optional<FontSample> takeNewest() {
        const std::scoped_lock lock(mutex);
        if (samples.empty())
            return std::nullopt;
        FontSample newest = std::move(samples.back());
        samples.pop_back();
        return newest;
    }
};

FontPictures::FontPictures(foundation::RunLoop& runLoop)
    : loop(runLoop)
    , asked(std::make_shared<Asked>())
    , queue(runLoop.makeSerialQueue("font pictures")) {}

FontPictures::~FontPictures() {
    const std::scoped_lock lock(asked->mutex);
    asked->samples.clear(); // so that the thread ends soon
}

const QImage* FontPictures::find(const FontSample& sample) {
    if (const QImage* const known = pictures.object(sample))
        return known;
    asked->add(sample);
    queue->async([waiting = asked,
                  &runLoop = loop,
                  take = lifetime.guard([this](const FontSample& done, const QImage& picture) {
                      keep(done, picture);
                  })] {
        const auto next = waiting->takeNewest();
        if (!next)
            return; // it was asked for twice, or forgotten
        runLoop.post([take, next, picture = drawSample(*next)] { take(*next, picture); });
    });
    return nullptr;
}

void FontPictures::keep(const FontSample& sample, QImage picture) {
    const auto bytes = std::max<qsizetype>(picture.sizeInBytes(), 1);
    pictures.insert(sample, new QImage(std::move(picture)), bytes);
    Q_EMIT drawn();
}

} // namespace zelvo::ui
