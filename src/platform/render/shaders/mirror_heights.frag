// How high above the floor the mirrored things are: red how much of the pixel they fill, green that
// times their height. Lights that only add to the picture have no depth and count as far away.
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
layout(binding = UNIT_DEPTH) uniform sampler2D uDepth;
layout(location = 0) out vec4 oHeight;

const float kFarAway = 300.0;
const float kHighest = 512.0; // is written as 1

void main() {
    vec2 uv = gl_FragCoord.xy / passFrame.yz;
    float depth = textureLod(uDepth, uv, 0.0).r;
    vec4 color = textureLod(uPicture, uv, 0.0);
    vec4 place = passDirections * vec4(uv.x * 2.0 - 1.0, 1.0 - uv.y * 2.0, depth, 1.0);
    float height = depth > 0.0 ? max(place.y / place.w - passNumbers[0].x, 0.0) : kFarAway;
    float filled = depth > 0.0 ? 1.0 : min(max(color.r, max(color.g, color.b)), 1.0);
    oHeight = vec4(filled, filled * min(height / kHighest, 1.0), 0.0, 0.0);
}
