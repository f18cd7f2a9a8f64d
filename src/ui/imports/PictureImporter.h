// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/Result.h"
#include "platform/foundation/RunLoop.h"
#include "platform/image/Image.h"
#include "ui/controls/Services.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <variant>

namespace zelvo::media {
class AVPlayer;
} // namespace zelvo::media

namespace zelvo::ui {

/// Puts pictures and videos of the user on the stage's image node. They are read on another thread,
/// and the stage stays as it is until then. If several are asked for, the last one stays. A file
/// that cannot be read leaves the node as it is, and an alert says why.
class PictureImporter {
    Q_DECLARE_TR_FUNCTIONS(zelvo::ui::PictureImporter)

public:
    static constexpr double kPatience = 0.4; ///< seconds until a word says that it is loading

    explicit PictureImporter(const Services& given);
    ~PictureImporter();
    PictureImporter(const PictureImporter&) = delete;
    PictureImporter& operator=(const PictureImporter&) = delete;

    /// Called when a picture was asked for, and when it is on the node. May be empty.
    std::function<void()> didAsk;
    std::function<void()> didArrive;

    void load(const std::filesystem::path& file);
    /// The bytes of a picture file that has no name, such as one from the clipboard. They are kept in
    /// the folder "PastedPictures" of the program's data, so that a document can name them.
    void load(const QByteArray& encoded);

    /// While it is held, pictures wait: a movie that is being made must not change.
    void setHeld(bool isOn);

    /// For file dialogs.
    [[nodiscard]] static QStringList nameFilters();

private:
    using Content = std::variant<image::ImagePtr, std::shared_ptr<media::AVPlayer>>;

    struct Arrived {
        Content content;
        std::filesystem::path file; ///< where it comes from; a copy of what was pasted
    };

    using Decoded = foundation::Result<Arrived>;
    using IsStopped = std::function<bool()>; ///< any thread
    using Decode = std::function<Decoded(const IsStopped&)>;

    [[nodiscard]] static Decoded
    read(const std::filesystem::path& file, const IsStopped& isStopped);
    void begin(const QString& name, Decode decode);
    void finish(std::uint64_t number, const QString& name, const Decoded& decoded);
    void show(const Arrived& arrived, const QString& name) const;

    Services services;
    /// The number of the latest picture asked for. The decoding of earlier ones stops.
    std::shared_ptr<std::atomic<std::uint64_t>> latest =
        std::make_shared<std::atomic<std::uint64_t>>(0);
    std::unique_ptr<foundation::SerialQueue> queue;
    foundation::Timer loadingWord;
    bool isHeld = false;
    std::function<void()> waiting; ///< shows the picture that came while held
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
