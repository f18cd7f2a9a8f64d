// SPDX-License-Identifier: MIT
// The loops that were drawn of the catalogue when the program was built.
#include "catalogue/Catalogue.h"
#include "ui/menus/LoopFormat.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace zelvo::ui {
namespace {

using catalogue::ActionLoop;

constexpr int kSmaller = 3; // than the frames: quicker to compare, and packing leaves less noise

/// The frames of a loop, in grey; empty if there is no such file or it has another form.
std::vector<QImage> framesOf(std::string_view title) {
    const QImage sheet(QUrl(loopOf(title)).toLocalFile());
    const int rows = sheet.height() / ActionLoop::kHeight;
    if (sheet.width() != ActionLoop::kWidth * ActionLoop::kColumns || rows < ActionLoop::kMinRows ||
        rows > ActionLoop::kMaxRows || sheet.height() % ActionLoop::kHeight != 0)
        return {};
    const QSize size(ActionLoop::kWidth / kSmaller, ActionLoop::kHeight / kSmaller);
    const QImage small = sheet
                             .scaled(
                                 sheet.width() / kSmaller,
                                 sheet.height() / kSmaller,
                                 Qt::IgnoreAspectRatio,
                                 Qt::SmoothTransformation)
                             .convertToFormat(QImage::Format_Grayscale8);
    std::vector<QImage> frames;
    for (int i = 0; i < rows * ActionLoop::kColumns; ++i) {
        const QPoint place(
            i % ActionLoop::kColumns * size.width(), i / ActionLoop::kColumns * size.height());
        frames.push_back(small.copy(QRect(place, size)));
    }
    return frames;
}

/// The mean difference of the pixels, in levels.
double differenceOf(const QImage& one, const QImage& other) {
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        const auto* const left = one.constScanLine(y);
        const auto* const right = other.constScanLine(y);
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(left[x] - right[x]);
    }
    return sum / (one.width() * one.height());
}

/// The mean difference of the frames, one by one.
double differenceOf(const std::vector<QImage>& one, const std::vector<QImage>& other) {
    const std::size_t count = std::min(one.size(), other.size());
    double sum = 0;
    for (std::size_t i = 0; i < count; ++i)
        sum += differenceOf(one[i], other[i]);
    return sum / static_cast<double>(count);
}

class LoopsTest : public testing::Test {
protected:
    LoopsTest() {
        for (const catalogue::Tab& tab : catalogue::tabs()) {
            for (const catalogue::Button& button : tab.buttons())
                loops.emplace(button.title, framesOf(button.title));
        }
    }

    std::map<std::string, std::vector<QImage>, std::less<>> loops;
};

constexpr double kSeen = 0.25; // levels; the noise of packing two equal frames is below 0.05

TEST_F(LoopsTest, MoveAndEndWhereTheyBegin) {
    ASSERT_EQ(loops.size(), 84U);
    for (const auto& [title, frames] : loops) {
        ASSERT_FALSE(frames.empty()) << title;
        double most = 0;
        for (const QImage& frame : frames)
            most = std::max(most, differenceOf(frames[4], frame)); // before the press
        EXPECT_GT(most, kSeen) << title << " does nothing";
        // The largest step is within the action, not where the loop begins again.
        double step = 0;
        for (std::size_t i = 1; i < frames.size(); ++i)
            step = std::max(step, differenceOf(frames[i - 1], frames[i]));
        EXPECT_LT(differenceOf(frames.back(), frames.front()), std::max(step, kSeen)) << title;
    }
}

TEST_F(LoopsTest, DifferFromEachOther) {
    for (auto one = loops.begin(); one != loops.end(); ++one) {
        for (auto other = std::next(one); other != loops.end(); ++other) {
            ASSERT_FALSE(one->second.empty() || other->second.empty());
            EXPECT_GT(differenceOf(one->second, other->second), kSeen)
                << one->first << " and " << other->first;
        }
    }
}

/// The middle of what is bright, from 0 (left, top) to 1.
QPointF middleOf(const QImage& frame) {
    QPointF sum;
    double weight = 0;
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            const double bright = std::max(0, qGray(frame.pixel(x, y)) - 110);
            sum += QPointF(x, y) * bright;
            weight += bright;
        }
    }
    if (weight == 0)
        return {};
    return {sum.x() / weight / frame.width(), sum.y() / weight / frame.height()};
}

// The stage has its left where the word comes from, and the loop shows the button that it is named
// after.
TEST_F(LoopsTest, GoWhereTheirNamesSay) {
    const auto half = [&](const char* title) { return middleOf(loops[title].at(8)); };
    const auto leaving = [&](const char* title) { return middleOf(loops[title].at(7)); };
    EXPECT_LT(half("Left In").x(), 0.4);
    EXPECT_GT(half("Right In").x(), 0.6);
    EXPECT_LT(leaving("Left Out").x(), 0.48);
    EXPECT_GT(leaving("Right Out").x(), 0.52);
    EXPECT_LT(leaving("Up Out").y(), 0.42);
    EXPECT_GT(leaving("Down Out").y(), 0.48);
    EXPECT_GT(middleOf(loops["Left In"].back()).x(), 0.45) << "an entrance ends at home";
    EXPECT_TRUE(middleOf(loops["Left Out"].back()).isNull()) << "an exit leaves the stage empty";
}

} // namespace
} // namespace zelvo::ui
