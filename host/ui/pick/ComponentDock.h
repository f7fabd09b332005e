// The dock "构件属性".
#pragma once

#include <QDockWidget>

#include <utility>
#include <vector>

class QLabel;
class QTableWidget;

namespace host {

/// What a person may read of a component: captions with values, in their order.
struct ComponentFacts {
    QString title; ///< "柱 KZ-1"
    std::vector<std::pair<QString, QString>> rows;
};

/// Shows one component; its values can be selected and copied, with Ctrl+C or by the menu. Knows no
/// services. Thread: user interface. Owned by the main window.
class ComponentDock final : public QDockWidget {
    Q_OBJECT

public:
    explicit ComponentDock(QWidget* parent);

    /// Comes to the front with it.
    void ShowFacts(const ComponentFacts& facts);
    /// Comes to the front with a sentence that says why there is nothing to show.
    void ShowSentence(const QString& text);
    /// As before the first one.
    void Empty();

protected:
    /// Back to its place in the main window, where it came out of it.
    void closeEvent(QCloseEvent* event) override;
    /// Escape closes it where it floats.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BringOut(const QWidget* active);
    void Fill(const ComponentFacts& facts, const QString& sentence);
    void BringUp();
    void CopySelected() const;
    void CopyAll() const;
    [[nodiscard]] QString RowText(int row) const;

    QLabel* m_title = nullptr;
    QTableWidget* m_table = nullptr;
    bool m_isOut = false; ///< floats because it was out of sight, not because a person wanted it
};

} // namespace host
