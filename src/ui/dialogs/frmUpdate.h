#pragma once

#include "app/cDownload.h"
#include "app/DownloadFolder.h"
#include "app/VersionLookup.h"

#include <QDialog>
#include <QTimer>

#include <memory>

class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace pirol {

/// The online update: looks for a newer version, says what is new in it, and loads it with pause and going on. Accepted
/// when the user wants to install what is loaded and right; closed otherwise it leaves the part that can go on.
class frmUpdate : public QDialog {
    Q_OBJECT

  public:
    /// Begins to look as soon as it is shown. What is loaded lies in `folder`. All that is passed must outlive the
    /// form.
    frmUpdate(Transport& transport, const UpdateSource& source, const InstalledProgram& program,
              std::filesystem::path folder, QWidget* owner);
    ~frmUpdate() override;

    /// The setup program that the user wants to install.
    const std::filesystem::path& Setup() const { return download_->File(); }

  private:
    QLayout* NewTexts();
    void Look();
    void ShowLookup();
    void Offered();
    void ShowDownload();
    void ShowProgress();
    void Press();
    void Say(const QString& heading, const QString& text);

    Transport& transport_;
    const InstalledProgram program_;
    const std::filesystem::path folder_;
    VersionLookup lookup_;
    std::unique_ptr<DownloadFolder> target_;
    std::unique_ptr<cDownload> download_;
    const UpdateSource& source_;
    QLabel* lblState_;
    QLabel* lblText_;
    QLabel* lblNotes_;
    QPlainTextEdit* txtNotes_;
    QProgressBar* prgDownload_;
    QLabel* lblProgress_;
    QPushButton* cmdLoad_;
    QPushButton* cmdDiscard_;
    QPushButton* cmdInstall_;
    QTimer progressTimer_;
};

} // namespace pirol
