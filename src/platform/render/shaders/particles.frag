// Picture and colour are encoded and premultiplied. The light of a glow is that of its encoded
// colour as it stands, so that it looks the same on black as its picture.
layout(location = 0) in vec2 vTexcoord;
layout(location = 1) flat in vec4 vColor;
layout(location = 0) out vec4 oColor;
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;

#include "color.glsl"

void main() {
    vec4 color = texture(uPicture, vTexcoord) * vColor;
#ifdef ADDITIVE
    oColor = vec4(linearFromSRGB(color.rgb), color.a);
#else
    oColor = vec4(linearFromSRGB(color.rgb / max(color.a, 1.0 / 255.0)) * color.a, color.a);
#endif
}
