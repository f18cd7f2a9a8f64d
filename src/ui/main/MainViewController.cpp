// SPDX-License-Identifier: MIT
#include "ui/main/MainViewController.h"

#include "model/Model.h"
#include "platform/foundation/Folders.h"
#include "ui/audio/AlbumTableViewController.h"
#include "ui/audio/AudioViewController.h"
#include "ui/controls/Alerts.h"
#include "ui/imports/FontImportViewController.h"
#include "ui/imports/ObjectController.h"
#include "ui/layouter/LayouterMenu.h"
#include "ui/menus/ActionsMenu.h"
#include "ui/menus/VideoAlertViewController.h"
#include "ui/screens/ExportSettingsController.h"
#include "ui/screens/ExportViewController.h"
#include "ui/screens/HistoryController.h"
#include "ui/screens/TemplatesController.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <utility>

namespace zelvo::ui {

namespace {

constexpr double kTopHeight = 45;
constexpr double kBottomHeight = 94;   ///< of a tablet; this screen counts as one
constexpr double kHintShare = 1 / 1.5; ///< share of the window's width
constexpr double kHintAspect = 9.0 / 16;
constexpr const char* kStylePanel = "LayouterMenu"; ///< names of their views
constexpr const char* kCataloguePanel = "ActionsMenu";
constexpr const char* kObjectScreen = "ObjectImport";
constexpr const char* kHintMovie = "HintRecordAction.mp4";

} // namespace

MainViewController::MainViewController(const Services& given)
    : services(given)
    , shareButton(
          {.image = "Export", .name = tr("Export a movie"), .key = "Ctrl+E"},
          [this] { shareAction(); })
    , controlMenu(services)
    , speedViewController(services)
    , document(services)
    , help([this] { showHelp(); })
    , guidance(services)
    , stage(services, *this)
    , visualizer(services.runLoop)
    , cameraGestures(services.model.actionController().gestures)
    , pictures(services)
    , objects(services)
    , loading(services)
    , songs(services)
    , songBeats(services)
    , timeline(services, &songBeats)
    , files(services, pictures, objects, songs)
    , valueLabel(services.runLoop)
    , progressView(services)
    , blurCover(services.runLoop) {
    wire();
    wirePictures();
    wireObjects();
    wireSongs();
    wireDocument();
    viewDidLoad();
}

MainViewController::~MainViewController() {
    services.model.setSceneView(nullptr);
    // There may be no further turn of the loop, so delete now what was left for it.
    (void)currentBottomViewController.release();
    (void)screen_.release();
    (void)hint_.release();
    qDeleteAll(findChildren<QObject*>(QString(), Qt::FindDirectChildrenOnly));
}

void MainViewController::wire() {
    model::Model& model = services.model;
    actions::ActionController& controller = model.actionController();
    controlMenu.playAction = [toggle = posted([&model] { model.toggle(); })](bool) { toggle(); };
    controlMenu.deleteAllActions = posted([this] { deleteAllActions(); });
    controlMenu.undoAction = posted([&controller] { controller.undo(); });
    controlMenu.redoAction = posted([&controller] { controller.redo(); });
    controlMenu.showHistoryAction = posted([this] { showHistory(); });
    // The tab of the current panel does nothing: no run stops, no panel is replaced.
    mainMenu.animClosure = posted([this] {
        if (panelView_ != kCataloguePanel)
            showAnim();
    });
    mainMenu.layoutClosure = posted([this] {
        if (panelView_ != kStylePanel)
            showLayouterMenu();
    });
}

void MainViewController::wirePictures() {
    // A picture can come long after it was asked for. The user may edit something else by then.
    pictures.didAsk = [this] {
        if (LayouterMenu* const panel = layouter())
            panel->setCurrentNode(services.model.nodes().imageNode);
    };
    pictures.didArrive = [this] {
        if (LayouterMenu* const panel = layouter())
            panel->imageDidChange();
    };
}

void MainViewController::wireObjects() {
    files.showObject = [this](const std::filesystem::path& file) {
        if (qobject_cast<ObjectController*>(screen()) == nullptr) // there the user chooses
            loadObject(file);
    };
    loading.didLoad = [this](const scene::SCNNodePtr& node) {
        if (auto* const list = qobject_cast<ObjectController*>(screen()); list != nullptr) {
            list->didLoad(node);
            return;
        }
        const content::MediaNodePtr media = services.model.nodes().mediaNode;
        LayouterMenu* const panel = layouter();
        if (panel != nullptr && panel->currentNode() == media)
            panel->objectChosen(node);
        else
            media->setCustomNode(node);
    };
}

void MainViewController::wireSongs() {
    audio::AudioPlayer& player = services.model.audioPlayer();
    player.songBrokeOff = lifetime.guard([&player] {
        const QString name = QString::fromStdString(player.audioURL->filename().string());
        signals().messageSignal.fire(
            tr("%1 cannot be read any more: the rest is silent").arg(name).toStdString());
    });
    songs.didAsk = [this] {
        if (LayouterMenu* const panel = layouter())
            panel->showAudio();
    };
    songs.didArrive = [this](const std::filesystem::path& song, const std::string& title) {
        services.model.stop(model::Reset::toStart); // a run has one music from start to end
        services.model.audioPlayer().loadSong(song, title);
        if (LayouterMenu* const panel = layouter())
            panel->songDidChange();
        timeline.refresh();
    };
}

void MainViewController::wireDocument() {
    StyleHistory& styles = document.styles;
    styles.didChange = [this] { controlMenu.showUndoState(); };
    styles.didApply = [this] {
        if (LayouterMenu* const panel = layouter())
            panel->styleDidChange();
    };
    document.didShow = [this] {
        if (layouter() != nullptr)
            showLayouterMenu();
        timeline.refresh();
    };
    document.chooseTemplate = [this] { showTemplates(); };
    controlMenu.styling = {
        [&styles] { return styles.canUndo(); },
        [&styles] { return styles.canRedo(); },
        posted([&styles] { styles.undo(); }),
        posted([&styles] { styles.redo(); })};
    files.openDocument = [this](const std::filesystem::path& file) { document.open(file); };
}

void MainViewController::loadObject(const std::filesystem::path& file) {
    if (LayouterMenu* const panel = layouter())
        panel->setCurrentNode(services.model.nodes().mediaNode);
    loading.load(file);
}

LayouterMenu* MainViewController::layouter() const {
    return qobject_cast<LayouterMenu*>(panel());
}

/// Ends what is held first. Otherwise its further records would carry a number that the next
/// performance gives to another action, and one undo would remove both.
void MainViewController::deleteAllActions() {
    endGestures();
    if (auto* const catalogue = qobject_cast<ActionsMenu*>(panel()); catalogue != nullptr)
        catalogue->releaseButtons();
    auto& performance = services.model.actionController();
    performance.deleteForGood([&] { performance.deleteAll(); });
}

void MainViewController::endGestures() {
    stage.recognizers.cancel();
    stage.recognizers.endPinch();
}

void MainViewController::viewDidLoad() {
    services.model.setSceneView(&stage.view);
    showLayouterMenu();
    fade = services.runLoop.scheduleOnce(kFadeDelay, [this] { fadeScene(1, kFadeDuration); });
}

std::function<void()> MainViewController::posted(std::function<void()> call) const {
    return [&loop = services.runLoop, guarded = lifetime.guard(std::move(call))] {
        loop.post(guarded);
    };
}

void MainViewController::setPanel(QObject* controller, const char* view) {
    const LaterPtr<QObject> old =
        std::exchange(currentBottomViewController, LaterPtr<QObject>(controller));
    controller->setParent(this);
    panelView_ = QString::fromLatin1(view);
    Q_EMIT panelChanged();
}

void MainViewController::showAnim() {
    endGestures();
    services.model.stop(model::Reset::toStart);
    auto menu = std::make_unique<ActionsMenu>(services);
    menu->speedClosure = lifetime.guard([this](bool isShown) {
        services.runLoop.post(lifetime.guard([this, isShown] {
            if (panelView_ == kCataloguePanel)
                speedViewController.setHidden(!isShown);
        }));
    });
    menu->pressedIdly = lifetime.guard([this] { guidance.pressedIdly(); });
    setPanel(menu.release(), kCataloguePanel);
    guidance.setPerforming(true);
    timeline.setShown(true);
    idleTimer.setDisabled(true);
    gestureDelegate = &cameraGestures;
    setEditing(true);
    mainMenu.light(MainMenu::Tab::animation);
}

void MainViewController::showLayouterMenu() {
    endGestures();
    services.model.stop(model::Reset::toStart);
    gestureDelegate = nullptr;
    auto menu = std::make_unique<LayouterMenu>(services);
    menu->inspirator.fadeScene =
        lifetime.guard([this](double alpha, double seconds) { fadeScene(alpha, seconds); });
    menu->presentFontImport = lifetime.guard([this] { showFontImport(); });
    menu->presentObjectImport = lifetime.guard([this] { showObjectImport(); });
    menu->songBeats = &songBeats;
    menu->presentMusicLibrary =
        lifetime.guard([this](AudioViewController& editor) { showMusicLibrary(editor); });
    menu->openSong =
        lifetime.guard([this](const std::filesystem::path& file) { songs.load(file); });
    menu->openPicture = lifetime.guard([this](const QUrl& file) { (void)openURL(file); });
    LayouterMenu& panel = *menu;
    setPanel(menu.release(), kStylePanel);
    gestureDelegate = &panel;
    guidance.setPerforming(false);
    timeline.setShown(false);
    idleTimer.setDisabled(false);
    setEditing(false);
    speedViewController.setHidden(true);
    mainMenu.light(MainMenu::Tab::layout);
}

void MainViewController::setEditing(bool enabled) {
    controlMenu.setButtonsEnabled(enabled);
    shareButton.setEnabled(enabled);
    Q_EMIT editingChanged();
}

void MainViewController::share() {
    shareButton.click();
}

void MainViewController::shareAction() {
    services.model.stop(model::Reset::toStart);
    if (services.model.actionController().recordedActions().empty()) {
        askForActions();
    } else {
        showExportSettings();
    }
}

void MainViewController::askForActions() {
    // clang-format off
    services.alerts.show({
        .title = tr("No recorded actions").toStdString(),
        .message = tr("Before exporting a movie, you have to record at least one action.").toStdString(),
        .actions =
            {
                      {.title = tr("Howto").toStdString(),
                 .handler = [this] { showHint(); },
                 .titleColor = QColor(0xC8, 0x8E, 0x01)},
                      {.title = tr("OK").toStdString(), .role = AlertRole::cancel},
                      },
    });
    // clang-format on
}

void MainViewController::showHelp() {
    services.model.stop(model::Reset::toStart);
    services.alerts.show(
        {.title = tr("Keys").toStdString(),
         .message = {},
         .actions =
             {{.title = tr("Howto").toStdString(),
               .handler = lifetime.guard([this] { showHint(); }),
               .titleColor = QColor(0xC8, 0x8E, 0x01)},
              {.title = tr("OK").toStdString(), .role = AlertRole::cancel}},
         .content = &help,
         .contentView = "KeyList"});
}

void MainViewController::showHint() {
    const auto movie = foundation::mainBundle().path(kHintMovie);
    if (movie.empty())
        return;
    const double width = viewSize.width() * kHintShare;
    hint_.reset(std::make_unique<VideoAlertViewController>(
                    movie,
                    QSizeF(width, width * kHintAspect),
                    tr("Press the record button, then the buttons of the actions while the clock "
                       "runs."))
                    .release());
    hint_->setParent(this);
    connect(hint_.get(), &VideoAlertViewController::dismissed, this, [this] {
        const auto old = std::exchange(hint_, nullptr);
        Q_EMIT hintChanged();
    });
    Q_EMIT hintChanged();
}

VideoAlertViewController* MainViewController::hint() const {
    return hint_.get();
}

void MainViewController::present(QObject* controller, const char* view) {
    const LaterPtr<QObject> old = std::exchange(screen_, LaterPtr<QObject>(controller));
    if (controller != nullptr)
        controller->setParent(this);
    screenView_ = QString::fromLatin1(view);
    pictures.setHeld(controller != nullptr);
    songs.setHeld(controller != nullptr);
    loading.setHeld(controller != nullptr && screenView_ != kObjectScreen);
    valueLabel.dismiss(); // its message belongs to the screen before
    Q_EMIT screenChanged();
}

void MainViewController::dismissScreen() {
    present(nullptr, "");
}

void MainViewController::showHistory() {
    if (screen_)
        return;
    if (services.model.isPlaying()) // the new screen has no button to stop the run
        services.model.stop(model::Reset::toStart);
    auto history = std::make_unique<HistoryController>(services);
    connect(history.get(), &HistoryController::dismissed, this, &MainViewController::dismissScreen);
    present(history.release(), "History");
}

void MainViewController::showTemplates() {
    if (screen_)
        return;
    if (services.model.isPlaying())
        services.model.stop(model::Reset::toStart);
    auto templates =
        std::make_unique<TemplatesController>([this](const std::filesystem::path& performance) {
            dismissScreen();
            document.showTemplate(performance);
        });
    connect(
        templates.get(), &TemplatesController::dismissed, this, &MainViewController::dismissScreen);
    present(templates.release(), "Templates");
}

void MainViewController::showExportSettings() {
    if (screen_)
        return;
    auto sheet = std::make_unique<ExportSettingsController>(services);
    connect(
        sheet.get(),
        &ExportSettingsController::dismissed,
        this,
        &MainViewController::dismissScreen);
    connect(
        sheet.get(), &ExportSettingsController::accepted, this, &MainViewController::showExport);
    present(sheet.release(), "ExportSettings");
}

void MainViewController::showExport() {
    blurCover.show();
    auto sheet = std::make_unique<ExportViewController>(services, blurCover);
    connect(
        sheet.get(), &ExportViewController::dismissed, this, &MainViewController::dismissScreen);
    present(sheet.release(), "Export");
}

void MainViewController::showFontImport() {
    if (screen_)
        return;
    auto sheet = std::make_unique<FontImportViewController>(services);
    if (auto* const menu = qobject_cast<LayouterMenu*>(panel()); menu != nullptr)
        sheet->setDelegate(*menu, menu->ownLifetime());
    connect(
        sheet.get(),
        &FontImportViewController::dismissed,
        this,
        &MainViewController::dismissScreen);
    present(sheet.release(), "FontImport");
}

void MainViewController::showObjectImport() {
    if (screen_)
        return;
    auto sheet = std::make_unique<ObjectController>(services, objects);
    if (auto* const menu = layouter(); menu != nullptr)
        sheet->setDelegate(*menu, menu->ownLifetime());
    sheet->load = [this](const std::filesystem::path& file) { loading.load(file); };
    connect(sheet.get(), &ObjectController::dismissed, this, &MainViewController::dismissScreen);
    present(sheet.release(), kObjectScreen);
}

void MainViewController::showMusicLibrary(AudioViewController& editor) {
    if (screen_)
        return;
    auto sheet = std::make_unique<AlbumTableViewController>(services, &editor);
    connect(
        sheet.get(),
        &AlbumTableViewController::dismissed,
        this,
        &MainViewController::dismissScreen);
    connect(
        sheet.get(),
        &AlbumTableViewController::documentsAsked,
        &editor,
        &AudioViewController::askForFile);
    present(sheet.release(), "MusicLibrary");
}

bool MainViewController::openURL(const QUrl& url) {
    return files.open(url);
}

bool MainViewController::open(const QMimeData& data) {
    auto* const list = qobject_cast<ObjectController*>(screen());
    if (list == nullptr || !data.hasUrls())
        return files.open(data);
    list->importFrom(data.urls());
    return true;
}

void MainViewController::paste() {
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr || !files.open(*data))
        signals().messageSignal.fire(tr("There is no picture on the clipboard").toStdString());
}

void MainViewController::showOffer(Offer kind) {
    const stage::Nodes& nodes = services.model.nodes();
    node::NodePtr target;
    if (kind == Offer::picture)
        target = nodes.imageNode;
    if (kind == Offer::object)
        target = nodes.mediaNode;
    if (LayouterMenu* const panel = layouter())
        panel->pointAt(target);
}

void MainViewController::handlePinch(const PinchGesture& pinch) {
    if (gestureDelegate != nullptr)
        gestureDelegate->handlePinch(pinch);
}

void MainViewController::handlePan(const PanGesture& pan) {
    if (gestureDelegate != nullptr)
        gestureDelegate->handlePan(pan);
}

void MainViewController::handleTap(const TapGesture& tap) {
    if (gestureDelegate != nullptr)
        gestureDelegate->handleTap(tap);
}

void MainViewController::handleDoubleTap(const TapGesture& tap) {
    if (gestureDelegate != nullptr)
        gestureDelegate->handleDoubleTap(tap);
}

void MainViewController::handleHover(const std::optional<Hover>& hover) {
    if (gestureDelegate != nullptr)
        gestureDelegate->handleHover(hover);
}

Alerts* MainViewController::alertsObject() const {
    return &services.alerts;
}

int MainViewController::sceneFadeMilliseconds() const {
    return static_cast<int>(sceneFade * 1000);
}

void MainViewController::fadeScene(double alpha, double seconds) {
    sceneFade = seconds;
    sceneAlpha_ = alpha;
    Q_EMIT sceneAlphaChanged();
}

double MainViewController::topHeight() {
    return kTopHeight;
}

double MainViewController::bottomHeight() {
    return kBottomHeight;
}

} // namespace zelvo::ui
