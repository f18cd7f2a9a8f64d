// Transfer functions.
//
// The scene is drawn in linear light; white is 1. The target's alpha says how much of a colour is
// light of the scene, which display.frag tone maps. The rest are colours that are shown as they are:
// the background and surfaces that no lamp lights. (A blended surface writes its opacity instead,
// and the blend function does the mixing.)

// Brighter light is cut off. That is a thousandth of what the target can hold, so sums do not
// overflow, and it is far beyond where everything becomes white.
const float kBrightest = 64.0;

// IEC 61966-2-1 decoding, a polynomial fitted to the inverse of the function below: colours that are
// decoded and encoded again differ by less than a tenth of an 8-bit step.
vec3 linearFromSRGB(vec3 c) {
    vec3 fitted = (((-0.08533058 * c + 0.47068618) * c + 0.59009182) * c + 0.02345199) * c + 0.0012373;
    return mix(fitted, c * (1.0 / 12.92), lessThan(c, vec3(0.04045)));
}

// IEC 61966-2-1 encoding. The power is fitted by square roots, which cost a tenth of it in
// software. Error at most a tenth of an 8-bit step. c must be in 0 .. 1.
vec3 sRGBFromLinear(vec3 c) {
    vec3 root = sqrt(c);
    vec3 fitted = 0.833755721 * root + 0.298106044 * sqrt(root) - 0.055318022 * c - 0.076903131;
    return mix(fitted, 12.92 * c, lessThan(c, vec3(0.0031308)));
}
