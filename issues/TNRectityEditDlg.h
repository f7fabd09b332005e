// The editor of one issue's rectification.
#pragma once

#include "services/IssueRecords.h"
#include "toolkit/windows/PopTipDlg.h"

#include <memory>

namespace Ui {
class TNRectityEditDlg;
}

/// State and text of a rectification. Nothing is locked while it is open: who saves after another
/// person is asked whether to overwrite. Answers by DoModal's result alone; Ok: the site has the
/// new values, and Rectify has them too. Thread: user interface. Made by its opener for one run.
class CTNRectityEditDlg final : public CPopTipDlg {
public:
    /// @param rectify  what the opener shows; what the other person's save is measured against.
    explicit CTNRectityEditDlg(KX_DATA::RectifyRecord rectify);
    ~CTNRectityEditDlg() override;

    [[nodiscard]] const KX_DATA::RectifyRecord& Rectify() const { return rectify; }

protected:
    void OnCreated() override;

private:
    void Open();
    void FillStates();
    void OnSave();
    [[nodiscard]] KX_DATA::RectifySave ReadFields() const;
    /// False: the person read why, or what another person saved stays.
    [[nodiscard]] bool MayOverwrite();
    void Save(const KX_DATA::RectifySave& wanted);

    KX_DATA::RectifyRecord rectify;
    std::unique_ptr<Ui::TNRectityEditDlg> m_form;
};
