// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QString>

namespace zelvo::test {

/// From now on, every warning of a QML engine fails the current test: an unknown name, a handler
/// without a signal, a value of a wrong type. It reads the console, so it also gets the warnings of
/// engines that the tested code makes.
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
