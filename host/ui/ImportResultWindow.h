// Everything that an import or a filing left out, with its reason.
#pragma once

#include "host/ui/ImportResultModel.h"

#include <QDialog>

namespace host {

class HintTable;

/// How the window calls what it lists.
struct ResultTexts {
    QString title = QStringLiteral("导入结果"); ///< of the saved file, too
    QString firstCaption = QStringLiteral("文件");
    QString listName = QStringLiteral("没有导入或只导入一部分的文件"); ///< for who can't see it
};

/// Lists them, copies them as text, saves them as a text file. Blocks nothing. Doesn't know where
/// they come from. Lives on the interface thread, owned by its parent widget.
class ImportResultWindow final : public QDialog {
    Q_OBJECT

public:
    /// @param summary  Chinese, the counts and how it ended
    ImportResultWindow(QWidget* parent, const QString& summary, std::vector<ImportResultRow> rows,
                       ResultTexts resultTexts = {});

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeTable();
    void Copy();
    void Save();

    const ResultTexts m_texts;
    ImportResultModel* m_model = nullptr;
    HintTable* m_table = nullptr;
};

} // namespace host
