// SPDX-License-Identifier: MIT
#include "ui/controls/KeyName.h"

#include <QCoreApplication>

#include <array>

namespace zelvo::ui {

namespace {

constexpr const char* kContext = "zelvo::ui::KeyName";
constexpr std::array kNamed{
    QT_TRANSLATE_NOOP("zelvo::ui::KeyName", "Ctrl"),
    QT_TRANSLATE_NOOP("zelvo::ui::KeyName", "Shift"),
    QT_TRANSLATE_NOOP("zelvo::ui::KeyName", "Space"),
    QT_TRANSLATE_NOOP("zelvo::ui::KeyName", "Return"),
};

} // namespace

QString keyName(const QString& key) {
    QString name = key;
    for (const char* const word : kNamed)
        name.replace(QLatin1String(word), QCoreApplication::translate(kContext, word));
    return name;
}

} // namespace zelvo::ui
