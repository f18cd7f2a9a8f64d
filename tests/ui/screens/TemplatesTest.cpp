// SPDX-License-Identifier: MIT
#include "document/Templates.h"

#include "platform/foundation/Folders.h"
#include "ui/screens/TemplatesController.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QUrl>

#include <filesystem>
#include <set>
#include <vector>

namespace zelvo::ui {

namespace {

namespace fs = std::filesystem;
using document::TemplatePreview;

TEST(Templates, CallBackOnceWithTheChosenPerformance) {
    std::set<fs::path> files;
    for (int row = 0; row < 13; ++row) {
        std::vector<fs::path> chosen;
        TemplatesController controller([&](const fs::path& file) { chosen.push_back(file); });
        ASSERT_EQ(controller.rows()->rowCount({}), 13);
        controller.choose(-1);
        controller.choose(13);
        EXPECT_TRUE(chosen.empty());
        controller.choose(row);
        controller.choose(row); // a double press
        ASSERT_EQ(chosen.size(), 1U);
        EXPECT_EQ(chosen.front().empty(), row == 0);
        EXPECT_TRUE(row == 0 || fs::is_regular_file(chosen.front()));
        files.insert(chosen.front());
    }
    EXPECT_EQ(files.size(), 13U);
}

TEST(Templates, TellThatAFileIsMissingAndStay) {
    const foundation::Bundle whole = foundation::mainBundle();
    foundation::setMainBundle(foundation::Bundle({}));
    int calls = 0;
    TemplatesController controller([&](const fs::path&) { ++calls; });
    controller.choose(3);
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(controller.failure().isEmpty());
    EXPECT_TRUE(controller.rows()
                    ->data(controller.rows()->index(3), TemplateRows::previewRole)
                    .toUrl()
                    .isEmpty());
    controller.choose(0); // the empty stage needs no file
    EXPECT_EQ(calls, 1);
    foundation::setMainBundle(whole);
}

/// The middle of a frame of a preview.
[[nodiscard]] QImage frameOf(const QImage& sheet, int frame) {
    return sheet.copy(
        frame % TemplatePreview::kColumns * TemplatePreview::kWidth,
        frame / TemplatePreview::kColumns * TemplatePreview::kHeight,
        TemplatePreview::kWidth,
        TemplatePreview::kHeight);
}

/// The mean difference of two pictures, 0 to 255.
[[nodiscard]] double difference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
    }
    return sum / (a.width() * a.height());
}

TEST(Templates, HavePreviewsThatMoveAndLoopSoftly) {
    TemplateRows rows;
    for (int row = 1; row < rows.rowCount({}); ++row) {
        const auto title = rows.data(rows.index(row), TemplateRows::titleRole).toString();
        const QString file =
            rows.data(rows.index(row), TemplateRows::previewRole).toUrl().toLocalFile();
        ASSERT_FALSE(file.isEmpty()) << title.toStdString();
        EXPECT_LE(fs::file_size(file.toStdString()), std::size_t{TemplatePreview::kMaxBytes});
        const QImage sheet(file);
        ASSERT_EQ(sheet.size(), QSize(6 * 256, 6 * 144)) << title.toStdString();
        constexpr int kLast = TemplatePreview::kFrames - 1;
        double step = 0; // the largest between two frames
        for (int frame = 0; frame < kLast; ++frame)
            step = std::max(step, difference(frameOf(sheet, frame), frameOf(sheet, frame + 1)));
        EXPECT_GT(step, 1) << title.toStdString();
        EXPECT_LT(difference(frameOf(sheet, kLast), frameOf(sheet, 0)), 1.5 * step)
            << title.toStdString();
    }
}

} // namespace

} // namespace zelvo::ui
