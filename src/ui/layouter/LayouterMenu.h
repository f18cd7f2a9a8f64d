// SPDX-License-Identifier: MIT
#pragma once

#include "node/Node.h"
#include "platform/foundation/Lifetime.h"
#include "ui/controls/CameraGestures.h"
#include "ui/controls/FontPictures.h"
#include "ui/controls/HighlightButton.h"
#include "ui/controls/Services.h"
#include "ui/controls/TabStackView.h"
#include "ui/imports/FontImportViewController.h"
#include "ui/imports/ObjectController.h"
#include "ui/layouter/Inspirator.h"
#include "ui/layouter/NodePicker.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zelvo::ui {

class AudioViewController;
class SongBeats;

/// The content of the style panel's strip.
enum class CurrentOption {
    write,
    material,
    frontColor,
    bandColor,
    font,
    form,
    shape,
    image,
    transform,
    audio,
    backgroundColor,
    backgroundScenes,
    mask,
    none
};

/// The style editor. A tab selects what to edit; the strip above the tabs shows the options for it.
/// Nothing here is recorded.
///
///     root ──tab of a node──> its tabs and strips ──back──> root
///       └──Background, Audio──> theirs ──back──> root
///
/// The strip of the root is the Inspirator.
class LayouterMenu final : public QObject,
                           public GestureDelegate,
                           public FontImportViewControllerDelegate,
                           public ObjectImportVCDelegate {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::TabStackView* stackView READ stackObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* backButton READ backObject CONSTANT)
    Q_PROPERTY(zelvo::ui::Inspirator* inspirator READ inspiratorObject CONSTANT)
    Q_PROPERTY(bool isInspiratorVisible READ isInspiratorVisible NOTIFY refreshed)
    Q_PROPERTY(bool isBackVisible READ isBackVisible NOTIFY refreshed)
    Q_PROPERTY(QString stripView READ stripView NOTIFY refreshed)
    Q_PROPERTY(QObject* strip READ stripObject NOTIFY refreshed)
    Q_PROPERTY(bool isStripTall READ isStripTall NOTIFY refreshed)
    Q_PROPERTY(bool isWriting READ isWriting NOTIFY writingChanged)
    Q_PROPERTY(QString writtenText READ writtenText NOTIFY writingChanged)
    Q_PROPERTY(QStringList pictureFilters READ pictureFilters CONSTANT)
    Q_PROPERTY(Qt::CursorShape cursor READ cursor NOTIFY cursorChanged)

public:
    /// Resets everything on the stage and shows outlines; the destructor hides them.
    explicit LayouterMenu(const Services& given, QObject* parent = nullptr);
    ~LayouterMenu() override;
    LayouterMenu(const LayouterMenu&) = delete;
    LayouterMenu& operator=(const LayouterMenu&) = delete;

private:
    Services services; // first, because other members are built from it

public:
    Inspirator inspirator;
    TabStackView stackView;
    MyButton backButton;

    [[nodiscard]] const node::NodePtr& currentNode() const { return currentNode_; }

    [[nodiscard]] CurrentOption currentOption() const { return currentOption_; }

    /// Selects a node, with the option that fits it; null: none.
    void setCurrentNode(node::NodePtr node);
    /// 0 to 3: first text, second text, image, object.
    void setCurrentNodeFromButton(int tag);
    void setCurrentOption(CurrentOption option);
    Q_INVOKABLE void backButtonClicked();

    /// Selects what is there; on nothing, nothing is selected any more.
    void handleTap(const TapGesture& tap) override;
    /// Also opens the text field for a text, and asks for a picture on the image.
    void handleDoubleTap(const TapGesture& tap) override;
    /// Moves the selected node, or the node on which it began; on nothing, turns the camera.
    void handlePan(const PanGesture& pan) override;
    /// Sizes the selected node.
    void handlePinch(const PinchGesture& pinch) override;
    /// Shows the whole frame of the node under the pointer.
    void handleHover(const std::optional<Hover>& hover) override;

    // --- keys; false: there was nothing to do
    /// Moves the selected node, in scene units.
    Q_INVOKABLE bool nudge(double right, double up, double near);
    Q_INVOKABLE bool grow(double factor);
    /// Selects the next node (step 1) or the one before (-1); false after the last.
    Q_INVOKABLE bool takeNext(int step);
    /// Writes the selected text, or asks for the picture of the selected image.
    Q_INVOKABLE bool openSelected();

    /// Asks where the picture for the image is.
    void showImportOptions();
    /// Called with the file that the user has picked; may be empty.
    std::function<void(const QUrl&)> openPicture;
    Q_INVOKABLE void pictureWasPicked(const QUrl& file) const;
    /// For the dialog in which a picture is picked.
    [[nodiscard]] static QStringList pictureFilters();
    /// The image has another picture.
    void imageDidChange();

    /// The stage has got another style, such as by undo: the strip shows it. The selection stays.
    void styleDidChange();

    /// Shows the whole frame of a node; null: of none.
    void pointAt(const node::NodePtr& node);

    /// Tells what a press would do.
    [[nodiscard]] Qt::CursorShape cursor() const { return cursor_; }

    /// Opens the screen of imported fonts; set by the owner.
    std::function<void()> presentFontImport;
    Q_INVOKABLE void showFontImport() const;
    /// The user has picked a font there for the selected text.
    void fontImported(const std::string& name) override;

    [[nodiscard]] const foundation::Lifetime& ownLifetime() const { return lifetime; }

    /// Opens the text field for the selected text.
    void writeAction();
    Q_INVOKABLE void textFieldDidChange(const QString& text);
    Q_INVOKABLE void endWriting();

    [[nodiscard]] bool isWriting() const { return writing; }

    [[nodiscard]] QString writtenText() const;

    /// The title of the music, for its tab; empty: there is no music.
    void setAudioTitle(const QString& title);
    /// Opens the list of the user's albums for the audio editor; set by the owner.
    std::function<void(AudioViewController&)> presentMusicLibrary;
    /// Called with the song that the user has picked; set by the owner.
    std::function<void(const std::filesystem::path&)> openSong;
    SongBeats* songBeats = nullptr; ///< of the audio editor; set by the owner
    /// Shows the audio editor; a new song is on its way.
    void showAudio();
    /// There is another song.
    void songDidChange();

    /// Opens the screen of imported objects; set by the owner.
    std::function<void()> presentObjectImport;
    void showObjectImport() const;
    /// The user has picked an object: it is the shape of the object node, if that is selected.
    void objectChosen(const scene::SCNNodePtr& node) override;

    [[nodiscard]] bool isBackVisible() const;

    [[nodiscard]] bool isInspiratorVisible() const { return currentOption_ == CurrentOption::none; }

    /// The view of the strip; empty if there is none.
    [[nodiscard]] QString stripView() const { return stripView_; }

    [[nodiscard]] QObject* stripObject() const { return strip.get(); }

    /// Whether the strip has the height of the whole panel, and the tabs lie on it.
    [[nodiscard]] bool isStripTall() const { return currentOption_ == CurrentOption::audio; }

    [[nodiscard]] TabStackView* stackObject() { return &stackView; }

    [[nodiscard]] Inspirator* inspiratorObject() { return &inspirator; }

    [[nodiscard]] MyButton* backObject() { return &backButton; }

Q_SIGNALS:
    void refreshed();
    void writingChanged();
    void cursorChanged();
    /// The user wants to pick a picture; the dialog begins in that folder.
    void pictureAsked(const QUrl& folder);

private:
    // Objects that QML still uses, or that are being clicked, are deleted in the next turn of the
    // loop.
    struct Later {
        void operator()(QObject* object) const { object->deleteLater(); }
    };
    template <class T> using LaterPtr = std::unique_ptr<T, Later>;

    struct TabRow;

    /// As stage::Nodes::content(). On tabs and frames.
    static constexpr std::array kNodeNames{
        QT_TR_NOOP("Text 1"), QT_TR_NOOP("Text 2"), QT_TR_NOOP("Image"), QT_TR_NOOP("Object")};

    void refresh();
    void rebuildTabs();
    void showOutlines() const;
    void fontsHaveChanged();
    [[nodiscard]] node::NodePtr hit(const StagePlace& place) const;
    void drag(const PanGesture& pan);
    void resize(float scale);
    void setCursor(Qt::CursorShape shape);
    [[nodiscard]] std::vector<TabRow> tabsNow();
    [[nodiscard]] std::vector<TabRow> rootTabs();
    [[nodiscard]] TabRow optionTab(const char* title, CurrentOption option);

    [[nodiscard]] LaterPtr<QObject> makeStrip();
    [[nodiscard]] LaterPtr<QObject> makeFontStrip(const content::TextNodePtr& text);
    [[nodiscard]] LaterPtr<QObject> makeMaterialStrip();
    [[nodiscard]] LaterPtr<QObject> makeShapeStrip();
    [[nodiscard]] LaterPtr<QObject> makeMaskStrip() const;
    [[nodiscard]] LaterPtr<QObject> makeSceneStrip();
    [[nodiscard]] LaterPtr<QObject> makeColorStrip();
    [[nodiscard]] LaterPtr<QObject> makeAudioEditor();
    void assignColor(const image::Color& color);
    [[nodiscard]] QString shownAudioTitle() const;

    node::NodePtr currentNode_;
    node::NodePtr pointedNode; ///< the pointer is over its frame; null: over none
    CurrentOption currentOption_ = CurrentOption::none;
    CurrentOption cachedTextOption = CurrentOption::material; ///< texts share their last tab
    LaterPtr<QObject> strip;
    QString stripView_;
    std::vector<LaterPtr<MySegmentedStackButton>> tabs;
    MySegmentedStackButton* audioTitleButton = nullptr; ///< one of the tabs; null: not shown
    QString audioTitle_;
    int wantedScene = -1; ///< chosen last, and shown soon
    std::shared_ptr<FontPictures> fontPictures = std::make_shared<FontPictures>(services.runLoop);
    bool writing = false;
    bool isFontListOld = false; ///< and will be made anew in the next turn of the loop
    CameraGestures cameraGestures;
    glm::vec2 previousLocation{0};             ///< of a drag
    node::NodePtr hittedNodeWhileBeganPanning; ///< null: the drag moves the camera
    float lastPinchScale = 1;                  ///< what the pinch read last
    Qt::CursorShape cursor_ = Qt::ArrowCursor;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
