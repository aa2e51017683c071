#pragma once

#include "model/ProjectModel.h"
#include "ui/canvas/PictureLoader.h"
#include "ui/canvas/WindowPicture.h"

#include <QByteArray>
#include <QDialog>

class QCheckBox;
class QLabel;

namespace pirol {

class cCommonDialog;
struct FileDialogSetup;

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
    void Save(const FileDialogSetup& setup,
              QByteArray (*bytes)(const ProjectModel&, WindowFrame, const PictureSource&));
    void Copy();

    ProjectModel model_;
    cCommonDialog& dialogs_;
    PictureLoader loader_{nullptr}; ///< for what is shown; what is saved waits for its pictures
    std::string saved_;
    QLabel* lblPicture_;
    QCheckBox* chkFrame_;
};

} // namespace pirol
