// The bin: what users deleted and what can be brought back.
#pragma once

#include "host/ui/BinModel.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace host {

class HintTable;

/// Where the window gets its rows and hands back what is to be restored.
class IBinSource {
public:
    virtual ~IBinSource() = default;

    /// Latest first. Nothing if the bin could not be read; the host says so by itself.
    [[nodiscard]] virtual std::vector<BinRow> ReadBin() = 0;
    /// How many came back; those that didn't stay in the bin.
    virtual int RestoreFromBin(const std::vector<qint64>& binIds) = 0;
};

/// Lists the bin and restores the chosen rows. Doesn't know the database. Lives on the interface
/// thread, owned by its parent widget.
class BinWindow final : public QDialog {
    Q_OBJECT

public:
    /// The source must outlive the window.
    BinWindow(QWidget* parent, IBinSource& binSource);

    /// Reads the bin anew.
    void Reload();

signals:
    void Restored(int count);

private:
    void Restore();
    void ShowSelection();

    IBinSource& m_source;
    BinModel* m_model = nullptr;
    HintTable* m_table = nullptr;
    QLabel* m_summary = nullptr;
    QPushButton* m_restoreButton = nullptr;
};

} // namespace host
