// Every file that an import left out, with its reason.
#pragma once

#include "host/ui/ImportResultModel.h"

#include <QDialog>

namespace host {

class HintTable;

/// Lists the files, copies them as text, saves them as a text file. Blocks nothing. Doesn't know
/// the import. Lives on the interface thread, owned by its parent widget.
class ImportResultWindow final : public QDialog {
    Q_OBJECT

public:
    /// @param summary  Chinese, the counts and how the import ended
    ImportResultWindow(QWidget* parent, const QString& summary, std::vector<ImportResultRow> rows);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeTable();
    void Copy();
    void Save();

    ImportResultModel* m_model = nullptr;
    HintTable* m_table = nullptr;
};

} // namespace host
