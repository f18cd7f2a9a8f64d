// SPDX-License-Identifier: MIT
#include "actions/TimingCurves.h"

#include <algorithm>
#include <cmath>

namespace zelvo::actions {

namespace {

constexpr float kHalfPi = 1.5707963f;
constexpr float kPi = 3.1415925f;
constexpr float kTwoPi = 6.283185f;

bool isEnd(float t) {
    return t == 0.0f || t == 1.0f;
}

/// An oscillation that grows towards u = 0, where it is 1.
float growingSwing(float u, float period) {
    return std::exp2(10.0f * u) * std::sin((u - period / 4.0f) * -kTwoPi / period);
}

/// An oscillation that decays from u = 0, where it is -1.
float dyingSwing(float u, float period) {
    return std::exp2(-10.0f * u) * std::sin((u - period / 4.0f) * kTwoPi / period);
}

} // namespace

float linearTiming(float t) {
    return t;
}

float sineIn(float t) {
    return 1.0f - std::cos(t * kHalfPi);
}

float sineOut(float t) {
    return std::sin(t * kHalfPi);
}

float sineInOut(float t) {
    return (std::cos(t * kPi) - 1.0f) * -0.5f;
}

scene::TimingFunction elasticIn(float period) {
    return [period](float t) { return isEnd(t) ? t : growingSwing(t - 1.0f, period); };
}

scene::TimingFunction elasticOut(float period) {
    return [period](float t) { return isEnd(t) ? t : dyingSwing(t, period) + 1.0f; };
}

scene::TimingFunction elasticInOut(float inPeriod, float outPeriod) {
    return [inPeriod, outPeriod](float t) {
        if (isEnd(t))
            return t;
        const float u = 2.0f * t - 1.0f;
        return u < 0.0f ? 0.5f * growingSwing(u, inPeriod) : 0.5f * dyingSwing(u, outPeriod) + 1.0f;
    };
}

float Spring::at(float t) const {
    const float critical = std::sqrt(stiffness / mass);
    const float rate = std::min(critical, damping / (2.0f * mass));
    const float time = 1.5f * t;
    const float envelope = std::exp(-time * rate);
    const float push = velocity - rate;
    if (rate >= critical)
        return envelope * (time * push - 1.0f) + 1.0f;
    const float swing = std::sqrt(critical * critical - rate * rate);
    return envelope * ((push / swing) * std::sin(swing * time) - std::cos(swing * time)) + 1.0f;
}

scene::TimingFunction springTiming(float damping, float stiffness, float mass, float velocity) {
    const Spring spring{damping, stiffness, mass, velocity};
    return [spring](float t) { return spring.at(t); };
}

float Bezier::at(float t) const {
    constexpr float kTiny = 0.0001f;
    constexpr int kMaxSteps = 5;
    if (std::abs(x1 - y1) < kTiny && std::abs(x2 - y2) < kTiny)
        return t;

    const auto curve = [](float first, float second, float s) {
        const float a = 1.0f - 3.0f * second + 3.0f * first;
        const float b = 3.0f * second - 6.0f * first;
        return ((a * s + b) * s + 3.0f * first) * s;
    };
    const auto slope = [](float first, float second, float s) {
        const float a = 1.0f - 3.0f * second + 3.0f * first;
        const float b = 3.0f * second - 6.0f * first;
        return (3.0f * a * s + 2.0f * b) * s + 3.0f * first;
    };
    float s = t;
    for (int step = 0; step < kMaxSteps; ++step) {
        const float derivative = slope(x1, x2, s);
        if (std::abs(derivative) < kTiny)
            break;
        s -= (curve(x1, x2, s) - t) / derivative;
    }
    return curve(y1, y2, s);
}

scene::TimingFunction bezierTiming(float x1, float y1, float x2, float y2) {
    const Bezier bezier{x1, y1, x2, y2};
    return [bezier](float t) { return bezier.at(t); };
}

} // namespace zelvo::actions
