// SPDX-License-Identifier: MIT
#include "ui/audio/AudioImporter.h"

#include "platform/foundation/Console.h"
#include "platform/foundation/Folders.h"
#include "platform/media/AVAsset.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"

#include <array>
#include <fstream>
#include <span>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

using foundation::Cause;
using foundation::fail;
using foundation::NewFile;
using foundation::Result;

constexpr const char* kFolder = "importedAudio";
constexpr double kWordInterval = 2; ///< seconds; the word goes by itself soon after

/// The usual endings of sound files.
constexpr std::array kSoundSuffixes{
    "mp3", "m4a", "aac", "flac", "ogg", "oga", "opus", "wav", "aif", "aiff", "aifc", "wma"};
/// The usual endings of videos, whose sound can be taken.
constexpr std::array kVideoSuffixes{
    "mp4", "mov", "m4v", "webm", "mkv", "avi", "mpg", "mpeg", "ts", "mts", "3gp", "ogv", "wmv"};

/// The desktop's dialogs mind the case.
template <std::size_t count> QString patternsOf(const std::array<const char*, count>& suffixes) {
    QStringList patterns;
    for (const char* const suffix : suffixes) {
        patterns.append(QStringLiteral("*.") + QString::fromLatin1(suffix));
        patterns.append(patterns.back().toUpper());
    }
    return patterns.join(' ');
}

/// The error with the song's name in place of the path at which it was read.
foundation::Error named(foundation::Error error, const fs::path& read, const fs::path& song) {
    const std::string path = read.string();
    if (error.message.starts_with(path))
        error.message.replace(0, path.size(), song.filename().string());
    return error;
}

/// Before all of it is copied: whether there is sound in it at all.
Result<void> checkHeader(const fs::path& song) {
    std::error_code ignored;
    const std::string name = song.filename().string();
    if (!fs::is_regular_file(song, ignored))
        return fail(Cause::notFound, name + ": there is no such file");
    const auto asset = media::AVAsset::open(song);
    if (!asset)
        return tl::unexpected(named(asset.error(), song, song));
    if (asset->tracksWithMediaType(media::MediaType::audio).empty())
        return fail(Cause::unsupported, name + " has no sound.");
    return {};
}

Result<void> copyInto(NewFile& copy, const fs::path& song, const std::function<bool()>& isStopped) {
    constexpr std::size_t kBlock = 1U << 20U;
    const std::string name = song.filename().string();
    std::ifstream stream(song, std::ios::binary);
    if (!stream)
        return fail(Cause::unreadable, name + ": it cannot be opened for reading");
    std::vector<char> block(kBlock);
    while (stream.read(block.data(), static_cast<std::streamsize>(block.size())),
           stream.gcount() > 0) {
        if (isStopped())
            return fail(Cause::cancelled, name + ": another song was chosen");
        const auto bytes = std::span(block).first(static_cast<std::size_t>(stream.gcount()));
        if (auto written = copy.write(std::as_bytes(bytes)); !written)
            return written;
    }
    if (stream.bad())
        return fail(Cause::unreadable, name + ": it cannot be read to its end");
    return {};
}

/// Deletes all songs but one.
void keepOnly(const fs::path& song) {
    std::vector<fs::path> others;
    std::error_code error;
    for (fs::directory_iterator entry(song.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        if (entry->path() != song && !entry->is_directory(ignored))
            others.push_back(entry->path());
    }
    for (const fs::path& other : others)
        fs::remove(other, error);
    if (error)
        foundation::logLine(std::string(kFolder) + ": " + error.message());
}

} // namespace

AudioImporter::AudioImporter(const Services& given)
    : services(given)
    , queue(services.runLoop.makeSerialQueue("songs")) {}

AudioImporter::~AudioImporter() {
    ++*latest; // ends the copying
}

fs::path AudioImporter::folder() const {
    fs::path path = services.folders.documents / kFolder;
    std::error_code ignored; // errors show when the file is written
    fs::create_directories(path, ignored);
    return path;
}

AudioImporter::Copied
AudioImporter::copied(const fs::path& song, const fs::path& folder, const IsStopped& isStopped) {
    if (auto header = checkHeader(song); !header)
        return tl::unexpected(header.error());
    const fs::path target = folder / song.filename();
    std::error_code ignored;
    if (fs::equivalent(song, target, ignored)) // chosen where an earlier import has put it
        return media::checkSound(target).map([&target] { return Copy{nullptr, target}; });
    (void)NewFile::check(target); // removes leftovers; errors show in the next line
    // The file is put in its place on the main thread, which must not wait for the disk.
    auto made = NewFile::create(target, NewFile::Use::temporary);
    if (!made)
        return tl::unexpected(made.error());
    const auto file = std::make_shared<NewFile>(*std::move(made));
    return copyInto(*file, song, isStopped)
        .and_then([&file] { return media::checkSound(file->path()); })
        .map_error(
            [&](foundation::Error error) { return named(std::move(error), file->path(), song); })
        .map([&] {
            return Copy{file, target};
        });
}

void AudioImporter::load(const fs::path& file) {
    const std::uint64_t number = ++*latest;
    waiting.reset();
    if (didAsk)
        didAsk();
    const QString name = QString::fromStdString(file.filename().string());
    const std::string word = tr("Copying %1…").arg(name).toStdString();
    loadingWord = services.runLoop.scheduleOnce(kPatience, [this, word] {
        signals().messageSignal.fire(word);
        loadingWord = services.runLoop.scheduleRepeating(
            kWordInterval, [word] { signals().messageSignal.fire(word); });
    });
    queue->async([&loop = services.runLoop,
                  isStopped = IsStopped([latest = latest, number] { return number != *latest; }),
                  file,
                  target = folder(),
                  done = lifetime.guard(
                      [this, number](const Copied& arrived) { finish(number, arrived); })] {
        if (!isStopped())
            loop.post([done, arrived = copied(file, target, isStopped)] { done(arrived); });
    });
}

void AudioImporter::finish(std::uint64_t number, const Copied& arrived) {
    if (number != *latest)
        return;
    loadingWord.invalidate();
    if (!arrived)
        return refuse(arrived.error());
    waiting = *arrived;
    setHeld(isHeld);
}

void AudioImporter::setHeld(bool isOn) {
    isHeld = isOn;
    if (!isHeld && waiting)
        show(*std::exchange(waiting, std::nullopt));
}

void AudioImporter::show(const Copy& copy) const {
    if (copy.file) {
        if (auto placed = copy.file->commit(); !placed)
            return refuse(placed.error());
    }
    if (didArrive)
        didArrive(copy.target, copy.target.filename().string());
    keepOnly(copy.target);
}

void AudioImporter::refuse(const foundation::Error& error) const {
    foundation::logLine(error.message);
    services.alerts.showAlert(tr("The music cannot be imported.").toStdString(), error.message);
}

QStringList AudioImporter::nameFilters() {
    const QString sounds = patternsOf(kSoundSuffixes);
    const QString videos = patternsOf(kVideoSuffixes);
    return {
        tr("Music and videos (%1)").arg(sounds + ' ' + videos),
        tr("Music (%1)").arg(sounds),
        tr("Videos (%1)").arg(videos),
        tr("All files (*)")};
}

} // namespace zelvo::ui
