// Scales the drawn picture down. Every output pixel is the mean of the area it covers, in linear
// light, which is approximated by the square of the encoded value, so that flat colours stay exact.
layout(location = 0) out vec4 oColor;
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;

void main() {
    vec2 ratio = passNumbers[0].xy; // drawn pixels per output pixel, horizontal and vertical
    vec2 start = floor(gl_FragCoord.xy) * ratio;
    vec2 end = start + ratio;
    ivec2 first = ivec2(floor(start + 1e-3));
    ivec2 last = ivec2(ceil(end - 1e-3)) - 1;
    vec3 sum = vec3(0.0);
    float weights = 0.0;
    int y = first.y;
    do {
        float h = min(end.y, float(y) + 1.0) - max(start.y, float(y));
        int x = first.x;
        do {
            float w = h * (min(end.x, float(x) + 1.0) - max(start.x, float(x)));
            vec3 c = texelFetch(uPicture, ivec2(x, y), 0).rgb;
            sum += w * c * c;
            weights += w;
        } while (++x <= last.x);
    } while (++y <= last.y);
    // ordered dithering (Bayer 1973) instead of plain rounding: gradients do not band
    ivec2 cell = ivec2(gl_FragCoord.xy) & 1;
    float threshold = (float[4](0.0, 2.0, 3.0, 1.0)[cell.y * 2 + cell.x] - 1.5) * 0.25;
    oColor = vec4(sqrt(sum / weights) + threshold / 255.0, 1.0);
}
