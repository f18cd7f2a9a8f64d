// SPDX-License-Identifier: MIT
#include "app/Commands.h"
#include "app/ContactSheet.h"
#include "app/Engine.h"
#include "app/Export.h"
#include "app/Performer.h"
#include "app/SheetViews.h"
#include "app/StageStyling.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/NewFile.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/render/SCNRenderer.h"

#include <algorithm>
#include <cstdio>
#include <memory>

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
        if (auto ready = setUp(view.stage, {}, engine); !ready)
            return tl::unexpected(ready.error());
        if (view.fitted)
            fit(*nodeNamed(*view.fitted, engine.stage()), format);
        engine.runLoop.runFor(kLeadIn);
        for (double end = time + kLeadIn; time < end; time += kStep)
            renderer.update(time);
        return Tile{
            view.caption,
            renderer.snapshotAtTime(time, {format.tile.width, format.tile.height}, kOversampling)};
    }

private:
    Engine& engine;
    render::SCNRenderer& renderer;
    SheetFormat format;
    double time = 0; ///< scene time, seconds
};

[[nodiscard]] foundation::Result<image::Image>
drawSheet(SheetKind kind, const foundation::Folders& folders, StoppableLoop& loop) {
    auto renderer = render::SCNRenderer::make();
    if (!renderer)
        return tl::unexpected(renderer.error());
    Engine engine(loop.runLoop, folders, 0);
    const auto format = formatOf(kind);
    SheetPainter painter(engine, **renderer, format);
    std::vector<Tile> tiles;
    for (const auto& view : viewsOf(kind)) {
        auto tile = painter.paint(view);
        if (!tile)
            return tl::unexpected(tile.error());
        if (loop.stopSignal() != 0)
            return foundation::fail(foundation::Cause::cancelled, "the sheet was stopped");
        tiles.push_back(std::move(*tile));
    }
    return contactSheet(
        tiles, layoutFor(tiles.size(), format.columns, format.tile.width, format.tile.height));
}

} // namespace

int run(const SheetCommand& command) {
    StoppableLoop loop;
    const auto drawn = [&]() -> foundation::Result<void> {
        if (auto writable = foundation::NewFile::check(command.out); !writable)
            return writable;
        const auto temporary =
            foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
        if (!temporary)
            return tl::unexpected(temporary.error());
        // A temporary folder, so that the user's settings have no influence.
        const auto sheet =
            drawSheet(command.what, foundation::Folders::below(temporary->path()), loop);
        if (!sheet)
            return tl::unexpected(sheet.error());
        return image::savePNG(*sheet, command.out);
    }();
    if (!drawn && drawn.error().cause == foundation::Cause::cancelled)
        return stoppedBy(loop.stopSignal());
    if (!drawn)
        return complain(drawn.error(), ExitStatus::kFailed);
    (void)std::fputs((command.out.string() + "\n").c_str(), stdout);
    return ExitStatus::kDone;
}

} // namespace zelvo::app
