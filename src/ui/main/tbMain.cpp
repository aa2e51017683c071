#include "ui/main/tbMain.h"

#include "ui/parts/FormParts.h"
#include "ui/parts/Tokens.h"

#include <QAction>
#include <QToolButton>

namespace pirol {

tbMain::tbMain(QWidget* parent) : QToolBar("Werkzeuge", parent) {
    Named(this, "tbMain", "Werkzeuge");
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu); // it cannot be hidden
    setIconSize({tokens::toolIcon, tokens::toolIcon});
}

void tbMain::Add(QAction* command) {
    if (command == nullptr) {
        addSeparator();
        return;
    }
    const QString keys = command->shortcut().toString(QKeySequence::NativeText);
    command->setToolTip(command->statusTip() + (keys.isEmpty() ? QString() : " (" + keys + ")"));
    addAction(command);
    QWidget* const button = widgetForAction(command);
    Named(button, qPrintable("tbMain_" + command->objectName()), command->text().remove('&'));
    button->setFocusPolicy(Qt::NoFocus);
}

void tbMain::ShowCaption(QAction* command, const QString& caption) {
    command->setIconText(caption);
    qobject_cast<QToolButton*>(widgetForAction(command))->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

} // namespace pirol
