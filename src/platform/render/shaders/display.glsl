// From the light of a sample to the picture: tone map, encoding, dither.
layout(location = 0) out vec4 oColor;
#if SAMPLES > 1
layout(binding = UNIT_PICTURE) uniform usampler2DMS uPicture; // see RenderTarget::bits
#else
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
#endif

#include "color.glsl"

// Khronos Group 2024, "PBR Neutral Tone Mapper". Colours up to 0.8 keep their hue and saturation;
// brighter ones move towards white.
//
// Unlike there, a bright colour also moves in hue, as on film: each channel is limited by itself
// for kFilm of the way. So highlights on gold turn yellow and not salmon.
vec3 toneMapped(vec3 c) {
    const float kStart = 0.8 - 0.04;
    const float kDesaturation = 0.15;
    const float kFilm = 0.6;
    float least = min(c.r, min(c.g, c.b));
    c -= least < 0.08 ? least - 6.25 * least * least : 0.04;
    float peak = max(c.r, max(c.g, c.b));
    const float d = 1.0 - kStart;
    float newPeak = 1.0 - d * d / (max(peak, kStart) + d - kStart);
    float grey = 1.0 - 1.0 / (kDesaturation * (peak - newPeak) + 1.0);
    vec3 alone = mix(c, 1.0 - d * d / (max(c, kStart) + d - kStart), greaterThan(c, vec3(kStart)));
    vec3 together = c * (newPeak / max(peak, kStart));
    vec3 bright = mix(mix(together, alone, kFilm), vec3(newPeak), grey);
    return peak < kStart ? c : bright;
}

// Does not change colours up to white. Brighter ones, such as sums of glows, keep their hue and
// move towards white, as above.
vec3 limited(vec3 c) {
    float over = max(max(c.r, max(c.g, c.b)), 1.0);
    return mix(vec3(1.0), c / over, 1.0 / (0.15 * (over - 1.0) + 1.0));
}

#ifdef GLOW
layout(binding = UNIT_GLOW) uniform sampler2D uGlow;
const float kGlow = 0.03; // of each of the five blurs
#endif

// What the screen shows of a linear colour; alpha as in color.glsl.
vec3 shown(vec4 light) {
    vec3 c = max(light.rgb, vec3(0.0));
#ifdef TONE_MAP
    return mix(limited(c), toneMapped(c), light.a);
#else
    return limited(c);
#endif
}

// Jimenez 2014, "Next Generation Post Processing in Call of Duty: Advanced Warfare": interleaved gradient noise.
float interleavedNoise(vec2 pixel) {
    return fract(52.9829189 * fract(dot(pixel, vec2(0.06711056, 0.00583715))));
}

#if SAMPLES > 1
vec4 sampleAt(ivec2 pixel, int i) {
    uvec2 bits = texelFetch(uPicture, pixel, i).xy;
    return vec4(unpackHalf2x16(bits.x), unpackHalf2x16(bits.y));
}
#endif

vec4 glowHere() {
#ifdef GLOW
    return vec4(kGlow * textureLod(uGlow, gl_FragCoord.xy / passFrame.yz, 0.0).rgb, 0.0);
#else
    return vec4(0.0);
#endif
}

// Encodes a shown colour, of which a share is light of the scene. Noise of up to half an 8-bit step,
// so that soft gradients do not band. Less for colours that are shown as they are: these stay exact.
vec4 displayed(vec3 color, float ofScene) {
    float noise = (interleavedNoise(gl_FragCoord.xy) - 0.5) * mix(0.6, 1.0, ofScene);
    return vec4(sRGBFromLinear(min(color, vec3(1.0))) + noise / 255.0, 1.0);
}
