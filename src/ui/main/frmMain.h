#pragma once

#include "app/cCommonDialog.h"
#include "app/Preferences.h"
#include "app/ProgramStarter.h"
#include "codegen/JavaGenerator.h"
#include "designer/DesignCanvas.h"
#include "model/ProjectModel.h"

#include <QMainWindow>
#include <QSize>
#include <QTimer>

#include <functional>
#include <span>
#include <string>

class QAction;
class QLabel;
class QMenu;
class QScrollBar;

namespace pirol {

class lstHints;
class picContainer;
class plProperties;
class tbComponents;
struct Hint;

/// The main window. It owns the design and everything around it: toolbar, canvas with its scroll bars, property list,
/// list of hints, status bar and the menu with every command of the program. A command is a function of the same name;
/// one that has no function yet is disabled.
class frmMain : public QMainWindow {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmMain)

  public:
    frmMain(cCommonDialog& dialogs, ProgramStarter& starter, const Preferences& preferences = {});
    ~frmMain() override;

    ProjectModel& Model() { return model_; }
    DesignCanvas& Canvas() { return canvas_; }

    // The operations of consequence. Each runs under its error label, shows the error report when it fails, and brings
    // the window up to date.

    /// The generated source; empty when it failed.
    std::string GenerateCode();
    /// The project file's bytes; empty when it failed.
    std::string GeneratePRLCode();
    /// Loads a project file in place of the design.
    void ReadPRLFile(const std::string& path);
    /// Fills the design from Java source.
    void AnalyseCode(const std::string& source);
    /// Shows the properties of the selected component.
    void LoadProperties();

    /// Runs an operation, shows the error report when it fails, and brings the window up to date with the design.
    /// False when it failed.
    bool Run(const std::function<void()>& operation);
    /// Brings the window up to date with the design, the selection and the canvas's state.
    void ShowDesign();

  signals:
    /// The design was changed, or what it was changed to has been saved.
    void DesignChanged();

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct CommandRow;
    struct CommandTable;

    void SetPreferences(const Preferences& preferences);
    void BuildMenus();
    void BuildSurface();
    void BuildStatusBar();
    void AddCommand(QMenu* menu, const CommandRow& row);
    void AddKindCommands(QMenu* menu);
    QAction* Command(const QString& name) const;

    void LayOut();
    void LayOutAgain();
    void ShowScrolledCanvas();
    void ScrollToSelection();
    void ShowStatus();
    void ShowHints();
    void GoTo(const Hint& hint);
    void ChangeProperty(const std::string& key, const std::string& value);

    void CheckKindEntry(int entry);
    void ChooseKindByToolbar(int button);
    void ChooseKindByMenu(int entry);
    void ApplyWindowPreset(int entry);
    void RefreshCodeMenu();

    // The commands.
    void mnuFileNew();
    void mnuFileOpen();
    void mnuFileSave();
    void mnuFileImportJava();
    void mnuFileStartBlueJ();
    void mnuFileOptions();
    void mnuFileEnd();
    void mnuViewShowGrid();
    void mnuObjectsGrid();
    void mnuProjectSettings();
    void mnuProjectExportBlueJ();
    void mnuProjectExportJava();
    void mnuProjectExportText();
    void mnuFunctionsMenuGenerator();
    void mnuFunctionsSQLGenerator();
    void mnuCodeMenu();
    void mnuCodeSQL();
    void mnuCodeGenerate();
    void mnuWindowSize0();
    void mnuWindowSize1();
    void mnuWindowSize2();
    void mnuHelpHandbook();
    void mnuHelpDonation();
    void mnuHelpAbout();

    cCommonDialog& dialogs_;
    ProgramStarter& starter_;
    ProjectModel model_;
    CodeOptions options_;
    Preferences preferences_;
    DesignCanvas canvas_;
    bool choosingByMenu_ = false; ///< keeps the toolbar's click from running the menu's logic again

    QWidget* surface_ = nullptr;
    QLabel* lblComponents_ = nullptr;
    QLabel* lblWindow_ = nullptr;
    QLabel* lblProperties_ = nullptr;
    tbComponents* tbComponents_ = nullptr;
    QWidget* picFrame_ = nullptr;
    QWidget* viewport_ = nullptr;
    picContainer* picContainer_ = nullptr;
    QScrollBar* vScroll_ = nullptr;
    QScrollBar* hScroll_ = nullptr;
    plProperties* plProperties_ = nullptr;
    lstHints* lstHints_ = nullptr;
    QTimer hintTimer_; ///< runs out when the design has come to rest
    QLabel* panels_[3] = {};
    QSize designedSize_; ///< for which the window is laid out
    QSize laidOutSize_;  ///< of the whole main window
};

} // namespace pirol
