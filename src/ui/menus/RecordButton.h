// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "ui/controls/MyButton.h"

#include <QtQml/qqmlregistration.h>

namespace zelvo::model {
class Model;
}

namespace zelvo::ui {

/// The start button, which also shows the time: it counts down in the count-in and then up. It does
/// not change while a movie is written.
class RecordButton final : public zelvo::ui::MyLabelButton {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    RecordButton(model::Model& given, foundation::RunLoop& loop, std::function<void()> targetFunc);

private:
    void showTime(double time);
    void showRecording(bool isRecording);

    model::Model& model;
    foundation::RunLoop& runLoop;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
