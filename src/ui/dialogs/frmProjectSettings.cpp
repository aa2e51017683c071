#include "ui/dialogs/frmProjectSettings.h"

#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"
#include "ui/parts/TextLine.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace pirol {
namespace {

/// Writes a text that the field does not have yet. Writing the same one would move the user's caret.
void Show(TextLine* field, const std::string& text) {
    if (const QString shown = ToText(text); field->text() != shown)
        field->ShowText(shown);
}

} // namespace

frmProjectSettings::frmProjectSettings(const WindowSettings& stored, QWidget* owner)
    : QDialog(owner), entered_(stored), settings_(stored),
      txtWidth_(NewField("txtWidth", "Breite", "Breite des Fensters in Pixel; die Höhe geht im Verhältnis mit",
                         &ProjectSettings::ChangeWidth)),
      txtHeight_(NewField("txtHeight", "Höhe", "Höhe des Fensters in Pixel; die Breite geht im Verhältnis mit",
                          &ProjectSettings::ChangeHeight)),
      txtAuthor_(NewField("txtAuthor", "Autor", "Wer das Projekt gemacht hat; steht in der Projektdatei",
                          &ProjectSettings::ChangeAuthor)) {
    setObjectName("frmProjectSettings");
    setWindowTitle("Pirol - Projekteinstellungen");
    txtAuthor_->setMinimumWidth(fontMetrics().averageCharWidth() * 40);

    auto* const form = new QFormLayout;
    form->addRow("&Breite:", txtWidth_);
    form->addRow("&Höhe:", txtHeight_);
    form->addRow("&Autor:", txtAuthor_);
    auto* const cmdAccept = NewButton("cmdAccept", "Über&nehmen", "Die Einstellungen übernehmen");
    auto* const cmdCancel = NewButton("cmdCancel", "Abbrechen", "Die Einstellungen lassen, wie sie sind");
    cmdAccept->setDefault(true);
    auto* const all = new QVBoxLayout(this);
    all->addLayout(form);
    all->addStretch();
    all->addLayout(NewButtonRow({cmdAccept, cmdCancel}));

    connect(cmdAccept, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ShowTexts();
    txtWidth_->selectAll();
}

TextLine* frmProjectSettings::NewField(const char* name, const QString& accessibleName, const QString& toolTip,
                                       void (ProjectSettings::*change)(const std::string&)) {
    auto* const field = Named(new TextLine, name, accessibleName);
    field->setToolTip(toolTip);
    connect(field, &QLineEdit::textChanged, this, [this, change](const QString& text) {
        (entered_.*change)(text.toStdString());
        ShowTexts();
    });
    return field;
}

void frmProjectSettings::ShowTexts() {
    Show(txtWidth_, entered_.WidthText());
    Show(txtHeight_, entered_.HeightText());
    Show(txtAuthor_, entered_.AuthorText());
}

void frmProjectSettings::accept() {
    if (ReportErrors(this, [this] { settings_ = entered_.Accept(); }))
        QDialog::accept();
}

} // namespace pirol
