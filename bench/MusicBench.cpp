// SPDX-License-Identifier: MIT
// How fast a music folder is indexed, and its list of albums opens and scrolls. Makes a folder of its
// own. A program of its own, because it needs a display:
//   xvfb-run -a -s "-screen 0 1280x720x24" build/release/bench/music_bench [SONGS [PICTURES]]
// By default 2,000 songs, ten to an album. With a folder for PICTURES, the screens are written there.
#include "app/Engine.h"
#include "app/Stopwatch.h"
#include "content/FontManager.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/text/FontRegistry.h"
#include "ui/audio/AlbumTableViewController.h"
#include "ui/controls/Alerts.h"
#include "ui/controls/Services.h"
#include "ui/qml/Views.h"

#include <fmt/format.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QQuickItem>
#include <QQuickView>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace zelvo;
namespace fs = std::filesystem;

constexpr int kSongsOfAlbum = 10;
constexpr double kSpeed = 2000; ///< points a second
constexpr double kSeconds = 4;

double quantile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    return values.at(static_cast<std::size_t>(share * static_cast<double>(values.size() - 1)));
}

/// Names that begin with all letters.
std::string albumName(int album) {
    constexpr std::array kWords{"Night", "River", "Signal", "Ashes", "Morning", "Island", "Echo"};
    const auto letter = static_cast<char>('A' + album % 26);
    return fmt::format(
               "{}{} {}",
               letter,
               "lpha",
               kWords.at(static_cast<std::size_t>(album / 26) % kWords.size())) +
           (album < 182 ? "" : fmt::format(" {}", album / 182));
}

/// A drawn cover, as a JPEG of the size that is usual.
QByteArray coverOf(int album) {
    constexpr int kSide = 600;
    QImage image(kSide, kSide, QImage::Format_RGB32);
    const int hue = album * 47 % 360;
    image.fill(QColor::fromHsv(hue, 150, 90));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int ring = 5; ring > 0; --ring) {
        painter.setBrush(QColor::fromHsv((hue + 25 * ring) % 360, 190, 120 + 25 * ring));
        painter.drawEllipse(QPoint(kSide / 2, kSide / 2 + album % 5 * 40), ring * 52, ring * 52);
    }
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPEG", 85);
    return bytes;
}

/// Silence: frames of MPEG 1, layer 3, 128 kbit/s at 44.1 kHz, which hold nothing.
void writeSilence(const fs::path& file) {
    constexpr std::size_t kFrameBytes = 417;
    std::string frame("\xFF\xFB\x90\xC4");
    frame.resize(kFrameBytes, '\0');
    std::ofstream out(file, std::ios::binary);
    for (int i = 0; i < 40; ++i)
        out << frame;
}

void writeSong(const fs::path& file, int album, int track, const QByteArray& cover) {
    writeSilence(file);
    TagLib::MPEG::File opened(file.c_str());
    auto* const tag = opened.ID3v2Tag(true);
    tag->setTitle(fmt::format("Song {}", track));
    tag->setAlbum(albumName(album));
    tag->setArtist(fmt::format("Artist {}", album % 40));
    tag->setTrack(static_cast<unsigned>(track));
    auto* const frame = new TagLib::ID3v2::AttachedPictureFrame; // the tag deletes it
    frame->setMimeType("image/jpeg");
    frame->setPicture({cover.data(), static_cast<unsigned>(cover.size())});
    tag->addFrame(frame);
    opened.save();
}

void writeMusic(const fs::path& folder, int songs) {
    for (int album = 0; album * kSongsOfAlbum < songs; ++album) {
        const fs::path place = folder / fmt::format("{:05}", album);
        fs::create_directories(place);
        const QByteArray cover = coverOf(album);
        for (int track = 1; track <= kSongsOfAlbum; ++track)
            writeSong(place / fmt::format("{}.mp3", track), album, track, cover);
    }
    const fs::path special = folder / "00000";
    std::ofstream(special / "From the Cloud.mp3.nextcloud") << ' ';
}

void measureIndex(const ui::MusicPlaces& places) {
    for (const char* const what : {"first", "second"}) {
        const double began = app::stopwatchSeconds();
        auto index = music::MusicIndex::open(places.database, places.folder);
        const auto done = index->update();
        fmt::print(
            "{} update: {} files read in {:.2f} s\n",
            what,
            done->read,
            app::stopwatchSeconds() - began);
    }
    const double began = app::stopwatchSeconds();
    auto index = music::MusicIndex::open(places.database, places.folder);
    const auto list = music::AlbumList::arrange(index->albums());
    fmt::print(
        "the list of {} albums is read in {:.1f} ms\n",
        list.albums.size(),
        (app::stopwatchSeconds() - began) * 1000);
}

class Screen {
public:
    explicit Screen(const ui::Services& services)
        : began(app::stopwatchSeconds())
        , controller(services, nullptr) {
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.setColor(QColor(40, 44, 60));
        view.setInitialProperties({{"controller", QVariant::fromValue(&controller)}});
        view.setSource(ui::viewUrl("MusicLibrary"));
        view.resize(1280, 720);
        view.show();
        for (QQuickItem* const item : view.rootObject()->findChildren<QQuickItem*>()) {
            if (item->inherits("QQuickListView"))
                rows = item;
        }
    }

    void measureOpening(foundation::RunLoop& loop) {
        bool isShown = false;
        const auto connection = QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [&] {
            isShown = rows->property("count").toInt() > 0;
            view.update();
        });
        (void)loop.runUntil([&isShown] { return isShown; });
        QObject::disconnect(connection);
        fmt::print(
            "from opening to the first frame with albums: {:.0f} ms\n",
            (app::stopwatchSeconds() - began) * 1000);
    }

    void measureScrolling(foundation::RunLoop& loop) {
        const double start = app::stopwatchSeconds();
        double last = start;
        std::vector<double> times;
        const auto connection = QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [&] {
            const double now = app::stopwatchSeconds();
            times.push_back((now - last) * 1000);
            last = now;
            rows->setProperty("contentY", (now - start) * kSpeed);
            view.update();
        });
        view.update();
        (void)loop.runUntil([&] { return last - start > kSeconds; });
        QObject::disconnect(connection);
        times.erase(times.begin());
        fmt::print(
            "scrolling: a frame takes {:.1f} ms in the middle, {:.1f} ms for 99 of 100, {:.1f} ms "
            "at most\n",
            quantile(times, 0.5),
            quantile(times, 0.99),
            quantile(times, 1));
        rows->setProperty("contentY", 0);
    }

    void writePictures(foundation::RunLoop& loop, const QString& folder) {
        const auto picture = [&](const char* name) {
            bool isOver = false;
            const auto timer = loop.scheduleOnce(1.5, [&isOver] { isOver = true; });
            (void)loop.runUntil([&isOver] { return isOver; });
            view.grabWindow().save(folder + '/' + name + ".png");
        };
        picture("albums");
        view.resize(960, 540);
        picture("albums-small");
        controller.pickRow(0);
        picture("songs");
    }

private:
    double began;
    ui::AlbumTableViewController controller;
    QQuickView view;
    QQuickItem* rows = nullptr;
};

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    ui::installViews();
    const auto root = foundation::TemporaryFolder::make(fs::temp_directory_path());
    const auto folders = foundation::Folders::below(root->path());
    writeMusic(folders.music, arguments.value(1, "2000").toInt());
    measureIndex({folders.music, folders.cache / "music.sqlite"});

    foundation::VirtualRunLoop virtualLoop;
    app::Engine engine(virtualLoop, folders, 0);
    foundation::WallRunLoop loop;
    foundation::UserDefaults defaults;
    ui::Alerts alerts;
    text::FontRegistry registry;
    content::FontManager fonts(registry, folders);
    const ui::Services services{engine.model(), loop, defaults, alerts, fonts, folders};
    Screen screen(services);
    screen.measureOpening(loop);
    screen.measureScrolling(loop);
    if (arguments.size() > 2)
        screen.writePictures(loop, arguments[2]);
    return 0;
}
