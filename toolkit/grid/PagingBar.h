// The bar below a grid: first, previous, page box, page count, next, last.
#pragma once

#include <QString>
#include <QWidget>

class CMultiPageGridManager;
class QLabel;
class QLineEdit;
class QToolButton;

namespace toolkit {

/// Shows a manager's page and page count and turns clicks and keys into its DoPage. Owned by its
/// parent widget, on the user interface thread. DoPage may end the bar.
class PagingBar final : public QWidget {
    Q_OBJECT
public:
    PagingBar(CMultiPageGridManager& manager, QWidget* parent);

    /// The manager is about to end or gets another bar: this one hides and dies.
    void Retire();
    /// Shows page and page count. What is being typed stays, unless the page became another one.
    void ShowPage(int page, int count);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton* AddButton(const char* name, const QString& icon, const QString& caption,
                           const QString& keys);
    void AddShortcut(const QString& keys, QToolButton* button);
    void Go(int page);
    void GoToTyped();
    void ShowNumber();
    void EnableButton(QToolButton* button, bool enabled);

    CMultiPageGridManager* m_manager;
    QToolButton* m_first;
    QToolButton* m_previous;
    QLineEdit* m_box;
    QLabel* m_total;
    QToolButton* m_next;
    QToolButton* m_last;
    int m_page = 1;
    int m_count = 0;
};

} // namespace toolkit
