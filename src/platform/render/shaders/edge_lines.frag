// Notes the line of an edge in each pixel that it touches, if nothing is in front of it. The depth
// test keeps the one nearest to the pixel's middle.
layout(location = 0) flat in vec3 vLine;
layout(location = 1) noperspective in float vDepth;
layout(location = 0) out vec2 oLine;
layout(binding = UNIT_DEPTH) uniform sampler2DMS uDepth;
#ifdef SECOND
layout(binding = UNIT_PICTURE) uniform sampler2D uNearest;
#endif

#include "edge_line.glsl"

// A face next to the edge may be a little nearer than the edge. Depth is about one over the distance.
const float kInFront = 1.003;

bool isHidden(ivec2 here) {
    vec4 depths = vec4(
        texelFetch(uDepth, here, 0).r, texelFetch(uDepth, here, 1).r, texelFetch(uDepth, here, 2).r,
        texelFetch(uDepth, here, 3).r);
    return min(min(depths.x, depths.y), min(depths.z, depths.w)) > vDepth * kInFront;
}

#ifdef SECOND
// The next piece of a curve is nearly the same line.
bool isAbout(vec3 line, vec3 other) {
    float turn = dot(line.xy, other.xy);
    return abs(turn) > 0.97 && abs(other.z * sign(turn) - line.z) < 0.12;
}
#endif

void main() {
    ivec2 here = ivec2(gl_FragCoord.xy);
    vec3 line = vec3(vLine.xy, dot(vLine.xy, gl_FragCoord.xy) + vLine.z);
    vec4 distances = abs(distancesFrom(line));
    float least = min(min(distances.x, distances.y), min(distances.z, distances.w));
    bool isTouched = least < 0.5 * kSquare * (abs(line.x) + abs(line.y));
    if (!isTouched || isHidden(here)) discard;
#ifdef SECOND
    if (isAbout(line, lineOf(texelFetch(uNearest, here, 0).xy))) discard;
#endif
    oLine = lineCode(line);
    gl_FragDepth = 1.0 - abs(line.z);
}
