// SPDX-License-Identifier: MIT
#pragma once

#include "content/ImageNode.h"
#include "content/MediaNode.h"
#include "content/TextNode.h"
#include "stage/MediaholderNode.h"
#include "stage/ParticleNodes.h"

#include <memory>
#include <vector>

namespace zelvo::core {

/// Where the camera stands in its rig.
inline constexpr glm::vec3 kCameraHome{0, 0, 345};

/// The permanent stage: made once, then only moved, restyled and re-attached. A scene environment
/// is built around these same nodes.
///
/// The camera rig from its root down; each level is one degree of freedom of the virtual operator,
/// so a pan and a catalogue shake combine without fighting over one transform: cameraJittery,
/// cameraWiggle, cameraYHandle, cameraXHandle, cameraSuperNode, cameraPinchNode,
/// cameraSpecialPerspectiveNode, cameraNode.
class Nodes {
public:
    explicit Nodes(const Surroundings& surroundings);
    Nodes(const Nodes&) = delete;
    Nodes& operator=(const Nodes&) = delete;

    /// The process's stage. `makeShared` is called once at start-up, before the first `shared`.
    static Nodes& makeShared(const Surroundings& surroundings);
    [[nodiscard]] static Nodes& shared();

    const DefaultSCNNodePtr cameraNode; ///< holds the camera
    const DefaultSCNNodePtr cameraPinchNode;
    const DefaultSCNNodePtr cameraSpecialPerspectiveNode;
    const DefaultSCNNodePtr cameraSuperNode;
    const DefaultSCNNodePtr cameraYHandle; ///< pan about the vertical axis
    const DefaultSCNNodePtr cameraXHandle; ///< pan about the horizontal axis
    const DefaultSCNNodePtr cameraWiggle;
    const DefaultSCNNodePtr cameraJittery; ///< root of the camera rig

    const std::shared_ptr<MediaholderNode> mediaHolderNode; ///< root of the content
    const content::MediaNodePtr mediaNode;
    const content::ImageNodePtr imageNode;
    const content::TextNodePtr textNode1;
    const content::TextNodePtr textNode2;

    const DefaultSCNNodePtr fxHolderNode;                   ///< overlay effects; faces the camera
    const DefaultSCNNodePtr particleAndParticleLightHolder; ///< emptied by every stop

    // Particle resources, all read at start-up, so that no effect pays for its loading.
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

    /// What a performance works on, in the order in which it is listed and shown: the two texts,
    /// the picture, the media shape.
    [[nodiscard]] std::vector<NodePtr> content() const;

    /// What a scene's root holds, in the order of adding: fxHolderNode,
    /// particleAndParticleLightHolder, cameraJittery, mediaHolderNode.
    [[nodiscard]] std::vector<scene::SCNNodePtr> holders() const;

    /// Hangs an effect on a node that holds other things too.
    void addEffect(scene::SCNNode& parent, const scene::SCNNodePtr& effect);
    /// Takes all effects off the stage, with their particles.
    void removeEffects();

private:
    void linkCameraRig();
    void applyDefaultStyles();

    std::vector<std::weak_ptr<scene::SCNNode>> effects; ///< outside particleAndParticleLightHolder
};

} // namespace zelvo::core
