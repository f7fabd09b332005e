#include "viewers/GalleryAccess.h"

#include "viewers/GalleryPane.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include <vector>

namespace gallery {

namespace {

/// One painted button. Lives as long as its pane's interface.
class ButtonAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ButtonAccess(GalleryPane* pane, int index) : m_pane(pane), m_index(index) {}

    [[nodiscard]] bool isValid() const override {
        return !m_pane.isNull() && m_index < int(m_pane->Buttons().size());
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_pane);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override;

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& action) const override;

private:
    [[nodiscard]] const CDirectUIButton& Button() const {
        return m_pane->Buttons()[size_t(m_index)];
    }

    const QPointer<GalleryPane> m_pane;
    const int m_index;
};

QAccessible::State ButtonAccess::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    state.disabled = !isValid() || !Button().IsEnabled();
    state.invisible = !isValid() || rect().isEmpty() || !m_pane->isVisible();
    state.hotTracked = isValid() && Button().IsHot();
    state.pressed = isValid() && Button().IsPressed();
    return state;
}

QString ButtonAccess::text(QAccessible::Text kind) const {
    if (!isValid()) {
        return {};
    }
    if (kind == QAccessible::Name) {
        return Button().name;
    }
    return kind == QAccessible::Accelerator ? Button().shortcut : QString();
}

QRect ButtonAccess::rect() const {
    if (!isValid() || Button().rect.isEmpty() || !Button().shown) {
        return {};
    }
    return {m_pane->mapToGlobal(Button().rect.topLeft()), Button().rect.size()};
}

QStringList ButtonAccess::actionNames() const {
    return isValid() && Button().IsEnabled() ? QStringList{pressAction()} : QStringList();
}

void ButtonAccess::doAction(const QString& action) {
    if (isValid() && action == pressAction()) {
        m_pane->PressButton(m_index);
    }
}

QStringList ButtonAccess::keyBindingsForAction(const QString& action) const {
    return isValid() && action == pressAction() ? QStringList{Button().shortcut} : QStringList();
}

/// Controls on the pane first, then the buttons.
class PaneAccess final : public QAccessibleWidget {
public:
    explicit PaneAccess(GalleryPane* pane) : QAccessibleWidget(pane, QAccessible::Pane) {
        for (int at = 0; at < int(pane->Buttons().size()); ++at) {
            m_buttons.push_back(
                QAccessible::registerAccessibleInterface(new ButtonAccess(pane, at)));
        }
        m_told = QObject::connect(pane, &GalleryPane::ButtonEnabledChanged, pane,
                                  [this](int index) { TellEnabled(index); });
    }
    ~PaneAccess() override {
        QObject::disconnect(m_told);
        for (const QAccessible::Id button : m_buttons) {
            QAccessible::deleteAccessibleInterface(button);
        }
    }

    [[nodiscard]] int Controls() const { return QAccessibleWidget::childCount(); }
    [[nodiscard]] int childCount() const override { return Controls() + int(m_buttons.size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* wanted) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;

private:
    void TellEnabled(int index) const;

    std::vector<QAccessible::Id> m_buttons;
    QMetaObject::Connection m_told;
};

void PaneAccess::TellEnabled(int index) const {
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(child(Controls() + index), changed);
    QAccessible::updateAccessibility(&event);
}

QAccessibleInterface* PaneAccess::child(int index) const {
    if (index < Controls()) {
        return QAccessibleWidget::child(index);
    }
    const size_t button = size_t(index - Controls());
    return button < m_buttons.size() ? QAccessible::accessibleInterface(m_buttons[button])
                                     : nullptr;
}

int PaneAccess::indexOfChild(const QAccessibleInterface* wanted) const {
    for (int at = Controls(); at < childCount(); ++at) {
        if (child(at) == wanted) {
            return at;
        }
    }
    return QAccessibleWidget::indexOfChild(wanted);
}

QAccessibleInterface* PaneAccess::childAt(int x, int y) const {
    if (QAccessibleInterface* control = QAccessibleWidget::childAt(x, y)) {
        return control;
    }
    for (int at = Controls(); at < childCount(); ++at) {
        if (child(at)->rect().contains(x, y)) {
            return child(at);
        }
    }
    return nullptr;
}

QAccessibleInterface* MakeAccess(const QString& className, QObject* object) {
    Q_UNUSED(className);
    auto* pane = qobject_cast<GalleryPane*>(object);
    return pane == nullptr ? nullptr : new PaneAccess(pane);
}

} // namespace

void LetReadersIn() {
    // A factory that is known already isn't added again.
    QAccessible::installFactory(&MakeAccess);
}

} // namespace gallery
