// The console's filter line: what its controls hold and what they and a preset search for.
#pragma once

#include "console/ConsoleMode.h"
#include "console/ConsolePreset.h"

#include <QString>

#include <functional>
#include <map>
#include <vector>

class CPopTipDlg;
struct ConsoleControls;
class QDateEdit;

/// Fills the boxes of the filter line, from services at their first drop-down, watches the dates,
/// keeps the recent keywords, and gives the filter of the next search.
///
/// Outlives the console's window: a preset is set before it opens. Works on the window's controls
/// between Attach and Detach. Thread: user interface.
class ConsoleFilterBar final {
public:
    /// What it asks of its console.
    struct Console {
        std::function<void()> search; ///< a choice wants to be searched
        std::function<bool(std::vector<qint32>& markIds)> usedMarks; ///< those of the kind shown
    };
    ConsoleFilterBar(CPopTipDlg& dialog, Console console);

    /// Changes the preset of the next search, which is one with this mark.
    ConsolePreset& StartPreset(qint32 markId);
    /// The photo of the preset was selected.
    void ForgetPresetPic() { m_preset.picId = KX_DATA::kNoPic; }
    [[nodiscard]] const ConsolePreset& Preset() const { return m_preset; }
    [[nodiscard]] qint32 MarkId() const { return m_markId; }

    /// @param hint  of the keyword box
    void Attach(const ConsoleControls& controls, ConsoleMode kind, const QString& hint);
    /// Projects of the workset; raises what the service raises.
    void FillProjects();
    /// Dates, keywords, and the first entries of mark and label box.
    void Init();
    void FillStates();
    void Connect();
    /// The window is about to end: the second preset text and the preset's photo stay; required as
    /// is.
    void Detach();

    /// Another kind in the same window: marks and labels are its own.
    void ChangeKind(ConsoleMode kind, const QString& hint);
    /// What is typed into a date counts like one that was chosen.
    void CommitDates();
    /// Reads the controls; the keyword becomes the most recent.
    [[nodiscard]] FilterChoice TakeChoice();
    /// A search is over: a preset that it used is used up.
    void EndSearch();
    /// Stores the recent keywords.
    void SaveKeywords() const;
    void FocusKeyword() const;

private:
    void InitDates();
    void InitKeywords();
    void ResetMarkBox();
    void FillUsedMarks();
    void ResetLabelBox();
    void FillLabelBox();
    void OnMarkChosen(int index);
    void OnLabelChosen(int index);
    void OnProjectChosen();
    void OnNoLimitToggled();
    void OnDateChanged(QDateEdit& changed, qint64& saved);
    void RememberKeyword(const QString& keyword);
    [[nodiscard]] std::vector<QString> Keywords() const;
    [[nodiscard]] qint32 MarkOf(int index) const;
    [[nodiscard]] QString ChosenState() const;

    CPopTipDlg& m_dialog;
    Console m_console;
    const ConsoleControls* m_controls = nullptr;
    ConsoleMode m_kind = kModeNone;
    QString m_hint;
    std::vector<qint32> m_markIds;   ///< of the mark box's entries
    std::vector<QString> m_labelIds; ///< of the label box's entries
    qint32 m_markId = 0;
    QString m_labelId;
    ConsolePreset m_preset;
    bool m_presetActive = false;
    bool m_marksLoaded = false;
    bool m_labelsLoaded = false;
    qint64 m_savedStart = 0; ///< the last dates that were in order
    qint64 m_savedEnd = 0;
    std::map<QString, std::vector<qint32>> m_projectMap; ///< of the project box's texts
};
