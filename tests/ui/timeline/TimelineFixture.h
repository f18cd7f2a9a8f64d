// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performer.h"
#include "document/StageReading.h"
#include "ui/UiFixture.h"
#include "ui/timeline/TimelineController.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string>
#include <utility>
#include <vector>

namespace zelvo::test {

/// A time line of 8 seconds in 800 points: a hundredth of a second is a point.
///
///     0        1        2        3        4        5        6
///              Left In  Blur, held 1 s    Left Out  a drag
///                                           Right Out
class TimelineTest : public UiTest {
protected:
    TimelineTest() {
        model.setDuration(8);
        document::Performance performance;
        performance.cues = {
            {1, press("IN1", "Left In", {"TX1", "TX2"})},
            {2, hold("FX1", "Blur", 1)},
            {4, press("OT1", "Left Out", {})},
            {4.2, press("OT1", "Right Out", {})},
            {5, pan(0.5)}};
        document::perform(performance, model);
        line.setRoom(800, 12, 36);
        line.setShown(true);
        loop().drain();
    }

    [[nodiscard]] static document::Press
    press(const char* tab, const char* title, std::vector<std::string> which) {
        document::Press made;
        made.tab = tab;
        made.title = title;
        made.nodes = std::move(which);
        return made;
    }

    [[nodiscard]] static document::Press hold(const char* tab, const char* title, double seconds) {
        document::Press made = press(tab, title, {});
        made.isHeld = true;
        made.held = seconds;
        return made;
    }

    [[nodiscard]] static document::Pan pan(double seconds) {
        document::Pan made;
        made.points = {{640, 360}, {660, 365}, {690, 365}};
        made.lasts = seconds;
        return made;
    }

    /// The performance as the document has it: "1.00 Left In, 2.00 Blur 1.00, …".
    [[nodiscard]] std::string told() const {
        std::vector<std::string> cues;
        for (const document::Cue& cue : document::cuesOf(model)) {
            std::string text = fmt::format("{:.2f}", cue.at);
            if (const auto* const made = std::get_if<document::Press>(&cue.act)) {
                text += " " + made->title;
                text += made->held ? fmt::format(" {:.2f}", *made->held) : "";
                text += made->speed != "Normal" ? " " + made->speed.value_or("?") : "";
            }
            cues.push_back(std::move(text));
        }
        return fmt::format("{}", fmt::join(cues, ", "));
    }

    [[nodiscard]] const ui::TimelineMark& mark(const QString& title) const {
        for (const ui::TimelineMark& shown : line.marksNow()) {
            if (shown.title == title)
                return shown;
        }
        ADD_FAILURE() << title.toStdString();
        return line.marksNow().front();
    }

    [[nodiscard]] std::string picked() const {
        std::vector<std::string> titles;
        for (const ui::TimelineMark& shown : line.marksNow()) {
            if (shown.isPicked)
                titles.push_back(shown.title.toStdString());
        }
        return fmt::format("{}", fmt::join(titles, ", "));
    }

    [[nodiscard]] QPointF middle(const QString& title) const { return mark(title).place.center(); }

    void click(QPointF place, int modifiers = 0) {
        line.hand.press(place, modifiers, false);
        line.hand.release();
        loop().runFor(0.1);
    }

    /// In small steps, as a hand does.
    void drag(QPointF from, double byX, double byY = 0, int modifiers = 0) {
        line.hand.press(from, modifiers, false);
        for (int step = 1; step <= 8; ++step)
            line.hand.move(from + QPointF(byX, byY) * step / 8, modifiers);
    }

    void drop() {
        line.hand.release();
        loop().runFor(0.1);
    }

    bool key(int key, int modifiers = 0) {
        const bool isTaken = line.pressKey(key, modifiers);
        loop().runFor(0.1);
        return isTaken;
    }

    void undo() {
        controller().undo();
        loop().runFor(0.1);
    }

    const std::string untouched =
        "1.00 Left In, 2.00 Blur 1.00, 4.00 Left Out, 4.20 Right Out, 5.00";
    ui::SongBeats beats{services};
    ui::TimelineController line{services, &beats};
};

} // namespace zelvo::test
