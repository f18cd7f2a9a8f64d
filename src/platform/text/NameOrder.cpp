// SPDX-License-Identifier: MIT
#include "platform/text/NameOrder.h"

#include <QCollator>
#include <QString>

namespace zelvo::text {

bool comesBefore(std::string_view first, std::string_view second) {
    static const QCollator collator = [] {
        QCollator made;
        made.setCaseSensitivity(Qt::CaseInsensitive);
        return made;
    }();
    const auto textOf = [](std::string_view name) {
        return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    };
    return collator.compare(textOf(first), textOf(second)) < 0;
}

} // namespace zelvo::text
