// The window "问题信息".
#pragma once

#include <QDialog>

#include <utility>
#include <vector>

class QFormLayout;
class QLabel;
class QPushButton;
class QStandardItemModel;

namespace host {

class HintTable;

/// One line of the history, ready to be read.
struct IssueDeedLine {
    QString when;
    QString who;
    QString what;
};

/// What a person may read of an issue.
struct IssueFacts {
    QString subject;
    std::vector<std::pair<QString, QString>> rows; ///< captions with values, in their order
    std::vector<IssueDeedLine> history;            ///< latest first
    QString code;                                  ///< text of the QR code
    QString codeNote;                              ///< what stands below it; may be empty
};

/// Makes an image of a text with this many pixels for each module; null if the text is too long.
using CodePainter = QImage (*)(const QString& text, int modulePixels);

/// Shows one issue with its history and its QR code, which can be copied and saved. Knows no
/// services: its maker shows it what changes. Modeless. Thread: user interface. Owned by its
/// parent widget.
class IssueWindow final : public QDialog {
    Q_OBJECT

public:
    IssueWindow(QWidget* parent, CodePainter codePainter);

    /// Anew too: selection and place of the history stay where they can.
    void ShowFacts(const IssueFacts& facts);
    /// It is deleted: what was read stays in sight, its code can't be given away any more.
    void ShowGone();

signals:
    /// The person wants to see it in the viewer.
    void ViewerWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeFacts();
    QWidget* MakeCodeSide();
    QWidget* MakeHistory();
    QWidget* MakeIssueButtons();
    void FillHistory(const std::vector<IssueDeedLine>& lines);
    void ShowCode();
    void ShowNotice(const QString& text, bool isFault);
    void CopyCode();
    void SaveCode();
    void CopyHistory() const;

    const CodePainter m_painter;
    IssueFacts m_facts;
    QLabel* m_notice = nullptr;
    QLabel* m_subject = nullptr;
    QFormLayout* m_rows = nullptr;
    QLabel* m_code = nullptr;
    QLabel* m_codeNote = nullptr;
    QStandardItemModel* m_model = nullptr;
    HintTable* m_history = nullptr;
    QPushButton* m_copy = nullptr;
    QPushButton* m_save = nullptr;
    QPushButton* m_view = nullptr;
};

/// The subject as the name of a file, without what no file system takes.
[[nodiscard]] QString CodeFileName(const QString& subject);

} // namespace host
