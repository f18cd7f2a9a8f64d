// SPDX-License-Identifier: MIT
#include "ui/imports/ObjectInfoController.h"

#include "platform/scene/HitTest.h"
#include "ui/imports/ObjInfo.h"

#include <glm/gtx/component_wise.hpp>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr float kAbove = 50; ///< of the camera, scene units
constexpr float kDistance = 355;
constexpr float kSide = 250;           ///< the longest side of the object
constexpr float kLeastSide = 10;       ///< smaller objects count as this large, in their own units
constexpr double kTurn = 2.0 / 5;      ///< radians a second
constexpr double kFlashDuration = 0.5; ///< seconds to red, and back to black

struct Mark {
    std::u16string_view mark;
    const char* icon;
};

constexpr auto kMarks = std::to_array<Mark>({
    {u"✅", "InPlace"},
    {u"⚠️", "CorruptFont"},
    {u"🚫", "NotFound"},
});

[[nodiscard]] scene::SCNNodePtr
lightNode(scene::SCNLightType type, const image::Color& color, double intensity) {
    auto node = std::make_shared<scene::SCNNode>();
    node->light = std::make_shared<scene::SCNLight>();
    node->light->type = type;
    node->light->color = color;
    node->light->intensity = intensity;
    return node;
}

} // namespace

ObjectInfoController::ObjectInfoController(const Services& given, std::filesystem::path file)
    : url(std::move(file))
    , sceneView(given.runLoop, kAbove, kDistance)
    , word_(tr("Loading…"))
    , queue(given.runLoop.makeSerialQueue("report"))
    , loader(given.runLoop) {
    setUpLights();
    startReport(given);
    sceneView.animate = [this](double time) { animate(time); };
    sceneView.didTap = [this](const geometry::Ray& ray) { handleTap(ray); };
    loader.load(
        url,
        {.isAdvanced =
             [this](const scene::LoadProgress& progress) {
                 word_ = tr("Loading … %1 %").arg(static_cast<int>(progress.share * 100));
                 Q_EMIT changed();
             },
         .isDone = [this](const scene::ObjectLoader::Loaded& loaded) { show(loaded); }});
}

ObjectInfoController::~ObjectInfoController() {
    stop.request_stop(); // the queue waits for the report
}

QString ObjectInfoController::title() const {
    return QString::fromStdString(url.stem().string());
}

void ObjectInfoController::setUpLights() {
    // Near enough to be lit as by a light that does not get weaker.
    constexpr double kOmni = 1000.0 * kSide * kSide / 4;
    constexpr double kAmbient = 1000;
    constexpr float kLightGrey = 2.0F / 3;
    const scene::SCNNodePtr& root = sceneView.view.scene()->rootNode();
    const auto omni = lightNode(scene::SCNLightType::omni, image::Color::white(1), kOmni);
    omni->position = glm::vec3(0, 10, 10);
    root->addChildNode(omni);
    root->addChildNode(
        lightNode(scene::SCNLightType::ambient, image::Color::white(kLightGrey), kAmbient));
}

void ObjectInfoController::startReport(const Services& services) {
    const auto done = lifetime.guard([this](const QString& text) {
        textView = text;
        Q_EMIT changed();
    });
    queue->async([&loop = services.runLoop, file = url, token = stop.get_token(), done] {
        const QString text = ObjInfo::withoutEscapes(ObjInfo::report(file, token));
        loop.post([done, text] { done(text); });
    });
}

QList<ReportLine> ObjectInfoController::report() const {
    QList<ReportLine> lines;
    for (const QString& line : textView.trimmed().split('\n')) {
        const auto* const found = std::ranges::find_if(
            kMarks, [&line](const Mark& one) { return line.startsWith(QStringView(one.mark)); });
        if (found == kMarks.end())
            lines.append({.text = line, .icon = {}});
        else
            lines.append(
                {.text = line.mid(static_cast<qsizetype>(found->mark.size())).trimmed(),
                 .icon = QString::fromLatin1(found->icon)});
    }
    return lines;
}

void ObjectInfoController::show(const scene::ObjectLoader::Loaded& loaded) {
    word_ = loaded ? QString() : QString::fromStdString(loaded.error().message);
    if (loaded) {
        object = *loaded;
        object->castsShadow = false;
        const geometry::Box box = object->boundingBox();
        const float largest = std::max(kLeastSide, glm::compMax(box.max - box.min));
        object->scale = glm::vec3(kSide / largest);
        object->position = glm::vec3(0);
        sceneView.view.scene()->rootNode()->addChildNode(object);
    }
    Q_EMIT changed();
}

void ObjectInfoController::animate(double time) {
    now = time;
    if (object)
        object->setEulerAngles({0, static_cast<float>(kTurn * time), 0});
    if (!flash)
        return;
    const double progress = (now - flash->begun) / kFlashDuration;
    const double red = progress < 1 ? progress : std::max(0.0, 2 - progress);
    flash->material->emission.contents = image::Color{static_cast<float>(red), 0, 0, 1};
    if (progress >= 2)
        flash.reset();
}

void ObjectInfoController::handleTap(const geometry::Ray& ray) {
    const auto hit = object ? scene::hitTest(*object, ray) : std::nullopt;
    if (!hit || !hit->node->geometry || hit->node->geometry->materials.empty())
        return;
    if (flash)
        flash->material->emission.contents = image::Color::white(0);
    flash = Flash{hit->node->geometry->materials.front(), now};
}

} // namespace zelvo::ui
