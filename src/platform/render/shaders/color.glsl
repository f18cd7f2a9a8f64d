// Transfer functions, tone map and dither.

// IEC 61966-2-1, a polynomial fit of decoding (Chilliant 2012, "sRGB approximations for HLSL"); within 0.002.
vec3 linearFromSRGB(vec3 c) {
    return c * (c * (c * 0.305306011 + 0.682171111) + 0.012522878);
}

// IEC 61966-2-1, the power fitted by roots, which cost a tenth of it in software: within a tenth of an 8-bit step.
// Wants c from 0 to 1.
vec3 sRGBFromLinear(vec3 c) {
    vec3 root = sqrt(c);
    vec3 fitted = 0.833755721 * root + 0.298106044 * sqrt(root) - 0.055318022 * c - 0.076903131;
    return mix(fitted, 12.92 * c, lessThan(c, vec3(0.0031308)));
}

// Khronos Group 2024, "PBR Neutral Tone Mapper": colours up to 0.8 keep their hue and saturation, what is brighter is
// drawn in towards white.
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

// Half a step of 8 bits to either side, so that soft gradients do not band.
vec3 dithered(vec3 encoded) {
    return encoded + (interleavedNoise(gl_FragCoord.xy) - 0.5) / 255.0;
}

// Colour as the target holds it.
vec3 finished(vec3 color) {
    color = max(color * frame.y, vec3(0.0));
#ifdef TONE_MAP
    color = toneMapped(color);
#endif
    return dithered(sRGBFromLinear(min(color, vec3(1.0))));
}
