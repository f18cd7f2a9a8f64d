// The fragment functions of the techniques, chosen by a define with their name. Lengths are
// fractions of the picture's height, so that all sizes look the same.
layout(location = 0) out vec4 oColor;
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
#define u_time passFrame.x
#define u_size passFrame.yz // size of the target in pixels

const float kTurn = 6.2831853;

ivec2 here() { return ivec2(gl_FragCoord.xy); }
ivec2 pictureSize() { return textureSize(uPicture, 0); }
vec3 fetch(int x, int y) { return texelFetch(uPicture, ivec2(clamp(x, 0, pictureSize().x - 1), y), 0).rgb; }

#if defined(invertFragmentShader)
vec3 effect() { return 1.0 - texelFetch(uPicture, here(), 0).rgb; }

#elif defined(exposureFragmentShader)
// One and a half stops brighter (encoded values grow by the square root). Values above 1 spill into
// the other channels, as in overexposed film.
vec3 effect() {
    vec3 color = texelFetch(uPicture, here(), 0).rgb * 1.6818;
    vec3 over = max(color - 1.0, 0.0);
    return color + 0.5 * dot(over, vec3(1.0));
}

#elif defined(colorShiftFragmentShader)
// Red and blue move apart and back together.
vec3 effect() {
    ivec2 p = here();
    int shift = int(round(float(pictureSize().y) * (0.010 + 0.005 * sin(kTurn * 0.8 * u_time))));
    return vec3(fetch(p.x - shift, p.y).r, fetch(p.x, p.y).g, fetch(p.x + shift, p.y).b);
}

#elif defined(glitchFragmentShader)
// Changes twelve times a second: some bands of rows are moved sideways with split channels. Fine
// lines lie over everything.
uint mixed(uint v) {
    v ^= v >> 16;
    v *= 0x7FEB352DU;
    v ^= v >> 15;
    v *= 0x846CA68BU;
    return v ^ (v >> 16);
}
float random(uint a, uint b) { return float(mixed(a * 747796405U + mixed(b)) >> 8) / 16777216.0; }

vec3 effect() {
    ivec2 p = here();
    float height = float(pictureSize().y);
    float y = float(p.y) / height;
    uint moment = uint(floor(max(u_time, 0.0) * 12.0 + 1e-3));
    // bands of different heights: some coarse bands are divided
    uint coarse = uint(y * 9.0);
    uint band = random(coarse, moment + 77U) < 0.5 ? coarse : 100U + uint(y * 45.0);
    float torn = step(0.62, random(band, moment));
    float reach = random(band + 31U, moment) - 0.5;
    int tear = int(round(height * 0.22 * torn * reach));
    int split = int(round(height * (0.004 + 0.014 * torn)));
    vec3 color = vec3(fetch(p.x + tear - split, p.y).r, fetch(p.x + tear, p.y).g, fetch(p.x + tear + split, p.y).b);
    float line = fract(y * 180.0) < 0.5 ? 1.0 : 0.86;
    return color * line + 0.06 * torn * random(band, moment + 5U);
}

#elif defined(waveFragmentShader)
// The whole picture swings sideways and, less, up and down. It is enlarged a little so that its
// edges stay outside. Amplitude, wavelength, speed: see TechniquePasses.
vec3 effect() {
    vec2 size = vec2(pictureSize());
    vec2 p = gl_FragCoord.xy / size.y;
    vec2 middle = 0.5 * size / size.y;
    vec2 phase = kTurn * (p.yx / vec2(wavelength, 1.6 * wavelength) - speed * u_time * vec2(1.0, 0.7));
    vec2 shift = amplitude * vec2(sin(phase.x), 0.6 * sin(phase.y));
    p = middle + (p - middle) * (1.0 - 2.0 * amplitude) + shift;
    return textureLod(uPicture, p * size.y / size, 0.0).rgb;
}

#elif defined(shrinkFragmentShader)
// The mean of the source pixels that a pixel of the smaller picture covers.
vec3 effect() {
    vec2 ratio = vec2(pictureSize()) / u_size;
    ivec2 first = ivec2(floor(floor(gl_FragCoord.xy) * ratio + 1e-3));
    ivec2 last = min(max(ivec2(floor((floor(gl_FragCoord.xy) + 1.0) * ratio + 1e-3)), first + 1), pictureSize());
    vec3 sum = vec3(0.0);
    int y = first.y;
    do {
        int x = first.x;
        do
            sum += texelFetch(uPicture, ivec2(x, y), 0).rgb;
        while (++x < last.x);
    } while (++y < last.y);
    ivec2 count = last - first;
    return sum / float(count.x * count.y);
}

#elif defined(growFragmentShader)
// Cubic B-spline from four bilinear lookups (Sigg and Hadwiger 2005, "Fast Third-Order Texture
// Filtering"): bilinear growth alone shows a grid in soft gradients. Noise hides the steps of 8 bits.
vec3 effect() {
    vec2 size = vec2(pictureSize());
    vec2 p = gl_FragCoord.xy / u_size * size - 0.5;
    vec2 f = fract(p);
    vec2 f2 = f * f;
    vec2 w0 = (1.0 - f) * (1.0 - f) * (1.0 - f) / 6.0;
    vec2 w1 = (4.0 - 6.0 * f2 + 3.0 * f2 * f) / 6.0;
    vec2 w3 = f2 * f / 6.0;
    vec2 w2 = 1.0 - w0 - w1 - w3;
    vec4 g = vec4(w0 + w1, w2 + w3);
    vec4 at = vec4(floor(p) - 0.5 + w1 / g.xy, floor(p) + 1.5 + w3 / g.zw) / size.xyxy;
    vec3 low = g.x * textureLod(uPicture, at.xy, 0.0).rgb + g.z * textureLod(uPicture, at.zy, 0.0).rgb;
    vec3 high = g.x * textureLod(uPicture, at.xw, 0.0).rgb + g.z * textureLod(uPicture, at.zw, 0.0).rgb;
    float noise = fract(52.9829189 * fract(dot(gl_FragCoord.xy, vec2(0.06711056, 0.00583715)))) - 0.5;
    return g.y * low + g.w * high + noise / 255.0;
}

#elif defined(repeatFragmentShader)
// Repeats the smaller picture to the right and down.
vec3 effect() { return texelFetch(uPicture, here() % pictureSize(), 0).rgb; }

#elif defined(gaussFragmentShader)
// Gaussian blur to three standard deviations. Each lookup takes two pixels at once, from between
// them. radius (the standard deviation), directionX, directionY: see the technique's file.
vec3 effect() {
    vec2 size = vec2(pictureSize());
    vec2 stride = vec2(directionX, directionY) / size;
    vec2 middle = gl_FragCoord.xy / size;
    float narrowness = 0.5 / pow(max(radius * size.y, 0.5), 2.0);
    vec3 sum = textureLod(uPicture, middle, 0.0).rgb;
    float weights = 1.0;
    int reach = int(ceil(3.0 * radius * size.y));
    for (int i = 1; i <= reach; i += 2) {
        float near = exp(-narrowness * float(i * i));
        float far = exp(-narrowness * float((i + 1) * (i + 1)));
        vec2 offset = stride * (float(i) + far / (near + far));
        sum += (near + far) * (textureLod(uPicture, middle + offset, 0.0).rgb + textureLod(uPicture, middle - offset, 0.0).rgb);
        weights += 2.0 * (near + far);
    }
    return sum / weights;
}
#endif

void main() { oColor = vec4(effect(), 1.0); }
