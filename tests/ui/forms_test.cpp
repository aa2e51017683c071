#include "controls/PropertyTable.h"
#include "FakeDialogs.h"
#include "ui/code/frmCode.h"
#include "ui/code/frmPrint.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/dialogs/frmDonation.h"
#include "ui/dialogs/frmHelp.h"
#include "ui/dialogs/frmMenuGenerator.h"
#include "ui/dialogs/frmPreferences.h"
#include "ui/dialogs/frmProjectSettings.h"
#include "ui/dialogs/frmRecovery.h"
#include "ui/dialogs/frmSQLGenerator.h"
#include "ui/Forms.h"
#include "ui/parts/frmError.h"
#include "ui/properties/frmListEditor.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTextDocument>

#include <functional>
#include <memory>

namespace pirol::test {

/// What the forms work on.
struct Program {
    QWidget* owner = nullptr;
    FakeDialogs dialogs;
    MenuBar bar;
    SQLSettings sql;
    Preferences preferences;
    WindowSettings window = {640, 480, "A"};
    QTextDocument source;
};

struct FormRow {
    const char* name;
    const char* defaultButton; ///< empty where Enter belongs to the text
    std::function<QDialog*(Program&)> make;
};

const FormRow forms[] = {
    {"frmMenuGenerator", "cmdAdd", [](Program& p) { return new frmMenuGenerator(p.bar, p.dialogs, p.owner); }},
    {"frmSQLGenerator", "cmdStepForward", [](Program& p) { return new frmSQLGenerator(p.sql, p.owner); }},
    {"frmPreferences", "cmdAccept", [](Program& p) { return new frmPreferences(p.preferences, p.dialogs, p.owner); }},
    {"frmProjectSettings", "cmdAccept", [](Program& p) { return new frmProjectSettings(p.window, p.owner); }},
    {"frmListEditor", "cmdAccept",
     [](Program& p) {
         const PropertyKey& key = keys::optionbuttons;
         return new frmListEditor({key.key, key.label, false, "", key.editor, key.detail}, p.owner);
     }},
    {"frmCode", "",
     [](Program& p) {
         auto* const form = new frmCode("class A {}", p.owner);
         form->OfferPrinting([](QTextDocument&) {});
         return form;
     }},
    {"frmPrint", "cmdPrinter", [](Program& p) { return new frmPrint(p.source, p.dialogs, p.owner); }},
    {"frmError", "cmdClose", [](Program& p) { return new frmError(RuntimeError(RuntimeError::DiskFull), p.owner); }},
    {"frmHelp", "cmdClose", [](Program& p) { return new frmHelp(p.owner); }},
    {"frmRecovery", "cmdRestore",
     [](Program& p) {
         return new frmRecovery({{}, "/home/anna/Quiz.prl"}, 0, 2, p.owner);
     }},
    {"frmAbout", "cmdClose", [](Program& p) { return new frmAbout(p.owner); }},
    {"frmDonation", "cmdClose", [](Program& p) { return new frmDonation(p.owner); }},
};

/// What every form owes its user, whatever it is for.
class FormsTest : public QObject {
    Q_OBJECT

  private slots:
    /// Each test runs for each form.
    void initTestCase_data() {
        QTest::addColumn<int>("index");
        for (int index = 0; index < static_cast<int>(std::size(forms)); ++index)
            QTest::newRow(forms[index].name) << index;
    }

    void cleanup() { QApplication::setFont(font_); }

    void OpensInTheMiddleAndKnowsEnterAndEscape() {
        QFETCH_GLOBAL(int, index);
        const QDialog& form = Open();
        QCOMPARE(form.objectName(), QString(forms[index].name));
        QVERIFY(form.windowTitle().startsWith("Pirol - "));
        // A form that is about as large as this screen has no place in the middle.
        if (const QSize room = form.screen()->availableSize() * 0.8; form.size().boundedTo(room) == form.size()) {
            const QPoint distance = form.frameGeometry().center() - owner_.frameGeometry().center();
            QVERIFY2(distance.manhattanLength() < 40,
                     qPrintable(QString("%1, %2").arg(distance.x()).arg(distance.y())));
        }
        QStringList defaults;
        for (const QPushButton* const button : form.findChildren<QPushButton*>())
            if (button->isDefault())
                defaults << button->objectName();
        QCOMPARE(defaults.join(' '), QString(forms[index].defaultButton));
        Press(Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    }

    void EveryKeyIsGivenOnceAndEveryFieldHasItsLabel() {
        const QDialog& form = Open();
        QSet<QString> keys;
        QList<const QWidget*> labelled;
        const auto checkKey = [&keys](const QWidget& owner, const QString& caption) {
            const QString key = QKeySequence::mnemonic(caption).toString();
            QVERIFY2(key.isEmpty() || !owner.isVisible() || !keys.contains(key), qPrintable(caption));
            keys << (owner.isVisible() ? key : QString());
        };
        for (const QAbstractButton* const button : form.findChildren<QAbstractButton*>())
            checkKey(*button, button->text());
        for (const QLabel* const label : form.findChildren<QLabel*>()) {
            labelled << label->buddy();
            QVERIFY(!label->text().contains("href")); // the program opens nothing in a browser
            if (label->buddy() != nullptr)
                checkKey(*label, label->text());
        }
        for (const QLineEdit* const field : form.findChildren<QLineEdit*>())
            QVERIFY2(!field->isVisible() || labelled.contains(field), qPrintable(field->objectName()));
    }

    void EveryControlSaysWhatItIs() {
        const QStringList selfExplaining = {"cmdClose", "cmdCopy", "cmdStepBack", "cmdStepForward",
                                            "txtError", "rtfCode", "tabs"};
        for (const QWidget* const control : Controls(Open())) {
            const QString name = control->objectName();
            QVERIFY2(!name.isEmpty(), control->metaObject()->className());
            QVERIFY2(control->inherits("QTabBar") || !control->accessibleName().isEmpty(), qPrintable(name));
            QVERIFY2(selfExplaining.contains(name) || !control->toolTip().isEmpty(), qPrintable(name));
        }
    }

    void TabLeadsThroughAllControls() {
        QDialog& form = Open();
        QSet<QWidget*> reached;
        QPoint last;
        int backwards = 0;
        const int most = static_cast<int>(form.findChildren<QWidget*>().size());
        for (int step = 0; step < most && !reached.contains(form.focusWidget()); ++step) {
            QWidget* const control = form.focusWidget();
            QVERIFY(control != nullptr);
            const QPoint place = control->mapTo(&form, QPoint());
            backwards += place.y() < last.y() - control->height() ? 1 : 0;
            last = place;
            reached << control;
            QTest::keyClick(&form, Qt::Key_Tab);
        }
        for (QWidget* const control : Controls(form)) {
            // The Tab key reaches one button of a group; the arrow keys lead to the others.
            const auto* const option = qobject_cast<QRadioButton*>(control);
            QVERIFY2(reached.contains(control) || (option != nullptr && !option->isChecked()),
                     qPrintable(control->objectName()));
        }
        // From the top to the bottom, at most one column after the other, and from the bottom to the top once.
        QVERIFY2(backwards <= 2, qPrintable(QString::number(backwards)));
    }

    void NothingIsClipped() {
        for (const double scale : {1.0, 1.6, 2.2}) {
            QFont font = font_;
            font.setPointSizeF(font_.pointSizeF() * scale);
            QApplication::setFont(font);
            QDialog& form = Open();
            form.resize(form.minimumSize());
            QApplication::processEvents();
            for (const QWidget* const widget : form.findChildren<QWidget*>()) {
                const auto* const label = qobject_cast<const QLabel*>(widget);
                const bool speaks = label != nullptr || qobject_cast<const QAbstractButton*>(widget) != nullptr;
                if (!speaks || !widget->isVisible())
                    continue;
                const int height = label != nullptr && label->wordWrap() ? label->heightForWidth(label->width())
                                                                         : widget->minimumSizeHint().height();
                const QString what = QString("%1 \"%2\" at %3").arg(widget->objectName(), widget->accessibleName());
                QVERIFY2(widget->width() >= widget->minimumSizeHint().width(), qPrintable(what.arg(scale)));
                QVERIFY2(widget->height() >= height, qPrintable(what.arg(scale)));
            }
            // The dots of a capital umlaut need more than the height of the font.
            for (const QListWidget* const list : form.findChildren<QListWidget*>())
                QVERIFY2(list->count() == 0 || list->sizeHintForRow(0) > list->fontMetrics().height(),
                         qPrintable(list->objectName()));
        }
    }

  private:
    /// The form of the current row, shown over the owner.
    QDialog& Open() {
        QFETCH_GLOBAL(int, index);
        owner_.setGeometry(40, 30, 720, 540);
        owner_.show();
        form_.reset();
        program_ = std::make_unique<Program>();
        program_->owner = &owner_;
        form_.reset(forms[index].make(*program_));
        form_->setAttribute(Qt::WA_DeleteOnClose, false); // this test does it
        Show(*form_);
        return *form_;
    }

    /// The controls that the user can reach with the Tab key.
    static QList<QWidget*> Controls(const QDialog& form) {
        QList<QWidget*> controls;
        for (QWidget* const widget : form.findChildren<QWidget*>())
            if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled() &&
                !widget->objectName().startsWith("qt_") && widget->focusProxy() == nullptr)
                controls << widget;
        return controls;
    }

    QFont font_ = QApplication::font();
    QWidget owner_;
    std::unique_ptr<Program> program_;
    std::unique_ptr<QDialog> form_;
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::FormsTest)
#include "forms_test.moc"
