// From directions to places in a picture.

// Equirectangular: the middle column looks along -z, columns go to the right, rows go down.
vec2 equirectangular(vec3 d) {
    return vec2(atan(d.x, -d.z) * 0.15915494 + 0.5, acos(clamp(d.y, -1.0, 1.0)) * 0.31830989);
}

// As above, but u does not jump between neighbouring pixels (Tarini 2012, "Cylindrical and Toroidal
// Parameterizations Without Vertex Seams"). The picture must repeat in u.
vec2 equirectangularWithoutSeam(vec3 d) {
    vec2 uv = equirectangular(d);
    float shifted = fract(uv.x + 0.5) - 0.5;
    return vec2(fwidth(uv.x) <= fwidth(shifted) + 1e-4 ? uv.x : shifted, uv.y);
}

// Octahedral map with +y in the middle, 0 .. 1 (Cigolle et al. 2014, "A Survey of Efficient
// Representations for Independent Unit Vectors").
vec2 octahedral(vec3 d) {
    d /= abs(d.x) + abs(d.y) + abs(d.z);
    vec2 folded = (1.0 - abs(d.zx)) * vec2(d.x >= 0.0 ? 1.0 : -1.0, d.z >= 0.0 ? 1.0 : -1.0);
    return (d.y < 0.0 ? folded : d.xz) * 0.5 + 0.5;
}
