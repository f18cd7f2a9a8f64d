// A quad for each edge. It covers the middles of all pixels that the edge touches.
layout(location = 0) in vec3 aFrom; // clip space, after the division
layout(location = 1) in vec3 aTo;

layout(location = 0) flat out vec3 vLine; // normal; distance of the picture's corner
layout(location = 1) noperspective out float vDepth;

#include "edge_line.glsl"

const float kBeyondEnd = 0.5; // pixels: no gap where the next edge turns away

void main() {
    vec2 halfSize = 0.5 * passFrame.yz;
    vec2 from = vec2(1.0 + aFrom.x, 1.0 - aFrom.y) * halfSize;
    vec2 to = vec2(1.0 + aTo.x, 1.0 - aTo.y) * halfSize;
    float len = distance(from, to);
    vec2 along = (to - from) / len;
    vec2 normal = vec2(-along.y, along.x);
    if (normal.y < 0.0 || (normal.y == 0.0 && normal.x < 0.0)) normal = -normal;
    vLine = vec3(normal, -dot(normal, from));

    bool isEnd = (gl_VertexID & 1) == 1;
    float touching = greatestDistance(normal);
    float beside = (gl_VertexID >> 1) == 1 ? touching : -touching;
    float beyond = min(kBeyondEnd, 0.5 * len);
    vec2 place = (isEnd ? to + beyond * along : from - beyond * along) + beside * normal;
    vDepth = isEnd ? aTo.z : aFrom.z;
    gl_Position = vec4(place.x / halfSize.x - 1.0, 1.0 - place.y / halfSize.y, 0.5, 1.0);
}
