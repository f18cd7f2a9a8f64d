// Transfer functions, tone map and dither.

// IEC 61966-2-1 decoding, a polynomial fit (Chilliant 2012, "sRGB approximations for HLSL"), error
// at most 0.002.
vec3 linearFromSRGB(vec3 c) {
    return c * (c * (c * 0.305306011 + 0.682171111) + 0.012522878);
}

// IEC 61966-2-1 encoding. The power is fitted by square roots, which cost a tenth of it in
// software. Error at most a tenth of an 8-bit step. c must be in 0 .. 1.
vec3 sRGBFromLinear(vec3 c) {
    vec3 root = sqrt(c);
    vec3 fitted = 0.833755721 * root + 0.298106044 * sqrt(root) - 0.055318022 * c - 0.076903131;
    return mix(fitted, 12.92 * c, lessThan(c, vec3(0.0031308)));
}

// Khronos Group 2024, "PBR Neutral Tone Mapper". Colours up to 0.8 keep their hue and saturation;
// brighter ones move towards white.
vec3 toneMapped(vec3 c) {
    const float kStart = 0.8 - 0.04;
    const float kDesaturation = 0.15;
    float least = min(c.r, min(c.g, c.b));
    c -= least < 0.08 ? least - 6.25 * least * least : 0.04;
    float peak = max(c.r, max(c.g, c.b));
    const float d = 1.0 - kStart;
    float newPeak = 1.0 - d * d / (max(peak, kStart) + d - kStart);
    float grey = 1.0 - 1.0 / (kDesaturation * (peak - newPeak) + 1.0);
    vec3 bright = mix(c * (newPeak / max(peak, kStart)), vec3(newPeak), grey);
    return peak < kStart ? c : bright;
}

// Jimenez 2014, "Next Generation Post Processing in Call of Duty: Advanced Warfare": interleaved gradient noise.
float interleavedNoise(vec2 pixel) {
    return fract(52.9829189 * fract(dot(pixel, vec2(0.06711056, 0.00583715))));
}

// Adds noise of up to half an 8-bit step, so that soft gradients do not band.
vec3 dithered(vec3 encoded) {
    return encoded + (interleavedNoise(gl_FragCoord.xy) - 0.5) / 255.0;
}

// Exposes, tone maps, encodes and dithers a linear colour.
vec3 finished(vec3 color) {
    color = max(color * frame.y, vec3(0.0));
#ifdef TONE_MAP
    color = toneMapped(color);
#endif
    return dithered(sRGBFromLinear(min(color, vec3(1.0))));
}
