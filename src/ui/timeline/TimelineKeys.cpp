// SPDX-License-Identifier: MIT
// The keys of the time line.
#include "model/Model.h"
#include "shared/FrameClock.h"
#include "ui/timeline/TimelineController.h"

namespace zelvo::ui {

using shared::FrameClock;

namespace {

constexpr double kLargeStep = 1; ///< seconds
constexpr int kKnownModifiers = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;

int directionOf(int key) {
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Minus:
        return -1;
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_Plus:
    case Qt::Key_Equal: // plus, without Shift
        return 1;
    default:
        return 0;
    }
}

bool isLevel(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right;
}

} // namespace

bool TimelineController::takesKey(int key, int modifiers) const {
    return key == Qt::Key_V && (modifiers & kKnownModifiers) == Qt::ControlModifier && canPaste();
}

bool TimelineController::pressKey(int key, int modifiers) {
    const int with = modifiers & kKnownModifiers;
    if (key == Qt::Key_Escape)
        return escape();
    return !isRunning() && (pressPickingKey(key, with) || pressPlayheadKey(key, with));
}

bool TimelineController::pressPlayheadKey(int key, int modifiers) {
    const bool isLarge = modifiers == Qt::ShiftModifier;
    if (modifiers != Qt::NoModifier && !isLarge)
        return false;
    if (key == Qt::Key_Home)
        toStart();
    else if (key == Qt::Key_End)
        seek(layout_.duration);
    else if (isLevel(key) && isLarge)
        seek(playhead_ + directionOf(key) * kLargeStep);
    else if (isLevel(key))
        stepFrames(directionOf(key));
    else
        return false;
    return true;
}

bool TimelineController::pressPickingKey(int key, int modifiers) {
    const int direction = directionOf(key);
    const bool isAlt = (modifiers & Qt::AltModifier) != 0;
    const bool isShift = (modifiers & Qt::ShiftModifier) != 0;
    if (modifiers == Qt::ControlModifier) {
        switch (key) {
        case Qt::Key_A:
            return pickAll(), true;
        case Qt::Key_C:
            return copyPicked(), true;
        case Qt::Key_V:
            return canPaste() && (paste(), true);
        default:
            return false;
        }
    }
    if (isAlt && !isLevel(key))
        return false;
    if (isAlt)
        movePicked(direction * (isShift ? kLargeStep : FrameClock::kStep));
    else if (key == Qt::Key_Delete || key == Qt::Key_Backspace)
        removePicked();
    else if (key == Qt::Key_Up || key == Qt::Key_Down)
        pickNext(direction, isShift);
    else if (direction != 0 && !isLevel(key))
        lengthenPicked(direction * FrameClock::kStep);
    else
        return false;
    return true;
}

/// Takes back one thing after another: the drag, the choice, the playhead.
bool TimelineController::escape() {
    if (hand.cancel())
        return true;
    if (isRunning())
        return false;
    if (!picked_.empty()) {
        pick({});
        return true;
    }
    if (!services.model.playhead())
        return false;
    toStart();
    return true;
}

} // namespace zelvo::ui
