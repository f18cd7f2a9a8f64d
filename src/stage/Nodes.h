// SPDX-License-Identifier: MIT
#pragma once

#include "content/ImageNode.h"
#include "content/MediaNode.h"
#include "content/TextNode.h"
#include "stage/MediaholderNode.h"
#include "stage/ParticleNodes.h"

#include <memory>
#include <optional>
#include <vector>

namespace zelvo::stage {

/// The camera's position in its rig.
inline constexpr glm::vec3 kCameraHome{0, 0, 345};

/// The permanent stage. Its nodes are made once and then only moved, restyled and attached to other
/// scenes. An environment is built around these nodes.
///
/// The camera rig has one level for each degree of freedom, so that a pan and a shake can be
/// combined without writing to the same node. From the root down: cameraJittery, cameraWiggle,
/// cameraYHandle, cameraXHandle, cameraSuperNode, cameraPinchNode, cameraSpecialPerspectiveNode,
/// cameraNode.
class Nodes {
public:
    explicit Nodes(const node::Surroundings& surroundings);
    Nodes(const Nodes&) = delete;
    Nodes& operator=(const Nodes&) = delete;

    /// The stage of the process. Call `makeShared` once at start-up, before `shared`.
    static Nodes& makeShared(const node::Surroundings& surroundings);
    [[nodiscard]] static Nodes& shared();

    const node::DefaultSCNNodePtr cameraNode; ///< holds the camera
    const node::DefaultSCNNodePtr cameraPinchNode;
    const node::DefaultSCNNodePtr cameraSpecialPerspectiveNode;
    const node::DefaultSCNNodePtr cameraSuperNode;
    const node::DefaultSCNNodePtr cameraYHandle; ///< pan about the vertical axis
    const node::DefaultSCNNodePtr cameraXHandle; ///< pan about the horizontal axis
    const node::DefaultSCNNodePtr cameraWiggle;
    const node::DefaultSCNNodePtr cameraJittery; ///< root of the camera rig

    const std::shared_ptr<MediaholderNode> mediaHolderNode; ///< root of the content
    const content::MediaNodePtr mediaNode;
    const content::ImageNodePtr imageNode;
    const content::TextNodePtr textNode1;
    const content::TextNodePtr textNode2;

    const node::DefaultSCNNodePtr fxHolderNode; ///< overlay effects; always faces the camera
    const node::DefaultSCNNodePtr particleAndParticleLightHolder; ///< emptied at every stop

    // Particle resources are all read at start-up, so that no effect waits for them.
    const ParticleList fireExplo = ParticleNodes::load("FireExplo.scn");
    const scene::SCNParticleSystemPtr wosherSparkles = ParticleNodes::sparkles();
    const ParticleList particleBigDropExpo = ParticleNodes::load("DropExplo.scn");
    const ParticleList particleExplo2 = ParticleNodes::load("Explo2.scn");
    const ParticleList particleExplo3 = ParticleNodes::load("Explo3.scn");
    const ParticleList particleClouds = ParticleNodes::load("Clouds.scn");
    const ParticleList lightBeams = ParticleNodes::load("LightBeams.scn");
    const ParticleList geometryParticles = ParticleNodes::load("GeometryParticles.scn");
    const ParticleList colorfulBeams = ParticleNodes::load("ColorfulBeams.scn");
    const ParticleList particleVoltage = ParticleNodes::load("Voltage.scn");
    const ParticleList particleWosh = ParticleNodes::load("Wosh.scn");
    const ParticleList particleXWosh = ParticleNodes::load("XWosh.scn");

    /// The nodes that a performance animates, in the order of lists: the two texts, the picture,
    /// the media shape.
    [[nodiscard]] std::vector<node::NodePtr> content() const;

    /// The height of the lowest point of the content where the user has put it; nothing if nothing is
    /// to be seen.
    [[nodiscard]] std::optional<float> lowestInLayout() const;

    /// The fonts that the texts can have.
    [[nodiscard]] text::FontRegistry& fonts() const { return *fonts_; }

    /// What the image node shows until the user gives it a picture.
    [[nodiscard]] static image::ImagePtr placeholder();

    /// The children of a scene's root, in order: fxHolderNode, particleAndParticleLightHolder,
    /// cameraJittery, mediaHolderNode.
    [[nodiscard]] std::vector<scene::SCNNodePtr> holders() const;

    /// Adds an effect to a node that also has other children.
    void addEffect(scene::SCNNode& parent, const scene::SCNNodePtr& effect);
    /// Removes all effects from the stage, with their particles.
    void removeEffects();

private:
    void linkCameraRig();
    void applyDefaultStyles();

    text::FontRegistry* fonts_;
    std::vector<std::weak_ptr<scene::SCNNode>> effects; ///< outside particleAndParticleLightHolder
};

} // namespace zelvo::stage
