#pragma once

#include "designer/PropertyPanel.h"

#include <QSet>
#include <QTreeView>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pirol {

class PropertyListModel;

/// The property list: captions and values in two columns under categories that fold. Values are edited in place; an
/// edit acts at once (Enter, leaving the editor, choosing, ticking) and is only announced: the owner changes the design
/// and shows the rows anew, or does not.
///
/// The user sets the width of the columns; below the rows stands what the current property is. A double click on the
/// caption of an event that is on asks for its handler.
///
/// Keys: arrows walk the rows, Enter or F2 edits, Space ticks, Alt+Down or F4 opens choices, file chooser and list
/// editor, letters and digits begin to edit. The row that the user chose last stays the current one whatever component
/// is selected, unless it has no such row. Escape gives up an edit; without one it is left to the owner.
class plProperties : public QTreeView {
    Q_OBJECT

  public:
    /// Asks for a file with a filter such as "Bilder (*.bmp)|*.bmp" and the present path; gives the new path or an
    /// empty text.
    using FileChooser = std::function<std::string(const std::string& filter, const std::string& path)>;

    explicit plProperties(QWidget* parent = nullptr);

    void SetFileChooser(FileChooser chooser) { chooseFile_ = std::move(chooser); }
    /// Shows the rows. Folded categories, current row, scroll position and focus stay; rows that are shown already are
    /// repainted only where their value differs.
    void ShowRows(std::vector<PropertyPanelRow> rows);
    /// Makes the row of this key the current one and brings it into view; without such a row nothing happens.
    void ShowProperty(std::string_view key);
    /// Begins to edit the current row with a key that was typed elsewhere, or the first row that takes it.
    void Type(QKeyEvent* event);
    /// Takes over what is being typed, for commands that do not move the focus.
    void FinishEditing();

    /// Of the captions, as the user has set it; 0 as long as they have the width that they need.
    int CaptionWidth() const { return captionWidth_; }
    void SetCaptionWidth(int width);

    QSize sizeHint() const override;
    /// Letters never leave the row: where it takes none they do nothing.
    void keyboardSearch(const QString&) override {}
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  signals:
    void PropertyEdited(const std::string& key, const std::string& value);
    /// An edit that Type began is over; the user goes on with the next (1) or previous (-1) component, or with this
    /// (0).
    void TypedEditEnded(int components);
    void HandlerWanted(const std::string& handler);

  protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ShowHelp();
    void FitCaptions();
    void RememberPlace();
    void RestorePlace();
    void Click(const QModelIndex& index, const QPoint& position);
    /// What Enter does on a row; with `choose`, what Alt+Down does.
    void Activate(const QModelIndex& index, bool choose);
    void Edit(const QModelIndex& index, bool choose);
    void OpenDialog(const QModelIndex& index);
    void ChooseFile(const PropertyPanelRow& row);
    void EditList(const PropertyPanelRow& row);

    PropertyListModel* model_;
    class HelpBar* help_;
    int captionWidth_ = 0;
    bool isFitting_ = false; ///< the captions' width changes, and not by the user
    FileChooser chooseFile_;
    QSet<QString> folded_;   ///< keys of the categories that the user closed
    std::string currentKey_; ///< of the row that was current last
    bool typed_ = false;     ///< the edit that is going on was begun by Type
    int scrollPosition_ = 0;
    bool hadFocus_ = false;
    QPersistentModelIndex pressed_;
};

} // namespace pirol
