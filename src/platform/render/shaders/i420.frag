// Y'CbCr 4:2:0, ITU-R BT.709 in limited range, from a finished picture. The target is one byte a texel, as wide as the
// picture and half as high again: its bytes in memory are the planes Y, U and V without gaps.
layout(location = 0) in vec2 vScreen;
layout(location = 0) out float oValue;
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;

const vec3 kLuma = vec3(0.2126, 0.7152, 0.0722);

float luma(vec3 c) { return (16.0 + 219.0 * dot(kLuma, c)) / 255.0; }

// Chroma samples lie on the left pixel of a pair and between its two rows.
vec3 chromaSource(ivec2 at) {
    vec3 sum = vec3(0.0);
    for (int row = 0; row < 2; ++row) {
        ivec2 p = ivec2(at.x * 2, at.y * 2 + row);
        sum += texelFetch(uPicture, ivec2(max(p.x - 1, 0), p.y), 0).rgb + 2.0 * texelFetch(uPicture, p, 0).rgb
            + texelFetch(uPicture, p + ivec2(1, 0), 0).rgb;
    }
    return sum / 8.0;
}

void main() {
    ivec2 size = textureSize(uPicture, 0);
    ivec2 p = ivec2(gl_FragCoord.xy);
    if (p.y < size.y) {
        oValue = luma(texelFetch(uPicture, p, 0).rgb);
        return;
    }
    ivec2 half_ = size / 2;
    int index = (p.y - size.y) * size.x + p.x;
    int plane = half_.x * half_.y;
    bool isSecond = index >= plane;
    int inPlane = isSecond ? index - plane : index;
    vec3 c = chromaSource(ivec2(inPlane % half_.x, inPlane / half_.x));
    float difference = isSecond ? (c.r - dot(kLuma, c)) / 1.5748 : (c.b - dot(kLuma, c)) / 1.8556;
    oValue = (128.0 + 224.0 * difference) / 255.0;
}
