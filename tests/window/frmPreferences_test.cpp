#include "app/frmPreferences.h"
#include "Cases.h"
#include "FakeDialogs.h"
#include "window/Forms.h"

#include <QRadioButton>
#include <QTabWidget>

namespace pirol {
namespace {

using test::Click;
using test::Part;
using test::Type;

constexpr const char* warning =
    "information Der BlueJ - Pfad ist fehlerhaft.\r\nEinige Funktionen können daher nicht arbeiten\n";

class PreferencesTest : public QObject {
    Q_OBJECT

  private slots:
    void init();
    void ShowsWhatIsPreferred();
    void AcceptStores_data();
    void AcceptStores();
    void ClosingStoresNothing();
    void ChoosesColours();
    void LooksForBlueJ_data();
    void LooksForBlueJ();

  private:
    test::ScratchFolder folder_;
};

/// Each test has a store of its own, empty at first.
void PreferencesTest::init() {
    std::filesystem::remove_all(folder_ / "config");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(TextOf(folder_ / "config")));
    std::filesystem::create_directories(folder_ / "Blue J/BLUEJ.EXE.lnk");
    ReplaceFileBytes(folder_ / "Blue J/BLUEJ.EXE", "");
    ReplaceFileBytes(folder_ / "Blue J/other.exe", "");
}

void PreferencesTest::ShowsWhatIsPreferred() {
    Preferences preferences = {"C:\\BlueJ\\bluej.exe", 2, 0x0000FF};
    test::FakeDialogs dialogs;
    frmPreferences form(preferences, dialogs, nullptr);
    form.show();
    QVERIFY(Part<QRadioButton>(form, "optGridStyle2")->isChecked());
    QCOMPARE(Part<QLineEdit>(form, "txtBlueJPath")->text(), QString("C:\\BlueJ\\bluej.exe"));
    const auto* const tabs = Part<QTabWidget>(form, "tbPreferences");
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(tabs->tabText(0), QString("Allgemein"));
    auto* const box = Part<QWidget>(form, "picGridColor");
    QCOMPARE(box->grab().toImage().pixelColor(box->rect().center()), QColor(255, 0, 0));
}

void PreferencesTest::AcceptStores_data() {
    QTest::addColumn<QString>("path"); // "*": the program that exists
    QTest::addColumn<bool>("warns");
    QTest::newRow("right") << "*" << false;
    QTest::newRow("empty") << "" << true;
    QTest::newRow("missing") << "/no/such/bluej.exe" << true;
    QTest::newRow("folder") << "*.lnk" << true;
}

void PreferencesTest::AcceptStores() {
    QFETCH(QString, path);
    QFETCH(bool, warns);
    path.replace("*", QString::fromStdString(TextOf(folder_ / "Blue J/BLUEJ.EXE")));
    Preferences preferences;
    test::FakeDialogs dialogs;
    dialogs.colors = {0x123456};
    frmPreferences form(preferences, dialogs, nullptr);
    form.show();
    Click(form, "optGridStyle1");
    Click(form, "cmdBrowseGridColor");
    QCOMPARE(QString::fromStdString(dialogs.TakeSeen()), QString("color 0\n"));
    Type(form, "txtBlueJPath", path);
    Click(form, "cmdAccept");
    QCOMPARE(QString::fromStdString(dialogs.TakeSeen()), QString(warns ? warning : ""));
    QVERIFY(!form.isVisible());
    const Preferences expected = {path.toStdString(), 1, 0x123456};
    QVERIFY(preferences == expected);
    QVERIFY(Preferences::Load() == expected);
}

void PreferencesTest::ClosingStoresNothing() {
    for (const char* const button : {"cmdCancel", ""}) {
        Preferences preferences = {"old", 1, 7};
        test::FakeDialogs dialogs;
        frmPreferences form(preferences, dialogs, nullptr);
        form.show();
        Click(form, "optGridStyle2");
        Type(form, "txtBlueJPath", "new");
        if (*button == '\0')
            QTest::keyClick(&form, Qt::Key_Escape);
        else
            Click(form, button);
        QVERIFY(!form.isVisible());
        QVERIFY((preferences == Preferences{"old", 1, 7}));
        QVERIFY(Preferences::Load() == Preferences());
        QCOMPARE(QString::fromStdString(dialogs.TakeSeen()), QString());
    }
}

void PreferencesTest::ChoosesColours() {
    Preferences preferences = {"", 0, 0x00FF00};
    test::FakeDialogs dialogs;
    frmPreferences form(preferences, dialogs, nullptr);
    form.show();
    auto* const box = Part<QWidget>(form, "picGridColor");
    const auto shown = [box] { return box->grab().toImage().pixelColor(box->rect().center()); };
    Click(form, "picGridColor");
    QCOMPARE(shown(), QColor(0, 255, 0)); // cancelled
    dialogs.colors = {0xFF0000};
    Click(form, "picGridColor");
    QCOMPARE(shown(), QColor(0, 0, 255));
}

void PreferencesTest::LooksForBlueJ_data() {
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<bool>("taken");
    QTest::newRow("cancelled") << "" << false;
    QTest::newRow("right") << "Blue J/BLUEJ.EXE" << true;
    QTest::newRow("another program") << "Blue J/other.exe" << false;
    QTest::newRow("folder") << "Blue J/BLUEJ.EXE.lnk" << false;
    QTest::newRow("missing") << "bluej.exe" << false;
}

void PreferencesTest::LooksForBlueJ() {
    QFETCH(QString, chosen);
    QFETCH(bool, taken);
    const std::string path = chosen.isEmpty() ? "" : TextOf(folder_ / chosen.toUtf8());
    Preferences preferences = {"before", 0, 0};
    test::FakeDialogs dialogs;
    dialogs.paths = {path};
    frmPreferences form(preferences, dialogs, nullptr);
    form.show();
    Click(form, "cmdBrowseBlueJ");
    QVERIFY(QString::fromStdString(dialogs.TakeSeen()).startsWith("open <BlueJ.exe|BlueJ.exe"));
    QCOMPARE(Part<QLineEdit>(form, "txtBlueJPath")->text().toStdString(), taken ? path : "before");
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::PreferencesTest)
#include "frmPreferences_test.moc"
