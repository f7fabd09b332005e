// The editor of one checkpoint of a drawing.
#pragma once

#include "services/DrawingRecords.h"
#include "toolkit/windows/PopTipDlg.h"

#include <memory>
#include <vector>

class LabelTreeEdit;

namespace Ui {
class CheckPtEditDlg;
}

/// Shows mark, labels, description and remark of a checkpoint, and saves them.
///
/// Knows neither the drawing nor the viewers: it gets a copy of the checkpoint's fields, asks the
/// services by itself and answers by DoModal's result alone; Ok: the checkpoint has changed.
/// Thread: user interface. Made by its opener for one run.
class CCheckPtEditDlg final : public CPopTipDlg {
public:
    /// @param checkpoint  its labels by their names; the mark's id isn't read.
    /// @param markName    of the present mark; one that isn't in the table selects nothing.
    CCheckPtEditDlg(KX_DATA::CheckpointEdit checkpoint, QString markName);
    ~CCheckPtEditDlg() override;

    /// What goes to the service: from the first attempt to save on its labels are ids.
    [[nodiscard]] const KX_DATA::CheckpointEdit& Checkpoint() const { return checkpoint; }

protected:
    void OnCreated() override;

private:
    void Open();
    void ShowTexts();
    void ReadFields();
    void OnSave();
    void Save();

    std::vector<qint32> markIds; ///< of the mark box's entries, in their order
    KX_DATA::CheckpointEdit checkpoint;
    QString markName;
    std::unique_ptr<Ui::CheckPtEditDlg> m_form;
    std::unique_ptr<LabelTreeEdit> m_labels;
};
