#include "app/frmError.h"
#include "designer/view/frmListEditor.h"
#include "designer/view/plProperties.h"
#include "model/Conversions.h"
#include "model/ProjectModel.h"
#include "window/Forms.h"
#include "window/Keys.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <functional>

namespace pirol {
namespace {

/// The property list beside a field that can take the focus, connected to a design as the main window does it.
class Bench : public QWidget {
  public:
    explicit Bench(ComponentKind kind) : list(this), other(this) {
        list.setGeometry(0, 0, 320, 500);
        other.setGeometry(330, 0, 100, 30);
        connect(&list, &plProperties::PropertyEdited, this, [this](const std::string& key, const std::string& value) {
            ++edits;
            ReportErrorsLater(this, [&] { refusal = PropertyChanged(model, component, key, value); });
            Reload();
        });
        component = model.PlaceComponent(kind, {30, 40, 120, 25});
        show();
        if (!QTest::qWaitForWindowActive(this))
            QTest::qFail("the window was not activated", __FILE__, __LINE__);
        Reload();
        list.setFocus();
    }

    void Reload() { list.ShowRows(LoadProperties(model, component)); }

    /// The value cell of a property, by its caption.
    QModelIndex Cell(const QString& caption) const {
        const QAbstractItemModel& rows = *list.model();
        for (int category = 0; category < rows.rowCount(); ++category) {
            const QModelIndex parent = rows.index(category, 0);
            for (int row = 0; row < rows.rowCount(parent); ++row)
                if (rows.index(row, 0, parent).data().toString() == caption)
                    return rows.index(row, 1, parent);
        }
        return {};
    }

    QModelIndex Category(const QString& caption) const {
        const QModelIndexList hits = list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, caption);
        return hits.isEmpty() ? QModelIndex() : hits.first();
    }

    void Select(const QString& caption) { list.setCurrentIndex(Cell(caption)); }

    /// A mouse click on a cell, that far from its left edge or, negative, from its right one.
    void Click(const QModelIndex& cell, int fromEdge = 20) {
        const QRect box = list.visualRect(cell);
        const int x = fromEdge < 0 ? box.right() + fromEdge : box.left() + fromEdge;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, box.center().y()));
    }

    void DoubleClick(const QModelIndex& cell) {
        const QPoint place = list.visualRect(cell).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }

    QLineEdit* Line() const { return list.viewport()->findChild<QLineEdit*>(); }

    std::string Value(std::string_view key) const {
        for (const PropertyPanelRow& row : LoadProperties(model, component))
            if (row.key == key)
                return row.value;
        return "no such row";
    }

    ProjectModel model;
    ComponentRef component = {};
    plProperties list;
    QLineEdit other;
    std::string refusal;
    int edits = 0;
};

enum class Way { KeysAndEnter, F2AndTab, MouseAndFocusLoss, DoubleClickAndEnter };

} // namespace

class plPropertiesTest : public QObject {
    Q_OBJECT

  private slots:
    void ShowsWhatTheDesignHolds() {
        Bench bench(ComponentKind::Password);
        QCOMPARE(bench.list.model()->rowCount(), 4);
        QCOMPARE(bench.Cell("Passwortzeichen").data().toString(), "*");
        QCOMPARE(bench.Cell("Ausrichtung").data().toString(), "Links");
        QCOMPARE(bench.Cell("Eingabe bestätigt").data().toString(), "falsch");
        QCOMPARE(bench.Cell("Eingabe bestätigt").data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));

        bench.list.ShowRows(LoadProperties(bench.model, std::nullopt));
        QCOMPARE(bench.list.model()->rowCount(), 1);
        QCOMPARE(bench.list.model()->index(0, 0).data().toString(), "Kein Objekt gewählt");
    }

    /// Every typed kind of value, by every way to begin and end typing.
    void TypedValuesActAtOnce_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("held");
        QTest::addColumn<int>("way");
        const struct {
            const char* what;
            ComponentKind kind;
            const char* caption;
            const char* key;
            const char* typed;
            const char* held;
        } rows[] = {
            {"text", ComponentKind::Label, "Beschriftung", "value", "Hallo", "Hallo"},
            {"number", ComponentKind::Label, "Breite", "width", "77,5", "78"},
            {"name", ComponentKind::Button, "Name", "name", "hatStart", "hatStart"},
            {"character", ComponentKind::Password, "Passwortzeichen", "passchar", "#x", "#"},
            {"file", ComponentKind::Picture, "Bilddatei", "file", "haus.bmp", "haus.bmp"},
        };
        const std::pair<const char*, Way> ways[] = {
            {"keys", Way::KeysAndEnter},
            {"F2", Way::F2AndTab},
            {"mouse", Way::MouseAndFocusLoss},
            {"double click", Way::DoubleClickAndEnter},
        };
        for (const auto& row : rows)
            for (const auto& [name, way] : ways)
                QTest::addRow("%s by %s", row.what, name) << int(row.kind) << QString(row.caption) << QString(row.key)
                                                          << QString(row.typed) << QString(row.held) << int(way);
    }

    void TypedValuesActAtOnce() {
        QFETCH(int, kind);
        QFETCH(QString, caption);
        QFETCH(QString, key);
        QFETCH(QString, typed);
        QFETCH(QString, held);
        QFETCH(int, way);
        Bench bench{ComponentKind(kind)};
        const QModelIndex cell = bench.Cell(caption);
        switch (Way(way)) {
        case Way::KeysAndEnter:
            bench.Select(caption);
            Type(typed);
            Press(Qt::Key_Return);
            break;
        case Way::F2AndTab:
            bench.Select(caption);
            Press(Qt::Key_F2);
            Type(typed);
            Press(Qt::Key_Tab);
            break;
        case Way::MouseAndFocusLoss:
            bench.Click(cell);
            bench.Line()->selectAll();
            Type(typed);
            QTest::mouseClick(&bench.other, Qt::LeftButton);
            bench.other.setFocus();
            break;
        case Way::DoubleClickAndEnter:
            // On the caption, which is no less the property.
            bench.DoubleClick(cell.siblingAtColumn(0));
            QVERIFY(bench.Line() != nullptr);
            Type(typed);
            Press(Qt::Key_Enter);
            break;
        }
        QCOMPARE(QString::fromStdString(bench.Value(key.toStdString())), held);
        QCOMPARE(bench.Cell(caption).data().toString(), held);
        QCOMPARE(bench.edits, 1);
    }

    void EditsThatChangeNothingAreNone_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("endKey");
        QTest::newRow("Enter") << int(ComponentKind::Label) << "Beschriftung" << int(Qt::Key_Return);
        QTest::newRow("Tab") << int(ComponentKind::Label) << "Breite" << int(Qt::Key_Tab);
        QTest::newRow("arrow") << int(ComponentKind::Label) << "Breite" << int(Qt::Key_Down);
        QTest::newRow("choice") << int(ComponentKind::Label) << "Ausrichtung" << int(Qt::Key_Return);
        QTest::newRow("character") << int(ComponentKind::Password) << "Passwortzeichen" << int(Qt::Key_Return);
    }

    void EditsThatChangeNothingAreNone() {
        QFETCH(int, kind);
        QFETCH(QString, caption);
        QFETCH(int, endKey);
        Bench bench{ComponentKind(kind)};
        bench.Select(caption);
        Press(Qt::Key_F2);
        QVERIFY(!bench.list.hasFocus());
        Press(Qt::Key(endKey));
        QCOMPARE(bench.edits, 0);
    }

    void EscapeGivesUp() {
        Bench bench(ComponentKind::Label);
        bench.Select("Breite");
        Type("77");
        QVERIFY(bench.Line() != nullptr);
        Press(Qt::Key_Escape);
        QCOMPARE(bench.edits, 0);
        QCOMPARE(bench.Value("width"), "120");
        QVERIFY(bench.list.hasFocus());
    }

    /// The arrows leave the line with what was typed and go on in the list.
    void ArrowsWalkOutOfTheEditor() {
        Bench bench(ComponentKind::Label);
        bench.Select("Breite");
        Type("90");
        Press(Qt::Key_Down);
        QCOMPARE(bench.Value("width"), "90");
        QCOMPARE(bench.list.currentIndex().siblingAtColumn(0).data().toString(), "Höhe");
        Type("31");
        Press(Qt::Key_Up);
        QCOMPARE(bench.Value("height"), "31");
        QCOMPARE(bench.list.currentIndex().siblingAtColumn(0).data().toString(), "Breite");
    }

    void FlagsAreTicked_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("Space") << 0;
        QTest::newRow("Enter") << 1;
        QTest::newRow("click on the box") << 2;
        QTest::newRow("click on the word") << 3;
    }

    void FlagsAreTicked() {
        QFETCH(int, way);
        Bench bench(ComponentKind::Button);
        for (const char* expected : {"wahr", "falsch"}) {
            bench.Select(way < 2 ? "Geklickt" : "Name");
            switch (way) {
            case 0:
                Press(Qt::Key_Space);
                break;
            case 1:
                Press(Qt::Key_Return);
                break;
            default:
                bench.Click(bench.Cell("Geklickt"), way == 2 ? 9 : 35);
                break;
            }
            QCOMPARE(bench.Value("click"), expected);
            QCOMPARE(bench.Cell("Geklickt").data().toString(), expected);
            QCOMPARE(bench.list.currentIndex(), bench.Cell("Geklickt"));
        }
        QCOMPARE(bench.edits, 2);
        QVERIFY(bench.list.hasFocus());
    }

    void ChoicesOfferTheirLabels() {
        Bench bench(ComponentKind::Label);
        bench.Select("Ausrichtung");
        Press(Qt::Key_F2);
        auto* combo = bench.list.viewport()->findChild<QComboBox*>();
        QVERIFY(combo != nullptr && combo->hasFocus());
        QCOMPARE(combo->count(), 3);
        QCOMPARE(combo->currentText(), "Links");
        Press(Qt::Key_Down);
        QCOMPARE(bench.Value("align"), "1");
        QCOMPARE(bench.Cell("Ausrichtung").data().toString(), "Mitte");
        Press(Qt::Key_End);
        Press(Qt::Key_Return);
        QCOMPARE(bench.Value("align"), "2");
        QVERIFY(bench.list.hasFocus());
    }

    void ChoicesDropDown() {
        Bench bench(ComponentKind::Label);
        bench.Click(bench.Cell("Ausrichtung"));
        auto* combo = bench.list.viewport()->findChild<QComboBox*>();
        QVERIFY(combo != nullptr && combo->view()->isVisible());
        const QModelIndex right = combo->model()->index(2, 0);
        QTest::mouseMove(combo->view()->viewport(), combo->view()->visualRect(right).center());
        // A release right after the opening press would count as the end of that press.
        QTest::qWait(QApplication::doubleClickInterval());
        QTest::mouseClick(combo->view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          combo->view()->visualRect(right).center());
        QCOMPARE(bench.Value("align"), "2");
    }

    void UnknownChoicesStay() {
        Bench bench(ComponentKind::Label);
        PropertyChanged(bench.model, bench.component, "align", "7");
        bench.Reload();
        QCOMPARE(bench.Cell("Ausrichtung").data().toString(), "7");
        bench.Select("Ausrichtung");
        Press(Qt::Key_F2);
        Press(Qt::Key_Return);
        QCOMPARE(bench.Value("align"), "7");
        QCOMPARE(bench.edits, 0);
    }

    /// A bad value ends in the report under its label; the design and the list are as before.
    void BadValuesAreReported_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("report");
        QTest::addColumn<int>("endKey");
        QTest::newRow("no number") << "breit"
                                   << "Fehlernummer: 13" << int(Qt::Key_Return);
        QTest::newRow("nothing") << ""
                                 << "Fehlernummer: 13" << int(Qt::Key_Return);
        QTest::newRow("too big") << "32768"
                                 << "Fehlernummer: 6" << int(Qt::Key_Return);
        QTest::newRow("by Tab") << "x"
                                << "Fehlernummer: 13" << int(Qt::Key_Tab);
    }

    void BadValuesAreReported() {
        QFETCH(QString, typed);
        QFETCH(QString, report);
        QFETCH(int, endKey);
        Bench bench(ComponentKind::Label);
        const ProjectModel before = bench.model;
        bench.Select("Breite");
        Press(Qt::Key_F2);
        if (typed.isEmpty())
            Press(Qt::Key_Delete);
        else
            Type(typed);
        int reports = 0;
        test::WhenShown<frmError>([&](frmError& form) {
            ++reports;
            const QString text = form.findChild<QPlainTextEdit*>("txtError")->toPlainText();
            QVERIFY2(text.contains(report) && text.endsWith("Main.File.Properties.PropertyChanged"), qPrintable(text));
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        QTest::keyClick(bench.Line(), Qt::Key(endKey));
        QTRY_COMPARE(reports, 1);
        QCoreApplication::processEvents();
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(bench.model == before);
        QCOMPARE(bench.Cell("Breite").data().toString(), "120");
    }

    void RefusedNamesStay() {
        Bench bench(ComponentKind::Button);
        bench.model.PlaceComponent(ComponentKind::Button, {0, 0, 30, 30});
        bench.Select("Name");
        Type("hatKnopf2");
        Press(Qt::Key_Return);
        QCOMPARE(bench.refusal, "Dieser Name ist bereits vergeben.");
        QCOMPARE(bench.Cell("Name").data().toString(), "hatKnopf1");
    }

    /// The chooser gets the kind's filter; an empty answer means that the user gave up.
    void FilesAreChosen_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<int>("way");
        const char* ways[] = {"button", "Alt+Down", "F4", "button while typing", "F4 while typing"};
        for (int way = 0; way < int(std::size(ways)); ++way) {
            QTest::addRow("picture by %s", ways[way]) << int(ComponentKind::Picture) << "Bilddatei"
                                                      << "Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg" << way;
            QTest::addRow("sound by %s", ways[way]) << int(ComponentKind::Sound) << "Sounddatei"
                                                    << "Sounddateien (*.wav)|*.wav" << way;
            QTest::addRow("movie by %s", ways[way]) << int(ComponentKind::Movie) << "Videodatei"
                                                    << "Bilder (*.mov, *.aif, *.mpg)|*.mov; *.aif; *.mpg" << way;
        }
    }

    void FilesAreChosen() {
        QFETCH(int, kind);
        QFETCH(QString, caption);
        QFETCH(QString, filter);
        QFETCH(int, way);
        Bench bench{ComponentKind(kind)};
        QStringList asked;
        std::string answer = "neu.dat";
        bench.list.SetFileChooser([&](const std::string& shownFilter, const std::string& path) {
            asked = {QString::fromStdString(shownFilter), QString::fromStdString(path)};
            return answer;
        });
        const auto choose = [&] {
            bench.Select(caption);
            if (way >= 3)
                Type("getippt");
            switch (way) {
            case 0:
            case 3:
                bench.Click(bench.Cell(caption), -5);
                break;
            case 1:
                Press(Qt::Key_Down, Qt::AltModifier);
                break;
            default:
                Press(Qt::Key_F4);
                break;
            }
        };
        choose();
        QCOMPARE(asked, QStringList({filter, way >= 3 ? "getippt" : ""}));
        QCOMPARE(bench.Value("file"), "neu.dat");
        answer.clear();
        choose();
        QCOMPARE(bench.Value("file"), way >= 3 ? "getippt" : "neu.dat");
    }

    void ListsOpenTheirEditor_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("button") << 0;
        QTest::newRow("Enter") << 1;
        QTest::newRow("F2") << 2;
        QTest::newRow("F4") << 3;
        QTest::newRow("double click") << 4;
    }

    void ListsOpenTheirEditor() {
        QFETCH(int, way);
        Bench bench(ComponentKind::ComboBox);
        const QModelIndex cell = bench.Cell("Einträge");
        QCOMPARE(cell.data().toString(), "(leer)");
        bench.Select("Einträge");
        test::WhenShown<frmListEditor>([](frmListEditor& dialog) {
            QCOMPARE(dialog.windowTitle(), "Pirol - Einträge bearbeiten");
            QTest::keyClick(dialog.findChild<QTableView*>("lstRows"), Qt::Key_Insert);
            Type("eins");
            Press(Qt::Key_Return);
            QTest::mouseClick(dialog.findChild<QPushButton*>("cmdAdd"), Qt::LeftButton);
            Type("zwei");
            QTest::mouseClick(dialog.findChild<QPushButton*>("cmdAccept"), Qt::LeftButton);
        });
        const Qt::Key keys[] = {Qt::Key_Return, Qt::Key_F2, Qt::Key_F4};
        if (way == 0)
            bench.Click(cell, -5);
        else if (way <= 3)
            Press(keys[way - 1]);
        else
            bench.DoubleClick(cell);
        QCOMPARE(
            QString::fromStdString(ReplaceAll(bench.Value("combovalues"), std::string_view(&fieldSeparator, 1), "/")),
            "eins/zwei");
        QCOMPARE(bench.Cell("Einträge").data().toString(), "eins, zwei");
        QCOMPARE(bench.edits, 1);
        QCOMPARE(bench.focusWidget(), &bench.list);
    }

    void CategoriesFold() {
        Bench bench(ComponentKind::Button);
        const QModelIndex position = bench.Category("Position");
        QVERIFY(bench.list.isExpanded(position));
        bench.Click(position);
        QVERIFY(!bench.list.isExpanded(position));
        bench.list.setCurrentIndex(position);
        Press(Qt::Key_Return);
        QVERIFY(bench.list.isExpanded(position));
        Press(Qt::Key_Left);
        QVERIFY(!bench.list.isExpanded(position));

        // Folded is folded, whichever component is shown.
        bench.component = bench.model.PlaceComponent(ComponentKind::Table, {0, 0, 50, 50});
        bench.Reload();
        QVERIFY(!bench.list.isExpanded(bench.Category("Position")));
        QVERIFY(bench.list.isExpanded(bench.Category("Ereignisse")));
    }

    /// While a component is dragged the list changes two cells and nothing else.
    void ReloadingRepaintsOnlyWhatChanged() {
        Bench bench(ComponentKind::Label);
        bench.Select("Breite");
        QSignalSpy resets(bench.list.model(), &QAbstractItemModel::modelReset);
        QSignalSpy changes(bench.list.model(), &QAbstractItemModel::dataChanged);
        const auto widgets = bench.list.findChildren<QWidget*>().size();
        for (std::int16_t step = 1; step <= 100; ++step) {
            Control& control = bench.model.EditElement(bench.component);
            control.Left = static_cast<std::int16_t>(30 + step);
            control.Top = static_cast<std::int16_t>(40 + step);
            bench.Reload();
        }
        QCOMPARE(resets.count(), 0);
        QCOMPARE(changes.count(), 200);
        QCOMPARE(bench.list.findChildren<QWidget*>().size(), widgets);
        QCOMPARE(bench.Cell("Links").data().toString(), "130");
    }

    void ReloadingLeavesTheTypistAlone() {
        Bench bench(ComponentKind::Label);
        bench.Select("Breite");
        Type("7");
        bench.model.EditElement(bench.component).Width = 300;
        bench.Reload();
        Type("5");
        Press(Qt::Key_Return);
        QCOMPARE(bench.Value("width"), "75");
    }

    /// Row, scroll position and focus outlast the change to another kind of component.
    void PlaceOutlastsAnotherComponent() {
        Bench bench(ComponentKind::TextField);
        bench.list.setFixedHeight(150);
        bench.Select("Breite");
        QCoreApplication::processEvents();
        bench.list.verticalScrollBar()->setValue(60);
        QCOMPARE(bench.list.verticalScrollBar()->value(), 60);
        const ComponentRef table = bench.model.PlaceComponent(ComponentKind::Table, {0, 0, 50, 50});
        const std::optional<ComponentRef> order[] = {table, std::nullopt, bench.component};
        for (const std::optional<ComponentRef>& component : order) {
            bench.list.ShowRows(LoadProperties(bench.model, component));
            QVERIFY(bench.list.hasFocus());
            if (!component)
                continue;
            QCOMPARE(bench.list.verticalScrollBar()->value(), 60);
            QCOMPARE(bench.list.currentIndex().siblingAtColumn(0).data().toString(), "Breite");
        }
    }

    void AnotherComponentEndsTheEditWithTheFocusInTheList() {
        Bench bench(ComponentKind::Label);
        bench.Select("Breite");
        Type("7");
        bench.component = bench.model.PlaceComponent(ComponentKind::Table, {0, 0, 50, 50});
        bench.Reload();
        QCOMPARE(bench.edits, 0);
        QVERIFY(bench.list.hasFocus());
        QVERIFY(bench.Line() == nullptr || !bench.Line()->isVisible());
    }

    void FinishEditingTakesOverWhatIsTyped() {
        Bench bench(ComponentKind::Label);
        bench.list.FinishEditing();
        QCOMPARE(bench.edits, 0);
        bench.Select("Beschriftung");
        Type("halb");
        bench.list.FinishEditing();
        QCOMPARE(bench.Value("value"), "halb");
        QCOMPARE(bench.edits, 1);
    }

    /// A caption of a hundred thousand characters is shown, walked over and edited; none of them is lost.
    void HugeCaptions() {
        Bench bench(ComponentKind::Label);
        const std::string huge(100'000, 'w');
        PropertyChanged(bench.model, bench.component, "value", huge);
        bench.Reload();
        QVERIFY(bench.Cell("Beschriftung").data().toString().size() < 300);
        QVERIFY(bench.Cell("Beschriftung").data(Qt::AccessibleTextRole).toString().size() < 300);
        bench.Select("Beschriftung");
        bench.list.grab();
        Press(Qt::Key_F2);
        Press(Qt::Key_End);
        Type("!");
        Press(Qt::Key_Return);
        QCOMPARE(bench.Value("value").size(), huge.size() + 1);
    }

    void TextIsNeverTakenForMarkup() {
        Bench bench(ComponentKind::Label);
        PropertyChanged(bench.model, bench.component, "value", "<b>fett</b>");
        bench.Reload();
        QCOMPARE(bench.Cell("Beschriftung").data(Qt::ToolTipRole).toString(), "<qt>&lt;b&gt;fett&lt;/b&gt;</qt>");
    }

    void NothingIsCutOff_data() {
        QTest::addColumn<int>("kind");
        for (const KindRow& row : KindRows())
            QTest::newRow(row.key.data()) << int(row.kind);
    }

    void NothingIsCutOff() {
        QFETCH(int, kind);
        Bench bench{ComponentKind(kind)};
        const QFontMetrics font = bench.list.fontMetrics();
        for (int category = 0; category < bench.list.model()->rowCount(); ++category) {
            const QModelIndex parent = bench.list.model()->index(category, 0);
            for (int row = 0; row < bench.list.model()->rowCount(parent); ++row) {
                const QModelIndex caption = bench.list.model()->index(row, 0, parent);
                const QString text = caption.data().toString();
                const QRect cell = bench.list.visualRect(caption);
                QVERIFY2(cell.width() >= font.horizontalAdvance(text) + cell.height() / 2, qPrintable(text));
                QVERIFY(cell.height() >= font.height());
            }
        }
    }

    /// A reader hears which property a value belongs to, and an editor says it too.
    void SaysWhatItShows() {
        Bench bench(ComponentKind::Label);
        QCOMPARE(bench.list.accessibleName(), "Eigenschaften");
        QCOMPARE(bench.Cell("Ausrichtung").data(Qt::AccessibleTextRole).toString(), "Ausrichtung: Links");
        bench.Select("Schriftgröße");
        Press(Qt::Key_F2);
        QCOMPARE(bench.Line()->accessibleName(), "Schriftgröße");
    }
};

} // namespace pirol

QTEST_MAIN(pirol::plPropertiesTest)
#include "plProperties_test.moc"
