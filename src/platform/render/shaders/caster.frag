// A caster in a shadow map; see shadows.glsl.
layout(location = 0) out vec4 oCaster;

const float kSlopes = 1.5; // moves tilted surfaces away from the light against self-shadowing

void main() {
    float depth = max(gl_FragCoord.z - kSlopes * fwidth(gl_FragCoord.z), 0.0);
    oCaster = diffuse.a * vec4(1.0, depth, 0.0, 0.0);
}
