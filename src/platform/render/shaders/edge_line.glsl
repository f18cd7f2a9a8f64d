// A line through a pixel: its unit normal (x, y), with y >= 0, and the signed distance from it to the
// middle of the pixel, in pixels. As two numbers of 8 bits: the angle, and the distance, or 0 if there
// is no line.
const float kHalfTurn = 3.14159265;
const float kFarthest = 0.75; // no line that is farther away touches the pixel

vec2 lineCode(vec3 line) {
    float turn = floor(256.0 * atan(line.y, line.x) / kHalfTurn + 0.5);
    // A half turn is rounded to none. The normal is the opposite one then.
    bool isTurned = turn > 255.5;
    float distance = isTurned ? -line.z : line.z;
    return vec2(isTurned ? 0.0 : turn, 1.0 + 127.0 * (distance / kFarthest + 1.0)) / 255.0;
}

bool hasLine(vec2 code) { return code.y > 0.5 / 255.0; }

vec3 lineOf(vec2 code) {
    float angle = code.x * (255.0 / 256.0) * kHalfTurn;
    return vec3(cos(angle), sin(angle), ((code.y * 255.0 - 1.0) / 127.0 - 1.0) * kFarthest);
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
