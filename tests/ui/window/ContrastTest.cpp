// SPDX-License-Identifier: MIT
// Whether texts and icons can be read whatever the stage shows, measured in the real window.
// ZELVO_WINDOW_PICTURES names a folder for pictures of what was measured.
#include "ui/window/WindowFixture.h"

#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>

#include <algorithm>
#include <cmath>
#include <map>

namespace zelvo::app {
namespace {

constexpr double kLegible = 4.5;
constexpr double kDimmed = 3; ///< of controls that are off

/// Relative luminance as WCAG 2.1 has it.
double luminance(QRgb color) {
    const auto linear = [](int byte) {
        const double part = byte / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
           0.0722 * linear(qBlue(color));
}

double contrast(QRgb one, QRgb other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

/// The contrast of the strongest colour to the background, which is the most frequent colour.
double contrastIn(const QImage& picture, const QRect& place) {
    std::map<QRgb, int> counts;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    const auto ground =
        std::ranges::max_element(counts, {}, [](const auto& count) { return count.second; });
    double best = 1;
    for (const auto& [color, count] : counts)
        best = std::max(best, contrast(color, ground->first));
    return best;
}

class ContrastTest : public test::WindowFixture {
protected:
    /// A sheet of one colour over all that the stage shows: no environment is brighter or darker.
    void coverStage() {
        QQuickItem* const stage = view(&application.main.stage, "stage");
        ASSERT_NE(stage, nullptr);
        QQmlComponent component(qmlEngine(stage));
        component.setData("import QtQuick; Rectangle { anchors.fill: parent }", {});
        sheet.reset(qobject_cast<QQuickItem*>(component.create()));
        sheet->setParentItem(stage->parentItem());
    }

    /// Measures every text and icon that is on show, on each colour of the stage.
    void measure(const char* screen) {
        for (const char* const color : {"white", "black", "#777777", "#ffff00"}) {
            sheet->setProperty("color", QColor(color));
            QTest::qWait(250); // all fades have ended
            const QImage picture = window.grabWindow();
            const QString pictures = qEnvironmentVariable("ZELVO_WINDOW_PICTURES");
            if (!pictures.isEmpty())
                picture.save(
                    QString("%1/%2-%3.png").arg(pictures, screen, QString(color).remove('#')));
            measured = 0;
            measureBelow(
                *window.contentItem(), picture, kLegible, std::string(screen) + " on " + color);
            EXPECT_GT(measured, 6) << screen;
        }
    }

    void
    measureBelow(QQuickItem& item, const QImage& picture, double least, const std::string& where) {
        if (!item.isVisible())
            return;
        const auto* const button = item.property("controller").value<QObject*>();
        const QVariant isOn = button != nullptr ? button->property("isEnabled") : QVariant();
        if (!item.isEnabled() || (isOn.isValid() && !isOn.toBool()))
            least = kDimmed;
        if (item.inherits("QQuickText") || item.inherits("QQuickImage"))
            measureItem(item, picture, least, where);
        for (QQuickItem* const child : item.childItems())
            measureBelow(*child, picture, least, where);
    }

    void
    measureItem(QQuickItem& item, const QImage& picture, double least, const std::string& where) {
        const bool isText = item.inherits("QQuickText");
        const QString shown = item.property(isText ? "text" : "name").toString();
        const QRect place = item.mapRectToScene(item.boundingRect()).toRect();
        if (shown.isEmpty() || !shownPart(item).contains(place))
            return;
        ++measured;
        EXPECT_GE(contrastIn(picture, place), least) << where << ": " << shown.toStdString();
    }

    /// The part of the window in which the item is not clipped.
    [[nodiscard]] QRect shownPart(QQuickItem& item) {
        QRect part(QPoint(0, 0), window.size());
        for (QQuickItem* around = &item; around != nullptr; around = around->parentItem()) {
            if (around->clip())
                part &= around->mapRectToScene(around->boundingRect()).toRect();
        }
        return part;
    }

    std::unique_ptr<QQuickItem> sheet;
    int measured = 0;
};

TEST_F(ContrastTest, TextsAndIconsAreLegibleWhateverTheStageShows) {
    ASSERT_TRUE(isDrawn());
    ASSERT_NO_FATAL_FAILURE(coverStage());
    measure("style");
    panel<ui::LayouterMenu>()->setCurrentNodeFromButton(0);
    measure("text");
    application.main.showAnim();
    panel<ui::ActionsMenu>()->speedButton.click();
    measure("catalogue");
    auto& catalogue = *panel<ui::ActionsMenu>();
    catalogue.tabButton("FX1").click(); // to be held
    catalogue.search.open();
    catalogue.search.setText("cam");
    measure("search");
    catalogue.search.close();
    model.setDuration(600);
    model.start();
    measure("run");
    sheet.reset();
}

} // namespace
} // namespace zelvo::app
