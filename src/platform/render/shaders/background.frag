// Draws a panorama as the background. Its colours are shown as they are. The pictures are
// premultiplied, so black shows through transparent pixels.
layout(location = 0) in vec3 vDirection;
layout(location = 0) out vec4 oColor;

#include "color.glsl"
#include "directions.glsl"

#ifdef CUBE
layout(binding = UNIT_PICTURE) uniform samplerCube uPicture;
// A cube's faces use a left-handed space: the +z face is seen by a camera that looks along -z.
vec3 pictureColor() { return texture(uPicture, vDirection * vec3(1.0, 1.0, -1.0)).rgb; }
#else
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
vec3 pictureColor() { return textureLod(uPicture, equirectangular(normalize(vDirection)), 0.0).rgb; }
#endif

void main() { oColor = vec4(linearFromSRGB(pictureColor()), 0.0); }
