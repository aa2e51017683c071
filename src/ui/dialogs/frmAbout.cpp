#include "ui/dialogs/frmAbout.h"

#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"

#include <QCoreApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr const char* licence =
    "Pirol ist freie Software. Sie dürfen es unter den Bedingungen der GNU General Public License, Version 3 oder "
    "später, weitergeben und verändern. Es wird ohne jede Gewähr verbreitet, auch ohne die Zusicherung, für einen "
    "bestimmten Zweck geeignet zu sein. Der Text der Lizenz liegt dem Programm als Datei LICENSE bei.";

QString Libraries() {
    return QString("Qt %1 (GNU Lesser General Public License, Version 3)\n"
                   "libgcrypt und libgpg-error (GNU Lesser General Public License, Version 2.1)\n"
                   "C++-Standardbibliothek\n\n"
                   "Die erzeugten Programme benutzen die Java-Bibliothek SuM; sie gehört nicht zu Pirol.")
        .arg(qVersion());
}

QLabel* NewHeading(const QString& text, double scale) {
    auto* const heading = new QLabel(text);
    SetOff(heading, scale);
    return heading;
}

QLabel* NewText(const char* name, const QString& text) {
    QLabel* const label = NewNote(text, 60);
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setFocusPolicy(Qt::NoFocus);
    return label;
}

} // namespace

frmAbout::frmAbout(QWidget* owner) : QDialog(owner) {
    setObjectName("frmAbout");
    setWindowTitle("Pirol - Info");

    auto* const texts = new QVBoxLayout;
    texts->addWidget(NewHeading("Pirol", 2));
    texts->addWidget(NewText("lblVersion", "Version " + QCoreApplication::applicationVersion()));
    texts->addWidget(NewText("lblPurpose", "Entwirft grafische Oberflächen für kleine Java-Programme mit SuM."));
    texts->addSpacing(fontMetrics().lineSpacing());
    texts->addWidget(NewHeading("Lizenz", 1));
    texts->addWidget(NewText("lblLicence", licence));
    texts->addSpacing(fontMetrics().lineSpacing());
    texts->addWidget(NewHeading("Bibliotheken", 1));
    texts->addWidget(NewText("lblLibraries", Libraries()));
    texts->addStretch();
    LayOutNotice(this, ProgramIcon().pixmap(64, 64), texts);
}

} // namespace pirol
