// Shadows that get softer with the distance from the caster (Fernando 2005, "Percentage-Closer Soft
// Shadows").
//
// A map holds in red how much of the light its casters stop, and in green that times their depth
// (reversed: larger is nearer to the light). Both can be averaged, so the map has mipmaps: a sample
// from a coarse level stands for many, and wide edges are smooth without noise.
//
// lightShadow: x strength, y least radius of the edge, z radius for a depth difference of 1,
// w shift of the receiver along its normal in scene units. Radii are shares of the map.
// lightPosition.w: depth of the caster nearest to the light.
layout(binding = UNIT_SHADOW) uniform sampler2D uShadowMaps[MAX_SHADOWS];

const float kWidestRadius = 0.03;
const float kShiftTexels = 1.5; // w was made from so many texels
// What is turned away reflects nothing of the lamp. A clear coat has a normal of its own, so not 0.
const float kTurnedAway = -0.3;
const float kDepthStep = 2.5 / 255.0; // the map has 8 bits
// Vogel 1979, "A better way to construct the sunflower head": each point is turned by the golden
// angle against the one before, so that they cover a disc evenly.
const mat2 kGoldenTurn = mat2(-0.7373688, 0.6754903, -0.6754903, -0.7373688);

vec3 placeInMap(int light, vec3 position) {
    vec4 p = shadowMatrix[light] * vec4(position, 1.0);
    return p.w > 0.0 ? p.xyz / p.w : vec3(-1.0);
}

// x: how much is stopped within the radius, y: how much nearer to the light those casters are.
vec2 castersAround(int map, vec3 at, float radius, float texels, int count) {
    float level = log2(2.0 * radius * texels * inversesqrt(effort.x));
    vec2 direction = vec2(radius, 0.0);
    float stopped = 0.0;
    float distances = 0.0;
    int i = 0;
    do {
        vec2 offset = direction * sqrt((float(i) + 0.5) / effort.x);
        vec2 caster = textureLod(uShadowMaps[map], at.xy + offset, level).rg;
        float ahead = caster.g - caster.r * (at.z + kDepthStep);
        stopped += ahead > 0.0 ? caster.r : 0.0;
        distances += max(ahead, 0.0);
        direction = kGoldenTurn * direction;
    } while (++i < count);
    if (count == 0) return vec2(0.0);
    return vec2(stopped, distances / max(stopped, 1e-6));
}

float shadeAround(int map, vec3 at, float radius, float texels, float distance, int count) {
    float level = log2(max(2.0 * radius * texels * inversesqrt(effort.y), 1.0));
    vec2 direction = vec2(radius, 0.0);
    float sum = 0.0;
    int i = 0;
    do {
        vec2 offset = direction * sqrt((float(i) + 0.5) / effort.y);
        vec2 caster = textureLod(uShadowMaps[map], at.xy + offset, level).rg;
        // Where a texel mixes a caster with the receiver itself, this is the caster's share.
        sum += clamp((caster.g - caster.r * (at.z + kDepthStep)) * (2.0 / distance), 0.0, caster.r);
        direction = kGoldenTurn * direction;
    } while (++i < count);
    return count == 0 ? 0.0 : sum / effort.y;
}

// The share of light that arrives, 0 .. 1. Where nothing is to be looked up, the loops end after one
// round; a condition around them would save nothing in software.
float shadowAt(int light, int map, vec3 N, vec3 L) {
    vec4 settings = lightShadow[light];
    float NoL = dot(N, L);
    float tilt = max(sqrt(clamp(1.0 - NoL * NoL, 0.0, 1.0)), 0.5);
    vec3 at = placeInMap(light, vPosition + N * (settings.w * tilt));
    vec4 bounds = shadowBounds[light];
    bool isInside = all(greaterThan(at.xy, bounds.xy)) && all(lessThan(at.xy, bounds.zw));
    isInside = isInside && NoL > kTurnedAway;
    float texels = float(textureSize(uShadowMaps[map], 0).x);
    float widest = clamp(settings.z * (lightPosition[light].w - at.z), settings.y, kWidestRadius);
    vec2 casters = castersAround(map, at, widest, texels, isInside ? int(effort.x) : 0);

    float radius = clamp(settings.z * casters.y, settings.y, widest);
    // The wider the edge, the farther must the point be from its own surface.
    float shift = max(1.0, radius * texels / kShiftTexels);
    at = placeInMap(light, vPosition + N * (settings.w * tilt * shift));
    int count = casters.x > 0.0 ? int(effort.y) : 0;
    return 1.0 - settings.x * shadeAround(map, at, radius, texels, max(casters.y, 1e-6), count);
}
