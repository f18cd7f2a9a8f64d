// SPDX-License-Identifier: MIT
#include "ui/document/DocumentController.h"

#include "document/EngineNames.h"
#include "document/PerformanceFile.h"
#include "document/PerformanceWriter.h"
#include "document/Performer.h"
#include "document/SetUp.h"
#include "document/StageReading.h"
#include "model/Model.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/Random.h"
#include "platform/foundation/UserDefaults.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"
#include "ui/document/MediaCopies.h"

#include <QDir>
#include <QEvent>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

using document::Performance;

constexpr const char* kRecentKey = "RecentDocuments";
constexpr std::size_t kShownProblems = 5;

QUrl urlOf(const fs::path& path) {
    return QUrl::fromLocalFile(QString::fromStdString(path.string()));
}

/// The folder beside a document for copies of the program's own data.
fs::path mediaFolderOf(const fs::path& file) {
    return file.parent_path() / (file.stem().string() + " media");
}

bool liesIn(const fs::path& folder, const fs::path& file) {
    const auto inside = file.lexically_relative(folder);
    return !inside.empty() && *inside.begin() != "..";
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (std::size_t i = 0; i < std::min(lines.size(), kShownProblems); ++i)
        text += (i == 0 ? "" : "\n") + lines[i];
    return lines.size() > kShownProblems ? text + "\n…" : text;
}

} // namespace

DocumentController::DocumentController(const Services& given, QObject* parent)
    : QObject(parent)
    , services(given)
    , menuButton(
          {.image = "Document", .name = tr("Document"), .key = "F10"},
          [this] { setMenuOpen(!menuOpen); })
    , styles(services)
    , emptyStage(document::styleOf(services.model))
    , names(document::engineNames())
    , recovery(services.folders.state)
    , queue(services.runLoop.makeSerialQueue("documents")) {
    makeCommands();
    rebuildRecent();
    savedText = keptText = document::written(documentNow());
    const auto soon = [this] { noteSoon(); };
    signals().undoStateSignal.subscribe(lifetime, soon);
    signals().isPlayingSignal.subscribe(lifetime, [soon](bool) { soon(); });
    looking = services.runLoop.scheduleRepeating(kKeepInterval, [this] { look(); });
}

/// A window that closes by itself has asked already; what it kept is not needed any more. After a
/// signal, unsaved changes stay for the next start.
DocumentController::~DocumentController() {
    look();
    queue.reset(); // its jobs use the recovery
    if (!isModified_)
        recovery.clear();
    else
        (void)recovery.keep(keptText, file_); // there is nobody any more to tell an error
}

// --- what changes

void DocumentController::noteSoon() {
    if (!lookingSoon.isValid())
        lookingSoon = services.runLoop.scheduleOnce(kNoticeDelay, [this] {
            lookingSoon = {};
            look();
        });
}

void DocumentController::watch(QObject* window) {
    window->installEventFilter(this);
}

bool DocumentController::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        handCame();
        isHandDown = true;
        break;
    case QEvent::KeyPress:
    case QEvent::Wheel:
    case QEvent::Drop:
        handCame();
        noteSoon();
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        isHandDown = false;
        noteSoon();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// What has changed by now belongs to the gesture before.
void DocumentController::handCame() {
    if (!isHandDown && !services.model.isPlaying() && !isGivenUp)
        styles.note();
}

Performance DocumentController::documentNow() const {
    Performance performance{
        document::styleOf(services.model),
        foundation::randomSeed(),
        document::cuesOf(services.model)};
    for (auto& [name, text] : performance.nodes) {
        const auto before = opened.nodes.find(name);
        const bool isSame = before != opened.nodes.end() && before->second.font == text.font;
        if (isSame && !text.fontFile)
            text.fontFile = before->second.fontFile; // a missing font keeps its file
    }
    return performance;
}

/// During a run the stage belongs to the performance, and recording must not wait.
void DocumentController::look() {
    if (services.model.isPlaying() || isGivenUp || isHandDown)
        return;
    styles.note();
    std::string text = document::written(documentNow());
    const bool isDifferent = text != savedText || isRecovered;
    if (std::exchange(isModified_, isDifferent) != isDifferent)
        Q_EMIT changed();
    if (text == keptText)
        return;
    keptText = text;
    if (isDifferent)
        keep(text);
    else
        queue->async([this] { recovery.clear(); });
}

void DocumentController::keep(const std::string& text) {
    queue->async([this, text, origin = file_, &loop = services.runLoop] {
        const auto kept = recovery.keep(text, origin);
        if (!kept)
            loop.post([message = kept.error().message] {
                signals().messageSignal.fire(tr("Unsaved changes are not protected: %1")
                                                 .arg(QString::fromStdString(message))
                                                 .toStdString());
            });
    });
}

QString DocumentController::name() const {
    return file_.empty() ? tr("Untitled") : QString::fromStdString(file_.stem().string());
}

QString DocumentController::title() const {
    return isModified_ ? name() + QStringLiteral(" •") : name();
}

// --- the menu

void DocumentController::makeCommands() {
    const auto add = [this](const QString& title, const char* key, auto call) {
        commands.push_back(std::make_unique<MyButton>(
            ButtonFace{.title = title, .key = QString::fromLatin1(key)}, [this, call] {
                setMenuOpen(false);
                (this->*call)();
            }));
    };
    add(tr("New…"), "Ctrl+N", &DocumentController::askForNew);
    add(tr("Open…"), "Ctrl+O", &DocumentController::askToOpen);
    add(tr("Save"), "Ctrl+S", &DocumentController::save);
    add(tr("Save As…"), "Ctrl+Shift+S", &DocumentController::saveAs);
    add(tr("Collect Media…"), "", &DocumentController::collect);
}

QList<MyButton*> DocumentController::menuRows() const {
    QList<MyButton*> rows;
    for (const auto& group : {&commands, &recent}) {
        for (const ButtonPtr& row : *group)
            rows.append(row.get());
    }
    return rows;
}

void DocumentController::setMenuOpen(bool isOn) {
    if (isOn)
        rebuildRecent(); // another window may have opened something
    if (std::exchange(menuOpen, isOn) == isOn)
        return;
    menuButton.setMySelected(isOn);
    Q_EMIT menuChanged();
}

void DocumentController::rebuildRecent() {
    services.defaults.refresh();
    std::vector<ButtonPtr> rows;
    for (const std::string& path :
         services.defaults.strings(kRecentKey).value_or(std::vector<std::string>{})) {
        const fs::path file = path;
        rows.push_back(std::make_unique<MyButton>(
            ButtonFace{
                .title = QString::fromStdString(file.stem().string()),
                .name = QDir::toNativeSeparators(QString::fromStdString(path))},
            [this, file] {
                setMenuOpen(false);
                open(file);
            }));
    }
    const auto former = std::exchange(recent, std::move(rows)); // the view lets go of them first
    Q_EMIT recentChanged();
}

void DocumentController::remember(const fs::path& file) {
    services.defaults.refresh();
    auto files = services.defaults.strings(kRecentKey).value_or(std::vector<std::string>{});
    std::erase(files, file.string());
    files.insert(files.begin(), file.string());
    if (files.size() > kMostRecent)
        files.resize(kMostRecent);
    services.defaults.set(kRecentKey, files, foundation::UserDefaults::Outlives::program);
    rebuildRecent();
}

// --- new and open

void DocumentController::whenSafe(std::function<void()> call) {
    look();
    if (!isModified_) {
        call();
        return;
    }
    const auto guarded = lifetime.guard(std::move(call));
    services.alerts.show(
        {.title = tr("Save the changes to “%1”?").arg(name()).toStdString(),
         .message = tr("Otherwise they are lost.").toStdString(),
         .actions = {
             {.title = tr("Save").toStdString(), .handler = lifetime.guard([this, guarded] {
                  afterSaving = guarded;
                  save();
              })},
             {.title = tr("Don't Save").toStdString(),
              .role = AlertRole::destructive,
              .handler = guarded},
             {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel}}});
}

void DocumentController::askForNew() {
    whenSafe([this] {
        if (chooseTemplate)
            chooseTemplate();
        else
            showTemplate({});
    });
}

void DocumentController::askToOpen() {
    whenSafe([this] { Q_EMIT openAsked(folderUrl()); });
}

void DocumentController::openPicked(const QUrl& file) {
    const fs::path path = file.toLocalFile().toStdString();
    load({.file = path, .as = path});
}

void DocumentController::open(const fs::path& file) {
    whenSafe([this, file] { load({.file = file, .as = file}); });
}

void DocumentController::showTemplate(const fs::path& file) {
    if (file.empty())
        show({Performance{{emptyStage}, foundation::arc4random(), {}}, {}}, {});
    else
        load({.file = file, .as = {}});
}

QUrl DocumentController::folderUrl() const {
    if (!file_.empty())
        return urlOf(file_.parent_path());
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QUrl::fromLocalFile(QDir(folder).exists() ? folder : QDir::homePath());
}

void DocumentController::load(const Source& source) {
    const std::uint64_t number = ++latest;
    const fs::path& file = source.file;
    signals().messageSignal.fire(
        tr("Opening %1…").arg(QString::fromStdString(file.stem().string())).toStdString());
    const auto done = lifetime.guard([this, source, number](Loaded loaded) {
        if (number != latest)
            return;
        if (!loaded)
            refuse(source.file, loaded.error());
        else
            show(std::move(*loaded), source);
    });
    queue->async([file, names = names, done, empty = emptyStage, &loop = services.runLoop] {
        auto loaded = document::loadPerformance(file, names).map([&](Performance performance) {
            static_cast<document::Style&>(performance) =
                document::completed(document::resolved(performance, file.parent_path()), empty);
            document::StageMedia media = document::readMedia(performance);
            return Read{std::move(performance), std::move(media)};
        });
        loop.post([done, loaded = std::make_shared<Loaded>(std::move(loaded))] {
            done(std::move(*loaded));
        });
    });
}

void DocumentController::refuse(const fs::path& file, const std::vector<std::string>& problems) {
    services.alerts.showAlert(
        tr("“%1” cannot be opened.")
            .arg(QString::fromStdString(file.filename().string()))
            .toStdString(),
        joined(problems));
}

void DocumentController::show(Read read, const Source& source) {
    model::Model& model = services.model;
    model.actionController().deleteAll();
    foundation::seedRandom(read.performance.seed.value_or(foundation::arc4random()));
    const auto missing = document::applyStyle(read.performance, std::move(read.media), model);
    document::perform(read.performance, model);
    opened = read.performance;
    takeAsShown(source);
    signals().undoStateSignal.fire();
    if (didShow)
        didShow();
    styles.forget();
    tellMissing(missing);
}

void DocumentController::takeAsShown(const Source& source) {
    std::string text = document::written(documentNow());
    if (!source.isRecovered) {
        becameSaved(source.as, std::move(text));
        if (!source.as.empty())
            remember(source.as);
        return;
    }
    file_ = source.as;
    std::error_code none;
    fileTime = fs::last_write_time(file_, none);
    isRecovered = isModified_ = true;
    savedText.clear();
    keptText = std::move(text);
    Q_EMIT changed();
}

void DocumentController::tellMissing(const std::vector<foundation::Problem>& missing) {
    if (missing.empty())
        return;
    std::vector<std::string> lines;
    lines.reserve(missing.size());
    for (const foundation::Problem& problem : missing)
        lines.push_back(problem.text);
    services.alerts.showAlert(
        tr("Some things of this document are missing.").toStdString(),
        joined(lines) + "\n\n" + tr("Their names are kept when you save it.").toStdString());
}

// --- save

void DocumentController::save() {
    if (file_.empty())
        saveAs();
    else if (isChangedElsewhere())
        askToReplace();
    else
        write(file_, false);
}

bool DocumentController::isChangedElsewhere() const {
    std::error_code error;
    const auto time = fs::last_write_time(file_, error);
    return !error && time != fileTime;
}

void DocumentController::askToReplace() {
    services.alerts.show(
        {.title = tr("“%1” was changed elsewhere.").arg(name()).toStdString(),
         .message =
             tr("Another window or program has written it since it was opened here.").toStdString(),
         .actions = {
             {.title = tr("Save As…").toStdString(),
              .handler = lifetime.guard([this] { saveAs(); })},
             {.title = tr("Replace").toStdString(),
              .role = AlertRole::destructive,
              .handler = lifetime.guard([this] { write(file_, false); })},
             {.title = tr("Cancel").toStdString(),
              .role = AlertRole::cancel,
              .handler = lifetime.guard([this] { afterSaving = nullptr; })}}});
}

void DocumentController::saveAs() {
    const fs::path folder = folderUrl().toLocalFile().toStdString();
    Q_EMIT saveAsked(urlOf(folder / (name().toStdString() + "." + kSuffix)));
}

void DocumentController::savePicked(const QUrl& file) {
    fs::path path = file.toLocalFile().toStdString();
    if (path.extension().empty())
        path += std::string(".") + kSuffix;
    write(path, false);
}

void DocumentController::collect() {
    Q_EMIT collectAsked(folderUrl());
}

void DocumentController::collectPicked(const QUrl& folder) {
    const fs::path home = folder.toLocalFile().toStdString();
    const std::string stem = name().toStdString();
    write(home / stem / (stem + "." + kSuffix), true);
}

void DocumentController::write(const fs::path& file, bool collects) {
    Performance performance = documentNow();
    const auto done = lifetime.guard([this, file, text = document::written(performance)](
                                         const foundation::Result<void>& result) {
        if (result)
            becameSaved(file, text);
        written(file, result);
    });
    queue->async([performance = std::move(performance),
                  file,
                  collects,
                  done,
                  own = services.folders.documents,
                  &loop = services.runLoop]() mutable {
        std::error_code ignored; // errors show when the file is written
        fs::create_directories(file.parent_path(), ignored);
        // Songs and pasted pictures lie in the program's own folders, where the next one replaces them.
        const auto isWanted = [&](const fs::path& path) { return collects || liesIn(own, path); };
        const fs::path folder = collects ? file.parent_path() : mediaFolderOf(file);
        auto result = copyMedia(performance, folder, isWanted).and_then([&] {
            return document::savePerformance(performance, file);
        });
        loop.post([done, result] { done(result); });
    });
}

void DocumentController::written(const fs::path& file, const foundation::Result<void>& result) {
    const auto next = std::exchange(afterSaving, nullptr);
    if (!result) {
        services.alerts.showAlert(
            tr("The document cannot be saved.").toStdString(), result.error().message);
        return;
    }
    remember(file);
    signals().messageSignal.fire(
        tr("Saved as %1").arg(QString::fromStdString(file.filename().string())).toStdString());
    if (next)
        next();
}

/// What was changed while the file was being written stays unsaved.
void DocumentController::becameSaved(const fs::path& as, std::string text) {
    file_ = as;
    std::error_code none; // a document without a file has no time
    fileTime = fs::last_write_time(file_, none);
    isRecovered = false;
    savedText = std::move(text);
    keptText = savedText;
    isModified_ = false;
    queue->async([this] { recovery.clear(); });
    Q_EMIT changed();
    noteSoon();
}

// --- closing and recovery

bool DocumentController::mayClose() {
    if (!isGivenUp)
        look();
    if (!isModified_)
        return true;
    if (!services.alerts.isShowing())
        whenSafe([this] {
            isGivenUp = true; // or saved
            isModified_ = false;
            Q_EMIT closeAllowed();
        });
    return false;
}

void DocumentController::offerRecovery() {
    const auto found = recovery.left();
    if (!found.empty())
        offer(found.front());
}

void DocumentController::offer(const Recovery::Left& left) {
    const QString of = left.origin.empty()
                           ? tr("an untitled document")
                           : QString::fromStdString(left.origin.filename().string());
    const auto take = [this, left] {
        if (const auto taken = recovery.take(left); !taken) {
            services.alerts.showAlert(
                tr("It cannot be recovered.").toStdString(), taken.error().message);
            return false;
        }
        return true;
    };
    services.alerts.show(
        {.title = tr("Recover unsaved changes?").toStdString(),
         .message = tr("Zelvo ended before they were saved: %1.").arg(of).toStdString(),
         .actions = {
             {.title = tr("Recover").toStdString(), .handler = lifetime.guard([this, left, take] {
                  if (take())
                      load({.file = left.document, .as = left.origin, .isRecovered = true});
              })},
             {.title = tr("Discard").toStdString(),
              .role = AlertRole::destructive,
              .handler = lifetime.guard([this, take] {
                  if (take())
                      recovery.clear();
              })},
             {.title = tr("Later").toStdString(), .role = AlertRole::cancel}}});
}

} // namespace zelvo::ui
