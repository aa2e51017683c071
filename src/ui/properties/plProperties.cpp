#include "ui/properties/plProperties.h"

#include "app/Handbook.h"
#include "designer/PropertyHelp.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"
#include "ui/parts/HelpAnchor.h"
#include "ui/parts/Theme.h"
#include "ui/properties/frmListEditor.h"
#include "ui/properties/PropertyDelegate.h"
#include "ui/properties/PropertyListModel.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace pirol {
namespace {

QString KeyOf(const PropertyPanelRow& row) {
    return ToText(row.key);
}

/// The captions of the columns, as flat as the bands of the categories. For the style's own shades Qt starts threads.
class ColumnCaptions final : public QHeaderView {
  public:
    explicit ColumnCaptions(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

    /// Known without laying out the captions, which the list asks for many times while it is made.
    QSize sizeHint() const override { return {0, fontMetrics().height() + tokens::unit}; }

  protected:
    QSize sectionSizeFromContents(int section) const override {
        const QString caption = model()->headerData(section, Qt::Horizontal).toString();
        return {PropertyDelegate::captionMargin + fontMetrics().horizontalAdvance(caption) + tokens::gap,
                sizeHint().height()};
    }

  private:
    void paintSection(QPainter* painter, const QRect& box, int section) const override {
        const QColor line = palette().color(roles::line);
        painter->fillRect(box, palette().color(QPalette::Window));
        painter->fillRect(box.left(), box.bottom(), box.width(), 1, line);
        painter->fillRect(box.right(), box.top(), 1, box.height(), line);
        const int margin = section == PropertyListModel::CaptionColumn
                               ? PropertyDelegate::captionMargin
                               : style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
        painter->drawText(box.adjusted(margin, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                          model()->headerData(section, Qt::Horizontal).toString());
    }
};

} // namespace

/// Tells below the list what the current property is. It stands in the place of the bar that would roll the list
/// sideways, which it never does: so the list gives it the room.
class HelpBar final : public QScrollBar {
  public:
    explicit HelpBar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
        Named(this, "lblHelp", "Beschreibung der Eigenschaft");
        setContextMenuPolicy(Qt::NoContextMenu);
    }

    QString Text() const { return text_; }
    void Show(const QString& text) {
        text_ = text;
        setAccessibleDescription(text);
        setToolTip("<qt>" + text.toHtmlEscaped() + "</qt>");
        update();
    }
    QSize sizeHint() const override { return {0, lines * fontMetrics().lineSpacing() + 2 * tokens::gap}; }

  private:
    static constexpr int lines = 4;

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Window));
        painter.fillRect(0, 0, width(), 1, palette().color(roles::line));
        painter.drawText(rect().adjusted(tokens::gap, tokens::gap, -tokens::gap, 0), Qt::TextWordWrap, text_);
    }
    void mousePressEvent(QMouseEvent*) override {}

    QString text_;
};

plProperties::plProperties(QWidget* parent)
    : QTreeView(parent), model_(new PropertyListModel(this)), help_(new HelpBar(this)) {
    Named(this, "plProperties", "Eigenschaften");
    setHeader(new ColumnCaptions(this));
    setModel(model_);
    setItemDelegate(new PropertyDelegate(this));

    // The bands of the categories stand for the branches, so that captions begin at the edge.
    setIndentation(0);
    setRootIsDecorated(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(SelectRows);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBar(help_);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(PropertyListModel::CaptionColumn, QHeaderView::Interactive);
    header()->setSectionResizeMode(PropertyListModel::ValueColumn, QHeaderView::Stretch);

    connect(header(), &QHeaderView::sectionResized, this, [this](int section, int, int width) {
        if (section == PropertyListModel::CaptionColumn && !isFitting_)
            captionWidth_ = width;
    });
    connect(header(), &QHeaderView::sectionHandleDoubleClicked, this, [this] { SetCaptionWidth(0); });
    connect(model_, &PropertyListModel::dataChanged, this, &plProperties::ShowHelp);
    connect(model_, &PropertyListModel::PropertyEdited, this, &plProperties::PropertyEdited);
    connect(model_, &PropertyListModel::modelAboutToBeReset, this, &plProperties::RememberPlace);
    connect(model_, &PropertyListModel::modelReset, this, &plProperties::RestorePlace);
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { folded_.insert(KeyOf(model_->RowAt(index))); });
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { folded_.remove(KeyOf(model_->RowAt(index))); });
}

void plProperties::ShowRows(std::vector<PropertyPanelRow> rows) {
    model_->ShowRows(std::move(rows));
}

void plProperties::ShowProperty(std::string_view key) {
    const QModelIndex index = model_->IndexOf(key);
    if (!index.isValid())
        return;
    expand(index.parent());
    setCurrentIndex(index);
}

void plProperties::Type(QKeyEvent* event) {
    const QModelIndex value = currentIndex().siblingAtColumn(PropertyListModel::ValueColumn);
    if (!value.isValid() || !value.flags().testFlag(Qt::ItemIsEditable))
        return;
    setFocus(Qt::OtherFocusReason);
    QCoreApplication::sendEvent(this, event);
    typed_ = state() == EditingState;
}

void plProperties::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    using Delegate = QAbstractItemDelegate;
    const bool typed = std::exchange(typed_, false);
    const bool isTab = hint == Delegate::EditNextItem || hint == Delegate::EditPreviousItem;
    const bool isKey = isTab || hint == Delegate::SubmitModelCache || hint == Delegate::RevertModelCache;
    QTreeView::closeEditor(editor, typed && isTab ? Delegate::NoHint : hint);
    if (typed && isKey)
        emit TypedEditEnded(hint == Delegate::EditNextItem ? 1 : isTab ? -1 : 0);
}

void plProperties::FinishEditing() {
    if (state() != EditingState)
        return;
    if (QWidget* editor = indexWidget(currentIndex().siblingAtColumn(PropertyListModel::ValueColumn))) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void plProperties::SetCaptionWidth(int width) {
    captionWidth_ = width;
    FitCaptions();
}

/// Captions are not cut unless the user wants it; the values have all the room that is left.
void plProperties::FitCaptions() {
    const QScopedValueRollback fitting(isFitting_, true);
    if (captionWidth_ == 0)
        resizeColumnToContents(PropertyListModel::CaptionColumn);
    else
        header()->resizeSection(PropertyListModel::CaptionColumn, captionWidth_);
}

/// A low list keeps its room for the rows.
void plProperties::ShowHelp() {
    const QModelIndex current = currentIndex();
    const QString text = current.isValid() ? ToText(RowHelp(model_->RowAt(current))) : QString();
    if (text != help_->Text())
        help_->Show(text);
    const bool isShown = !text.isEmpty() && height() >= 4 * help_->sizeHint().height();
    setHorizontalScrollBarPolicy(isShown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

void plProperties::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    ShowHelp();
}

QSize plProperties::sizeHint() const {
    constexpr int valueCharacters = 27; // the longest name that a component gets when it is placed
    const int captions = header()->sectionSize(PropertyListModel::CaptionColumn);
    return {captions + fontMetrics().averageCharWidth() * valueCharacters, QTreeView::sizeHint().height()};
}

void plProperties::RememberPlace() {
    // A list without a component has no place worth keeping.
    if (model_->rowCount(model_->index(0, 0)) > 0)
        scrollPosition_ = verticalScrollBar()->value();
    hadFocus_ = hasFocus() || isAncestorOf(QApplication::focusWidget());
}

void plProperties::RestorePlace() {
    for (int row = 0; row < model_->rowCount(); ++row) {
        const QModelIndex category = model_->index(row, 0);
        setFirstColumnSpanned(row, {}, true);
        setExpanded(category, !folded_.contains(KeyOf(model_->RowAt(category))));
    }

    QModelIndex current = model_->IndexOf(currentKey_);
    if (!current.isValid())
        current = model_->index(0, PropertyListModel::ValueColumn, model_->index(0, 0));
    const std::string chosen = currentKey_;
    if (current.isValid())
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (!chosen.empty())
        currentKey_ = chosen; // the next component may have the row again
    executeDelayedItemsLayout();
    FitCaptions();
    ShowHelp();
    verticalScrollBar()->setValue(scrollPosition_);
    // The editor that had it is gone.
    if (hadFocus_)
        setFocus();
}

void plProperties::scrollTo(const QModelIndex& index, ScrollHint hint) {
    // Never sideways: the captions stay in view whichever column is current.
    QTreeView::scrollTo(index.siblingAtColumn(PropertyListModel::CaptionColumn), hint);
}

bool plProperties::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    if (!index.isValid())
        return QTreeView::edit(index, trigger, event);
    const PropertyPanelRow& row = model_->RowAt(index);
    if (!row.isCategory && row.editor == EditorKind::List && (trigger == EditKeyPressed || trigger == DoubleClicked)) {
        OpenDialog(index);
        return true;
    }
    // Whichever column the user is in, it is the value that is edited.
    return QTreeView::edit(index.siblingAtColumn(PropertyListModel::ValueColumn), trigger, event);
}

void plProperties::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    std::string anchor;
    if (current.isValid()) {
        const PropertyPanelRow& row = model_->RowAt(current);
        currentKey_ = row.key;
        if (!row.isCategory)
            anchor = ChapterAnchor(row.caption);
    }
    SetHelpAnchor(this, anchor);
    ShowHelp();
}

void plProperties::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool choose = key == Qt::Key_F4 || (key == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier));
    // A key that an editor left over is not meant for the list.
    if ((enter || choose) && state() != EditingState && currentIndex().isValid())
        Activate(currentIndex(), choose);
    else
        QTreeView::keyPressEvent(event);
}

void plProperties::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    QTreeView::mousePressEvent(event);
}

void plProperties::mouseReleaseEvent(QMouseEvent* event) {
    const QModelIndex released = indexAt(event->pos());
    QTreeView::mouseReleaseEvent(event);
    if (released.isValid() && pressed_ == released)
        Click(pressed_, event->pos());
    pressed_ = QModelIndex();
}

void plProperties::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    const bool isCaption = index.isValid() && index.column() == PropertyListModel::CaptionColumn;
    if (isCaption && event->button() == Qt::LeftButton && !model_->RowAt(index).handler.empty())
        emit HandlerWanted(model_->RowAt(index).handler);
    else
        QTreeView::mouseDoubleClickEvent(event);
}

void plProperties::Click(const QModelIndex& index, const QPoint& position) {
    const PropertyPanelRow& row = model_->RowAt(index);
    if (row.isCategory)
        setExpanded(index.siblingAtColumn(0), !isExpanded(index.siblingAtColumn(0)));
    else if (index.column() != PropertyListModel::ValueColumn)
        return;
    else if ((row.editor == EditorKind::File || row.editor == EditorKind::List) &&
             PropertyDelegate::ButtonRect(visualRect(index)).contains(position))
        OpenDialog(index);
    else if (index.flags().testFlag(Qt::ItemIsEditable))
        Edit(index, true);
}

void plProperties::Activate(const QModelIndex& index, bool choose) {
    const PropertyPanelRow& row = model_->RowAt(index);
    const QModelIndex value = index.siblingAtColumn(PropertyListModel::ValueColumn);
    if (row.isCategory)
        setExpanded(index.siblingAtColumn(0), !isExpanded(index.siblingAtColumn(0)));
    else if (row.editor == EditorKind::Flag)
        model_->setData(value, value.data(Qt::CheckStateRole).toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked,
                        Qt::CheckStateRole);
    else if (row.editor == EditorKind::List || (row.editor == EditorKind::File && choose))
        OpenDialog(value);
    else
        Edit(value, choose);
}

void plProperties::Edit(const QModelIndex& index, bool choose) {
    if (indexWidget(index) == nullptr)
        QTreeView::edit(index);
    if (auto* choices = qobject_cast<QComboBox*>(indexWidget(index)); choices != nullptr && choose)
        choices->showPopup();
}

void plProperties::OpenDialog(const QModelIndex& index) {
    const QPersistentModelIndex place = index;
    FinishEditing();
    if (!place.isValid())
        return;
    // A copy: the rows may change while the dialog is open.
    const PropertyPanelRow row = model_->RowAt(place);
    if (row.editor == EditorKind::File)
        ChooseFile(row);
    else
        EditList(row);
}

void plProperties::ChooseFile(const PropertyPanelRow& row) {
    const std::string path = chooseFile_ ? chooseFile_(std::string(row.detail), row.value) : std::string();
    if (!path.empty())
        emit PropertyEdited(std::string(row.key), path);
}

void plProperties::EditList(const PropertyPanelRow& row) {
    std::optional<std::string> list;
    ReportErrors(this, [&] {
        UnderLabel(propertyChangedLabel, [&] {
            frmListEditor editor(row, this);
            if (editor.exec() == QDialog::Accepted)
                list = editor.ListText();
        });
    });
    if (list)
        emit PropertyEdited(std::string(row.key), *list);
}

} // namespace pirol
