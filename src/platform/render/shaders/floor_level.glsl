// How much a place counts as the floor: not where a curved backdrop leaves it. A floor that is left
// out of the picture must not show where it ends.
// passNumbers[0]: z height of the floor, w opacity. passNumbers[1]: its ends: left, back, right, front.
const float kSoftEnd = 260.0; // scene units

float levelShare(vec3 position, vec3 normal) {
    float share = smoothstep(0.94, 0.995, normal.y) * passNumbers[0].w
        * clamp(1.0 - (abs(position.y - passNumbers[0].z) - 1.0) * 0.2, 0.0, 1.0);
#ifdef LEFT_OUT
    vec2 inside = min(position.xz - passNumbers[1].xy, passNumbers[1].zw - position.xz);
    share *= smoothstep(0.0, kSoftEnd, min(inside.x, inside.y));
#endif
    return share;
}
