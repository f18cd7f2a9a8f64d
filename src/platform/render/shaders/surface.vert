// The vertex stage of every surface. Depth-only and colour passes compute exactly the same
// position, so that the second pass can test for equal depth.
layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec3 aNormal;
layout(location = 2) in vec4 aTangent;
layout(location = 3) in vec2 aTexcoord;
#ifdef HAS_VERTEX_COLORS
layout(location = 4) in vec4 aColor; // linear
#endif

#ifdef HAS_OPENNESS
layout(location = 5) in float aOpenness;
#endif

#include "irradiance.glsl"

invariant gl_Position;

#ifndef DEPTH_ONLY
layout(location = 0) out vec3 vPosition;
layout(location = 1) out vec3 vNormal;
#ifdef HAS_NORMAL_PICTURE
layout(location = 2) out vec4 vTangent;
#endif
#ifdef HAS_TEXCOORD
layout(location = 3) out vec2 vTexcoord;
#endif
#ifdef VERTEX_IRRADIANCE
layout(location = 4) out vec3 vIrradiance;
#endif
#ifdef HAS_VERTEX_COLORS
layout(location = 5) out vec4 vColor;
#endif
#ifdef HAS_OPENNESS
layout(location = 6) out float vOpenness;
#endif
#endif

void main() {
    vec4 position = world * vec4(aPosition, 1.0);
    gl_Position = viewProjection * position;
#ifndef DEPTH_ONLY
    vPosition = position.xyz;
    vNormal = mat3(normalMatrix) * aNormal;
#ifdef HAS_VERTEX_COLORS
    vColor = aColor;
#endif
#ifdef HAS_OPENNESS
    // A letter is lit from where it is looked at: of its walls, the end beyond is the dark one. It is
    // the front end if the letter is seen from behind.
    float towards = dot(normalize(cameraPosition.xyz - position.xyz), normalize(mat3(normalMatrix)[2]));
    float isFar = clamp(0.5 - 2.0 * towards * sign(aPosition.z), 0.0, 1.0);
    vOpenness = mix(1.0, aOpenness, isFar);
#endif
#ifdef VERTEX_IRRADIANCE
    vIrradiance = irradianceAt(normalize(vNormal));
#endif
#ifdef HAS_NORMAL_PICTURE
    vTangent = vec4(mat3(world) * aTangent.xyz, aTangent.w);
#endif
#ifdef HAS_TEXCOORD
#ifdef SLOT_TRANSFORMS
    vTexcoord = aTexcoord;
#else
    vTexcoord = (uvTransform * vec4(aTexcoord, 0.0, 1.0)).xy;
#endif
#endif
#endif
}
