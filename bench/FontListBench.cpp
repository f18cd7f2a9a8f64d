// SPDX-License-Identifier: MIT
// How fast the list of fonts scrolls, with 300 names in their own faces. A program of its own, because
// it needs a display:
//   xvfb-run -a -s "-screen 0 1280x720x24" build/release/bench/font_list_bench
#include "app/Application.h"
#include "app/Stopwatch.h"
#include "content/FontManager.h"
#include "ui/layouter/FontStrip.h"
#include "ui/qml/FontName.h"
#include "ui/qml/Views.h"

#include <fmt/format.h>

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace zelvo;

constexpr int kFonts = 300;
constexpr double kSpeed = 2000; ///< points a second: fifty rows
constexpr double kSeconds = 5;

/// The built-in fonts over and over. The names differ, so that each is drawn anew.
std::vector<content::FontEntry> manyFonts() {
    std::vector<content::FontEntry> fonts;
    const auto builtIn = content::FontManager::builtInFonts();
    for (std::size_t i = 0; i < kFonts; ++i) {
        const auto& font = builtIn[i % builtIn.size()];
        fonts.push_back(
            {.name = fmt::format("{} {}", font.name, i),
             .file = foundation::mainBundle().path(fmt::format("fonts/{}", font.file))});
    }
    return fonts;
}

/// The value that this share of the values does not exceed.
double quantile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    return values.at(static_cast<std::size_t>(share * static_cast<double>(values.size() - 1)));
}

void measureDrawing(const std::vector<content::FontEntry>& fonts) {
    std::vector<double> times;
    for (const content::FontEntry& font : fonts) {
        const double before = app::stopwatchSeconds();
        (void)ui::drawSample(
            {ui::fontFileOf(font), QString::fromStdString(font.name), 19, 290, 40});
        times.push_back((app::stopwatchSeconds() - before) * 1000);
    }
    fmt::print(
        "a name is drawn, on its own thread: {:.2f} ms in the middle, {:.2f} ms at most\n",
        quantile(times, 0.5),
        quantile(times, 1));
}

/// Scrolls the list at a steady speed and notes the time of each frame.
class Scrolling {
public:
    explicit Scrolling(ui::FontStrip& strip) {
        view.setInitialProperties({{"controller", QVariant::fromValue(&strip)}});
        view.setSource(ui::viewUrl("FontListView"));
        view.resize(360, 640);
        view.show();
        for (QQuickItem* const item : view.rootObject()->findChildren<QQuickItem*>()) {
            if (item->inherits("QQuickListView"))
                rows = item;
        }
    }

    void run() {
        const double start = app::stopwatchSeconds();
        double last = start;
        QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [&] {
            const double now = app::stopwatchSeconds();
            times.push_back((now - last) * 1000);
            last = now;
            noteNames(rows);
            rows->setProperty("contentY", (now - start) * kSpeed);
            view.update();
            if (now - start > kSeconds)
                QCoreApplication::quit();
        });
        QGuiApplication::exec();
        times.erase(times.begin()); // includes the start of the window
        fmt::print(
            "scrolling, {} fonts: a frame takes {:.1f} ms in the middle, {:.1f} ms for 99 of 100, "
            "{:.1f} ms at most; {:.1f} % of the names came a frame or more late\n",
            kFonts,
            quantile(times, 0.5),
            quantile(times, 0.99),
            quantile(times, 1),
            100.0 * missing / std::max(shown, 1));
    }

private:
    void noteNames(const QQuickItem* item) {
        if (const auto* const name = qobject_cast<const ui::FontName*>(item)) {
            const double top = item->mapToItem(rows, {0, 0}).y();
            const bool isShown = item->isVisible() && top >= 0 && top < rows->height();
            shown += isShown ? 1 : 0;
            missing += isShown && !name->isDrawn() ? 1 : 0;
        }
        for (const QQuickItem* const child : item->childItems())
            noteNames(child);
    }

    QQuickView view;
    QQuickItem* rows = nullptr;
    std::vector<double> times;
    int shown = 0;
    int missing = 0;
};

} // namespace

int main(int argc, char** argv) {
    app::prepareGraphics();
    const QGuiApplication application(argc, argv);
    ui::installViews();
    const auto fonts = manyFonts();
    measureDrawing(fonts);
    foundation::WallRunLoop loop;
    ui::FontStrip strip(fonts, fonts.front().name, std::make_shared<ui::FontPictures>(loop), {});
    Scrolling(strip).run();
    return 0;
}
