// SPDX-License-Identifier: MIT
#include "ui/timeline/TimelineController.h"

#include "model/Model.h"
#include "shared/FrameClock.h"
#include "shared/Signal.h"
#include "ui/controls/GroupColors.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <QMimeData>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::ui {

using document::Act;
using document::ActKind;
using shared::FrameClock;

namespace {

/// Marks the clipboard, so that a picture that is copied later is pasted in place of the acts.
constexpr const char* kCopiedActs = "application/x-zelvo-acts";

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QColor colorOf(const Act& act) {
    return groupColor(catalogue::groupOf(act.tab).value_or(catalogue::Group::camera));
}

/// "2.50"
QString hundredths(double seconds) {
    return QLocale().toString(seconds, 'f', 2);
}

} // namespace

TimelineController::TimelineController(const Services& given, SongBeats* songBeats, QObject* parent)
    : QObject(parent)
    , services(given)
    , playButton({}, [this] { togglePlay(); })
    , music(given, songBeats)
    , hand(*this)
    , menu(*this) {
    listen();
    runDidChange();
}

TimelineController::~TimelineController() = default;

void TimelineController::listen() {
    signals().timeSignal.subscribe(lifetime, [this](const TimeState& state) {
        if (!wanted) // a later place is waiting for its turn
            setPlayhead(state.time - state.startCounter);
    });
    signals().isPlayingSignal.subscribe(lifetime, [this](bool) {
        services.runLoop.post(lifetime.guard([this] { runDidChange(); }));
    });
    signals().undoStateSignal.subscribe(lifetime, [this] {
        if (services.model.actionController().recordedActions().empty())
            copied.clear(); // the next performance gives their numbers to other acts
        if (!std::exchange(isRefreshDue, true))
            services.runLoop.post(lifetime.guard([this] {
                if (isRefreshDue) // an edit of the strip has shown it already
                    performanceChanged();
            }));
    });
    signals().durationSignal.subscribe(lifetime, [this] { refresh(); });
    connect(&music, &TimelineMusic::changed, this, [this] { showMarks(); });
}

void TimelineController::setShown(bool isOn) {
    if (shown == isOn)
        return;
    shown = isOn;
    if (shown)
        refresh();
    else
        hand.cancel();
    Q_EMIT shownChanged();
}

void TimelineController::refresh() {
    layout_.duration = services.model.duration();
    music.refresh();
    performanceChanged();
    setPlayhead(services.model.time() - services.model.startCounter());
    Q_EMIT layoutChanged();
}

void TimelineController::setRoom(double width, double top, double height) {
    layout_.width = std::max(0.0, width);
    layout_.top = top;
    layout_.height = std::max(0.0, height);
    showMarks();
    Q_EMIT layoutChanged();
    Q_EMIT playheadChanged();
}

bool TimelineController::isRunning() const {
    return services.model.isPlaying();
}

void TimelineController::runDidChange() {
    if (isRunning()) {
        hand.cancel();
        menu.setOpen(false);
    }
    const bool plays = isRunning() && !services.model.recordsActs();
    playButton.setFace(
        {.image = plays ? "PauseButton" : "PlayButton",
         .name = plays ? tr("Pause") : tr("Play without recording"),
         .key = "P"});
    playButton.setEnabled(plays || !isRunning());
    performanceChanged();
    Q_EMIT runChanged();
}

// --- the marks

/// Also called in a run, so that a press is seen when it has come.
void TimelineController::performanceChanged() {
    isRefreshDue = false;
    acts = document::actsOf(services.model);
    std::erase_if(picked_, [this](int identifier) {
        return std::ranges::find(acts, identifier, &Act::identifier) == acts.end();
    });
    showMarks();
}

TimeSpan TimelineController::spanOf(const Act& act) const {
    if (act.kind == ActKind::press && act.speed)
        return {act.begins, act.begins + model::speedOf(*act.speed).animationFactor};
    if (!act.isReleased)
        return {act.begins, isRunning() ? act.begins : layout_.duration};
    return {act.begins, act.ends};
}

void TimelineController::showMarks() {
    std::vector<TimeSpan> covered;
    covered.reserve(acts.size());
    for (const Act& act : acts)
        covered.push_back(layout_.covered(spanOf(act)));
    const std::vector<int> lanes = lanesOf(covered, TimelineLayout::kMostLanes);
    layout_.lanes = lanes.empty() ? 1 : 1 + std::ranges::max(lanes);
    std::vector<TimelineMark> marks;
    marks.reserve(acts.size());
    for (std::size_t i = 0; i < acts.size(); ++i) {
        TimelineMark mark = markOf(acts[i]);
        mark.place = layout_.placeOf(mark.span, lanes[i]);
        marks.push_back(std::move(mark));
    }
    marks_.show(std::move(marks));
    Q_EMIT marksChanged();
}

TimelineMark TimelineController::markOf(const Act& act) const {
    QStringList nodes;
    for (const std::string& node : act.nodes)
        nodes.append(toQString(node));
    const auto [title, label] = wordsOf(act);
    QStringList details{tr("%1 s").arg(hundredths(act.begins))};
    if (act.kind == ActKind::hold && act.isReleased)
        details.append(tr("held %1 s").arg(hundredths(act.ends - act.begins)));
    if (act.speed)
        details.append(TimelineMenu::titleOf(*act.speed));
    if (!nodes.isEmpty())
        details.prepend(nodes.join(", "));
    return {
        .act = act,
        .span = spanOf(act),
        .place = {},
        .color = colorOf(act),
        .title = title,
        .label = label,
        .details = details.join(" · "),
        .name = tr("%1, at %2 seconds")
                    .arg((QStringList{title} + nodes).join(", "), hundredths(act.begins)),
        .isPicked = picked_.contains(act.identifier)};
}

TimelineController::Words TimelineController::wordsOf(const Act& act) {
    switch (act.kind) {
    case ActKind::drag:
        return {tr("Camera drag"), tr("Drag")};
    case ActKind::pinch:
        return {tr("Camera pinch"), tr("Pinch")};
    case ActKind::center:
        return {tr("Camera to the middle"), tr("Middle")};
    default:
        return {toQString(act.button), toQString(act.button)};
    }
}

QString TimelineController::summary() const {
    if (picked_.size() == 1)
        return markNamed(*picked_.begin()).name;
    return tr("Actions: %1, selected: %2").arg(acts.size()).arg(picked_.size());
}

TimelineMark TimelineController::markNamed(int identifier) const {
    for (const TimelineMark& mark : marksNow()) {
        if (mark.act.identifier == identifier)
            return mark;
    }
    return {};
}

QRectF TimelineController::placeOf(int identifier) const {
    return markNamed(identifier).place;
}

QString TimelineController::titleOf(int identifier) const {
    return markNamed(identifier).title;
}

QString TimelineController::detailsOf(int identifier) const {
    return markNamed(identifier).details;
}

// --- the playhead

void TimelineController::setPlayhead(double time) {
    const double shownTime = isRunning() ? time : std::max(0.0, time);
    if (std::exchange(playhead_, shownTime) != shownTime)
        Q_EMIT playheadChanged();
}

/// Cut off, as on the record button, so that both say the same.
QString TimelineController::playheadText() const {
    const int digits = isRunning() ? 1 : 2;
    const double scale = std::pow(10, digits);
    return QLocale().toString(std::trunc(playhead_ * scale) / scale, 'f', digits);
}

void TimelineController::seek(double time) {
    if (isRunning())
        return;
    wanted = std::clamp(time, 0.0, layout_.duration);
    setPlayhead(*wanted);
    if (!seeking.isValid())
        seekNow();
}

void TimelineController::seekNow() {
    seeking = services.runLoop.scheduleOnce(FrameClock::kStep, [this] {
        seeking = {};
        finishSeek();
    });
    services.model.seek(*std::exchange(wanted, std::nullopt));
}

void TimelineController::finishSeek() {
    if (isRunning())
        wanted.reset(); // a seek would end the run
    if (wanted)
        seekNow();
}

void TimelineController::stepFrames(int frames) {
    seek(FrameClock::secondsOf(FrameClock::nearestFrame(playhead_) + frames));
}

void TimelineController::toStart() {
    if (isRunning())
        return;
    wanted.reset();
    services.model.stop(model::Reset::toStart);
}

void TimelineController::togglePlay() {
    finishSeek();
    if (!services.model.recordsActs())
        services.model.togglePlaying();
}

// --- which acts are picked

void TimelineController::pick(const Identifiers& which) {
    if (which == picked_)
        return;
    picked_ = which;
    showMarks();
}

void TimelineController::pickAll() {
    Identifiers all;
    for (const Act& act : acts)
        all.insert(act.identifier);
    pick(all);
}

void TimelineController::pickOnly(int identifier) {
    pick({identifier});
}

void TimelineController::pickNext(int by, bool adds) {
    if (acts.empty())
        return;
    const auto isPicked = [this](const Act& act) { return picked_.contains(act.identifier); };
    std::ptrdiff_t next = 0;
    if (picked_.empty()) { // the one next to the playhead
        const auto later = std::ranges::lower_bound(acts, playhead_, {}, &Act::begins);
        next = later - acts.begin() - (by < 0 ? 1 : 0);
    } else if (by > 0) {
        next = acts.rend() - std::ranges::find_if(acts.rbegin(), acts.rend(), isPicked);
    } else {
        next = std::ranges::find_if(acts, isPicked) - acts.begin() - 1;
    }
    next = std::clamp<std::ptrdiff_t>(next, 0, std::ssize(acts) - 1);
    Identifiers chosen = adds ? picked_ : Identifiers();
    chosen.insert(acts[static_cast<std::size_t>(next)].identifier);
    pick(chosen);
}

TimeSpan TimelineController::pickedSpan() const {
    TimeSpan span{layout_.duration, 0};
    for (const Act& act : acts) {
        if (!picked_.contains(act.identifier))
            continue;
        span.begins = std::min(span.begins, act.begins);
        span.ends = std::max(span.ends, spanOf(act).ends);
    }
    return span;
}

// --- changes

bool TimelineController::mayEdit() const {
    return !isRunning() && !picked_.empty();
}

void TimelineController::edited(const Identifiers& which) {
    picked_ = which;
    performanceChanged();
}

void TimelineController::movePicked(double by) {
    if (!mayEdit() || by == 0)
        return;
    document::moveActs(services.model, picked_, by);
    edited(picked_);
}

void TimelineController::endHold(int identifier, double time) {
    if (isRunning())
        return;
    document::endActAt(services.model, identifier, time);
    edited(picked_);
}

void TimelineController::lengthenPicked(double by) {
    for (const Act& act : std::vector(acts)) {
        if (act.kind == ActKind::hold && picked_.contains(act.identifier))
            endHold(act.identifier, spanOf(act).ends + by);
    }
}

void TimelineController::removePicked() {
    if (!mayEdit())
        return;
    document::removeActs(services.model, picked_);
    edited({});
}

void TimelineController::duplicatePicked(double by) {
    if (mayEdit())
        edited(document::duplicateActs(services.model, picked_, by));
}

void TimelineController::duplicatePicked() {
    const TimeSpan span = pickedSpan();
    duplicatePicked(std::max(span.ends - span.begins, FrameClock::kStep));
}

void TimelineController::setSpeed(model::AnimationRatio speed) {
    if (!mayEdit())
        return;
    document::setSpeedOfActs(services.model, picked_, speed);
    edited(picked_);
}

void TimelineController::copyPicked() {
    if (picked_.empty())
        return;
    copied = picked_;
    auto mark = std::make_unique<QMimeData>();
    mark->setData(kCopiedActs, QByteArray::number(QCoreApplication::applicationPid()));
    QGuiApplication::clipboard()->setMimeData(mark.release());
}

bool TimelineController::canPaste() const {
    const QMimeData* const mark = QGuiApplication::clipboard()->mimeData();
    return !copied.empty() && mark != nullptr &&
           mark->data(kCopiedActs) == QByteArray::number(QCoreApplication::applicationPid());
}

void TimelineController::paste() {
    if (!canPaste() || isRunning())
        return;
    const auto first = std::ranges::find_if(
        acts, [this](const Act& act) { return copied.contains(act.identifier); });
    if (first != acts.end())
        edited(document::duplicateActs(services.model, copied, playhead_ - first->begins));
}

// --- the ruler

double TimelineController::labelStep(double room) const {
    return ui::labelStep(pointsPerSecond(), room);
}

QString TimelineController::labelOf(double seconds) const {
    const int tenths = static_cast<int>(std::lround(seconds * 10));
    const int minutes = tenths / 600;
    if (minutes > 0 || layout_.duration > 60)
        return QStringLiteral("%1:%2").arg(minutes).arg(tenths / 10 % 60, 2, 10, QLatin1Char('0'));
    return QLocale().toString(tenths / 10.0, 'f', tenths % 10 == 0 ? 0 : 1);
}

} // namespace zelvo::ui
