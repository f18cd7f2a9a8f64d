// What a floor shows besides its own surface: the mirror image of the things above it, and dark
// places under them.
// passDirections: from the world to the contact map. passNumbers[0]: mirrored share from straight
// above, darkness of the contact; the rest: see floor_level.glsl.
layout(location = 0) in vec3 vPosition;
layout(location = 1) in vec3 vNormal;
#ifdef HAS_ROUGHNESS_PICTURE
layout(location = 3) in vec2 vTexcoord;
layout(binding = UNIT_ROUGHNESS) uniform sampler2D uRoughness;
#endif
layout(binding = UNIT_PICTURE) uniform sampler2D uMirror;
layout(binding = UNIT_DEPTH) uniform sampler2D uContact;
layout(location = 0) out vec4 oColor;

#include "floor_level.glsl"

const float kBrightest = 2.0; // in the mirror image, which holds square roots of colours

const float kContact = 1.6; // things are thin, but they also stop light from the sides

void main() {
    vec4 look = passNumbers[0];
    float level = levelShare(vPosition, normalize(vNormal));
    float roughness = factors.x;
#ifdef HAS_ROUGHNESS_PICTURE
    roughness *= texture(uRoughness, vTexcoord).r;
#endif
    float NoV = clamp(normalize(cameraPosition.xyz - vPosition).y, 0.0, 1.0);
    // Schlick 1994, "An Inexpensive BRDF Model for Physically-based Rendering"
    float q = 1.0 - NoV;
    float q2 = q * q;
    float fresnel = look.x + (1.0 - look.x) * q2 * q2 * q * min(look.x * 8.0, 1.0);
    float share = level * fresnel * clamp(1.5 - 1.5 * roughness, 0.05, 1.0);
    vec3 root = textureLod(uMirror, gl_FragCoord.xy / passFrame.yz, 0.0).rgb;
    vec3 mirrored = root * root * (kBrightest * share);
    float covered = textureLod(uContact, (passDirections * vec4(vPosition, 1.0)).xy, 0.0).r;
    float stopped = look.y * level * min(kContact * covered, 1.0);
    oColor = vec4(mirrored, stopped);
}
