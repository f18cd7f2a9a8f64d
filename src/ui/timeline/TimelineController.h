// SPDX-License-Identifier: MIT
#pragma once

#include "document/ActEdits.h"
#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "ui/controls/MyButton.h"
#include "ui/controls/Services.h"
#include "ui/timeline/TimelineHand.h"
#include "ui/timeline/TimelineLayout.h"
#include "ui/timeline/TimelineMarks.h"
#include "ui/timeline/TimelineMenu.h"
#include "ui/timeline/TimelineMusic.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace zelvo::ui {

/// The time line: a strip on which the performance can be seen and corrected.
///
///     ▶ │0         1         2         3      the ruler: a press or drag here moves the playhead
///       │ ▭▭▭▭▭       ▭▭▭▭▭▭▭ │               presses, as long as their base duration
///       │    ▭▭▭▭▭    ▭▭▭▭▭   │ ▬▬▬▬▬▬        holds and gestures, as long as they last
///
/// It shows the performance from 0 to its duration. An act in the count-in is at the left edge. During
/// a run nothing can be changed; only the playhead moves. Each change is one step of undo. While the
/// stage stands at the playhead, it is shown anew after each change.
///
/// Times are seconds of the performance.
class TimelineController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isShown READ isShown NOTIFY shownChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY runChanged)
    Q_PROPERTY(zelvo::ui::MyButton* playButton READ playObject CONSTANT)
    Q_PROPERTY(zelvo::ui::TimelineMarks* marks READ marksObject CONSTANT)
    Q_PROPERTY(zelvo::ui::TimelineMusic* music READ musicObject CONSTANT)
    Q_PROPERTY(zelvo::ui::TimelineHand* hand READ handObject CONSTANT)
    Q_PROPERTY(zelvo::ui::TimelineMenu* menu READ menuObject CONSTANT)
    Q_PROPERTY(double duration READ duration NOTIFY layoutChanged)
    Q_PROPERTY(double pointsPerSecond READ pointsPerSecond NOTIFY layoutChanged)
    Q_PROPERTY(double playheadX READ playheadX NOTIFY playheadChanged)
    Q_PROPERTY(QString playheadText READ playheadText NOTIFY playheadChanged)
    Q_PROPERTY(QString summary READ summary NOTIFY marksChanged)

public:
    using Identifiers = document::Identifiers;

    /// `songBeats` may be null: then there are no beats.
    TimelineController(const Services& given, SongBeats* songBeats, QObject* parent = nullptr);
    ~TimelineController() override;
    TimelineController(const TimelineController&) = delete;
    TimelineController& operator=(const TimelineController&) = delete;

private:
    Services services; // first, because other members are built from it

public:
    MyButton playButton;
    TimelineMusic music;
    TimelineHand hand;
    TimelineMenu menu;

    void setShown(bool isOn);

    [[nodiscard]] bool isShown() const { return shown; }

    /// Reads everything again. Changes of the performance come by themselves; call it after a change
    /// of the music or the duration.
    void refresh();

    /// The room of the strip, in points: the width of the whole duration, and where the lanes are.
    Q_INVOKABLE void setRoom(double width, double top, double height);

    // --- the playhead
    /// Shows the stage at that time; the end of the strip limits it. Of several calls within a frame,
    /// the last one counts. Does nothing during a run.
    void seek(double time);
    void stepFrames(int frames);
    void toStart();
    /// Plays without recording, from the playhead; pauses there if it plays.
    Q_INVOKABLE void togglePlay();

    [[nodiscard]] double playhead() const { return playhead_; }

    // --- which acts are picked
    [[nodiscard]] const Identifiers& picked() const { return picked_; }

    void pick(const Identifiers& which);
    Q_INVOKABLE void pickAll();
    /// Picks the next act in time, or the previous one; with `adds`, to those that are picked.
    void pickNext(int by, bool adds);
    /// Of a screen reader: picks this act alone.
    Q_INVOKABLE void pickOnly(int identifier);

    // --- changes of the picked acts; nothing during a run
    void movePicked(double by);
    /// Releases the picked holds so much later.
    void lengthenPicked(double by);
    void endHold(int identifier, double time);
    void removePicked();
    /// Each copy so much later; the copies are picked then.
    void duplicatePicked(double by);
    /// The copies follow the picked acts.
    void duplicatePicked();
    void setSpeed(model::AnimationRatio speed);
    void copyPicked();
    /// What was copied, at the playhead.
    void paste();

    [[nodiscard]] bool canPaste() const;

    /// True if there was something to do.
    Q_INVOKABLE bool pressKey(int key, int modifiers);
    /// Whether a key that also has a meaning elsewhere is for the time line.
    Q_INVOKABLE [[nodiscard]] bool takesKey(int key, int modifiers) const;

    [[nodiscard]] bool isRunning() const;

    [[nodiscard]] const TimelineLayout& layout() const { return layout_; }

    [[nodiscard]] const std::vector<TimelineMark>& marksNow() const { return marks_.marks(); }

    [[nodiscard]] double duration() const { return layout_.duration; }

    [[nodiscard]] double pointsPerSecond() const { return layout_.pointsPerSecond(); }

    [[nodiscard]] double playheadX() const { return layout_.xOf(playhead_); }

    [[nodiscard]] QString playheadText() const;
    /// For screen readers: the picked act, or how many there are and how many are picked.
    [[nodiscard]] QString summary() const;

    // --- a mark, for its tooltip; empty without such an act
    Q_INVOKABLE [[nodiscard]] QRectF placeOf(int identifier) const;
    Q_INVOKABLE [[nodiscard]] QString titleOf(int identifier) const;
    Q_INVOKABLE [[nodiscard]] QString detailsOf(int identifier) const;

    // --- the ruler
    /// Seconds between two labels.
    Q_INVOKABLE [[nodiscard]] double labelStep(double room) const;
    Q_INVOKABLE [[nodiscard]] QString labelOf(double seconds) const;

    [[nodiscard]] MyButton* playObject() { return &playButton; }

    [[nodiscard]] TimelineMarks* marksObject() { return &marks_; }

    [[nodiscard]] TimelineMusic* musicObject() { return &music; }

    [[nodiscard]] TimelineHand* handObject() { return &hand; }

    [[nodiscard]] TimelineMenu* menuObject() { return &menu; }

Q_SIGNALS:
    void shownChanged();
    void runChanged();
    void layoutChanged();
    void playheadChanged();
    void marksChanged();

private:
    struct Words {
        QString title;
        QString label;
    };

    void listen();
    void showMarks();
    [[nodiscard]] TimelineMark markOf(const document::Act& act) const;
    [[nodiscard]] TimeSpan spanOf(const document::Act& act) const;
    [[nodiscard]] static Words wordsOf(const document::Act& act);
    void performanceChanged();
    void runDidChange();
    void setPlayhead(double time);
    void seekNow();
    /// A seek that waits for its turn is done now, or dropped in a run.
    void finishSeek();
    /// After a change: which acts are picked then.
    void edited(const Identifiers& which);
    [[nodiscard]] bool mayEdit() const;
    [[nodiscard]] TimeSpan pickedSpan() const;
    [[nodiscard]] TimelineMark markNamed(int identifier) const;

    bool pressPickingKey(int key, int modifiers);
    bool pressPlayheadKey(int key, int modifiers);
    bool escape();

    TimelineMarks marks_;
    TimelineLayout layout_;
    std::vector<document::Act> acts;
    Identifiers picked_;
    Identifiers copied; ///< emptied when the performance is
    double playhead_ = 0;
    bool shown = false;
    bool isRefreshDue = false;
    std::optional<double> wanted; ///< where the stage should stand
    foundation::Timer seeking;    ///< set for a frame after each seek
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
