#pragma once

#include "model/ProjectModel.h"

#include <QByteArray>
#include <QDialog>

class QCheckBox;
class QLabel;

namespace pirol {

class cCommonDialog;
struct FileDialogSetup;
enum class WindowFrame;

/// Shows the picture of the designed window and saves or copies it, with or without a frame.
class frmPicture : public QDialog {
    Q_OBJECT

  public:
    frmPicture(ProjectModel model, cCommonDialog& dialogs, QWidget* owner);

    /// The file that was written; empty when there is none.
    const std::string& Saved() const { return saved_; }

  private:
    WindowFrame Frame() const;
    void ShowPicture();
    void Save(const FileDialogSetup& setup, QByteArray (*bytes)(const ProjectModel&, WindowFrame));
    void Copy();

    ProjectModel model_;
    cCommonDialog& dialogs_;
    std::string saved_;
    QLabel* lblPicture_;
    QCheckBox* chkFrame_;
};

} // namespace pirol
