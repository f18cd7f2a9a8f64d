// A line through a pixel: its unit normal (x, y), with y >= 0, and the signed distance from it to the
// middle of the pixel, in pixels. As two numbers of 8 bits: the direction, and the distance, or 0 if
// there is no line. The direction is where the normal meets the diamond |x| + y = 1: no angle function is
// needed to read it.
const float kFarthest = 0.75; // no line that is farther away touches the pixel

vec2 lineCode(vec3 line) {
    float across = line.x / (abs(line.x) + line.y);
    return (127.0 * vec2(across, line.z / kFarthest) + vec2(127.0, 128.0)) / 255.0;
}

bool hasLine(vec2 code) { return code.y > 0.5 / 255.0; }

vec3 lineOf(vec2 code) {
    vec2 read = (code * 255.0 - vec2(127.0, 128.0)) / 127.0;
    return vec3(normalize(vec2(read.x, 1.0 - abs(read.x))), read.y * kFarthest);
}

// The places of the four samples, from the pixel's middle.
const vec4 kAcross = vec4(-0.125, 0.375, -0.375, 0.125);
const vec4 kDown = vec4(-0.375, -0.125, 0.125, 0.375);

// The signed distances of the samples from the line.
vec4 distancesFrom(vec3 line) { return line.z + kAcross * line.x + kDown * line.y; }

// A pixel takes in four squares of half its size around the samples, as in a frame that is drawn many
// times, each time shifted by up to a quarter of a pixel. So these reach an eighth beyond it.
const float kSquare = 0.5;

// A line with this normal touches the pixel if it is not farther from its middle.
float greatestDistance(vec2 normal) {
    vec4 corners = abs(kAcross * normal.x + kDown * normal.y);
    return max(max(corners.x, corners.y), max(corners.z, corners.w)) +
           0.5 * kSquare * (abs(normal.x) + abs(normal.y));
}
