// SPDX-License-Identifier: MIT
#include "ui/layouter/FormPanel.h"

#include "content/StylePresets.h"

#include <utility>

namespace zelvo::ui {

namespace {

constexpr MySlider::Range kDepth{1, 150, 5};
constexpr MySlider::Range kBevel{0, 4, 0.2};

} // namespace

FormPanel::FormPanel(content::TextNodePtr edited, QObject* parent)
    : QObject(parent)
    , depthSlider(tr("Depth"), kDepth)
    , bevelSlider(tr("Bevel"), kBevel)
    , profileToggle({}, [this] { changeBevel(); })
    , fillToggle({}, [this] { changeBevelInnerOuter(); })
    , node(std::move(edited)) {
    const content::TextStylePreset home;
    for (MyButton* const button : {&profileToggle, &fillToggle}) {
        button->unselectedColor = kButtonColor;
        button->selectedColor = kButtonColor;
    }
    depthSlider.defaultValue = home.extrusionDepth;
    depthSlider.setValue(node->extrusionDepth());
    depthSlider.valueChanged = [this](double depth) { node->setExtrusionDepth(depth); };
    bevelSlider.decimals = 1;
    bevelSlider.defaultValue = home.bevelRadius;
    bevelSlider.setValue(node->bevelRadius());
    bevelSlider.valueChanged = [this](double radius) {
        node->setBevelRadius(static_cast<float>(radius));
    };
    refresh();
}

void FormPanel::changeBevel() {
    using enum look::BevelProfile;
    node->setBevelProfile(node->bevelProfile() == linear ? rounded : linear);
    refresh();
}

void FormPanel::changeBevelInnerOuter() {
    using enum look::BevelInnerOuter;
    node->setBevelInnerOuter(node->bevelInnerOuter() == inner ? outer : inner);
    refresh();
}

void FormPanel::refresh() {
    const bool isCurve = node->bevelProfile() == look::BevelProfile::rounded;
    profileToggle.setMySelected(isCurve);
    profileToggle.setFace(
        isCurve ? ButtonFace{.image = "BevelCurveCurve", .title = tr("Curve")}
                : ButtonFace{.image = "BevelCurveLinear", .title = tr("Linear")});
    const bool isSide = node->bevelInnerOuter() == look::BevelInnerOuter::outer;
    fillToggle.setMySelected(isSide);
    fillToggle.setFace(
        isSide ? ButtonFace{.image = "BevelSide", .title = tr("Fill w. Sidecol.")}
               : ButtonFace{.image = "BevelFront", .title = tr("Fill w. Frontcol.")});
}

} // namespace zelvo::ui
