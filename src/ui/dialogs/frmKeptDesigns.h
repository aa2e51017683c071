#pragma once

#include "project/KeptDesigns.h"
#include "ui/canvas/DesignImage.h"
#include "ui/canvas/PictureLoader.h"

#include <QDialog>
#include <QTimer>

#include <optional>

class QListWidget;
class QPushButton;

namespace pirol {

class cCommonDialog;

/// Shows the kept designs with picture, name, time and reason. One can be restored; one or all can be deleted.
class frmKeptDesigns : public QDialog {
    Q_OBJECT

  public:
    frmKeptDesigns(std::filesystem::path folder, cCommonDialog& dialogs, QWidget* owner);

    /// The design to restore; nothing unless the form was accepted.
    const std::optional<OpenDesign>& Chosen() const { return chosen_; }

  private:
    void ShowList();
    void PaintAll();
    void PaintNext();
    void ShowButtons();
    void Restore();
    void DeleteChosen();
    void DeleteAll();

    std::filesystem::path folder_;
    cCommonDialog& dialogs_;
    std::vector<KeptDesign> kept_; ///< as in the list
    std::size_t painted_ = 0;      ///< how many have their picture
    QTimer painting_;
    PictureLoader loader_{nullptr};
    std::optional<DesignPicture> picture_; ///< of the one that is being painted
    std::optional<OpenDesign> chosen_;
    QListWidget* lstKept_;
    QPushButton* cmdRestore_;
    QPushButton* cmdDelete_;
    QPushButton* cmdDeleteAll_;
};

} // namespace pirol
