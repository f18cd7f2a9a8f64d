// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"

#include <QCache>
#include <QImage>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace zelvo::ui {

/// A font by its file.
struct FontFile {
    Q_GADGET
    QML_VALUE_TYPE(fontFile)
    Q_PROPERTY(QString path MEMBER path)
    Q_PROPERTY(unsigned face MEMBER face)

public:
    QString path{};    ///< empty: the font of the interface
    unsigned face = 0; ///< in a collection

    friend bool operator==(const FontFile&, const FontFile&) = default;
};

/// A line of text in a font, in pixels of the screen. If it is too large for the space, it is drawn
/// smaller.
struct FontSample {
    FontFile font{};
    QString text{};
    int size = 0;  ///< em
    int width = 0; ///< of the space
    int height = 0;

    friend bool operator==(const FontSample&, const FontSample&) = default;
};

[[nodiscard]] size_t qHash(const FontSample& sample, size_t seed = 0);

/// Pictures of fonts: names in their own faces. They are drawn on a thread of their own, the one
/// asked for last first, because that is where the user looks. The newest ones are kept.
class FontPictures final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    static constexpr int kKeptBytes = 32 << 20;

    explicit FontPictures(foundation::RunLoop& runLoop);
    ~FontPictures() override;
    FontPictures(const FontPictures&) = delete;
    FontPictures& operator=(const FontPictures&) = delete;

    /// White on transparent, as small as the letters are. An empty picture: the font cannot be
    /// read, or lacks a letter of the text. Null: it is not drawn yet; `drawn` tells when to ask
    /// again. Valid until the next call.
    [[nodiscard]] const QImage* find(const FontSample& sample);

Q_SIGNALS:
    void drawn();

private:
    struct Asked;

    void keep(const FontSample& sample, QImage picture);

    foundation::RunLoop& loop;
    QCache<FontSample, QImage> pictures{kKeptBytes};
    std::shared_ptr<Asked> asked;
    std::unique_ptr<foundation::SerialQueue> queue;
    foundation::Lifetime lifetime;
};

/// Draws a sample. Any thread.
[[nodiscard]] QImage drawSample(const FontSample& sample);

} // namespace zelvo::ui
