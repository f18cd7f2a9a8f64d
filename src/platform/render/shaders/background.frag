// What is seen where nothing stands: a picture all around, drawn as it is, neither lit nor tone mapped. Pictures with
// holes lie premultiplied, so that black shows through.
layout(location = 0) in vec3 vDirection;
layout(location = 0) out vec4 oColor;

#include "directions.glsl"

#ifdef CUBE
layout(binding = UNIT_PICTURE) uniform samplerCube uPicture;
// A cube's faces are painted in a left-handed space: its +z face lies ahead of a camera that looks along -z.
vec3 pictureColor() { return texture(uPicture, vDirection * vec3(1.0, 1.0, -1.0)).rgb; }
#else
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
vec3 pictureColor() { return textureLod(uPicture, equirectangular(normalize(vDirection)), 0.0).rgb; }
#endif

void main() { oColor = vec4(pictureColor(), 1.0); }
