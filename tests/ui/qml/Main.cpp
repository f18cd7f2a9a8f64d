// SPDX-License-Identifier: MIT
#include "support/ViewWarnings.h"
#include "ui/qml/Views.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    zelvo::ui::installViews();
    zelvo::test::failOnViewWarnings();
    return RUN_ALL_TESTS();
}
