// The colour of a pixel that an edge runs through. The edge's line tells what share of the pixel lies on
// either side of it; the samples tell the colours there. A second line makes a third part, such as a
// thin bevel, or four parts at a corner.
#include "display.glsl"
#include "edge_line.glsl"
layout(binding = UNIT_LINES) uniform sampler2D uNearest;
layout(binding = UNIT_SECOND_LINES) uniform sampler2D uSecondNearest;

// Pixels. A sample that is nearer to a line counts for neither side, because the line's code is rounded.
const float kUnsure = 0.01;

float sum(vec4 numbers) { return dot(numbers, vec4(1.0)); }

float greatest(vec4 n) { return max(max(n.x, n.y), max(n.z, n.w)); }

// The share of the pixel beyond a line, of the distances of the samples from it: the mean of the shares
// of the four squares around these. A line cuts a triangle or a trapezoid from a square.
float shareBeyond(vec3 line, vec4 distances) {
    float a = max(abs(line.x), abs(line.y));
    float b = min(abs(line.x), abs(line.y));
    vec4 far = abs(distances) / kSquare;
    vec4 corner = max(0.5 * (a + b) - far, 0.0);
    vec4 triangle = corner * corner / max(2.0 * a * b, 1e-6);
    vec4 trapezoid = 0.5 - far / a;
    vec4 smaller = mix(triangle, trapezoid, lessThanEqual(far, vec4(0.5 * (a - b))));
    return 0.25 * sum(mix(smaller, 1.0 - smaller, greaterThan(distances, vec4(0.0))));
}

// The index of the sample nearest to a line, of those on its positive side; if there is none, some index.
int nearestOf(vec4 distances) {
    vec4 n = mix(vec4(9.0), distances, greaterThan(distances, vec4(kUnsure)));
    int left = n.y < n.x ? 1 : 0;
    int right = n.w < n.z ? 3 : 2;
    return min(n.x, n.y) <= min(n.z, n.w) ? left : right;
}

// A sample of a neighbouring pixel, and its weight.
struct Outside {
    ivec2 pixel;
    int index;
    float weight;
};

struct Weights {
    vec4 own; // of the pixel's samples
    // Of parts without a sample in the pixel.
    Outside beyond;
    Outside before;
};

// Shares of the parts before both lines, beyond the first only, beyond the second only, beyond both.
// Lines in one direction do not cross within the pixel; of lines across each other, each cuts the parts
// of the other in the same ratio. Between these cases it is a guess.
vec4 sharesOf(vec3 one, vec3 two, float beyondOne, float beyondTwo) {
    float cosine = dot(one.xy, two.xy);
    float both = mix(beyondOne * beyondTwo, min(beyondOne, beyondTwo), cosine * cosine);
    return vec4(1.0 - beyondOne - beyondTwo + both, beyondOne - both, beyondTwo - both, both);
}

Weights weightsOf(ivec2 here, vec3 one, vec3 two) {
    if (dot(one.xy, two.xy) < 0.0) two = -two;
    vec4 fromOne = distancesFrom(one);
    vec4 fromTwo = distancesFrom(two);
    vec4 isBeyondOne = step(kUnsure, fromOne);
    vec4 isBeyondTwo = step(kUnsure, fromTwo);
    vec4 isBeforeOne = step(kUnsure, -fromOne);
    vec4 isBeforeTwo = step(kUnsure, -fromTwo);
    mat4 isIn = mat4(
        isBeforeOne * isBeforeTwo, isBeyondOne * isBeforeTwo, isBeforeOne * isBeyondTwo,
        isBeyondOne * isBeyondTwo);
    vec4 counts = vec4(1.0) * isIn;

    // The samples of the pixels on both sides.
    ivec2 ahead = abs(one.x) > abs(one.y) ? ivec2(sign(one.x), 0) : ivec2(0, sign(one.y));
    vec2 further = vec2(dot(one.xy, vec2(ahead)), dot(two.xy, vec2(ahead)));
    vec4 beyond = min(further.x + fromOne, further.y + fromTwo);
    vec4 before = min(further.x - fromOne, further.y - fromTwo);

    vec4 shares = sharesOf(one, two, shareBeyond(one, fromOne), shareBeyond(two, fromTwo));
    // A part without a sample is left out.
    if (counts.x == 0.0 && greatest(before) < kUnsure) shares.x = 0.0;
    if (counts.y == 0.0) shares.y = 0.0;
    if (counts.z == 0.0) shares.z = 0.0;
    if (counts.w == 0.0 && greatest(beyond) < kUnsure) shares.w = 0.0;
    vec4 each = shares / (max(counts, vec4(1.0)) * max(sum(shares), 1e-6));

    ivec2 last = ivec2(passFrame.yz) - 1;
    Weights weights;
    weights.own = isIn * each;
    weights.beyond =
        Outside(clamp(here + ahead, ivec2(0), last), nearestOf(beyond), counts.w == 0.0 ? each.w : 0.0);
    weights.before =
        Outside(clamp(here - ahead, ivec2(0), last), nearestOf(before), counts.x == 0.0 ? each.x : 0.0);
    return weights;
}

vec4 weighted(vec4 light, vec4 glow, float weight) { return weight * vec4(shown(light + glow), light.a); }

vec4 outside(Outside from, vec4 glow) { return weighted(sampleAt(from.pixel, from.index), glow, from.weight); }

void main() {
    ivec2 here = ivec2(gl_FragCoord.xy);
    vec2 nearest = texelFetch(uNearest, here, 0).xy;
    if (!hasLine(nearest)) discard;
    vec2 second = texelFetch(uSecondNearest, here, 0).xy;
    Weights weights = weightsOf(here, lineOf(nearest), lineOf(hasLine(second) ? second : nearest));
    vec4 glow = glowHere();
    vec4 color = outside(weights.beyond, glow) + outside(weights.before, glow);
    for (int i = 0; i < SAMPLES; ++i)
        color += weighted(sampleAt(here, i), glow, weights.own[i]);
    oColor = displayed(color.rgb, color.a);
}
