// SPDX-License-Identifier: MIT
#include "Canvas.h"
#include "Noise.h"
#include "Recipe.h"
#include "Surface.h"

#include <array>
#include <cmath>

// A printed circuit board: first chips, then tracks that walk over free cells of a grid and end in
// solder points.

namespace zelvo::bake {

namespace {

constexpr int kGrid = 54;
constexpr float kScale = 30.0f / kGrid; ///< for widths, which are given for 30 cells
constexpr std::array<glm::ivec2, 8> kSteps{
    {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}}};

class Board {
public:
    explicit Board(int side)
        : canvas(side)
        , dice(81) {}

    [[nodiscard]] Field relief() {
        for (int i = 0; i < 160 && chips < 14; ++i)
            placeChip();
        for (int i = 0; i < 2600; ++i)
            placeTrack();
        return canvas.field();
    }

private:
    [[nodiscard]] bool& taken(const glm::ivec2& cell) {
        const glm::ivec2 inside = ((cell % kGrid) + kGrid) % kGrid;
        const int index = inside.y * kGrid + inside.x;
        return occupied.at(static_cast<std::size_t>(index));
    }

    [[nodiscard]] static glm::vec2 place(const glm::ivec2& cell) {
        return (glm::vec2(cell) + 0.5f) / static_cast<float>(kGrid);
    }

    [[nodiscard]] bool isFree(const glm::ivec2& low, const glm::ivec2& size) {
        for (int i = 0; i < size.x * size.y; ++i) {
            if (taken(low + glm::ivec2(i % size.x, i / size.x)))
                return false;
        }
        return true;
    }

    /// A chip with pins on its long sides. It occupies the cells below it and its pins.
    void placeChip() {
        const bool lying = dice.unit() < 0.5f;
        const int length = 4 + dice.below(5);
        const int breadth = 3 + dice.below(3);
        const glm::ivec2 size = lying ? glm::ivec2(length, breadth) : glm::ivec2(breadth, length);
        const glm::ivec2 low{dice.below(kGrid), dice.below(kGrid)};
        if (!isFree(low - 1, size + 2))
            return;
        for (int i = 0; i < size.x * size.y; ++i)
            taken(low + glm::ivec2(i % size.x, i / size.x)) = true;
        ++chips;

        constexpr float kCell = 1.0f / kGrid;
        const glm::vec2 middle = (glm::vec2(low) + glm::vec2(size) * 0.5f) * kCell;
        const glm::vec2 across = lying ? glm::vec2(0, 1) : glm::vec2(1, 0);
        const glm::vec2 along = lying ? glm::vec2(1, 0) : glm::vec2(0, 1);
        const float reach = (static_cast<float>(breadth) * 0.5f - 0.25f) * kCell;
        for (int leg = 0; leg < length * 2 - 1; ++leg) {
            const float offset =
                (static_cast<float>(leg) * 0.5f + 0.5f - static_cast<float>(length) * 0.5f) * kCell;
            const glm::vec2 foot = middle + along * offset;
            canvas.line(
                foot - across * reach,
                foot + across * reach,
                {0.0085f * kScale, 0.45f, 0.0015f * kScale, Profile::flat});
        }
        const glm::vec2 half = (glm::vec2(size) * 0.5f - across * 0.85f - along * 0.12f) * kCell;
        canvas.box(middle, half, {0.006f * kScale, 1.0f, 0.0022f * kScale, Profile::flat});
        canvas.box(
            middle,
            half - 0.008f * kScale,
            {0.004f * kScale, 1.06f, 0.0020f * kScale, Profile::flat});
    }

    void placeTrack() {
        glm::ivec2 cell{dice.below(kGrid), dice.below(kGrid)};
        if (taken(cell))
            return;
        std::vector<glm::vec2> points{place(cell)};
        taken(cell) = true;
        int heading = dice.below(8);
        const int length = 3 + dice.below(16);
        for (int i = 0; i < length; ++i) {
            const int turned = nextHeading(cell, heading);
            if (turned < 0)
                break;
            heading = turned;
            cell += kSteps.at(static_cast<std::size_t>(heading));
            taken(cell) = true;
            points.push_back(place(cell));
        }
        draw(points);
    }

    /// Straight on if that cell is free, else an eighth of a turn to either side; -1 if none is
    /// free.
    [[nodiscard]] int nextHeading(const glm::ivec2& cell, int heading) {
        const int side = dice.unit() < 0.5f ? 1 : 7;
        const bool wanders = dice.unit() < 0.12f;
        const std::array<int, 3> tries =
            wanders ? std::array{side, 0, 8 - side} : std::array{0, side, 8 - side};
        for (const int turn : tries) {
            const int next = (heading + turn) % 8;
            const glm::ivec2 step = kSteps.at(static_cast<std::size_t>(next));
            // A diagonal step must not cross another diagonal track.
            const bool crosses = step.x != 0 && step.y != 0 &&
                                 taken(cell + glm::ivec2(step.x, 0)) &&
                                 taken(cell + glm::ivec2(0, step.y));
            if (!taken(cell + step) && !crosses)
                return next;
        }
        return -1;
    }

    void draw(const std::vector<glm::vec2>& points) {
        const Brush eye{0.0185f * kScale, 0.40f, 0.0018f * kScale, Profile::flat};
        if (points.size() > 1)
            canvas.polyline(points, {0.0095f * kScale, 0.28f, 0.0018f * kScale, Profile::flat});
        canvas.disc(points.front(), eye);
        canvas.disc(points.back(), eye);
        // A bright dot in the middle looks like solder.
        canvas.disc(points.front(), {0.0085f * kScale, 0.62f, 0.0018f * kScale, Profile::round});
        canvas.disc(points.back(), {0.0085f * kScale, 0.62f, 0.0018f * kScale, Profile::round});
    }

    Canvas canvas;
    Dice dice;
    int chips = 0;
    std::array<bool, static_cast<std::size_t>(kGrid) * kGrid> occupied{};
};

Baked circuitNormal(int side, int) {
    const Field relief = combined(
        Board(side).relief(),
        Field::of(side, side, [](const glm::vec2& p) { return gradientNoise(p, 200, 82); }),
        [](float height, float weave) { return height + 0.012f * weave; });
    return {normalPicture(blurred(relief, 0.0007f), 0.0065f), {}};
}

constexpr auto kRecipes = std::to_array<Recipe>({
    {"circuits_normal.jpg", Repeats::bothWays, 1024, 1024, circuitNormal},
});

} // namespace

std::span<const Recipe> circuitRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
