// SPDX-License-Identifier: MIT
#pragma once

#include "content/CharNode.h"
#include "node/Node.h"
#include "platform/foundation/Lifetime.h"
#include "platform/text/LineLayout.h"

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zelvo::foundation {
class SerialQueue;
} // namespace zelvo::foundation

namespace zelvo::content {

class CrashGuard;
struct TextStylePreset;

/// The place of a glyph in a line, in scene units. `y` and `width` are not used yet.
struct TextCoords {
    float x = 0; ///< pen position
    float y = 0; ///< descent and leading of the glyph plus 7, rounded up
    float width = 0;
};

/// A text with one solid for each character, so that letters can move separately. The text is
/// centred on the node's origin. The letters are the children of contentNode, in the order of the
/// characters. A text with an unknown font is set in the fallback font.
///
/// Every change of style rebuilds all letters, except a change of depth alone. A font that crashed
/// the process while letters were built is drawn without a chamfer (see CrashGuard).
class TextNode final : public node::Node {
public:
    struct Options {
        glm::vec3 position{0};
        float scale = 1;
        std::string text{};
        std::string fontName{};
        std::string shortName{};
    };

    [[nodiscard]] static std::shared_ptr<TextNode>
    make(Options options, const node::Surroundings& surroundings);
    TextNode(Key key, Options options, const node::Surroundings& surroundings);
    ~TextNode() override;
    TextNode(const TextNode&) = delete;
    TextNode& operator=(const TextNode&) = delete;

    /// Em, scene units; the apparent size is the rig's scale.
    static constexpr double kFontSize = 94;
    static constexpr double kKerning = -1; ///< initial extra advance between letters, scene units

    const std::string inititalText;

    [[nodiscard]] const std::string& text() const { return text_; }

    [[nodiscard]] const std::string& fontName() const { return fontName_; }

    [[nodiscard]] double bevelRadius() const { return bevelRadius_; }

    [[nodiscard]] double kerning() const { return kerning_; }

    [[nodiscard]] double extrusionDepth() const { return extrusionDepth_; }

    [[nodiscard]] look::BevelProfile bevelProfile() const { return bevelProfile_; }

    [[nodiscard]] look::BevelInnerOuter bevelInnerOuter() const { return bevelInnerOuter_; }

    /// True if the current font is in the list of fonts that crashed the process. Its chamfer is 0
    /// then.
    [[nodiscard]] bool fileSeemsToBeCorrupt() const { return isFontCorrupt; }

    void setText(std::string text);
    void setFontName(std::string wanted);

    /// As setText and setFontName, but outlines that were not needed before are computed on another
    /// thread. Until then the letters stay as they are. Of several calls, the last one counts.
    void setTextSoon(std::string text);
    void setFontNameSoon(std::string wanted);
    /// Does now what setTextSoon and setFontNameSoon have not done yet.
    void settle();

    void setBevelRadius(float radius);
    void setKerning(float kerning);
    void setBevelProfile(look::BevelProfile profile);
    void setBevelInnerOuter(look::BevelInnerOuter fill);
    void setExtrusionDepth(double depth); ///< no rebuild; the minimum depth is 1

    /// Scene units: as long as it is set, a text that would be wider is made smaller, to fit. The present
    /// size is the largest. A size that the user gives ends it. Empty: none, and the size is the largest
    /// again.
    void setMaxWidth(std::optional<double> most);
    [[nodiscard]] std::optional<double> maxWidth() const;
    /// The size without that limit.
    [[nodiscard]] float fullScale() const;

    void applyStyle(const TextStylePreset& preset);
    void updateContent() override;

    [[nodiscard]] std::vector<CharNodePtr> letters() const;

protected:
    [[nodiscard]] geometry::Box layoutBox() const override;

private:
    using Solids = std::map<std::string, std::shared_ptr<scene::SCNText>>; ///< by character

    /// What is to be shown when its outlines are known.
    struct Coming {
        std::optional<std::string> text{};
        std::optional<std::string> fontName{};
        std::unique_ptr<CrashGuard> guard{}; ///< null: no outlines are being computed
    };

    [[nodiscard]] text::TextAttributes attributesWith(const std::string& font) const;
    void prepareComing();
    void buildLetters();
    void makeSolids(const std::vector<std::string>& characters, const text::TextAttributes& style);
    void form(scene::SCNText& solid) const;
    [[nodiscard]] bool isFitted() const;
    void fitWidth();
    void centreLetters(float widthSum, float maxHeight, float advance);
    void updateExtrusion();

    const geometry::BezierPath linearProfile;
    const geometry::BezierPath roundedProfile;
    std::string text_;
    std::string fontName_;
    double bevelRadius_ = 1.8;
    double kerning_ = kKerning;
    double extrusionDepth_ = 24;
    look::BevelProfile bevelProfile_ = look::BevelProfile::linear;
    look::BevelInnerOuter bevelInnerOuter_ = look::BevelInnerOuter::inner;
    std::optional<double> maxWidth_;
    float fullScale_ = 1;
    float fittedScale_ = 1; ///< if the node has another size, the user has given it that
    bool isFontCorrupt = false;
    Solids solids; ///< of the letters; equal letters share one
    text::TextAttributes solidStyle;
    look::BevelProfile solidProfile = look::BevelProfile::linear;
    Coming coming;
    std::shared_ptr<std::atomic<bool>>
        isNewestCancelled; ///< of the outlines; null: there were none
    std::unique_ptr<foundation::SerialQueue> outlineQueue; ///< null until it is needed
    foundation::Lifetime lifetime;
};

using TextNodePtr = std::shared_ptr<TextNode>;

/// Not used by anything yet.
class TextNode2D {};

} // namespace zelvo::content
