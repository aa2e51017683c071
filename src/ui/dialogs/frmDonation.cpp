#include "ui/dialogs/frmDonation.h"

#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr const char* text =
    "Pirol ist frei und kostet nichts, weder in der Schule noch zu Hause. Es entsteht in der Freizeit.\n\n"
    "Wenn Ihnen das Programm im Unterricht hilft, freuen wir uns über eine Spende, über Berichte von Fehlern und über "
    "Beispiele, die andere weiterverwenden dürfen.\n\n"
    "Schreiben Sie dazu eine eMail an support@pirol.example. Wir nennen Ihnen dann die Bankverbindung und danken für "
    "jede Unterstützung!";

} // namespace

frmDonation::frmDonation(QWidget* owner) : QDialog(owner) {
    setObjectName("frmDonation");
    setWindowTitle("Pirol - Spenden");
    QLabel* const lblDonation = NewNote(text, 60);
    lblDonation->setObjectName("lblDonation");
    lblDonation->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const cmdClose = NewButton("cmdClose", "&Schließen");
    cmdClose->setDefault(true);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* const icon = new QLabel;
    icon->setPixmap(CommandIcon("donate").pixmap(48, 48));
    icon->setAlignment(Qt::AlignTop);
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(fontMetrics().averageCharWidth() * 3);
    columns->addWidget(icon);
    columns->addWidget(lblDonation, 1);
    auto* const all = new QVBoxLayout(this);
    all->addLayout(columns, 1);
    all->addSpacing(fontMetrics().lineSpacing() / 2);
    all->addWidget(cmdClose, 0, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace pirol
