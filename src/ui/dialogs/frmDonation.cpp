#include "ui/dialogs/frmDonation.h"

#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"

#include <QLabel>
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
    auto* const texts = new QVBoxLayout;
    texts->addWidget(lblDonation);
    LayOutNotice(this, CommandIcon("donate").pixmap(48, 48), texts);
}

} // namespace pirol
