// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "ui/audio/AudioImporter.h"
#include "ui/audio/SongBeats.h"
#include "ui/controls/CameraGestures.h"
#include "ui/controls/GestureDelegate.h"
#include "ui/controls/MyButton.h"
#include "ui/controls/Services.h"
#include "ui/controls/ValueLabel.h"
#include "ui/document/DocumentController.h"
#include "ui/imports/ObjectImporter.h"
#include "ui/imports/ObjectLoading.h"
#include "ui/imports/PictureImporter.h"
#include "ui/main/FileSystem.h"
#include "ui/main/Guidance.h"
#include "ui/main/Help.h"
#include "ui/main/IdleTimer.h"
#include "ui/main/MainMenu.h"
#include "ui/main/Stage.h"
#include "ui/menus/ControlMenu.h"
#include "ui/menus/SpeedViewController.h"
#include "ui/screens/BlurCover.h"
#include "ui/screens/ProgressView.h"
#include "ui/screens/Visualizer.h"
#include "ui/timeline/TimelineController.h"

#include <QObject>
#include <QSizeF>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace zelvo::ui {

class AudioViewController;
class LayouterMenu;
class VideoAlertViewController;

/// The main screen: the stage, the bar above it, and one of two panels below it. A panel is built
/// anew on every switch; switching stops a run.
///
///     ┌ mainMenu  controlMenu ─────────────────── shareButton ┐  topHeight
///     │                        stage                          │
///     │ speedViewController                                   │
///     │ timeline, over the ActionsMenu                        │
///     └ panel: LayouterMenu or ActionsMenu ───────────────────┘  bottomHeight
///
/// Other screens cover all of it, one at a time.
class MainViewController final : public QObject, private GestureDelegate {
    Q_OBJECT
    Q_MOC_INCLUDE("ui/controls/Alerts.h")
    Q_MOC_INCLUDE("ui/menus/VideoAlertViewController.h")
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::MainMenu* mainMenu READ mainMenuObject CONSTANT)
    Q_PROPERTY(zelvo::ui::ControlMenu* controlMenu READ controlMenuObject CONSTANT)
    Q_PROPERTY(zelvo::ui::SpeedViewController* speedViewController READ speedObject CONSTANT)
    Q_PROPERTY(zelvo::ui::ProgressView* progressView READ progressObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* shareButton READ shareObject CONSTANT)
    Q_PROPERTY(double shareAlpha READ shareAlpha NOTIFY editingChanged)
    Q_PROPERTY(zelvo::ui::Stage* stage READ stageObject CONSTANT)
    Q_PROPERTY(double sceneAlpha READ sceneAlpha NOTIFY sceneAlphaChanged)
    Q_PROPERTY(int sceneFadeMilliseconds READ sceneFadeMilliseconds NOTIFY sceneAlphaChanged)
    Q_PROPERTY(double topHeight READ topHeight CONSTANT)
    Q_PROPERTY(double bottomHeight READ bottomHeight CONSTANT)
    Q_PROPERTY(QObject* panel READ panel NOTIFY panelChanged)
    Q_PROPERTY(QString panelView READ panelView NOTIFY panelChanged)
    Q_PROPERTY(QObject* screen READ screen NOTIFY screenChanged)
    Q_PROPERTY(QString screenView READ screenView NOTIFY screenChanged)
    Q_PROPERTY(zelvo::ui::VideoAlertViewController* hint READ hint NOTIFY hintChanged)
    Q_PROPERTY(zelvo::ui::Alerts* alerts READ alertsObject CONSTANT)
    Q_PROPERTY(zelvo::ui::ValueLabel* valueLabel READ valueLabelObject CONSTANT)
    Q_PROPERTY(zelvo::ui::BlurCover* blurCover READ blurCoverObject CONSTANT)
    Q_PROPERTY(zelvo::ui::ObjectLoading* loading READ loadingObject CONSTANT)
    Q_PROPERTY(zelvo::ui::Visualizer* visualizer READ visualizerObject CONSTANT)
    Q_PROPERTY(zelvo::ui::DocumentController* document READ documentObject CONSTANT)
    Q_PROPERTY(zelvo::ui::Help* help READ helpObject CONSTANT)
    Q_PROPERTY(zelvo::ui::Guidance* guidance READ guidanceObject CONSTANT)
    Q_PROPERTY(zelvo::ui::TimelineController* timeline READ timelineObject CONSTANT)

public:
    static constexpr double kFadeDelay = 0.8;    ///< seconds until the stage appears
    static constexpr double kFadeDuration = 1.9; ///< length of the fade

    explicit MainViewController(const Services& given);
    ~MainViewController() override;
    MainViewController(const MainViewController&) = delete;
    MainViewController& operator=(const MainViewController&) = delete;

private:
    Services services; // first, because other members are built from it

public:
    MyButton shareButton;
    MainMenu mainMenu;
    ControlMenu controlMenu;
    SpeedViewController speedViewController;
    DocumentController document;
    Help help;
    Guidance guidance;
    Stage stage;
    /// Of the current panel; null: gestures are ignored.
    GestureDelegate* gestureDelegate = nullptr;

    Q_INVOKABLE void showAnim();
    Q_INVOKABLE void showLayouterMenu();
    /// Opens the sheet before an export, or says what is missing. Does nothing if the button is disabled.
    Q_INVOKABLE void share();
    void shareAction();
    /// Recording and export are only possible while the catalogue is shown.
    void setEditing(bool enabled);
    /// Opens the screen of imported fonts for the style panel.
    void showFontImport();
    /// Opens the screen of imported objects for the style panel.
    void showObjectImport();
    /// Opens the list of albums for the audio editor. "Documents" there opens the editor's own choice.
    void showMusicLibrary(AudioViewController& editor);
    /// Whether the program has accepted the file.
    Q_INVOKABLE bool openURL(const QUrl& url);

    /// Opens files that belong together, such as an object and its textures.
    bool open(const std::vector<std::filesystem::path>& given) { return files.open(given); }

    /// Opens what was dropped or copied: files or a picture. Whether there was any. While imported
    /// objects are listed, files go into the list.
    bool open(const QMimeData& data);

    /// Opens what is on the clipboard.
    Q_INVOKABLE void paste();
    /// Shows on the stage where the thing would go that is being dragged over the window.
    void showOffer(Offer kind);

    /// The window's size in device-independent pixels.
    Q_INVOKABLE void setViewSize(QSizeF size) { viewSize = size; }

    Q_INVOKABLE void toggleVisualizer() { visualizer.toggle(); }

    [[nodiscard]] QObject* panel() const { return currentBottomViewController.get(); }

    [[nodiscard]] QString panelView() const { return panelView_; }

    [[nodiscard]] QObject* screen() const { return screen_.get(); }

    [[nodiscard]] QString screenView() const { return screenView_; }

    [[nodiscard]] VideoAlertViewController* hint() const;

    [[nodiscard]] double shareAlpha() const { return shareButton.isEnabled() ? 1.0 : 0.1; }

    /// The target of the stage's opacity.
    [[nodiscard]] double sceneAlpha() const { return sceneAlpha_; }

    [[nodiscard]] int sceneFadeMilliseconds() const;
    /// Fades the stage's opacity to `alpha` in that time.
    void fadeScene(double alpha, double seconds);
    [[nodiscard]] static double topHeight();
    [[nodiscard]] static double bottomHeight();

    [[nodiscard]] MainMenu* mainMenuObject() { return &mainMenu; }

    [[nodiscard]] ControlMenu* controlMenuObject() { return &controlMenu; }

    [[nodiscard]] SpeedViewController* speedObject() { return &speedViewController; }

    [[nodiscard]] ProgressView* progressObject() { return &progressView; }

    [[nodiscard]] MyButton* shareObject() { return &shareButton; }

    [[nodiscard]] Stage* stageObject() { return &stage; }

    [[nodiscard]] Alerts* alertsObject() const;

    [[nodiscard]] ValueLabel* valueLabelObject() { return &valueLabel; }

    [[nodiscard]] BlurCover* blurCoverObject() { return &blurCover; }

    [[nodiscard]] ObjectLoading* loadingObject() { return &loading; }

    [[nodiscard]] Visualizer* visualizerObject() { return &visualizer; }

    [[nodiscard]] DocumentController* documentObject() { return &document; }

    [[nodiscard]] Help* helpObject() { return &help; }

    [[nodiscard]] Guidance* guidanceObject() { return &guidance; }

    [[nodiscard]] TimelineController* timelineObject() { return &timeline; }

    Visualizer visualizer;

Q_SIGNALS:
    void panelChanged();
    void screenChanged();
    void hintChanged();
    void editingChanged();
    void sceneAlphaChanged();

private:
    // QML still uses the objects. It lets go of them in the next turn of the loop (Place.qml), so they
    // are deleted in the one after that.
    struct Later {
        void operator()(QObject* object) const {
            QTimer::singleShot(0, object, &QObject::deleteLater);
        }
    };
    template <class T> using LaterPtr = std::unique_ptr<T, Later>;

    void handlePinch(const PinchGesture& pinch) override;
    void handlePan(const PanGesture& pan) override;
    void handleTap(const TapGesture& tap) override;
    void handleDoubleTap(const TapGesture& tap) override;
    void handleHover(const std::optional<Hover>& hover) override;

    void wire();
    void deleteAllActions();
    /// Before another panel gets the gestures: it has not seen them begin.
    void endGestures();
    void viewDidLoad();
    void setPanel(QObject* controller, const char* view);
    void present(QObject* controller, const char* view);
    void dismissScreen();
    void showHistory();
    void showTemplates();
    void showExportSettings();
    void showExport();
    void askForActions();
    void showHint();
    void showHelp();
    /// Runs the call in the next turn of the loop, unless this object is gone by then.
    [[nodiscard]] std::function<void()> posted(std::function<void()> call) const;
    void wirePictures();
    void wireObjects();
    void wireSongs();
    void wireDocument();
    void loadObject(const std::filesystem::path& file);
    /// Null while another panel is shown.
    [[nodiscard]] LayouterMenu* layouter() const;

    CameraGestures cameraGestures;
    IdleTimer idleTimer;
    PictureImporter pictures;
    ObjectImporter objects;
    ObjectLoading loading;
    AudioImporter songs;
    SongBeats songBeats;
    TimelineController timeline;
    FileSystem files;
    ValueLabel valueLabel;
    ProgressView progressView;
    BlurCover blurCover;
    LaterPtr<QObject> currentBottomViewController;
    QString panelView_;
    LaterPtr<QObject> screen_;
    QString screenView_;
    LaterPtr<VideoAlertViewController> hint_;
    QSizeF viewSize{1280, 720};
    double sceneAlpha_ = 0;
    double sceneFade = 0; ///< seconds
    foundation::Timer fade;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
