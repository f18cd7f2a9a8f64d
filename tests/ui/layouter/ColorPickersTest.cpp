// SPDX-License-Identifier: MIT
#include "ui/layouter/ColorPickers.h"

#include "shared/Palette.h"
#include "ui/UiFixture.h"
#include "ui/layouter/LayouterMenu.h"

#include <gtest/gtest.h>

#include <optional>

namespace zelvo::ui {
namespace {

class ColorPickersTest : public test::UiTest {};

TEST_F(ColorPickersTest, TheColorPickerColorsTheNodeUntilItIsTakenBack) {
    using image::Color;
    LayouterMenu menu(services);
    menu.setCurrentNodeFromButton(1);
    menu.setCurrentOption(CurrentOption::frontColor);
    auto& strip = *qobject_cast<SimpleColorPicker*>(menu.stripObject());
    AdvancedColorPicker& picker = strip.picker;
    const auto front = [this] { return nodes.textNode2->frontColor(); };
    strip.importButton.click();
    ASSERT_TRUE(picker.isOpen());
    EXPECT_EQ(picker.hex(), "#FFFFFF");
    EXPECT_EQ(picker.huePickerView.image().front(), QColor(Qt::red)) << "white hides no hue";

    picker.huePickerView.slider.moveTo(240);
    EXPECT_EQ(front(), Color::white(1)) << "white has no hue";
    picker.saturationPickerView.slider.moveTo(100);
    EXPECT_EQ(front(), Color::hex(0x0000FF)) << "but the slider keeps it";
    EXPECT_EQ(strip.currentIndex(), -1);
    picker.brightnessPickerView.slider.moveTo(0);
    picker.brightnessPickerView.slider.moveTo(100);
    EXPECT_EQ(front(), Color::hex(0x0000FF)) << "through black and back";
    picker.huePickerView.slider.moveTo(360);
    EXPECT_EQ(front(), Color::hex(0xFF0000));
    EXPECT_EQ(picker.huePickerView.slider.value(), 360) << "red is at both ends";
    EXPECT_EQ(picker.brightnessPickerView.image().back(), QColor(Qt::red));
    EXPECT_EQ(picker.saturationPickerView.image().front(), QColor(Qt::white));

    EXPECT_TRUE(picker.writeHex("e67f19")); // the swatch of this place
    EXPECT_EQ(strip.currentIndex(), 7);
    picker.cancel();
    EXPECT_EQ(front(), Color::white(1));
    EXPECT_EQ(strip.currentIndex(), static_cast<int>(kWhiteIndex));

    strip.importButton.click();
    EXPECT_TRUE(picker.writeHex("#123"));
    picker.keep();
    picker.cancel(); // it is closed
    EXPECT_EQ(front(), Color::hex(0x112233));
    strip.importButton.click();
    EXPECT_EQ(picker.formerShown(), QColor("#112233"));
}

TEST(ColorPicker, ReadsHexadecimalDigitsAndNothingElse) {
    struct Row {
        const char* text;
        std::optional<unsigned> color;
        bool canBecomeOne; ///< by further digits
    };

    // clang-format off
    for (const Row& row : {
        Row{"#1a2B3c",   0x1A2B3C,     true},
        {" FFEE00 ",     0xFFEE00,     true},
        {"#f0a",         0xFF00AA,     true},
        {"",             std::nullopt, true},
        {"#",            std::nullopt, true},
        {"#12345",       std::nullopt, true},
        {"#1234567",     std::nullopt, false},
        {"##123456",     std::nullopt, false},
        {"12345g",       std::nullopt, false},
        {"0x1234",       std::nullopt, false},
        {"+12345",       std::nullopt, false},
        {"#12 456",      std::nullopt, false},
        {"\xD9\xA1\xD9\xA2\xD9\xA3", std::nullopt, false}, // Arabic digits
    }) {
        // clang-format on
        AdvancedColorPicker picker([](const image::Color&) {});
        picker.open(image::Color::hex(0x010203));
        EXPECT_EQ(picker.typeHex(row.text), row.canBecomeOne) << row.text;
        EXPECT_EQ(picker.writeHex(row.text), row.color.has_value()) << row.text;
        EXPECT_EQ(picker.currentColor(), image::Color::hex(row.color.value_or(0x010203)))
            << row.text;
    }
}

TEST(ColorPicker, KeepsTheHueWhileTheColorIsGrey) {
    AdvancedColorPicker picker([](const image::Color&) {});
    picker.open(image::Color::hex(0x0000FF));
    ASSERT_TRUE(picker.writeHex("#808080"));
    EXPECT_NEAR(picker.stackView().front()->currentPart(), 2.0f / 3.0f, 0.01f);
}

TEST(ColorPicker, ThePipetteTakesThePixelBelowThePointer) {
    image::Color told;
    AdvancedColorPicker picker([&](const image::Color& color) { told = color; });
    picker.open(image::Color::white(1));
    QImage stage(4, 2, QImage::Format_RGBA8888_Premultiplied);
    stage.fill(Qt::black);
    stage.setPixelColor(3, 1, QColor("#ABCDEF"));
    stage.setPixelColor(1, 0, QColor("#102030"));
    picker.pipette.button.click();
    picker.pipette.take();
    EXPECT_TRUE(picker.pipette.isOn()) << "there is no picture yet";
    picker.pipette.look(stage);
    picker.pipette.moveTo({1.5, 1}); // beyond the corner
    EXPECT_EQ(picker.pipette.color(), QColor("#ABCDEF"));
    picker.pipette.moveBy(-2, -9);
    EXPECT_EQ(picker.pipette.pixel(), QPoint(1, 0));
    picker.pipette.take();
    EXPECT_EQ(told, image::Color::hex(0x102030));
    EXPECT_FALSE(picker.pipette.isOn());
    EXPECT_TRUE(picker.isOpen());
    picker.cancel();
    EXPECT_EQ(told, image::Color::white(1));
}

} // namespace
} // namespace zelvo::ui
