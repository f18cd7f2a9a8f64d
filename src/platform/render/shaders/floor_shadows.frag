// The shadows on a floor that is left out: what is behind it gets darker, as the floor would.
layout(location = 0) in vec3 vPosition;
layout(location = 1) in vec3 vNormal;
layout(location = 0) out vec4 oKept; // what is drawn already is multiplied by it

#include "floor_level.glsl"
#include "shade_around.glsl"

void main() {
    float share = levelShare(vPosition, normalize(vNormal));
    oKept = vec4(1.0 - share * takenByShadows(), 1.0);
}
