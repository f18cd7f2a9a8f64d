// SPDX-License-Identifier: MIT
#pragma once

#include "document/PerformanceReader.h"
#include "document/StageMedia.h"
#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "ui/controls/MyButton.h"
#include "ui/controls/Services.h"
#include "ui/document/Recovery.h"
#include "ui/document/StyleHistory.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zelvo::ui {

/// The document of the window: new, open, save, the list of recent ones, and that nothing is lost.
///
///     stage, records ──documentNow──> saved, kept for recovery, compared for "unsaved changes"
///          ▲                              │
///          └────────── show ──────────────┘
///
/// Files are read and written on another thread. The user is asked before unsaved changes go.
class DocumentController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(zelvo::ui::MyButton* menuButton READ menuObject CONSTANT)
    Q_PROPERTY(QList<zelvo::ui::MyButton*> menu READ menuRows NOTIFY recentChanged)
    Q_PROPERTY(int commandCount READ commandCount CONSTANT)
    Q_PROPERTY(bool isMenuOpen READ isMenuOpen WRITE setMenuOpen NOTIFY menuChanged)

public:
    static constexpr double kNoticeDelay = 0.2; ///< seconds from a press to the look at the stage
    static constexpr double kKeepInterval = 2;  ///< seconds between two looks in any case
    static constexpr std::size_t kMostRecent = 10;
    static constexpr const char* kSuffix = "zelvo";

    explicit DocumentController(const Services& given, QObject* parent = nullptr);
    ~DocumentController() override;
    DocumentController(const DocumentController&) = delete;
    DocumentController& operator=(const DocumentController&) = delete;

private:
    Services services; // first, because other members are built from it

public:
    MyButton menuButton;
    StyleHistory styles;

    /// Called when the stage shows another document; set by the owner.
    std::function<void()> didShow;
    /// Called for "New", when unsaved changes are safe; set by the owner. Empty: an empty stage.
    std::function<void()> chooseTemplate;

    // --- commands; each also has its key
    Q_INVOKABLE void askForNew();
    Q_INVOKABLE void askToOpen();
    Q_INVOKABLE void save();
    Q_INVOKABLE void saveAs();
    Q_INVOKABLE void collect();

    /// Opens a file after asking for unsaved changes.
    void open(const std::filesystem::path& file);
    /// Shows a performance as a document without a file; empty: an empty stage.
    void showTemplate(const std::filesystem::path& file);

    // --- answers of the file dialogs
    Q_INVOKABLE void openPicked(const QUrl& file);
    Q_INVOKABLE void savePicked(const QUrl& file);
    Q_INVOKABLE void collectPicked(const QUrl& folder);

    Q_INVOKABLE void dialogCancelled() { afterSaving = nullptr; }

    /// Whether the window may close now. If not, the user is asked, and `closeAllowed` may follow.
    Q_INVOKABLE bool mayClose();

    /// Offers what was left behind by a process that did not end by itself.
    void offerRecovery();

    /// Something may have changed: look soon.
    void noteSoon();

    /// Watches presses and keys in the window: they begin and end the steps of styling.
    void watch(QObject* window);
    bool eventFilter(QObject* watched, QEvent* event) override;

    [[nodiscard]] bool isModified() const { return isModified_; }

    /// Name, and a mark for unsaved changes.
    [[nodiscard]] QString title() const;

    [[nodiscard]] MyButton* menuObject() { return &menuButton; }

    /// The commands, then the recent documents.
    [[nodiscard]] QList<MyButton*> menuRows() const;

    [[nodiscard]] int commandCount() const { return static_cast<int>(commands.size()); }

    [[nodiscard]] QList<MyButton*> recentObjects() const { return menuRows().mid(commandCount()); }

    [[nodiscard]] bool isMenuOpen() const { return menuOpen; }

    void setMenuOpen(bool isOn);

    /// The document as it is: style, seed and cues, with absolute paths.
    [[nodiscard]] document::Performance documentNow() const;

Q_SIGNALS:
    void changed();
    void recentChanged();
    void menuChanged();
    void openAsked(const QUrl& folder);
    void saveAsked(const QUrl& suggestion);
    void collectAsked(const QUrl& folder);
    void closeAllowed();

private:
    using ButtonPtr = std::unique_ptr<MyButton>;

    /// Where a document comes from.
    struct Source {
        std::filesystem::path file;
        std::filesystem::path as; ///< its file from then on; empty: none yet, as of a template
        bool isRecovered = false; ///< it is unsaved
    };

    /// A performance that was read, with all that takes time.
    struct Read {
        document::Performance performance;
        document::StageMedia media;
    };

    using Loaded = tl::expected<Read, std::vector<std::string>>;

    void makeCommands();
    void look();
    void handCame();
    void keep(const std::string& text);
    void whenSafe(std::function<void()> call);
    void load(const Source& source);
    void refuse(const std::filesystem::path& file, const std::vector<std::string>& problems);
    void show(Read read, const Source& source);
    void takeAsShown(const Source& source);
    void tellMissing(const std::vector<foundation::Problem>& missing);
    void write(const std::filesystem::path& file, bool collects);
    void askToReplace();
    [[nodiscard]] bool isChangedElsewhere() const;
    void written(const std::filesystem::path& file, const foundation::Result<void>& result);
    void becameSaved(const std::filesystem::path& as, std::string text);
    void remember(const std::filesystem::path& file);
    void rebuildRecent();
    void offer(const Recovery::Left& left);
    [[nodiscard]] QUrl folderUrl() const;
    [[nodiscard]] QString name() const;

    const document::Style emptyStage; ///< what the stage is at the start of the program
    document::Names names;
    std::filesystem::path file_;                ///< empty: the document has no file
    std::filesystem::file_time_type fileTime{}; ///< of `file_`, when it was read or written here
    document::Style opened;                     ///< names of missing fonts' files come from here
    std::string savedText; ///< of the document when it was last saved or opened
    std::string keptText;  ///< last kept for recovery
    bool isModified_ = false;
    bool isRecovered = false; ///< modified, though nothing was changed since it was shown
    bool isGivenUp = false;   ///< the window closes, and the user does not want the changes
    bool menuOpen = false;
    bool isHandDown = false;           ///< what is being dragged is not finished
    std::function<void()> afterSaving; ///< what the saving was for; may be empty
    std::uint64_t latest = 0;          ///< number of the file asked for last
    std::vector<ButtonPtr> commands;
    std::vector<ButtonPtr> recent;
    Recovery recovery; ///< used on the queue only
    foundation::Timer looking;
    foundation::Timer lookingSoon;
    foundation::Lifetime lifetime;
    std::unique_ptr<foundation::SerialQueue> queue; ///< last, so that it ends first
};

} // namespace zelvo::ui
