// Writes depth only. A half-faded caster leaves out pixels in a fixed pattern; the soft edge of the
// shadow turns this into a half shadow.
#ifdef SCREEN_DOOR
const float kThresholds[16] = float[16](
    0.0, 8.0, 2.0, 10.0, 12.0, 4.0, 14.0, 6.0, 3.0, 11.0, 1.0, 9.0, 15.0, 7.0, 13.0, 5.0);

void main() {
    ivec2 cell = ivec2(gl_FragCoord.xy) & 3;
    if (diffuse.a < (kThresholds[cell.y * 4 + cell.x] + 0.5) / 16.0) discard;
}
#else
void main() {}
#endif
