// Collects, for each pixel, the circles of confusion that reach it. A nearer point blurs over sharp
// objects behind it; a farther point does not blur over sharp objects in front of it.
layout(location = 0) out vec4 oColor;
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
#ifdef MULTISAMPLED
layout(binding = UNIT_DEPTH) uniform sampler2DMS uDepth; // one of the samples is enough
#else
layout(binding = UNIT_DEPTH) uniform sampler2D uDepth;
#endif

// x near times far, y far minus near, z near (planes), w largest radius in pixels
#define LENS passNumbers[0]
// x radius of points infinitely far away, in pixels; y focus distance
#define FOCUS passNumbers[1]

const int kTaps = 64;
const float kGoldenAngle = 2.39996323;

float distanceAt(ivec2 p) { return LENS.x / (texelFetch(uDepth, p, 0).r * LENS.y + LENS.z); }
float radiusAt(float d) { return min(FOCUS.x * abs(d - FOCUS.y) / d, LENS.w); }

// The disc is averaged in linear light, approximated by the square of the encoded value.
vec3 squared(ivec2 p) {
    vec3 c = texelFetch(uPicture, p, 0).rgb;
    return c * c;
}

void main() {
    ivec2 here = ivec2(gl_FragCoord.xy);
    ivec2 last = textureSize(uPicture, 0) - 1;
    float middle = distanceAt(here);
    float ownRadius = radiusAt(middle);
    vec3 sum = squared(here);
    float weights = 1.0;
    // Vogel 1979: the points of a sunflower cover a disc evenly.
    for (int i = 0; i < kTaps; ++i) {
        float reach = LENS.w * sqrt((float(i) + 0.5) / float(kTaps));
        float angle = float(i) * kGoldenAngle;
        ivec2 p = clamp(here + ivec2(round(reach * vec2(cos(angle), sin(angle)))), ivec2(0), last);
        float d = distanceAt(p);
        float radius = d > middle ? min(radiusAt(d), ownRadius) : radiusAt(d);
        float weight = clamp(radius - reach + 0.5, 0.0, 1.0);
        sum += weight * squared(p);
        weights += weight;
    }
    oColor = vec4(sqrt(sum / weights), 1.0);
}
