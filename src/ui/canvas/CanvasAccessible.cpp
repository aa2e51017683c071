#include "ui/canvas/CanvasAccessible.h"

#include "ui/canvas/picContainer.h"
#include "ui/parts/FormParts.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include <algorithm>
#include <map>

namespace pirol {
namespace {

QAccessible::Role ToRole(AccessibleRole role) {
    switch (role) {
    case AccessibleRole::StaticText:
        return QAccessible::StaticText;
    case AccessibleRole::Button:
        return QAccessible::Button;
    case AccessibleRole::EditableText:
        return QAccessible::EditableText;
    case AccessibleRole::CheckBox:
        return QAccessible::CheckBox;
    case AccessibleRole::Grouping:
        return QAccessible::Grouping;
    case AccessibleRole::ComboBox:
        return QAccessible::ComboBox;
    case AccessibleRole::Slider:
        return QAccessible::Slider;
    case AccessibleRole::ProgressBar:
        return QAccessible::ProgressBar;
    case AccessibleRole::Table:
        return QAccessible::Table;
    case AccessibleRole::Graphic:
        return QAccessible::Graphic;
    case AccessibleRole::Sound:
        return QAccessible::Sound;
    case AccessibleRole::Animation:
        return QAccessible::Animation;
    }
    return QAccessible::NoRole;
}

QString NameOf(const Control& control) {
    return ToText(control.ObjectName) + ", " + ToText(RowOf(control.Kind()).menuLabel);
}

QString PlaceOf(const Control& control) {
    return QString("Links %1, Oben %2, Breite %3, Höhe %4")
        .arg(control.Left)
        .arg(control.Top)
        .arg(control.Width)
        .arg(control.Height);
}

/// That and how a component is one of several that are selected.
QString PartOf(const DesignCanvas& canvas, ComponentRef component) {
    const Selection& selected = canvas.AllSelected();
    if (!selected.IsSeveral())
        return {};
    const QString count = QString::number(selected.Count());
    if (selected.Leader() == component)
        return ", führt " + count + " gewählte Komponenten";
    return (selected.Contains(component) ? ", eine von " : ", nicht unter den ") + count +
           (selected.Contains(component) ? " gewählten Komponenten" : " gewählten");
}

/// One component.
class ComponentAccessible final : public QAccessibleInterface {
  public:
    ComponentAccessible(picContainer* canvas, ComponentRef component) : canvas_(canvas), component_(component) {}

    ComponentRef Component() const { return component_; }

    bool isValid() const override { return canvas_ && canvas_->IsVisibleComponent(component_); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return canvas_ ? canvas_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(canvas_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return ToRole(RowOf(component_.kind).role); }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text part) const override {
        if (!isValid())
            return {};
        const Control& control = canvas_->Model().Element(component_);
        return part == QAccessible::Name          ? NameOf(control)
               : part == QAccessible::Description ? PlaceOf(control) + PartOf(canvas_->Canvas(), component_)
                                                  : QString();
    }

    QRect rect() const override {
        if (!isValid())
            return {};
        const Rectangle box = canvas_->View().ToScreen(canvas_->Model().VisibleBox(component_));
        return {canvas_->mapToGlobal(QPoint(box.left, box.top)), QSize(box.width, box.height)};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        state.selectable = true;
        state.focusable = true;
        state.movable = true;
        state.multiSelectable = true;
        state.selected = isValid() && canvas_->Canvas().AllSelected().Contains(component_);
        state.focused = isValid() && canvas_->Canvas().Reached() == component_ && canvas_->hasFocus();
        return state;
    }

  private:
    QPointer<picContainer> canvas_;
    ComponentRef component_;
};

/// The canvas with its components as children.
class CanvasAccessible final : public QAccessibleWidget {
  public:
    explicit CanvasAccessible(picContainer* canvas) : QAccessibleWidget(canvas, QAccessible::Canvas) {}
    CanvasAccessible(const CanvasAccessible&) = delete;
    CanvasAccessible& operator=(const CanvasAccessible&) = delete;
    ~CanvasAccessible() override {
        for (const auto& [component, id] : ids_)
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return static_cast<int>(Owner()->VisibleComponents().size()); }

    QAccessibleInterface* child(int index) const override {
        const std::vector<ComponentRef>& components = Owner()->VisibleComponents();
        if (index < 0 || index >= static_cast<int>(components.size()))
            return nullptr;
        return InterfaceOf(components[static_cast<std::size_t>(index)]);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* component = dynamic_cast<const ComponentAccessible*>(child);
        const std::vector<ComponentRef>& components = Owner()->VisibleComponents();
        const auto place = component == nullptr
                               ? components.end()
                               : std::find(components.begin(), components.end(), component->Component());
        return place == components.end() ? -1 : static_cast<int>(place - components.begin());
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint position = Owner()->mapFromGlobal(QPoint(x, y));
        const CanvasView& view = Owner()->View();
        const CanvasHit hit = Owner()->Canvas().HitTest(view.ToDesign(position.x()), view.ToDesign(position.y()));
        return hit.area == CanvasHit::Area::Canvas ? nullptr : InterfaceOf(hit.component);
    }

    QAccessibleInterface* focusChild() const override {
        const std::optional<ComponentRef> reached = Owner()->Canvas().Reached();
        return reached && Owner()->hasFocus() ? InterfaceOf(*reached) : nullptr;
    }

  private:
    picContainer* Owner() const { return static_cast<picContainer*>(widget()); }

    QAccessibleInterface* InterfaceOf(ComponentRef component) const {
        const auto known = ids_.find(component);
        if (known != ids_.end())
            return QAccessible::accessibleInterface(known->second);
        auto* made = new ComponentAccessible(Owner(), component);
        ids_.emplace(component, QAccessible::registerAccessibleInterface(made));
        return made;
    }

    mutable std::map<ComponentRef, QAccessible::Id> ids_;
};

QAccessibleInterface* NewCanvasAccessible(const QString&, QObject* object) {
    auto* canvas = qobject_cast<picContainer*>(object);
    return canvas != nullptr ? new CanvasAccessible(canvas) : nullptr;
}

} // namespace

void InstallCanvasAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(NewCanvasAccessible);
        return true;
    }();
    static_cast<void>(installed);
}

} // namespace pirol
