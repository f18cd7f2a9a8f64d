// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <functional>
#include <numbers>

// Timing curves computed in another way than the program does, in double precision. Animations are
// compared with them.

namespace zelvo::test {

using Reference = std::function<double(double)>;

inline double linear(double t) {
    return t;
}

inline Reference sineIn() {
    return [](double t) { return 1 - std::cos(t * std::numbers::pi / 2); };
}

/// Solves x(s) = t by bisection. x of the control points must be in 0 .. 1, so that x(s) grows.
inline Reference bezier(double x1, double y1, double x2, double y2) {
    return [=](double t) {
        const auto at = [](double first, double second, double s) {
            return 3 * first * s * (1 - s) * (1 - s) + 3 * second * s * s * (1 - s) + s * s * s;
        };
        double low = 0, high = 1;
        for (int i = 0; i < 60; ++i) {
            const double middle = (low + high) / 2;
            (at(x1, x2, middle) < t ? low : high) = middle;
        }
        return at(y1, y2, low);
    };
}

/// A mass on a damped spring, released at -1 with a velocity, integrated in small steps over 1.5
/// seconds. Damping above the critical value counts as critical.
inline Reference spring(double damping, double mass, double stiffness, double velocity) {
    return [=](double t) {
        const double c = std::min(damping, 2 * std::sqrt(stiffness * mass));
        double x = -1, v = velocity;
        constexpr int kSteps = 20'000;
        const double h = 1.5 * t / kSteps;
        const auto acceleration = [&](double place, double speed) {
            return (-stiffness * place - c * speed) / mass;
        };
        for (int i = 0; i < kSteps; ++i) { // the midpoint method
            const double midX = x + h / 2 * v;
            const double midV = v + h / 2 * acceleration(x, v);
            x += h * midV;
            v += h * acceleration(midX, midV);
        }
        return x + 1;
    };
}

} // namespace zelvo::test
