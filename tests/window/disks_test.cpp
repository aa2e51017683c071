#include "app/frmError.h"
#include "app/frmPreferences.h"
#include "Cases.h"
#include "project/ProjectFile.h"
#include "SmallDisk.h"
#include "window/Forms.h"
#include "window/MainWindow.h"

#include <QFile>

namespace pirol {
namespace {

using test::Click;
using test::Part;
using test::WhenShown;

/// Disks on which nothing can be written: one that is full and one that is locked against everybody.
class DisksTest : public QObject {
    Q_OBJECT

  private slots:
    void ReportWhatCannotBeWritten_data();
    void ReportWhatCannotBeWritten();
    void KeepTheOldPreferences_data();
    void KeepTheOldPreferences();

  private:
    std::string Path(const QString& name) const { return TextOf(folder_ / "disk") + "/" + name.toStdString(); }

    const test::ScratchFolder folder_;
};

void DisksTest::ReportWhatCannotBeWritten_data() {
    QTest::addColumn<bool>("full");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("label");
    const struct {
        const char *command, *file, *label;
    } writing[] = {
        {"mnuFileSave", "old.prl", "Main.File.PRL.GeneratePRLCode"},
        {"mnuFileSave", "new.prl", "Main.File.PRL.GeneratePRLCode"},
        {"mnuProjectExportBlueJ", "Projekt", "Main.Project.Export"},
        {"mnuProjectExportJava", "SuMAnwendung.java", "Main.Project.Export"},
        {"mnuProjectExportText", "SuMAnwendung.txt", "Main.Project.Export"},
    };
    for (const auto& row : writing)
        for (const bool full : {true, false})
            QTest::addRow("%s, %s, %s", row.command, row.file, full ? "full" : "locked")
                << full << row.command << row.file << row.label;
}

/// The report comes, the old project stays whole, the design stays as it is, and the program goes on.
void DisksTest::ReportWhatCannotBeWritten() {
    QFETCH(bool, full);
    QFETCH(QString, command);
    QFETCH(QString, file);
    QFETCH(QString, label);
    const test::SmallDisk disk(folder_ / "disk");
    if (!disk.IsMounted())
        QSKIP("file systems can be mounted by an administrator only");
    test::MainWindow main;
    main.Drag(20, 20, 130, 60);
    const ProjectModel design = main.window.Model();
    const std::string old = GeneratePRLCode(ProjectModel());
    CreateFileBytes(Path("old.prl"), old);
    QVERIFY(full ? disk.Fill() : disk.Lock());

    main.dialogs.paths = {Path(file)};
    main.dialogs.yes = {true};
    QString report;
    WhenShown<frmError>([&report](frmError& error) {
        report = Part<QPlainTextEdit>(error, "txtError")->toPlainText();
        Click(error, "cmdClose");
    });
    main.Command(command)->trigger();
    QVERIFY2(report.startsWith(full ? "Fehlernummer: 61\n" : "Fehlernummer: 70\n"), qPrintable(report));
    QVERIFY2(report.endsWith("\n" + label), qPrintable(report));
    QCOMPARE(ReadFileBytes(Path("old.prl")), old);
    QVERIFY(!std::filesystem::exists(Path("Projekt")));
    QVERIFY(main.window.Model() == design);
    QVERIFY(main.window.isWindowModified());
    main.Drag(20, 120, 130, 160);
    QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 3u);
}

void DisksTest::KeepTheOldPreferences_data() {
    QTest::addColumn<bool>("full");
    QTest::newRow("full") << true;
    QTest::newRow("locked") << false;
}

/// Preferences fail silently: they hold as long as the program runs, and the stored ones stay whole.
void DisksTest::KeepTheOldPreferences() {
    QFETCH(bool, full);
    const test::SmallDisk disk(folder_ / "disk");
    if (!disk.IsMounted())
        QSKIP("file systems can be mounted by an administrator only");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(QString::fromStdString(TextOf(folder_ / "disk"))));
    const Preferences old = {"/opt/bluej/bluej", 1, 0x0000FF};
    old.Save();
    QVERIFY(full ? disk.Fill() : disk.Lock());

    test::MainWindow main;
    main.window.SetPreferences(Preferences::Load());
    WhenShown<frmPreferences>([](frmPreferences& form) {
        Click(form, "optGridStyle2");
        Click(form, "cmdAccept");
    });
    main.Command("mnuFileOptions")->trigger();
    QCOMPARE(main.window.CurrentPreferences().GridStyle, std::int16_t{2});
    QVERIFY(Preferences::Load() == old);
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::DisksTest)
#include "disks_test.moc"
