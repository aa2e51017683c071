#pragma once

#include "designer/ComponentList.h"
#include "designer/Document.h"

#include <QSet>
#include <QWidget>

class QComboBox;
class QLineEdit;
class QTreeView;

namespace pirol {

class ComponentTree;

/// The list of all that a design consists of, with a field that finds components by name or text. Choosing a row
/// selects the component, and selecting a component elsewhere chooses its row; what is typed into the field filters the
/// rows and selects the component that fits best. Hidden it costs nothing.
///
/// Keys: Down leads from the field to the rows; Enter in the field leads back to the canvas, on a row to what it stands
/// for; Escape empties the field.
class lstComponents : public QWidget {
    Q_OBJECT

  public:
    explicit lstComponents(Document& document, QWidget* parent = nullptr);

    /// Gives the keyboard to the field, for a new search.
    void Find();
    void ShowChange(const DocumentChange& change);

  signals:
    /// The user has selected a component here; it may lie outside what is seen of the canvas.
    void SelectionChosen();
    /// The user is done here.
    void Left();
    /// What the row stands for is wanted: a component's properties, the window's settings, the menus.
    void PropertiesWanted();
    void WindowWanted();
    void MenusWanted();

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Rebuild();
    void Expand();
    void ShowSelection();
    void ChooseRows();
    void FilterAs(const QString& text);
    void Activate(const QModelIndex& index);
    bool KeyInField(const QEvent& event);
    bool KeyOnRow(const QEvent& event);

    Document& document_;
    ComponentList list_;
    ComponentTree* tree_;
    QLineEdit* txtFind_;
    QComboBox* cboOrder_;
    QTreeView* rows_;
    QSet<int> folded_; ///< kinds that the user closed
    bool isOutdated_ = true;
    bool isShowing_ = false; ///< rows are chosen because the selection changed, not the other way round
};

} // namespace pirol
