// SPDX-License-Identifier: MIT
#include "platform/geometry/SVGPath.h"

#include "platform/geometry/Extrusion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace zelvo::geometry {
namespace {

/// Commands as text: kind, end point and, for curves, the control points.
std::string told(std::string_view data) {
    std::ostringstream out;
    const auto write = [&out](glm::dvec2 point) { out << point.x << ',' << point.y << ' '; };
    for (const SVGCommand& command : SVGPath(data).commands) {
        out << "MLCQZ"[static_cast<int>(command.type)];
        write(command.point);
        if (command.type == SVGCommand::Kind::cubeCurve) {
            write(command.control1);
            write(command.control2);
        } else if (command.type == SVGCommand::Kind::quadCurve) {
            write(command.control1);
        }
    }
    return out.str();
}

TEST(SVGPathTest, ReadsPathData) {
    using Row = std::pair<std::string_view, std::string_view>;

    for (const auto& [data, commands] : std::initializer_list<Row>{
             {"", ""},
             {"M10,20", "M10,20 "},
             {"M1-2", "M1,-2 "},
             {"M1e-2,3", "M0.01,3 "},
             {"M-.5-1E-1", "M-0.5,-0.1 "},
             {"M1.5.5,2", "M1.5,2 "},
             {"M1,2 3,4", "M1,2 M3,4 "},
             {"M1,2,3", "M1,2 "},
             {"M0,0L1,2,3,4", "M0,0 L1,2 L3,4 "},
             {"m10,10l5,0", "M10,10 L15,10 "},
             {"m1,1h2v3l1,1 1,1", "M1,1 L3,1 L3,4 L4,5 L5,6 "},
             {"M1,2H7V9", "M1,2 L7,2 L7,9 "},
             {"M0,0C1,1 2,2 3,3S5,5 6,6", "M0,0 C3,3 1,1 2,2 C6,6 4,4 5,5 "},
             {"M0,0c1,1 2,2 3,3s5,5 6,6", "M0,0 C3,3 1,1 2,2 C9,9 4,4 8,8 "},
             {"M0,0L1,1T2,2", "M0,0 L1,1 Q2,2 1,1 "},
             {"M0,0Q1,0 2,2t2,2", "M0,0 Q2,2 1,0 Q4,4 3,4 "},
             {"M0,0L1,1Z", "M0,0 L1,1 Z0,0 "},
             {"M0,0L1,1Zl1,1", "M0,0 L1,1 Z0,0 L1,1 "},
             {"M0,0L1,1z", "M0,0 L1,1 "},
             {"M1,1A9,9", "M1,1 M9,9 "},
             {"M0,0H10 L5,5", "M0,0 L10,0 Lnan,0 L5,5 "},
         })
        EXPECT_EQ(told(data), commands) << data;
}

TEST(SVGPathTest, MakesSolidsOfGarbageWithoutFailing) {
    for (const std::string_view data :
         {"Z",
          "L5,5",
          "C1,2,3",
          "M--,eE.L,",
          "M1e999,0L5,5L9,0Z",
          "ZZ M0,0L5,0L5,5ZL3,3Z",
          "H1 V1 Z"}) {
        ExtrusionOptions options;
        const Mesh solid = extrude(bezierPath(data), options);
        for (const auto& vertex : solid.vertices)
            ASSERT_TRUE(std::isfinite(vertex.position.x) && std::isfinite(vertex.position.y))
                << data;
    }
}

} // namespace
} // namespace zelvo::geometry
