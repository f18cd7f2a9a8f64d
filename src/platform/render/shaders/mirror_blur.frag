// Blurs the mirror image. With e the height of the eye and h that of the mirrored thing, its
// distance behind the floor takes the share h / (e + h) of the whole way, and a rough floor spreads
// it by as much on screen. Up and down it is spread more, as on a wet road.
// passNumbers[0]: y the widest radius as a share of the picture's height, z the eye's height, w lookups.
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture; // with mipmaps, as uHeights
layout(binding = UNIT_DEPTH) uniform sampler2D uHeights;
layout(location = 0) out vec4 oColor;

const int kSearchSamples = 3;
const float kSideways = 0.45;
// The gap between lookups, as a share of the radius over the root of their number. It is wider up and
// down; a smaller share leaves streaks beside what is thin and bright.
const float kGap = 0.8;
const float kHighest = 512.0; // see mirror_heights.frag
const float kBrightest = 2.0; // the result is kept in 8 bits; see floor.frag
const float kDimmed = 0.5; // with it, nothing is brighter than kBrightest
const float kSearch = 0.4; // of the widest radius
// Vogel 1979, "A better way to construct the sunflower head"
const mat2 kGoldenTurn = mat2(-0.7373688, 0.6754903, -0.6754903, -0.7373688);

void main() {
    vec2 uv = gl_FragCoord.xy / passFrame.yz;
    vec2 shape = vec2(kSideways * passFrame.z / passFrame.y, 1.0);
    float widest = passNumbers[0].y;
    float searched = max(widest * kSearch, 1.0 / passFrame.z);
    float level = log2(max(searched * float(textureSize(uHeights, 0).y), 1.0));
    vec2 direction = vec2(1.0, 0.0);
    vec2 found = vec2(0.0);
    for (int i = 0; i < kSearchSamples; ++i) {
        vec2 offset = direction * shape * (searched * sqrt((float(i) + 0.5) / float(kSearchSamples)));
        found += textureLod(uHeights, uv + offset, level).rg;
        direction = kGoldenTurn * direction;
    }
    float height = kHighest * found.y / max(found.x, 1e-3);
    float radius = max(widest * height / (passNumbers[0].z + height), 0.5 / passFrame.z);

    // Where nothing is mirrored, the loop ends after one round.
    float samples = passNumbers[0].w;
    int count = found.x > 0.004 ? int(samples) : 0;
    level = log2(max(inversesqrt(samples) * radius * kGap * passFrame.z, 1.0));
    vec3 sum = vec3(0.0);
    int i = 0;
    do {
        vec2 offset = direction * shape * (radius * sqrt((float(i) + 0.5) / samples));
        vec3 light = textureLod(uPicture, uv + offset, level).rgb;
        // What is far brighter than white must not outshine the thing that is mirrored.
        sum += light / (1.0 + kDimmed * max(light.r, max(light.g, light.b)));
        direction = kGoldenTurn * direction;
    } while (++i < count);
    if (count == 0) sum = vec3(0.0);
    oColor = vec4(sqrt(sum * (1.0 / (kBrightest * samples))), 1.0);
}
