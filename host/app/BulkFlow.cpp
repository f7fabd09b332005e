#include "host/app/BulkFlow.h"

#include "host/app/BulkTexts.h"
#include "host/app/ConsoleWatch.h"
#include "host/services/SiteService.h"
#include "host/ui/ImportResultWindow.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/filing/BulkDialog.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "site/IBimPhotos.h"
#include "site/IIntake.h"
#include "toolkit/windows/BalloonTip.h"
#include "toolkit/windows/WaitCursor.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <map>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

BulkOf BulkOfKind(site::ListKind kind) {
    switch (kind) {
    case site::ListKind::PdfPhotos:
        return BulkOf::PdfPhotos;
    case site::ListKind::Issues:
        return BulkOf::Issues;
    case site::ListKind::BimPhotos:
        break;
    }
    return BulkOf::BimPhotos;
}

std::vector<qint32> PicIdsIn(const std::vector<BulkRow>& rows) {
    std::vector<qint32> ids;
    for (const BulkRow& row : rows) {
        ids.push_back(row.key.toInt());
    }
    return ids;
}

std::vector<QString> KeysIn(const std::vector<BulkRow>& rows) {
    std::vector<QString> keys;
    for (const BulkRow& row : rows) {
        keys.push_back(row.key);
    }
    return keys;
}

site::BulkWish WishOf(const BulkAnswer& answer) {
    site::BulkWish wish;
    wish.positionKey = answer.positionKey;
    wish.markId = answer.markId;
    wish.status = answer.status;
    wish.labelIds = answer.labelIds;
    wish.replaceLabels = answer.replaceLabels;
    return wish;
}

/// To do it, and to have it undone.
BulkRights NeededForAnswer(const BulkAnswer& answer) {
    BulkRights needed = NeededFor(WishOf(answer));
    needed.edit = needed.edit || !answer.newLabel.isEmpty();
    return needed;
}

/// What is gone the site knows by its id alone.
void NameSkipped(std::vector<site::BulkSkipped>& skipped, const std::vector<BulkRow>& rows) {
    std::map<QString, QString> names;
    for (const BulkRow& row : rows) {
        names[row.key] = row.name;
    }
    for (site::BulkSkipped& each : skipped) {
        const auto known = names.find(each.name);
        if (known != names.end() && !known->second.isEmpty()) {
            each.name = known->second;
        }
    }
}

void PointAt(QWidget* control, const QString& text, toolkit::BalloonKind kind) {
    if (control != nullptr && control->isVisible()) {
        toolkit::BalloonTip::ShowAt(control, text, kind);
    }
}

/// Where the ticks are.
QWidget* TickCaption(QAbstractItemView* grid) {
    const auto* table = qobject_cast<QTableView*>(grid);
    return table != nullptr ? table->horizontalHeader() : static_cast<QWidget*>(grid);
}

} // namespace

BulkFlow::BulkFlow(const Parts& flowParts)
    : m_parts(flowParts), m_undo(flowParts.session, flowParts.window) {
    connect(&m_undo, &BulkUndo::Undone, this,
            [this](const QString& summary, const std::vector<site::BulkSkipped>& left) {
                if (!left.empty()) {
                    ShowSkipped(summary, left);
                }
                emit Changed();
            });
}

BulkFlow::~BulkFlow() {
    delete m_dialog;
    delete m_result;
}

QString BulkFlow::WhyNot() const {
    const QWidget* console = m_parts.console.Console();
    if (console == nullptr) {
        return u"请先打开控制台并搜索"_s;
    }
    if (QApplication::activeModalWidget() != nullptr || !console->isEnabled()) {
        return u"请先完成正在进行的操作"_s;
    }
    return m_parts.console.Ticked().empty() ? u"请先在控制台中勾选要归档的行"_s : QString();
}

void BulkFlow::AskForTicked() {
    const QString whyNot = WhyNot();
    QWidget* tipAt = TickCaption(m_parts.console.Grid());
    if (!whyNot.isEmpty()) {
        m_parts.window.ShowStatus(whyNot);
        PointAt(tipAt, whyNot + u'。', toolkit::BalloonKind::Hint);
        return;
    }
    Asked asked{m_parts.console.Asked().kind, {}, tipAt};
    for (const ConsoleRow& row : m_parts.console.Ticked()) {
        asked.rows.push_back({row.key, row.name, 0});
    }
    ReadProjects(asked);
    Ask(std::move(asked), *m_parts.console.Console(), true);
}

void BulkFlow::AskForChosen(std::vector<BulkRow> rows, QWidget& over, QWidget& tipAt) {
    if (!rows.empty()) {
        Ask({site::ListKind::BimPhotos, std::move(rows), &tipAt}, over, false);
    }
}

void BulkFlow::Ask(Asked asked, QWidget& over, bool isTicked) {
    if (!m_dialog.isNull()) {
        m_dialog->raise();
        m_dialog->activateWindow();
        return;
    }
    BulkRights rights;
    BulkQuestion question;
    const QString fault = FaultOfWork([&] {
        rights = ReadBulkRights(m_parts.session, asked.kind);
        question = QuestionFor(asked, rights);
    });
    if (!fault.isEmpty()) {
        m_parts.session.Desk()->Report(MessageLevel::Error, fault);
        return;
    }
    if (!rights.edit && !rights.showHide) {
        const QString lack = asked.kind == site::ListKind::PdfPhotos
                                 ? u"您没有显示和隐藏的权限，不能归档图纸照片。"_s
                                 : u"您没有编辑、显示和隐藏的权限，不能归档。"_s;
        m_parts.window.ShowStatus(lack);
        PointAt(asked.tipAt, lack, toolkit::BalloonKind::Error);
        return;
    }
    question.ticked = isTicked;
    ProposePlace(question);
    m_asked = std::move(asked);
    m_dialog = new BulkDialog(&over, std::move(question));
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &BulkDialog::FilingWanted, this, &BulkFlow::File);
    m_dialog->open();
}

void BulkFlow::ReadProjects(Asked& asked) const {
    if (asked.kind != site::ListKind::BimPhotos || !m_parts.session.IsWorkset()) {
        return;
    }
    WithoutFault(m_parts.session, [&] {
        std::vector<qint64> ids;
        for (const BulkRow& row : asked.rows) {
            ids.push_back(row.key.toLongLong());
        }
        std::map<qint64, qint32> projects;
        for (const KX_DATA::BimPicRow& read :
             m_parts.session.Site().BimPhotos().Rows(m_parts.session.OpenPpids(), ids)) {
            projects[read.picId] = read.ppid;
        }
        for (BulkRow& row : asked.rows) {
            row.ppid = projects[row.key.toLongLong()];
        }
    });
}

BulkQuestion BulkFlow::QuestionFor(const Asked& asked, const BulkRights& rights) const {
    site::ICatalogue& catalogue = m_parts.session.Site().Catalogue();
    const site::ProjectEntry& project = m_parts.session.CurrentProject();
    BulkQuestion question;
    question.of = BulkOfKind(asked.kind);
    question.count = int(asked.rows.size());
    question.mayEdit = rights.edit;
    question.mayShowHide = rights.showHide;
    question.mayAddLabels = rights.addLabels;
    question.ppid = project.ppid;
    question.project = project.name;
    question.elsewhere =
        int(std::count_if(asked.rows.begin(), asked.rows.end(), [&](const BulkRow& row) {
            return row.ppid != 0 && row.ppid != project.ppid;
        }));
    const std::map<qint32, KX_DATA::MarkRecord>& marks = m_parts.session.Tables().Marks();
    for (const qint32 markId : catalogue.MarkOrder()) {
        const auto mark = marks.find(markId);
        if (mark != marks.end()) {
            question.marks.push_back({markId, mark->second.name, mark->second.color});
        }
    }
    for (const KX_DATA::LabelEntry& label : catalogue.Labels()) {
        question.labels.push_back({label.labelId.toInt(), label.labelName});
    }
    return question;
}

void BulkFlow::ProposePlace(BulkQuestion& question) const {
    const FloorPlanCanvas& canvas = m_parts.window.Plan().Canvas();
    const PlanIntersection* chosen = canvas.Chosen();
    if (chosen == nullptr) {
        return;
    }
    const PlanFloor& floor = canvas.Model().floors[size_t(canvas.State().floor)];
    if (floor.ppid == 0 || floor.ppid == question.ppid) {
        question.floor = floor.name;
        question.axisX = floor.axesX[size_t(chosen->axisX)];
        question.positionKey = chosen->positionKey;
    }
}

void BulkFlow::ProjectChanged() {
    if (!m_dialog.isNull()) {
        delete m_dialog;
        m_parts.session.Desk()->Report(MessageLevel::Warning,
                                       u"已换到另一个工程，批量归档没有进行。"_s);
    }
}

void BulkFlow::File(const BulkAnswer& answer) {
    site::BulkOutcome outcome;
    const QString fault = FaultOfWork([&] {
        const toolkit::WaitCursor waiting;
        outcome = Do(answer);
    });
    if (!fault.isEmpty()) {
        m_dialog->ShowFault(fault);
        return;
    }
    m_dialog->accept();
    NameSkipped(outcome.skipped, m_asked.rows);
    Tell(outcome, NeededForAnswer(answer));
    emit Changed();
}

site::BulkOutcome BulkFlow::Do(const BulkAnswer& answer) {
    site::BulkWish wish = WishOf(answer);
    BulkRights needed = NeededForAnswer(answer);
    needed.addLabels = !answer.newLabel.isEmpty();
    RequireRights(ReadBulkRights(m_parts.session, m_asked.kind), needed);
    // A new label is for what is filed: where nothing is, it isn't made.
    const auto batch = m_parts.session.Site().NewIntake();
    batch->BeginBatch();
    if (needed.addLabels) {
        wish.labelIds.push_back(batch->AddLabel(answer.newLabel));
    }
    const site::BulkOutcome outcome = FileAll(wish);
    if (!outcome.changed.empty()) {
        batch->CommitBatch();
    }
    return outcome;
}

site::BulkOutcome BulkFlow::FileAll(const site::BulkWish& wish) {
    site::ISite& site = m_parts.session.Site();
    const site::Projects projects = m_parts.session.OpenPpids();
    const site::Signature by = SignatureOf(m_parts.session);
    switch (m_asked.kind) {
    case site::ListKind::Issues:
        return site.BulkFiling().FileIssues(projects, KeysIn(m_asked.rows), wish, by);
    case site::ListKind::PdfPhotos:
        return site.BulkFiling().FilePdfPhotos(projects, PicIdsIn(m_asked.rows), wish, by);
    case site::ListKind::BimPhotos:
        break;
    }
    return site.BulkFiling().FileBimPhotos(projects, PicIdsIn(m_asked.rows), wish, by);
}

void BulkFlow::Tell(const site::BulkOutcome& outcome, const BulkRights& needed) {
    const size_t changed = outcome.changed.size();
    const bool warns = !outcome.skipped.empty();
    const QString summary =
        BulkDoneText(m_asked.kind, {changed, size_t(outcome.unchanged), outcome.skipped.size()});
    if (changed > 0) {
        WithoutFault(m_parts.session, [&] {
            m_parts.session.Actions().Write(BulkActionText(m_asked.kind, changed));
        });
        m_undo.Offer({m_asked.kind, outcome.changed, needed, summary, warns});
    } else {
        m_parts.session.Desk()->Report(warns ? MessageLevel::Warning : MessageLevel::Info, summary);
    }
    if (warns) {
        ShowSkipped(summary, outcome.skipped);
    } else {
        // The message bar lies behind the console.
        PointAt(m_asked.tipAt, summary, toolkit::BalloonKind::Hint);
    }
}

void BulkFlow::ShowSkipped(const QString& summary, const std::vector<site::BulkSkipped>& skipped) {
    std::vector<ImportResultRow> rows;
    for (const site::BulkSkipped& each : skipped) {
        rows.push_back({each.name, u"跳过"_s, each.why});
    }
    delete m_result;
    m_result = new ImportResultWindow(&m_parts.window, summary, std::move(rows),
                                      {u"批量归档结果"_s, u"名称"_s, u"跳过的照片和问题"_s});
    m_result->setAttribute(Qt::WA_DeleteOnClose);
    m_result->show();
}

} // namespace host
