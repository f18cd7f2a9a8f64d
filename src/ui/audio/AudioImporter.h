// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/NewFile.h"
#include "platform/foundation/Result.h"
#include "platform/foundation/RunLoop.h"
#include "ui/controls/Services.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace zelvo::ui {

/// The door through which a song of the user comes in. It is copied to the folder "importedAudio" of
/// the program's data, so that the movie does not depend on where the user keeps it. At most one
/// song stays there.
///
/// The copying is done on another thread. If several songs are asked for, the last one counts. A
/// file that cannot be copied or decoded changes nothing, and an alert says why.
class AudioImporter {
    Q_DECLARE_TR_FUNCTIONS(zelvo::ui::AudioImporter)

public:
    static constexpr double kPatience = 0.4; ///< seconds until a word says that it is copied

    explicit AudioImporter(const Services& given);
    ~AudioImporter();
    AudioImporter(const AudioImporter&) = delete;
    AudioImporter& operator=(const AudioImporter&) = delete;

    /// Called when a song was asked for. May be empty.
    std::function<void()> didAsk;
    /// Called with the copy; the files of earlier songs are deleted after it returns. Takes the
    /// file's name as the title.
    std::function<void(const std::filesystem::path& copy, const std::string& title)> didArrive;

    void load(const std::filesystem::path& file);

    /// While it is held, songs wait: a movie that is being made must not change.
    void setHeld(bool isOn);

    /// For file dialogs.
    [[nodiscard]] static QStringList nameFilters();

private:
    /// A song that is ready, and not yet in its place.
    struct Copy {
        std::shared_ptr<foundation::NewFile> file; ///< null: it was there before
        std::filesystem::path target;
    };

    using Copied = foundation::Result<Copy>;
    using IsStopped = std::function<bool()>; ///< any thread

    /// Copies the song, and makes sure that the copy can be decoded.
    [[nodiscard]] static Copied copied(
        const std::filesystem::path& song,
        const std::filesystem::path& folder,
        const IsStopped& isStopped);
    [[nodiscard]] std::filesystem::path folder() const;
    void finish(std::uint64_t number, const Copied& arrived);
    void show(const Copy& copy) const;
    void refuse(const foundation::Error& error) const;

    Services services;
    /// The number of the latest song asked for. The copying of earlier ones stops.
    std::shared_ptr<std::atomic<std::uint64_t>> latest =
        std::make_shared<std::atomic<std::uint64_t>>(0);
    std::unique_ptr<foundation::SerialQueue> queue;
    foundation::Timer loadingWord;
    bool isHeld = false;
    std::optional<Copy> waiting; ///< came while held
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
