// The share of the light from above that things over a floor stop. In uFootprints, red is how much
// they cover, green that times their nearness to the floor (1 on it, 0 at the end of the reach).
// What is higher covers a smaller part of the sky of more places: it is spread by its height.
// passNumbers[0].x: the spread at the end of the reach, as a share of the map; yzw lookups to find
// things, for the spread, for what stands on the floor.
layout(binding = UNIT_PICTURE) uniform sampler2D uFootprints; // with mipmaps
layout(location = 0) out float oStopped;

const float kClose = 0.012; // how far things that stand on the floor darken it, whatever hangs above
const float kClosest = 0.85;
const float kLeast = 0.004; // the spread of what stands on the floor
// Vogel 1979, "A better way to construct the sunflower head"
const mat2 kGoldenTurn = mat2(-0.7373688, 0.6754903, -0.6754903, -0.7373688);

// The mipmap whose texels fill the gaps between so many lookups.
float levelFor(float radius, float lookups) { return log2(max(1.7 * radius * inversesqrt(lookups), 1.0)); }

void main() {
    vec3 lookups = passNumbers[0].yzw;
    vec2 uv = gl_FragCoord.xy / passFrame.yz;
    float texels = float(textureSize(uFootprints, 0).x);
    float widest = passNumbers[0].x;
    float level = levelFor(widest * texels, lookups.x);
    vec2 direction = vec2(1.0, 0.0);
    vec2 found = vec2(0.0);
    for (int i = 0; i < int(lookups.x); ++i) {
        vec2 offset = direction * (widest * sqrt((float(i) + 0.5) / lookups.x));
        found += textureLod(uFootprints, uv + offset, level).rg;
        direction = kGoldenTurn * direction;
    }
    float nearness = found.y / max(found.x, 1e-5);
    float spread = mix(widest, kLeast, clamp(nearness, 0.0, 1.0));
    int count = found.x > 0.0 ? int(lookups.y) : 0;
    level = levelFor(spread * texels, lookups.y);
    float sum = 0.0;
    // The conditions stand at the end: see docs/rendering.md.
    int i = 0;
    do {
        vec2 offset = direction * (spread * sqrt((float(i) + 0.5) / lookups.y));
        sum += textureLod(uFootprints, uv + offset, level).r;
        direction = kGoldenTurn * direction;
    } while (++i < count);
    direction = vec2(1.0, 0.0);
    float close = 0.0;
    float closeLevel = 0.5 * log2(24.0 / lookups.z); // finer, as edges matter
    count = found.x > 0.0 ? int(lookups.z) : 0;
    i = 0;
    do {
        vec2 offset = direction * (kClose * sqrt((float(i) + 0.5) / lookups.z));
        vec2 thing = textureLod(uFootprints, uv + offset, closeLevel).rg;
        close += thing.r * smoothstep(0.88, 1.0, thing.g / max(thing.r, 1e-5));
        direction = kGoldenTurn * direction;
    } while (++i < count);
    sum = 1.0 - (1.0 - sum / lookups.y) * (1.0 - kClosest * close / lookups.z);
    // the rim of the map is never seen
    vec2 rim = clamp((0.5 - abs(uv - 0.5)) * 12.0, 0.0, 1.0);
    oStopped = count > 0 ? sum * rim.x * rim.y : 0.0;
}
