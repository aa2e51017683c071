#pragma once

#include "app/ProjectSettings.h"

#include <QDialog>

namespace pirol {

class TextLine;

/// The dialog for the designed window's size and author. Width and height keep their proportion while they are typed.
class frmProjectSettings : public QDialog {
    Q_OBJECT

  public:
    frmProjectSettings(const WindowSettings& stored, QWidget* owner);

    /// What the user accepted; the stored settings before that.
    const WindowSettings& Settings() const { return settings_; }

    /// Takes the entries over and closes, or reports the error in them and stays open.
    void accept() override;

  private:
    TextLine* NewField(const char* name, const QString& accessibleName, const QString& toolTip,
                       void (ProjectSettings::*change)(const std::string&));
    void ShowTexts();

    ProjectSettings entered_;
    WindowSettings settings_;
    TextLine* txtWidth_;
    TextLine* txtHeight_;
    TextLine* txtAuthor_;
};

} // namespace pirol
