#include "FakeDialogs.h"
#include "menu/frmMenuGenerator.h"
#include "model/Conversions.h"
#include "window/Forms.h"

#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

namespace pirol {
namespace {

using test::Click;
using test::Part;
using test::Type;

constexpr const char* optionNames[] = {"optType0", "optType1", "optType2", "optType3"};

/// The bar with "|" between fields and "/" between lines.
QString Lines(const MenuBar& bar) {
    std::string lines = ReplaceAll(bar.CreatePRLString(), lineEnd, "/");
    lines = ReplaceAll(lines, std::string_view(&fieldSeparator, 1), "|");
    return QString::fromStdString(lines);
}

QString Rows(const QWidget& form) {
    const auto* const list = Part<QListWidget>(form, "lstEntries");
    QStringList rows;
    for (int row = 0; row < list->count(); ++row)
        rows << list->item(row)->text();
    return rows.join('/');
}

void Select(const QWidget& form, int row) {
    auto* const list = Part<QListWidget>(form, "lstEntries");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualItemRect(list->item(row - 1)).center());
}

void Choose(const QWidget& form, int option) {
    Click(form, optionNames[option]);
}

class MenuGeneratorTest : public QObject {
    Q_OBJECT

  private slots:
    void RefusesAndAdds_data();
    void RefusesAndAdds();
    void ProposesNames();
    void ButtonsActOnTheSelectedRow();
    void ShowsColoursAndDepth();
    void ClosesBothWays_data();
    void ClosesBothWays();
};

/// A bar of one menu with an entry and a submenu with an entry.
MenuBar SmallBar() {
    MenuBar bar;
    cMenu& menu = bar.Append("A", "hatMenueA");
    menu.AddEntry("x", cMenu::Entry);
    menu.AddEntry("B", cMenu::SubMenu)->AddEntry("y", cMenu::Entry);
    return bar;
}

constexpr const char* smallLines = "0|0|hatMenueA|A/1|2|x/1|1|B/2|2|y/";

void MenuGeneratorTest::RefusesAndAdds_data() {
    QTest::addColumn<int>("row"); // 0: nothing is selected
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("name"); // null: the proposed one
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("lines");

    const QString noChange;
    const QString onlyMenus = "In der 1. Ebene können nur Menüs erzeugt werden!";
    const QString noMenus = "Menüs können nur in der 1. Ebene erzeugt werden!";
    const QString tooDeep = "Max. Menütiefe erreicht!";
    const QString noCaption = "Bitte geben Sie eine Beschriftung an!";
    QTest::newRow("submenu in the bar") << 0 << 1 << "C" << QString() << onlyMenus << noChange;
    QTest::newRow("entry in the bar") << 0 << 2 << "C" << QString() << onlyMenus << noChange;
    QTest::newRow("separator in the bar") << 0 << 3 << "" << QString() << onlyMenus << noChange;
    QTest::newRow("menu without caption") << 0 << 0 << "" << QString() << noCaption << noChange;
    QTest::newRow("menu without name") << 0 << 0 << "C"
                                       << ""
                                       << "Bitte geben Sie einen Menünamen an!" << noChange;
    QTest::newRow("menu in a menu") << 1 << 0 << "C" << QString() << noMenus << noChange;
    QTest::newRow("menu beside an entry") << 2 << 0 << "C" << QString() << noMenus << noChange;
    QTest::newRow("submenu in a submenu") << 3 << 1 << "C" << QString() << tooDeep << noChange;
    QTest::newRow("submenu beside its entry") << 4 << 1 << "C" << QString() << tooDeep << noChange;
    QTest::newRow("entry without caption") << 1 << 2 << "" << QString() << noCaption << noChange;
    QTest::newRow("submenu without caption") << 1 << 1 << "" << QString() << noCaption << noChange;

    QTest::newRow("menu") << 0 << 0 << "C" << QString() << ""
                          << "0|0|hatMenueA|A/1|2|x/1|1|B/2|2|y/0|0|hatMenueC|C/";
    QTest::newRow("menu, own name") << 0 << 0 << "C"
                                    << "m"
                                    << ""
                                    << "0|0|hatMenueA|A/1|2|x/1|1|B/2|2|y/0|0|m|C/";
    QTest::newRow("entry into a menu") << 1 << 2 << "z" << QString() << ""
                                       << "0|0|hatMenueA|A/1|2|x/1|1|B/2|2|y/1|2|z/";
    QTest::newRow("entry behind an entry") << 2 << 2 << "\"Ä\"" << QString() << ""
                                           << "0|0|hatMenueA|A/1|2|x/1|2|\"Ä\"/1|1|B/2|2|y/";
    QTest::newRow("separator into a submenu") << 3 << 3 << "" << QString() << ""
                                              << "0|0|hatMenueA|A/1|2|x/1|1|B/2|2|y/2|3/";
    QTest::newRow("submenu into a menu") << 1 << 1 << "C" << QString() << ""
                                         << "0|0|hatMenueA|A/1|2|x/1|1|B/2|2|y/1|1|C/";
}

void MenuGeneratorTest::RefusesAndAdds() {
    QFETCH(int, row);
    QFETCH(int, option);
    QFETCH(QString, caption);
    QFETCH(QString, name);
    QFETCH(QString, message);
    QFETCH(QString, lines);
    MenuBar bar = SmallBar();
    test::FakeDialogs dialogs;
    frmMenuGenerator form(bar, dialogs, nullptr);
    form.show();
    if (row > 0)
        Select(form, row);
    Choose(form, 0);
    Type(form, "txtCaption", caption);
    if (!name.isNull())
        Type(form, "txtName", name);
    Choose(form, option);
    QTest::keyClick(Part<QLineEdit>(form, "txtCaption"), Qt::Key_Return);
    QCOMPARE(QString::fromStdString(dialogs.TakeSeen()), message.isEmpty() ? "" : "information " + message + "\n");
    QCOMPARE(Lines(bar), lines.isNull() ? smallLines : lines);
    QVERIFY(form.isVisible());
}

void MenuGeneratorTest::ProposesNames() {
    MenuBar bar;
    test::FakeDialogs dialogs;
    frmMenuGenerator form(bar, dialogs, nullptr);
    form.show();
    const auto* const name = Part<QLineEdit>(form, "txtName");
    Type(form, "txtCaption", "Über uns");
    QCOMPARE(name->text(), QString("hatMenueÜberuns"));
    Type(form, "txtCaption", "Größe");
    QCOMPARE(name->text(), QString("hatMenueGroeße"));
    Choose(form, 2);
    Type(form, "txtCaption", "Öffnen");
    QCOMPARE(name->text(), QString("hatMenueGroeße"));
    QVERIFY(!name->isEnabled());
}

void MenuGeneratorTest::ButtonsActOnTheSelectedRow() {
    const struct {
        int row;
        const char* button;
        QString rows;
        QString depth;
    } cases[] = {
        {1, "cmdDel", "D/    z", "0"},
        {2, "cmdDel", "A/    B/        y/D/    z", "1"},
        {4, "cmdDel", "A/    x/    B/D/    z", "2"},
        {5, "cmdMoveUp", "D/    z/A/    x/    B/        y", "1"},
        {1, "cmdMoveUp", "A/    x/    B/        y/D/    z", "1"},
        {1, "cmdMoveDown", "D/    z/A/    x/    B/        y", "1"},
        {2, "cmdMoveDown", "A/    B/        y/    x/D/    z", "1"},
        {3, "cmdMoveUp", "A/    B/        y/    x/D/    z", "2"},
        {6, "cmdMoveDown", "A/    x/    B/        y/D/    z", "1"},
        {4, "cmdLevelUp", "A/    x/    B/        y/D/    z", "1"},
        {3, "cmdLevelUp", "A/    x/    B/        y/D/    z", "1"},
        {1, "cmdLevelUp", "A/    x/    B/        y/D/    z", "0"},
    };
    for (const auto& row : cases) {
        MenuBar bar = SmallBar();
        bar.Append("D", "hatMenueD").AddEntry("z", cMenu::Entry);
        test::FakeDialogs dialogs;
        frmMenuGenerator form(bar, dialogs, nullptr);
        form.show();
        Select(form, row.row);
        Click(form, row.button);
        const QString what = QString("%1 on row %2").arg(row.button).arg(row.row);
        QVERIFY2(Rows(form) == row.rows, qPrintable(what + ": " + Rows(form)));
        QVERIFY2(Part<QLabel>(form, "lblDepth")->text() == "Aktuelle Menütiefe: " + row.depth, qPrintable(what));
    }
}

void MenuGeneratorTest::ShowsColoursAndDepth() {
    MenuBar bar = SmallBar();
    test::FakeDialogs dialogs;
    frmMenuGenerator form(bar, dialogs, nullptr);
    form.show();
    const auto* const list = Part<QListWidget>(form, "lstEntries");
    const QColor own = QListWidgetItem().foreground().color();
    const struct {
        QColor color;
        QString depth;
    } rows[] = {{own, "1"}, {QColor(50, 50, 50), "1"}, {QColor(100, 100, 100), "2"}, {own, "2"}};
    QCOMPARE(Part<QLabel>(form, "lblDepth")->text(), QString("Aktuelle Menütiefe: 0"));
    QVERIFY(!Part<QWidget>(form, "cmdDel")->isEnabled());
    for (int row = 0; row < list->count(); ++row) {
        QCOMPARE(list->item(row)->foreground().color(), rows[row].color);
        Select(form, row + 1);
        QCOMPARE(Part<QLabel>(form, "lblDepth")->text(), "Aktuelle Menütiefe: " + rows[row].depth);
    }
    // The way up ends in the bar, where only menus can be made.
    Choose(form, 2);
    Click(form, "cmdLevelUp");
    QVERIFY(Part<QRadioButton>(form, "optType2")->isChecked());
    Click(form, "cmdLevelUp");
    QVERIFY(Part<QRadioButton>(form, "optType0")->isChecked());
    QVERIFY(!Part<QWidget>(form, "cmdLevelUp")->isEnabled());
}

void MenuGeneratorTest::ClosesBothWays_data() {
    QTest::addColumn<QString>("button"); // empty: the Escape key
    QTest::addColumn<bool>("keeps");
    QTest::newRow("OK") << "cmdOK" << true;
    QTest::newRow("Abbrechen") << "cmdCancel" << false;
    QTest::newRow("Escape") << "" << false;
}

void MenuGeneratorTest::ClosesBothWays() {
    QFETCH(QString, button);
    QFETCH(bool, keeps);
    MenuBar bar = SmallBar();
    test::FakeDialogs dialogs;
    frmMenuGenerator form(bar, dialogs, nullptr);
    form.show();
    Type(form, "txtCaption", "C");
    Click(form, "cmdAdd");
    Select(form, 3);
    Click(form, "cmdDel");
    const QString edited = "0|0|hatMenueA|A/1|2|x/0|0|hatMenueC|C/";
    QCOMPARE(Lines(bar), edited);
    if (button.isEmpty())
        QTest::keyClick(&form, Qt::Key_Escape);
    else
        Click(form, button.toLatin1());
    QVERIFY(!form.isVisible());
    QCOMPARE(Lines(bar), keeps ? edited : smallLines);
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::MenuGeneratorTest)
#include "frmMenuGenerator_test.moc"
