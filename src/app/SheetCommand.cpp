// SPDX-License-Identifier: MIT
#include "app/Commands.h"
#include "app/ContactSheet.h"
#include "app/Engine.h"
#include "app/Export.h"
#include "app/SheetViews.h"
#include "document/SetUp.h"
#include "document/StageStyling.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/NewFile.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/render/SCNRenderer.h"

#include <fmt/format.h>
#include <glm/gtc/matrix_transform.hpp>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace zelvo::app {

namespace {

constexpr double kStep = 1.0 / 30;  ///< seconds between updates of the scene
constexpr double kLeadIn = 1.5;     ///< seconds until style changes end and particles are visible
constexpr double kOversampling = 2; ///< smooth edges, because tiles are small

/// Depth makes a node look larger: its near parts are larger in perspective.
constexpr double kDepthShare = 0.6;

/// Scales the node so that it fills the format's space.
void fit(node::Node& node, const SheetFormat& format) {
    const auto box = node.contentNode->boundingBox();
    const double depth = box.max.z - box.min.z;
    const double width = box.max.x - box.min.x + kDepthShare * depth;
    const double height = box.max.y - box.min.y + kDepthShare * depth;
    if (!(width > 0 && height > 0))
        return; // the node is empty
    node.scale2D = static_cast<float>(std::min(format.fitWidth / width, format.fitHeight / height));
    node.applyScale();
}

[[nodiscard]] std::string counted(std::size_t count, std::string_view name) {
    return fmt::format("{} {}{}", count, name, count == 1 ? "" : "s");
}

/// Draws views one after the other on the same stage.
class SheetPainter {
public:
    SheetPainter(Engine& performing, render::SCNRenderer& drawing, const SheetFormat& wanted)
        : engine(performing)
        , renderer(drawing)
        , format(wanted) {
        engine.model().setSceneView(&renderer);
    }

    [[nodiscard]] foundation::Result<Tile> paint(const SheetView& view) {
        const std::string caption = view.object.empty() ? view.caption : showInMiddle(view);
        if (auto ready = document::setUp(view.stage, {}, engine.model()); !ready)
            return foundation::fail(foundation::Cause::notFound, ready.error().text);
        if (view.fitted)
            fit(*document::nodeNamed(*view.fitted, engine.stage()), format);
        engine.runLoop.runFor(kLeadIn);
        for (double end = time + kLeadIn; time < end; time += kStep)
            renderer.update(time);
        return Tile{
            caption,
            renderer.snapshotAtTime(
                time, {format.tile.width, format.tile.height}, {.oversampling = kOversampling})};
    }

    /// Whether a file could not be read. Its tile is empty, and tells why.
    [[nodiscard]] bool hasFailed() const { return hasFailed_; }

private:
    /// Puts the view's 3D file on the stage, in the middle wherever its own zero is. Resets the
    /// layout. Returns the caption.
    [[nodiscard]] std::string showInMiddle(const SheetView& view) {
        content::MediaNode& node = *engine.stage().mediaNode;
        const auto object = document::showObject(view.object, node);
        if (!object) {
            hasFailed_ = true;
            node.setShape(std::make_shared<content::NoShape>());
            return object.error().message;
        }
        const geometry::Box box = (*object)->boundingBox();
        (*object)->pivot = glm::translate(glm::mat4(1), (box.min + box.max) / 2.0F);
        const object::Figures& figures = (*object)->figures();
        return fmt::format(
            "{}   {}   {}",
            view.caption,
            counted(figures.triangles, "triangle"),
            counted(figures.materials, "material"));
    }

    Engine& engine;
    render::SCNRenderer& renderer;
    SheetFormat format;
    bool hasFailed_ = false;
    double time = 0; ///< scene time, seconds
};

struct Sheet {
    image::Image picture;
    bool isWhole = true; ///< false if a file could not be read
};

[[nodiscard]] foundation::Result<Sheet>
drawSheet(const SheetCommand& command, const foundation::Folders& folders, StoppableLoop& loop) {
    auto renderer = render::SCNRenderer::make();
    if (!renderer)
        return tl::unexpected(renderer.error());
    Engine engine(loop.runLoop(), folders, 0);
    const auto format = formatOf(command.what);
    SheetPainter painter(engine, **renderer, format);
    std::vector<Tile> tiles;
    for (const auto& view : viewsOf(command)) {
        auto tile = painter.paint(view);
        if (!tile)
            return tl::unexpected(tile.error());
        if (loop.stopSignal() != 0)
            return foundation::fail(foundation::Cause::cancelled, "the sheet was stopped");
        tiles.push_back(std::move(*tile));
    }
    auto sheet = contactSheet(
        tiles, layoutFor(tiles.size(), format.columns, format.tile.width, format.tile.height));
    if (!sheet)
        return tl::unexpected(sheet.error());
    return Sheet{std::move(*sheet), !painter.hasFailed()};
}

} // namespace

int run(const SheetCommand& command) {
    StoppableLoop loop;
    bool isWhole = true;
    const auto drawn = [&]() -> foundation::Result<void> {
        if (auto writable = foundation::NewFile::check(command.out); !writable)
            return writable;
        const auto temporary =
            foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
        if (!temporary)
            return tl::unexpected(temporary.error());
        // A temporary folder, so that the user's settings have no influence.
        const auto sheet = drawSheet(command, foundation::Folders::below(temporary->path()), loop);
        if (!sheet)
            return tl::unexpected(sheet.error());
        isWhole = sheet->isWhole;
        return image::savePNG(sheet->picture, command.out);
    }();
    if (!drawn && drawn.error().cause == foundation::Cause::cancelled)
        return stoppedBy(loop.stopSignal());
    if (!drawn)
        return complain(drawn.error(), ExitStatus::kFailed);
    (void)std::fputs((command.out.string() + "\n").c_str(), stdout);
    return isWhole ? ExitStatus::kDone : ExitStatus::kWrong;
}

} // namespace zelvo::app
