// What the settings window saves, reads from files and writes to them.
#include "host/ui/setup/DrawingsPage.h"
#include "host/ui/setup/GridPage.h"
#include "host/ui/setup/SetupPreview.h"
#include "host/ui/setup/SetupWindow.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QPointer>

namespace host {

using namespace Qt::StringLiterals;
using site::SetupList;

namespace {

QString FirstLines(const std::vector<QString>& lines) {
    constexpr qsizetype kMost = 20;
    QStringList shown(lines.begin(), lines.end());
    const qsizetype more = shown.size() - kMost;
    if (more > 0) {
        shown.resize(kMost);
        shown << u"……还有 %1 条。"_s.arg(QString::number(more));
    }
    return shown.join(u'\n');
}

} // namespace

void SetupWindow::Save() {
    EndTyping();
    if (!m_grid->TakeTyped()) {
        ShowPage(Page::Grid); // on which the reason stands
        return;
    }
    if (!HasUnsaved()) {
        return;
    }
    std::vector<QString> faults;
    for (const site::SetupFault& fault : m_draft->Faults()) {
        faults.push_back(fault.text);
    }
    if (!faults.empty()) {
        toolkit::Prompts().ShowMessage(toolkit::WindowOf(this),
                                       u"没有保存：\n"_s + FirstLines(faults));
        return;
    }
    if (const auto outcome = m_desk.Save(m_draft->Seen(), m_draft->Wanted())) {
        OnSaved(*outcome);
    }
}

void SetupWindow::OnSaved(const site::SetupOutcome& outcome) {
    if (outcome.changedMeanwhile) {
        Rebase();
    } else if (!outcome.refusals.empty()) {
        toolkit::Prompts().ShowMessage(toolkit::WindowOf(this),
                                       u"没有保存：\n"_s + FirstLines(outcome.refusals));
    } else {
        if (Begin()) {
            m_grid->ReadProjects();
            m_drawings->ReadProjects(m_draft->Seen().projects);
        }
        m_check->stop();
        ShowFaults();
        m_note->setText(u"已保存。"_s);
        emit Saved();
    }
}

void SetupWindow::Rebase() {
    auto now = m_desk.Read();
    if (!now) {
        return;
    }
    for (const site::SetupGrid& grid : m_draft->Seen().grids) {
        for (const site::SetupProject& project : m_draft->Seen().projects) {
            if (project.name == grid.project) {
                if (const auto read = m_desk.ReadGrid(project.ppid)) {
                    now->grids.push_back(*read);
                }
            }
        }
    }
    QStringList lost;
    for (const SetupList list : m_draft->Rebase(*now)) {
        lost << u"“%1”"_s.arg(site::NameOf(list));
    }
    m_grid->ReadProjects();
    toolkit::Prompts().ShowMessage(
        toolkit::WindowOf(this),
        u"没有保存：%1刚被别人修改过，现在显示的是最新内容，您在那里的修改没有采用。"
        "别的修改都还在，请检查后再保存。"_s.arg(lost.join(u"、"_s)));
}

void SetupWindow::Import() {
    EndTyping();
    const toolkit::StillThere still(this);
    const QStringList paths = toolkit::Prompts().AskOpenFiles(
        {toolkit::WindowOf(this), u"设置文件、工作簿和 CSV (*.xlsx *.csv *.txt);;所有文件 (*)"_s});
    if (still && !paths.isEmpty()) {
        Take(m_desk.ReadFile(paths.front(), m_draft->Wanted()),
             u"“%1”"_s.arg(QFileInfo(paths.front()).fileName()));
    }
}

void SetupWindow::Paste(SetupList list) {
    EndTyping();
    const QString text = QApplication::clipboard()->text();
    if (text.trimmed().isEmpty()) {
        toolkit::Prompts().ShowMessage(
            toolkit::WindowOf(this),
            u"剪贴板里没有表格。请在表格程序中选中带列名的区域并复制，再到这里粘贴。"_s);
        return;
    }
    Take(m_desk.ReadText(text, list, m_grid->Project(), m_draft->Wanted()), u"粘贴的表格"_s);
}

void SetupWindow::Take(const SetupReading& reading, const QString& source) {
    auto* preview = new SetupPreview(this, source, reading.changes, reading.faults);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    connect(preview, &QDialog::accepted, this, [this, reading] {
        for (const auto& [grid, name] : reading.grids) {
            m_draft->AddGrid(grid, name);
        }
        m_draft->Take(reading.wanted);
        m_grid->ReadProjects();
    });
    preview->open();
}

void SetupWindow::Export() {
    const toolkit::StillThere still(this);
    const QString path = toolkit::Prompts().AskSaveFile(
        {toolkit::WindowOf(this), u"设置.txt"_s, u"txt"_s, u"设置文件 (*.txt)"_s});
    if (!still || path.isEmpty()) {
        return;
    }
    const QString fault = m_desk.WriteFile(path);
    if (!fault.isEmpty()) {
        toolkit::Prompts().ShowMessage(toolkit::WindowOf(this), fault);
    }
}

bool SetupWindow::MayClose() {
    EndTyping();
    return !HasUnsaved() || toolkit::Prompts().AskNoYes(toolkit::WindowOf(this),
                                                        u"有未保存的修改。不保存就关闭吗？"_s);
}

void SetupWindow::closeEvent(QCloseEvent* event) {
    const toolkit::StillThere still(this);
    const bool mayClose = MayClose();
    if (!still) {
        return;
    }
    event->setAccepted(mayClose);
}

} // namespace host
