// Picture and colour are premultiplied.
layout(location = 0) in vec2 vTexcoord;
layout(location = 1) flat in vec4 vColor;
layout(location = 0) out vec4 oColor;
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;

void main() { oColor = texture(uPicture, vTexcoord) * vColor; }
