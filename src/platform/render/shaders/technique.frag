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
    for (int y = first.y; y < last.y; ++y) {
        for (int x = first.x; x < last.x; ++x)
            sum += texelFetch(uPicture, ivec2(x, y), 0).rgb;
    }
    ivec2 count = last - first;
    return sum / float(count.x * count.y);
}

#elif defined(growFragmentShader)
vec3 effect() { return textureLod(uPicture, gl_FragCoord.xy / u_size, 0.0).rgb; }

#elif defined(repeatFragmentShader)
// Repeats the smaller picture to the right and down.
vec3 effect() { return texelFetch(uPicture, here() % pictureSize(), 0).rgb; }

#elif defined(gaussFragmentShader)
// Gaussian blur: thirteen samples, half a standard deviation apart. radius, directionX, directionY:
// see TechniquePasses.
vec3 effect() {
    vec2 size = vec2(pictureSize());
    vec2 stride = 0.5 * radius * size.y * vec2(directionX, directionY) / size;
    vec2 middle = gl_FragCoord.xy / size;
    vec3 sum = textureLod(uPicture, middle, 0.0).rgb;
    float weights = 1.0;
    for (int i = 1; i <= 6; ++i) {
        float weight = exp(-0.125 * float(i * i));
        vec2 offset = stride * float(i);
        sum += weight * (textureLod(uPicture, middle + offset, 0.0).rgb + textureLod(uPicture, middle - offset, 0.0).rgb);
        weights += 2.0 * weight;
    }
    return sum / weights;
}
#endif

void main() { oColor = vec4(effect(), 1.0); }
