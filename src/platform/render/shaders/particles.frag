// Picture and colour are encoded and premultiplied. The light of a glow is that of its encoded
// colour as it stands, so that it looks the same on black as its picture.
layout(location = 0) in vec2 vTexcoord;
layout(location = 1) flat in vec4 vColor;
layout(location = 2) flat in vec3 vLens;
layout(location = 3) in float vFront;
layout(location = 0) out vec4 oColor;
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
#ifdef MULTISAMPLED
layout(binding = UNIT_DEPTH) uniform sampler2DMS uDepth; // one of the samples is enough
#else
layout(binding = UNIT_DEPTH) uniform sampler2D uDepth;
#endif

#include "color.glsl"

// How much of the ball is in front of the surface behind it.
float softness() {
#ifdef SOFT
    float behind = vLens.y / max(texelFetch(uDepth, ivec2(gl_FragCoord.xy), 0).r + vLens.x, 1e-9);
    float share = (behind - vFront) * vLens.z;
    // Other samples of a letter's edge may lie in the open.
    return share < 0.0 ? 1.0 : min(share, 1.0);
#else
    return 1.0;
#endif
}

void main() {
    vec4 color = texture(uPicture, vTexcoord) * vColor;
    if (color.a < 1.0 / 512.0) discard;
    color *= softness();
#ifdef GLOW
    // Weak glows only add light; the strongest cover.
    oColor = vec4(linearFromSRGB(color.rgb) * (1.0 + color.a * color.a), color.a * (0.3 + 0.7 * color.a));
#else
    oColor = vec4(linearFromSRGB(color.rgb / max(color.a, 1.0 / 255.0)) * color.a, color.a);
#endif
}
