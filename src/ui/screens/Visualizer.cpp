// SPDX-License-Identifier: MIT
#include "ui/screens/Visualizer.h"

#include "platform/foundation/Console.h"

#include <fmt/format.h>

#include <QEvent>

#include <algorithm>

namespace zelvo::ui {

Visualizer::Visualizer(foundation::RunLoop& loop)
    : runLoop(loop) {}

Visualizer::~Visualizer() = default;

void Visualizer::start(const TouchVisualizerConfiguration& configuration) {
    if (configuration.showsLog)
        foundation::logLine("Visualizer start...");
    config = configuration;
    enabled = true;
    Q_EMIT enabledChanged();
}

void Visualizer::stop() {
    enabled = false;
    endAll();
    Q_EMIT enabledChanged();
}

void Visualizer::endAll() {
    for (const auto& view : touchViews) {
        if (view->isShown())
            view->end();
    }
}

void Visualizer::toggle() {
    if (enabled) {
        stop();
    } else {
        start(config.value_or(TouchVisualizerConfiguration()));
    }
}

bool Visualizer::eventFilter(QObject*, QEvent* event) {
    if (!enabled)
        return false;
    if (event->type() == QEvent::TouchCancel)
        endAll(); // the event may not list the fingers
    handleEvent(touchesOf(*event));
    return false;
}

void Visualizer::handleEvent(const std::vector<Touch>& touches) {
    if (!enabled || touches.empty())
        return;
    for (const Touch& touch : touches)
        handle(touch);
    if (config->showsLog)
        log(touches);
}

void Visualizer::handle(const Touch& touch) {
    TouchView* view = viewOf(touch.id);
    switch (touch.phase) {
    case TouchPhase::began:
        if (view == nullptr)
            view = &freeView();
        view->begin(touch.id, *config);
        view->moveTo(touch.location, touch.radius);
        return;
    case TouchPhase::moved:
    case TouchPhase::stationary:
        if (view != nullptr)
            view->moveTo(touch.location, touch.radius);
        return;
    case TouchPhase::ended:
    case TouchPhase::cancelled:
        if (view != nullptr)
            view->end();
        return;
    }
}

/// A view that is fading out belongs to no finger.
TouchView* Visualizer::viewOf(int touch) const {
    const auto place = std::ranges::find_if(touchViews, [touch](const auto& view) {
        return view->touch == touch && !view->isFading();
    });
    return place == touchViews.end() ? nullptr : place->get();
}

TouchView& Visualizer::freeView() {
    const auto place = std::ranges::find_if(
        touchViews, [](const auto& view) { return view->touch == TouchView::kNoTouch; });
    if (place != touchViews.end())
        return **place;
    touchViews.push_back(std::make_unique<TouchView>(runLoop));
    Q_EMIT touchViewsChanged();
    return *touchViews.back();
}

QList<TouchView*> Visualizer::views() const {
    QList<TouchView*> list;
    for (const auto& view : touchViews)
        list.append(view.get());
    return list;
}

void Visualizer::log(const std::vector<Touch>& touches) {
    std::string lines;
    for (std::size_t i = 0; i < touches.size(); ++i) {
        const Touch& touch = touches[i];
        lines += fmt::format(
            "Touch: [{}]<{}> c:({:.2f}, {:.2f}) r:{:.2f}\t\n",
            i,
            nameOf(touch.phase),
            touch.location.x(),
            touch.location.y(),
            touch.radius);
    }
    if (lines == previousLog)
        return;
    previousLog = lines;
    lines.pop_back(); // the console adds a line end
    foundation::logLine(lines);
}

} // namespace zelvo::ui
