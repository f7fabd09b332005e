// Pages behind a strip of tabs.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

class QTabBar;

/// The strip lies on top, every page takes the rest. Which page is seen is the owner's affair: it
/// is told of a change and shows and hides. Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT CBCGPTabWnd : public QWidget {
public:
    explicit CBCGPTabWnd(QWidget* parent);

    /// The page becomes a child. The first tab is active. Tabs stay in the order in which they
    /// come.
    void AddTab(QWidget* page, const QString& text);
    [[nodiscard]] int GetActiveTab() const;
    /// Tells of the change; nothing for the tab that is active and for one that isn't there.
    void SetActiveTab(int tab);
    [[nodiscard]] QTabBar& Strip() const { return *m_strip; }

    /// The active tab is another one.
    std::function<void(int tab)> onTabChanged;

protected:
    /// Height of the strip, device-independent pixels.
    [[nodiscard]] virtual int CalcTabsHeight() const;

    void resizeEvent(QResizeEvent* event) override;

private:
    void LayOut();

    QTabBar* m_strip = nullptr;
    std::vector<QPointer<QWidget>> m_pages;
};
