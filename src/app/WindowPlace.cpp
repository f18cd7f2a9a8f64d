// SPDX-License-Identifier: MIT
#include "app/WindowPlace.h"

#include <algorithm>

namespace zelvo::app {

QRect whollyShown(const QRect& wanted, const QMargins& frame, const QList<QRect>& screens) {
    const auto shared = [&wanted](const QRect& screen) {
        const QRect both = screen.intersected(wanted);
        return qint64(both.width()) * both.height();
    };
    const auto screen = std::ranges::max_element(screens, {}, shared); // the first if none shows it
    if (screen == screens.end())
        return wanted;
    QRect framed = wanted.marginsAdded(frame);
    framed.setSize(framed.size().boundedTo(screen->size()));
    framed.moveRight(std::min(framed.right(), screen->right()));
    framed.moveBottom(std::min(framed.bottom(), screen->bottom()));
    framed.moveLeft(std::max(framed.left(), screen->left()));
    framed.moveTop(std::max(framed.top(), screen->top()));
    return framed.marginsRemoved(frame);
}

} // namespace zelvo::app
