// SPDX-License-Identifier: MIT
#include "ui/layouter/FormPanel.h"

#include <utility>

namespace zelvo::ui {

namespace {

constexpr MySlider::Range kDepth{1, 150, 5};
constexpr MySlider::Range kBevel{0, 4, 0.2};
constexpr double kHomeDepth = 24;
constexpr double kHomeBevel = 1.8;

} // namespace

FormPanel::FormPanel(content::TextNodePtr edited, QObject* parent)
    : QObject(parent)
    , depthSlider(tr("Depth"), kDepth)
    , bevelSlider(tr("Bevel"), kBevel)
    , profileToggle({}, [this] { changeBevel(); })
    , fillToggle({}, [this] { changeBevelInnerOuter(); })
    , node(std::move(edited)) {
    for (MyButton* const button : {&profileToggle, &fillToggle}) {
        button->unselectedColor = kButtonColor;
        button->selectedColor = kButtonColor;
    }
    depthSlider.defaultValue = kHomeDepth;
    depthSlider.setValue(node->extrusionDepth());
    depthSlider.valueChanged = [this](double depth) { node->setExtrusionDepth(depth); };
    bevelSlider.decimals = 1;
    bevelSlider.defaultValue = kHomeBevel;
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
