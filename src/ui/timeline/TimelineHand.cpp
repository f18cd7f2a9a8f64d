// SPDX-License-Identifier: MIT
#include "ui/timeline/TimelineHand.h"

#include "model/Model.h"
#include "shared/FrameClock.h"
#include "ui/timeline/TimelineController.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zelvo::ui {

using document::ActKind;

namespace {

// Points.
constexpr double kMouseSlack = 3; ///< a drag begins further away from the press
constexpr double kFingerSlack = 10;
constexpr double kMouseReach = 2;  ///< beside a mark it is still hit
constexpr double kFingerRoom = 24; ///< of a mark, at least, in both directions
constexpr double kMouseEnd = 6;    ///< of a hold, where a drag moves its end
constexpr double kFingerEnd = 14;
constexpr double kSnapReach = 6;

/// Where a press hits a mark.
QRectF roomOf(const QRectF& mark, bool isFinger) {
    const double wide = isFinger ? std::max(0.0, kFingerRoom - mark.width()) / 2 : kMouseReach;
    const double high = isFinger ? std::max(0.0, kFingerRoom - mark.height()) / 2 : 0;
    return mark.adjusted(-wide, -high, wide, high);
}

double distance(const QRectF& mark, QPointF place) {
    const double x = std::max({mark.left() - place.x(), 0.0, place.x() - mark.right()});
    const double y = std::max({mark.top() - place.y(), 0.0, place.y() - mark.bottom()});
    return std::hypot(x, y);
}

bool has(int modifiers, Qt::KeyboardModifier modifier) {
    return (modifiers & modifier) != 0;
}

} // namespace

TimelineHand::TimelineHand(TimelineController& owner)
    : controller(owner) {}

int TimelineHand::actAt(QPointF place, bool isFinger) const {
    int nearest = kNone;
    double least = std::numeric_limits<double>::max();
    for (const TimelineMark& mark : controller.marksNow()) {
        if (!roomOf(mark.place, isFinger).contains(place))
            continue;
        const double away = distance(mark.place, place);
        if (away <= least) { // the last of several is on top
            least = away;
            nearest = mark.act.identifier;
        }
    }
    return nearest;
}

bool TimelineHand::isEndAt(QPointF place, bool isFinger) const {
    const int identifier = actAt(place, isFinger);
    const auto& marks = controller.marksNow();
    const auto found = std::ranges::find_if(
        marks, [&](const TimelineMark& mark) { return mark.act.identifier == identifier; });
    if (found == marks.end() || found->act.kind != ActKind::hold)
        return false;
    // The first half always moves the whole, however short it is.
    const double end = std::min(isFinger ? kFingerEnd : kMouseEnd, found->place.width() / 2);
    return place.x() >= found->place.right() - end;
}

void TimelineHand::press(QPointF place, int modifiers, bool isFinger) {
    if (controller.isRunning())
        return;
    reset();
    pressed = pointer = place;
    isFinger_ = isFinger;
    former = controller.picked();
    begin(modifiers);
    Q_EMIT changed();
}

void TimelineHand::begin(int modifiers) {
    if (pressed.y() < controller.layout().top) {
        deed = Deed::scrub;
        controller.seek(controller.layout().timeAt(pressed.x()));
        return;
    }
    held = actAt(pressed, isFinger_);
    if (held == kNone)
        pressGround(modifiers);
    else
        pressMark(modifiers, isEndAt(pressed, isFinger_));
}

void TimelineHand::pressGround(int modifiers) {
    if (has(modifiers, Qt::ShiftModifier)) {
        deed = Deed::frame;
        return;
    }
    deed = Deed::scrub;
    controller.pick({});
    controller.seek(controller.layout().timeAt(pressed.x()));
}

void TimelineHand::pressMark(int modifiers, bool isEnd) {
    const bool adds = has(modifiers, Qt::ShiftModifier) || has(modifiers, Qt::ControlModifier);
    document::Identifiers picked = controller.picked();
    const bool wasPicked = picked.contains(held);
    if (!wasPicked && !adds)
        picked.clear();
    picked.insert(held);
    controller.pick(picked);
    deed = isEnd && !adds ? Deed::stretch : Deed::move;
    afterClick = adds ? picked : document::Identifiers{held};
    if (adds && wasPicked)
        afterClick.erase(held);
}

void TimelineHand::move(QPointF place, int modifiers) {
    if (deed == Deed::none)
        return;
    pointer = place;
    const double slack = isFinger_ ? kFingerSlack : kMouseSlack;
    const QPointF way = place - pressed;
    if (!isBeyondThreshold && deed != Deed::scrub && std::hypot(way.x(), way.y()) <= slack)
        return;
    isBeyondThreshold = true;
    follow(modifiers);
    Q_EMIT changed();
}

void TimelineHand::follow(int modifiers) {
    const TimelineLayout& layout = controller.layout();
    const double way = (pointer.x() - pressed.x()) / std::max(layout.pointsPerSecond(), 1e-9);
    const bool snaps = !has(modifiers, Qt::ControlModifier);
    copies = has(modifiers, Qt::AltModifier);
    switch (deed) {
    case Deed::scrub:
        controller.seek(layout.timeAt(pointer.x()));
        break;
    case Deed::frame:
        pickFramed();
        break;
    case Deed::move:
        moveTo(way, snaps);
        break;
    case Deed::stretch:
        if (const TimelineMark* const mark = heldMark())
            stretchTo(mark->span.ends + way, snaps);
        break;
    case Deed::none:
        break;
    }
}

/// What was within the performance stays there.
void TimelineHand::moveTo(double wantedBy, bool snaps) {
    const TimelineMark* const mark = heldMark();
    if (mark == nullptr)
        return;
    const double begins = mark->act.begins;
    double least = -std::numeric_limits<double>::max();
    double most = std::numeric_limits<double>::max();
    for (const TimelineMark& other : controller.marksNow()) {
        if (!other.isPicked)
            continue;
        least = std::max(least, std::min(0.0, -other.act.begins));
        most = std::min(most, std::max(0.0, controller.duration() - other.act.begins));
    }
    const double free = begins + wantedBy;
    const double caught = snaps ? nearestTo(free, targets(), reach()) : free;
    by = std::clamp(caught - begins, least, most);
    snappedTo = caught != free && by == caught - begins ? caught : -1;
}

void TimelineHand::stretchTo(double time, bool snaps) {
    const TimelineMark& mark = *heldMark();
    const double caught = snaps ? nearestTo(time, targets(), reach()) : time;
    const double end = std::max(
        std::min(caught, controller.duration()), mark.act.begins + shared::FrameClock::kStep);
    by = end - mark.span.ends;
    snappedTo = caught != time && end == caught ? caught : -1;
}

double TimelineHand::reach() const {
    return kSnapReach / std::max(controller.pointsPerSecond(), 1e-9);
}

std::vector<double> TimelineHand::targets() const {
    std::vector<double> times{0, controller.playhead()};
    for (const TimelineMark& mark : controller.marksNow()) {
        if (!mark.isPicked && mark.act.begins >= 0)
            times.push_back(mark.act.begins);
    }
    const QList<double> beats = controller.music.beats();
    times.insert(times.end(), beats.begin(), beats.end());
    return times;
}

void TimelineHand::pickFramed() {
    document::Identifiers picked = former;
    for (const TimelineMark& mark : controller.marksNow()) {
        if (mark.place.intersects(frame()))
            picked.insert(mark.act.identifier);
    }
    controller.pick(picked);
}

void TimelineHand::release() {
    const Deed done = deed;
    const bool wasDrag = isBeyondThreshold;
    const double shifted = by;
    const bool isCopy = copies;
    const int identifier = held;
    const TimelineMark* const mark = heldMark();
    const double end = mark != nullptr ? mark->span.ends + by : 0;
    reset();
    if (!wasDrag && (done == Deed::move || done == Deed::stretch))
        controller.pick(afterClick);
    else if (wasDrag && done == Deed::move && isCopy)
        controller.duplicatePicked(shifted);
    else if (wasDrag && done == Deed::move)
        controller.movePicked(shifted);
    else if (wasDrag && done == Deed::stretch)
        controller.endHold(identifier, end);
    Q_EMIT changed();
}

bool TimelineHand::cancel() {
    const bool wasDrag = isBeyondThreshold;
    const bool wasFrame = deed == Deed::frame;
    reset();
    if (wasDrag && wasFrame)
        controller.pick(former);
    Q_EMIT changed();
    return wasDrag;
}

void TimelineHand::reset() {
    deed = Deed::none;
    by = 0;
    held = kNone;
    snappedTo = -1;
    isBeyondThreshold = copies = false;
}

void TimelineHand::pickForMenu(QPointF place, bool isFinger) {
    cancel();
    const int identifier = actAt(place, isFinger);
    if (identifier != kNone && !controller.picked().contains(identifier))
        controller.pick({identifier});
}

const TimelineMark* TimelineHand::heldMark() const {
    for (const TimelineMark& mark : controller.marksNow()) {
        if (mark.act.identifier == held)
            return &mark;
    }
    return nullptr;
}

double TimelineHand::shift() const {
    return deed == Deed::move ? by * controller.pointsPerSecond() : 0;
}

double TimelineHand::stretch() const {
    return deed == Deed::stretch ? by * controller.pointsPerSecond() : 0;
}

double TimelineHand::guideX() const {
    return snappedTo < 0 ? -1 : controller.layout().xOf(snappedTo);
}

QRectF TimelineHand::frame() const {
    return deed == Deed::frame && isBeyondThreshold ? QRectF(pressed, pointer).normalized()
                                                    : QRectF();
}

/// Of what is dragged.
double TimelineHand::timeOf(const TimelineMark& mark) const {
    return (deed == Deed::stretch ? mark.span.ends : mark.act.begins) + by;
}

QString TimelineHand::timeText() const {
    const TimelineMark* const mark = isBeyondThreshold ? heldMark() : nullptr;
    return mark == nullptr ? QString() : QLocale().toString(timeOf(*mark), 'f', 2);
}

double TimelineHand::timeX() const {
    const TimelineMark* const mark = heldMark();
    return mark == nullptr ? 0 : controller.layout().xOf(timeOf(*mark));
}

} // namespace zelvo::ui
