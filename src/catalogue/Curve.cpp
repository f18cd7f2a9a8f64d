// SPDX-License-Identifier: MIT
#include "catalogue/Curve.h"

#include "actions/TimingCurves.h"
#include "platform/foundation/Check.h"

namespace zelvo::catalogue {

scene::TimingFunction Curve::timing() const {
    const auto& [a, b, c, d] = values;
    switch (kind) {
    case Kind::none:
        return {};
    case Kind::linear:
        return actions::linearTiming;
    case Kind::sineIn:
        return actions::sineIn;
    case Kind::elasticIn:
        return actions::elasticIn(a);
    case Kind::elasticOut:
        return actions::elasticOut(a);
    case Kind::bezier:
        return actions::bezierTiming(a, b, c, d);
    case Kind::spring:
        return actions::springTiming(a, b, c, d);
    }
    FATAL("no such curve");
}

} // namespace zelvo::catalogue
