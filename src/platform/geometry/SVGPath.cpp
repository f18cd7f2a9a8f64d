// SPDX-License-Identifier: MIT
#include "platform/geometry/SVGPath.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace zelvo::geometry {

namespace {

using Kind = SVGCommand::Kind;
using Group = std::span<const double>;

constexpr std::string_view kNumberCharacters = "-.0123456789eE";

/// The number at the start of a text, as long as possible; NaN if there is none.
double numberOf(std::string_view token) {
    double value = std::numeric_limits<double>::quiet_NaN();
    (void)std::from_chars(token.data(), token.data() + token.size(), value);
    return value;
}

/// Splits at separators and before every minus sign that is not part of an exponent. The last part
/// counts even if it is empty: a command without numbers has one group of one number.
std::vector<double> split(std::string_view text) {
    std::vector<double> values;
    std::string token;
    char last = '\0';
    const auto push = [&] {
        if (!token.empty())
            values.push_back(numberOf(token));
        token.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char character = text[i];
        const bool startsNumber = character == '-' && i > 0 && last != 'e' && last != 'E';
        const bool isOfNumber = kNumberCharacters.find(character) != std::string_view::npos;
        if (startsNumber || !isOfNumber)
            push();
        if (isOfNumber)
            token += character;
        last = character;
    }
    values.push_back(numberOf(token));
    return values;
}

SVGCommand straight(glm::dvec2 point, Kind kind) {
    return {point, point, point, kind};
}

} // namespace

struct SVGPath::Builders {
    static SVGCommand move(Group n, const SVGCommand* /*previous*/, Coordinates /*coords*/) {
        return straight({n[0], n[1]}, Kind::move);
    }

    static SVGCommand line(Group n, const SVGCommand* /*previous*/, Coordinates /*coords*/) {
        return straight({n[0], n[1]}, Kind::line);
    }

    static SVGCommand vertical(Group n, const SVGCommand* previous, Coordinates coords) {
        return straight({kept(previous, coords).x, n[0]}, Kind::line);
    }

    static SVGCommand horizontal(Group n, const SVGCommand* previous, Coordinates coords) {
        return straight({n[0], kept(previous, coords).y}, Kind::line);
    }

    static SVGCommand quad(Group n, const SVGCommand* /*previous*/, Coordinates /*coords*/) {
        // clang-format off
        return {
            {n[2], n[3]},
            {n[0], n[1]},
            {n[0], n[1]},
            Kind::quadCurve
        };
        // clang-format on
    }

    static SVGCommand smoothQuad(Group n, const SVGCommand* previous, Coordinates coords) {
        const glm::dvec2 control =
            reflected(previous, coords, {Kind::quadCurve, &SVGCommand::control1});
        return {{n[0], n[1]}, control, control, Kind::quadCurve};
    }

    static SVGCommand cubic(Group n, const SVGCommand* /*previous*/, Coordinates /*coords*/) {
        // clang-format off
        return {
            {n[4], n[5]},
            {n[0], n[1]},
            {n[2], n[3]},
            Kind::cubeCurve
        };
        // clang-format on
    }

    static SVGCommand smoothCubic(Group n, const SVGCommand* previous, Coordinates coords) {
        const glm::dvec2 control =
            reflected(previous, coords, {Kind::cubeCurve, &SVGCommand::control2});
        return {{n[2], n[3]}, control, {n[0], n[1]}, Kind::cubeCurve};
    }

    static SVGCommand close(Group /*n*/, const SVGCommand* /*previous*/, Coordinates /*coords*/) {
        return straight({}, Kind::close);
    }

private:
    /// The coordinate that a vertical or horizontal line does not change.
    static glm::dvec2 kept(const SVGCommand* previous, Coordinates coords) {
        if (previous == nullptr || coords == Coordinates::relative)
            return {};
        return previous->point;
    }

    struct Mirrored {
        Kind kind; ///< a smooth curve continues only a curve of this kind
        glm::dvec2 SVGCommand::*control;
    };

    /// The first control point of a smooth curve: the last one of the previous curve, mirrored.
    static glm::dvec2 reflected(const SVGCommand* previous, Coordinates coords, Mirrored mirrored) {
        if (previous == nullptr)
            return {};
        const glm::dvec2 reference =
            previous->type == mirrored.kind ? previous->*mirrored.control : previous->point;
        const glm::dvec2 delta = previous->point - reference;
        return coords == Coordinates::relative ? delta : previous->point + delta;
    }
};

struct SVGPath::Letter {
    char letter;
    Coordinates coords;
    std::size_t increment;
    Builder builder;
};

const SVGPath::Letter* SVGPath::letterOf(char character) {
    using enum Coordinates;
    // clang-format off
    static constexpr auto kLetters = std::to_array<Letter>({
        {'M', absolute, 2, Builders::move       },
        {'m', relative, 2, Builders::move       },
        {'L', absolute, 2, Builders::line       },
        {'l', relative, 2, Builders::line       },
        {'V', absolute, 1, Builders::vertical   },
        {'v', relative, 1, Builders::vertical   },
        {'H', absolute, 1, Builders::horizontal },
        {'h', relative, 1, Builders::horizontal },
        {'Q', absolute, 4, Builders::quad       },
        {'q', relative, 4, Builders::quad       },
        {'T', absolute, 2, Builders::smoothQuad },
        {'t', relative, 2, Builders::smoothQuad },
        {'C', absolute, 6, Builders::cubic      },
        {'c', relative, 6, Builders::cubic      },
        {'S', absolute, 4, Builders::smoothCubic},
        {'s', relative, 4, Builders::smoothCubic},
        {'Z', absolute, 1, Builders::close      },
    });
    // clang-format on
    const auto* const found = std::ranges::find(kLetters, character, &Letter::letter);
    return found == kLetters.end() ? nullptr : found;
}

SVGPath::SVGPath(std::string_view data)
    : builder(Builders::move) {
    for (const char character : data) {
        const Letter* const letter = letterOf(character);
        if (letter == nullptr) {
            numbers += character;
            continue;
        }
        finishCommand();
        coords = letter->coords;
        increment = letter->increment;
        builder = letter->builder;
    }
    finishCommand();
}

void SVGPath::finishCommand() {
    const std::vector<double> values = split(numbers);
    numbers.clear();
    std::vector<SVGCommand> raw;
    for (std::size_t at = 0; at + increment <= values.size(); at += increment) {
        const SVGCommand* previous = commands.empty() ? nullptr : &commands.back();
        if (!raw.empty())
            previous = &raw.back();
        raw.push_back(builder(Group(values).subspan(at, increment), previous, coords));
    }
    for (SVGCommand& command : raw) {
        if (coords == Coordinates::relative && !commands.empty()) {
            const glm::dvec2 from = commands.back().point;
            command.point += from;
            command.control1 += from;
            command.control2 += from;
        }
        commands.push_back(command);
    }
}

BezierPath bezierPath(std::string_view svgPath) {
    const SVGPath parsed(svgPath);
    BezierPath path;
    for (const SVGCommand& command : parsed.commands) {
        const Kind kind = path.isEmpty() && command.type != Kind::close ? Kind::move : command.type;
        switch (kind) {
        case Kind::move:
            path.moveTo(command.point);
            break;
        case Kind::line:
            path.lineTo(command.point);
            break;
        case Kind::cubeCurve:
            path.cubicTo(command.control1, command.control2, command.point);
            break;
        case Kind::quadCurve:
            path.quadTo(command.control1, command.point);
            break;
        case Kind::close:
            path.close();
            break;
        }
    }
    return path;
}

} // namespace zelvo::geometry
