#include "ui/dialogs/frmCommonDialog.h"

#include "app/UpdateCommands.h"
#include "base/FileAccess.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/LateModules.h"
#include "ui/parts/RunBeside.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QHeaderView>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTranslator>
#include <QTreeView>

namespace pirol {
namespace {

constexpr int charactersWide = 120;

/// The window that the user is working in; the dialogs open in its middle.
QWidget* Owner() {
    QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

/// For Qt, "*.*" asks for a dot in the name; here it means every file.
QString ToPattern(const std::string& pattern) {
    return pattern == "*.*" ? QStringLiteral("*") : ToText(pattern);
}

QStringList NameFilters(std::string_view filter) {
    QStringList names;
    for (const FileFilter& entry : FileFilters(filter)) {
        QStringList patterns;
        for (const std::string& pattern : entry.patterns)
            patterns << ToPattern(pattern);
        names << ToText(entry.text) + " (" + patterns.join(' ') + ")";
    }
    return names;
}

/// Shows all columns whole. A dialog of the desktop has no such list.
void FitColumns(const QFileDialog& dialog) {
    if (const auto* const files = dialog.findChild<QTreeView*>()) {
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
}

/// The chosen filter says what a name without an extension gets.
void AddExtensions(QFileDialog& dialog, const FileDialogSetup& setup) {
    const auto follow = [&dialog, filters = FileFilters(setup.Filter)](const QString& chosen) {
        const auto index = static_cast<std::size_t>(std::max(dialog.nameFilters().indexOf(chosen), qsizetype{0}));
        dialog.setDefaultSuffix(index < filters.size() ? ToText(ExtensionOf(filters[index])) : QString());
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    follow(dialog.selectedNameFilter());
}

/// The dialog hides the patterns that NameFilters appends, so the user reads each filter's text as it stands.
void SetUp(QFileDialog& dialog, const FileDialogSetup& setup) {
    dialog.setObjectName(ToText(setup.Name));
    dialog.resize(dialog.fontMetrics().averageCharWidth() * charactersWide, dialog.sizeHint().height());
    FitColumns(dialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters(NameFilters(setup.Filter));
    AddExtensions(dialog, setup);
    // The dialog goes to the folder of a whole path only.
    if (const QFileInfo preset(ToText(setup.FileName)); preset.fileName() != preset.filePath())
        dialog.selectFile(preset.absoluteFilePath());
    else if (!setup.FileName.empty())
        dialog.selectFile(preset.fileName());
}

/// Opening a BlueJ project's folder takes it, where the desktop's own dialog would only go into it.
class OpenDialog : public QFileDialog {
  public:
    OpenDialog(const QString& title, bool takesProjects) : QFileDialog(Owner(), title), takesProjects_(takesProjects) {}

    void accept() override {
        const QString chosen = selectedFiles().value(0);
        if (takesProjects_ && !chosen.isEmpty() && IsBlueJProject(PathOf(chosen.toStdString())))
            done(Accepted);
        else
            QFileDialog::accept();
    }

  private:
    bool takesProjects_;
};

QString Title(const FileDialogSetup& setup, const QString& otherwise) {
    return setup.Title.empty() ? otherwise : ToText(setup.Title);
}

std::string Run(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst()).toStdString();
}

QString ProgramName() {
    const QString name = QGuiApplication::applicationDisplayName();
    return name.isEmpty() ? QStringLiteral("Pirol") : name;
}

/// A message box whose text is shown as it is, whatever signs it holds.
class Message : public QMessageBox {
  public:
    Message(Icon icon, const QString& title, std::string_view text)
        : QMessageBox(icon, title, ToLines(text), NoButton, Owner()) {
        setTextFormat(Qt::PlainText);
        setObjectName("message");
    }
};

void ShowMessage(QMessageBox::Icon icon, const QString& title, std::string_view text) {
    Message message(icon, title, text);
    message.setDefaultButton(message.addButton("OK", QMessageBox::AcceptRole));
    message.exec();
}

} // namespace

void SpeakGerman(QCoreApplication& application) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto* const translator = new QTranslator(&application);
    if (translator->load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

std::string frmCommonDialog::ShowOpen(const FileDialogSetup& setup) {
    OpenDialog dialog(Title(setup, "Öffnen"), (setup.Flags & FileDialogSetup::BlueJFolder) != 0);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode((setup.Flags & FileDialogSetup::FileMustExist) != 0 ? QFileDialog::ExistingFile
                                                                           : QFileDialog::AnyFile);
    SetUp(dialog, setup);
    return Run(dialog);
}

std::string frmCommonDialog::ShowSave(const FileDialogSetup& setup) {
    QFileDialog dialog(Owner(), Title(setup, "Speichern unter"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    SetUp(dialog, setup);
    const bool folderMustExist = (setup.Flags & (FileDialogSetup::PathMustExist | FileDialogSetup::FileMustExist)) != 0;
    for (std::string path = Run(dialog); !path.empty(); path = Run(dialog)) {
        const QFileInfo folder(QFileInfo(ToText(path)).path());
        if (!folderMustExist || folder.isDir())
            return path;
        Critical(dialog.windowTitle().toStdString(),
                 "Der Ordner „" + QDir::toNativeSeparators(folder.filePath()).toStdString() + "“ ist nicht vorhanden.");
    }
    return {};
}

std::optional<std::uint32_t> frmCommonDialog::ShowColor(std::uint32_t current) {
    QColorDialog dialog(ToColor(current), Owner());
    dialog.setObjectName("colorDialog");
    dialog.setWindowTitle("Farbe wählen");
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return FromColor(dialog.selectedColor());
}

std::optional<FontChoice> frmCommonDialog::ShowFont(const FontChoice& current) {
    QFont font(ToText(current.Family));
    font.setStyleName(ToText(current.Style));
    font.setPointSizeF(current.PointSize);
    QFontDialog dialog(font, Owner());
    dialog.setObjectName("fontDialog");
    dialog.setWindowTitle("Schriftart wählen");
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QFont chosen = dialog.selectedFont();
    return FontChoice{chosen.family().toStdString(), chosen.styleName().toStdString(), chosen.pointSizeF()};
}

std::optional<PrintJob> frmCommonDialog::ShowPrinter() {
    return NewSystemPrinters()->Ask(Owner());
}

void frmCommonDialog::Information(std::string_view text) {
    ShowMessage(QMessageBox::Information, ProgramName(), text);
}

void frmCommonDialog::Critical(std::string_view title, std::string_view text) {
    ShowMessage(QMessageBox::Critical, ToText(title), text);
}

bool frmCommonDialog::Question(std::string_view text) {
    Message message(QMessageBox::Warning, ProgramName(), text);
    const QPushButton* const yes = message.addButton("&Ja", QMessageBox::YesRole);
    QPushButton* const no = message.addButton("&Nein", QMessageBox::NoRole);
    message.setDefaultButton(no);
    message.setEscapeButton(no);
    message.exec();
    return message.clickedButton() == yes;
}

void frmCommonDialog::Wait(const std::function<void()>& work) {
    RunBeside(work);
}

} // namespace pirol
