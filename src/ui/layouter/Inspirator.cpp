// SPDX-License-Identifier: MIT
#include "ui/layouter/Inspirator.h"

#include "model/Model.h"
#include "platform/foundation/RunLoop.h"
#include "ui/layouter/RandomStyle.h"

#include <QStringList>

#include <utility>

namespace zelvo::ui {

namespace {

constexpr auto kInspireString = "Inspirator";
constexpr int kDots = 3;

} // namespace

Inspirator::Inspirator(const Services& given, QObject* parent)
    : QObject(parent)
    , button(
          {.title = kInspireString, .name = tr("Inspirator: a random style"), .key = "I"},
          [this] { inspiratorAction(); })
    , services(given) {
    button.size = {200, 36};
    button.unselectedColor = kButtonColor;
}

Inspirator::~Inspirator() {
    if (!button.isEnabled())
        fade(1, kFadeIn);
}

void Inspirator::inspiratorAction() {
    button.setEnabled(false);
    fade(0, kFadeOut);
    countDots(1);
}

void Inspirator::countDots(int shown) {
    setTitle(QStringList(shown, QStringLiteral(".")).join(QStringLiteral("  ")));
    if (shown < kDots) {
        after(kDot, [this, shown] { countDots(shown + 1); });
        return;
    }
    applyRandomStyle(services.model, drawRandomStyle(services.model.nodes()));
    after(kDot, [this] { hideTitle(); });
}

void Inspirator::hideTitle() {
    titleAlpha_ = 0;
    Q_EMIT changed();
    after(kDark, [this] {
        fade(1, kFadeIn);
        after(kFadeIn, [this] { bringBack(); });
    });
}

void Inspirator::bringBack() {
    setTitle(kInspireString);
    button.setEnabled(true);
    titleAlpha_ = 1;
    Q_EMIT changed();
}

int Inspirator::titleFadeMilliseconds() const {
    return titleAlpha_ > 0 ? static_cast<int>(kFadeIn * 1000) : 0; // it disappears at once
}

void Inspirator::setTitle(const QString& title) {
    button.setFace({.title = title, .name = button.name(), .key = button.key()});
}

void Inspirator::fade(double alpha, double seconds) const {
    if (fadeScene)
        fadeScene(alpha, seconds);
}

void Inspirator::after(double delay, std::function<void()> call) {
    services.runLoop.asyncAfter(delay, lifetime.guard(std::move(call)));
}

} // namespace zelvo::ui
