#pragma once

#include "app/cCommonDialog.h"
#include "app/JavaFiles.h"
#include "app/Preferences.h"
#include "app/ProgramStarter.h"
#include "app/UnheldValues.h"
#include "codegen/JavaGenerator.h"
#include "designer/DesignCanvas.h"
#include "designer/Document.h"
#include "designer/MainLayout.h"

#include <QHash>
#include <QMainWindow>
#include <QSize>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <functional>
#include <set>
#include <span>
#include <string>

class QAction;
class QDockWidget;
class QLabel;
class QMenu;

namespace pirol {

class HintSearch;
class PanelEdge;
class cboZoom;
class lstComponents;
class lstHints;
class picContainer;
class pnlOutput;
class picFrame;
class plProperties;
class tbComponents;
class tbMain;
enum class Arrangement;
struct Hint;

/// The main window. It owns the design and everything around it: tool bar, toolbox, canvas with its scroll bars,
/// property list, list of hints, output of the tested program, status bar and the menu with every command of the
/// program. A command is a function of the same name. All its parts show the document: it is told of every change and
/// passes on what they need.
class frmMain : public QMainWindow, private DocumentListener {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmMain)

  public:
    /// Without a change for so long the hints are found anew.
    static constexpr std::chrono::milliseconds usualHintDelay{250};

    frmMain(cCommonDialog& dialogs, ProgramStarter& starter, const Preferences& preferences = {},
            std::chrono::milliseconds hintDelay = usualHintDelay);
    ~frmMain() override;

    Document& CurrentDocument() { return document_; }
    const ProjectModel& Model() const { return document_.Model(); }
    DesignCanvas& Canvas() { return canvas_; }
    const Preferences& CurrentPreferences() const { return preferences_; }

    /// Stands where it stood when it was closed last, with panels as wide, and keeps that place from now on. Without
    /// this it has the usual place.
    void KeepPlace();

    /// New versions can be looked for; before this the command says that they cannot.
    void EnableUpdate();

    // The operations of consequence. Each runs under its error label, shows the error report when it fails, and brings
    // the window up to date.

    /// The generated source; empty when it failed.
    std::string GenerateCode();
    /// Loads a project file in place of the design.
    void ReadPRLFile(const std::string& path);
    /// Shows the properties of the selected component.
    void LoadProperties();

    /// Runs an operation and shows the error report when it fails. False when it failed.
    bool Run(const std::function<void()>& operation);

  signals:
    /// The user wants to see the designs that have left the screen unsaved.
    void KeptDesignsWanted();
    /// The windows shall have other colours.
    void AppearanceChosen(pirol::Appearance appearance);
    /// The user wants to look for a new version.
    void UpdateWanted();

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    struct CommandRow;
    struct CommandTable;
    struct CodeMark;
    static const CodeMark menuMark;
    static const CodeMark databaseMark;

    void SetPreferences(const Preferences& preferences);
    void BuildMenus();
    void BuildSurface();
    void BuildStatusBar();
    void DocumentChanged(const DocumentChange& change) override;
    void AddCommand(QMenu* menu, const CommandRow& row);
    void AddKindCommands(QMenu* menu);
    void BuildToolBar();
    void OfferArranging();
    QAction* Command(const QString& name) const;

    void BuildPanelEdges();
    void SetPanelWidths(const PanelWidths& wanted);
    void SavePlace() const;
    void LayOut();
    void LayOutAgain();
    void ShowZoom(int percent);
    void ShowComponents(bool shown);
    void BuildComponents();
    void ScrollToSelection();
    void ShowStatus();
    void ShowPosition();
    void EditInPlace(const QString& typed);
    void ChangeInPlace(const std::string& text);
    void ShowContextMenu(const QPoint& global);
    QString SelectionText() const;
    void ShowFileAndHistory();
    void ShowHints();
    void GoTo(const Hint& hint);
    void ShowCode(const std::string& source, std::size_t line);
    void ShowHandler(const std::string& handler);
    void ChangeProperty(const std::string& key, const std::string& value);

    void CheckKindEntry(int entry);
    void ChooseKindByToolbar(int button);
    void ChooseKindByMenu(int entry);
    void ApplyWindowPreset(int entry);
    void RefreshCodeMenu();
    void RefreshCodeMark(const CodeMark& mark, bool isPossible);
    void ChooseCodeMark(const CodeMark& mark);
    void SayExported(const std::string& path);
    void DeleteSelected();
    std::string ChooseUpdateFile();
    bool UpdateJavaFile(const std::string& path);
    bool CopySelected();
    void ArrangeSelected(Arrangement arrangement);
    void ShowSelectionCommands();
    void GoOnBehindEdit(int components);

    // The commands.
    void mnuFileNew();
    void mnuFileOpen();
    void mnuFileSave();
    void mnuFileKeptDesigns();
    void mnuFileImportJava();
    void mnuFileStartBlueJ();
    void mnuFileOptions();
    void mnuFileEnd();
    void mnuEditUndo();
    void mnuEditRedo();
    void mnuEditFind();
    void mnuEditCut();
    void mnuEditCopy();
    void mnuEditPaste();
    void mnuEditDuplicate();
    void mnuEditDelete();
    void mnuEditSelectAll();
    template <Arrangement arrangement>
    void mnuArrange() {
        ArrangeSelected(arrangement);
    }
    void mnuViewShowGrid();
    void mnuViewComponents();
    void mnuViewZoomIn();
    void mnuViewZoomOut();
    void mnuViewZoom100();
    void mnuViewZoom200();
    void mnuObjectsGrid();
    void mnuObjectsGuides();
    void mnuProjectSettings();
    void mnuProjectExportBlueJ();
    void mnuProjectExportJava();
    void mnuProjectExportText();
    void mnuProjectUpdateJava();
    void mnuProjectExportPicture();
    void mnuFunctionsMenuGenerator();
    void mnuFunctionsSQLGenerator();
    void mnuCodeMenu();
    void mnuCodeSQL();
    void mnuCodeGenerate();
    void mnuCodeTest();
    void mnuCodeStop();
    void mnuWindowSize0();
    void mnuWindowSize1();
    void mnuWindowSize2();
    void mnuHelpHandbook();
    void mnuHelpUpdate();
    void mnuHelpDonation();
    void mnuHelpAbout();

    cCommonDialog& dialogs_;
    ProgramStarter& starter_;
    Document document_;
    UnheldValues unheldValues_{document_};
    JavaFiles javaFiles_;
    std::string lastUpdateFile_; ///< chosen last; empty for none
    CodeOptions options_;        ///< as the marks of the code menu say
    Preferences preferences_;
    DesignCanvas canvas_;
    bool choosingByMenu_ = false; ///< keeps the toolbar's click from running the menu's logic again

    QWidget* surface_ = nullptr;
    QLabel* lblComponents_ = nullptr;
    QLabel* lblWindow_ = nullptr;
    QLabel* lblPosition_ = nullptr;
    QLabel* lblProperties_ = nullptr;
    tbComponents* tbComponents_ = nullptr;
    tbMain* tbMain_ = nullptr;
    picFrame* picFrame_ = nullptr;
    picContainer* picContainer_ = nullptr;
    plProperties* plProperties_ = nullptr;
    lstHints* lstHints_ = nullptr;
    pnlOutput* pnlOutput_ = nullptr;    ///< made with the first test
    QHash<QString, QAction*> commands_; ///< of the menus, by their names
    HintSearch* hintSearch_ = nullptr;
    cboZoom* cboZoom_ = nullptr;
    QDockWidget* dckComponents_ = nullptr; ///< made when it is shown first
    lstComponents* lstComponents_ = nullptr;
    QTimer liveTimer_; ///< runs out when the property list follows a drag
    QTimer hintTimer_; ///< runs out when the design has come to rest
    QLabel* panels_[3] = {};
    /// States of the design in which a mark of the code menu was on that went away with its reason.
    std::set<std::uint64_t> menuMarkStates_;
    std::set<std::uint64_t> databaseMarkStates_;
    std::uint64_t shownState_ = 0; ///< of the design
    /// Milliseconds for which the status bar says what has happened or where to go on.
    static constexpr int messageTime = 10000;
    PanelEdge* toolboxEdge_ = nullptr;
    PanelEdge* propertiesEdge_ = nullptr;
    PanelWidths panelWidths_; ///< as the user wants them
    bool keepsPlace_ = false;
    bool offersArranging_ = false;
    QSize designedSize_; ///< for which the window is laid out
    QSize laidOutSize_;  ///< of the whole main window
};

} // namespace pirol
