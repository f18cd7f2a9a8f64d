// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/PixelRect.h"
#include "platform/render/Snapshot.h"

#include <optional>
#include <vector>

namespace zelvo::render {

/// What a later drawing changes.
struct Change {
    geometry::Box box; ///< in the world
    PixelRect part;
};

/// Finds the translucent items that can be drawn before opaque ones without a change of the picture.
/// The glows and veils far behind a title are such, so they can lie in the still layer.
class TranslucentOrder {
public:
    void begin(const CameraView& camera, Size picture);

    /// An opaque item that the layer does not hold, or a part of one that is drawn again.
    void addLater(const VisibleNode& node, const PixelRect& part);

    /// A part of an opaque item that is darkened when all of these are drawn.
    void addShade(const VisibleNode& node, const PixelRect& part);

    /// The floor's mirror image, and the part of it with dark places.
    void addFloor(const VisibleNode& node, const PixelRect& mirror, const PixelRect& dark);

    enum class Place {
        inTurn,
        beforeShade, ///< after the opaque items, before shade and the floor's mirror image
        beforeAll
    };

    /// Where an item is to be drawn. Only flat items come before all: what is drawn later must be
    /// elsewhere in the picture, or wholly on the eye's side of their plane. Light that is added is
    /// drawn before shade and the light of a mirror image, whether the layer holds it or not.
    /// To be asked back to front; items at the back that the layer does not hold are told before.
    [[nodiscard]] Place placeOf(const VisibleNode& node, const DrawItem& item) const;

    void addUnheld(const VisibleNode& node, const DrawItem& item, Place place);

private:
    struct Floor {
        Change mirror;
        PixelRect dark;
    };

    struct Unheld {
        PixelRect part;
        bool isSum = false; ///< it only adds light, so its place among others does not matter
        Place place = Place::inTurn;
    };

    [[nodiscard]] bool isBeforeShade(
        const PixelRect& part, const std::optional<glm::vec4>& plane, const DrawItem& item) const;

    CameraView view;
    Size size;
    std::optional<Floor> floor;
    std::vector<Change> shades;
    std::vector<Change> later;
    std::vector<Unheld> unheld;
};

} // namespace zelvo::render
