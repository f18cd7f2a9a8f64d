// Darkens a surface by the shadows on it.
layout(location = 0) out vec4 oKept; // what is drawn already is multiplied by it

#include "shade_around.glsl"

void main() { oKept = vec4(1.0 - takenByShadows(), 1.0); }
