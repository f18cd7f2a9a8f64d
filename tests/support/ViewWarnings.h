// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QString>

namespace zelvo::test {

/// From now on whatever an engine of QML warns of fails the test that runs: a name that stands for
/// nothing, a handler of no signal, a value of another type. Engines report on the console, so
/// those that a program makes by itself are heard as well.
inline void failOnViewWarnings() {
    static QtMessageHandler former = nullptr;
    former = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
            const bool isOfView = text.contains(".qml") || text.contains("<Unknown File>");
            if (isOfView && type != QtDebugMsg && type != QtInfoMsg)
                ADD_FAILURE() << text.toStdString();
            former(type, context, text);
        });
}

} // namespace zelvo::test
