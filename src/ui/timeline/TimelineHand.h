// SPDX-License-Identifier: MIT
#pragma once

#include "document/ActEdits.h"

#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

class TimelineController;
struct TimelineMark;

/// The pointer on the time line, a mouse or a finger. Places are points on the strip.
///
///     press on a mark     picks it; a drag moves all picked ones, with Alt it copies them
///     on a hold's end     a drag moves its release
///     on the ground       moves the playhead, and lets go what was picked
///     ... with Shift      a drag draws a frame, and adds what it touches
///     on the ruler        moves the playhead
///
/// What is dragged snaps to other acts, the playhead and the beats, unless Ctrl is held. Nothing is
/// changed before the release.
class TimelineHand final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isDragging READ isDragging NOTIFY changed)
    /// How far the picked marks have been dragged, in points.
    Q_PROPERTY(double shift READ shift NOTIFY changed)
    /// Whether the picked marks stay, too.
    Q_PROPERTY(bool isCopying READ isCopying NOTIFY changed)
    /// The hold whose end is dragged; -1: none.
    Q_PROPERTY(int stretched READ stretched NOTIFY changed)
    Q_PROPERTY(double stretch READ stretch NOTIFY changed) ///< points
    /// Where a snap holds what is dragged; negative: nowhere.
    Q_PROPERTY(double guideX READ guideX NOTIFY changed)
    /// What is being drawn to pick; empty: nothing.
    Q_PROPERTY(QRectF frame READ frame NOTIFY changed)
    /// The time of what is dragged, and where to show it.
    Q_PROPERTY(QString timeText READ timeText NOTIFY changed)
    Q_PROPERTY(double timeX READ timeX NOTIFY changed)

public:
    explicit TimelineHand(TimelineController& owner);

    /// A finger needs more room and does not rest as still as a mouse.
    Q_INVOKABLE void press(QPointF place, int modifiers, bool isFinger);
    Q_INVOKABLE void move(QPointF place, int modifiers);
    Q_INVOKABLE void release();
    /// Leaves everything as it was before the press. True if something was being dragged.
    Q_INVOKABLE bool cancel();
    /// Before the menu opens: picks the mark there, if it is not picked.
    Q_INVOKABLE void pickForMenu(QPointF place, bool isFinger);

    /// The act whose mark is there; -1: none.
    Q_INVOKABLE [[nodiscard]] int actAt(QPointF place, bool isFinger) const;
    /// Whether a drag from there moves the end of a hold.
    Q_INVOKABLE [[nodiscard]] bool isEndAt(QPointF place, bool isFinger) const;

    [[nodiscard]] bool isDragging() const { return isBeyondThreshold; }

    [[nodiscard]] double shift() const;

    [[nodiscard]] bool isCopying() const { return deed == Deed::move && copies; }

    [[nodiscard]] int stretched() const { return deed == Deed::stretch ? held : kNone; }

    [[nodiscard]] double stretch() const;
    [[nodiscard]] double guideX() const;
    [[nodiscard]] QRectF frame() const;
    [[nodiscard]] QString timeText() const;
    [[nodiscard]] double timeX() const;

Q_SIGNALS:
    void changed();

private:
    enum class Deed { none, scrub, frame, move, stretch };
    static constexpr int kNone = -1;

    void begin(int modifiers);
    void pressMark(int modifiers, bool isEnd);
    void pressGround(int modifiers);
    void follow(int modifiers);
    void moveTo(double by, bool snaps);
    void stretchTo(double time, bool snaps);
    void pickFramed();
    void clickMark();
    void reset();
    [[nodiscard]] const TimelineMark* heldMark() const;
    [[nodiscard]] double timeOf(const TimelineMark& mark) const;
    [[nodiscard]] std::vector<double> targets() const;
    [[nodiscard]] double reach() const; ///< of a snap, in seconds

    TimelineController& controller;
    Deed deed = Deed::none;
    QPointF pressed;
    QPointF pointer;
    int held = kNone;                 ///< the act under the hand
    document::Identifiers former;     ///< picked before the press
    document::Identifiers afterClick; ///< picked after a press of a mark without a drag
    double by = 0;                    ///< seconds
    double snappedTo = -1;            ///< seconds; negative: nothing
    bool isFinger_ = false;
    bool isBeyondThreshold = false;
    bool copies = false;
};

} // namespace zelvo::ui
