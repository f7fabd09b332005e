// The editor of a BIM photo with very many labels and floors: from the click to the painted window
// and to the painted list, beside a plain tree and a plain drop list of the same texts.
#include "bench/Report.h"
#include "bench/Stopwatch.h"
#include "editors/BimPicEditDlg.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "toolkit/Look.h"
#include "toolkit/controls/DropCombo.h"
#include "toolkit/windows/PopTipDlg.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLabels = 2000;
constexpr int kFloors = 200;
constexpr int kRuns = 21;
constexpr double kUnnoticedMs = 100; ///< less than a person notices
const QString kUser = u"bench"_s;

QString LabelText(int number) {
    return u"外墙渗漏 %1 号标签"_s.arg(number);
}

QString FloorText(int number) {
    return u"第%1施工段"_s.arg(number);
}

/// One photo that carries every tenth label, on the last floor.
KX_DATA::BimPicRow FillEditorSite(host::HostSession& session) {
    site::SiteWriter writer(support::FolderOf(session));
    writer.BeginBatch();
    const qint32 ppid = writer.AddProject(u"大工程"_s);
    writer.AddUser(kUser, {5, 21, 22, 38});
    writer.AddMark(1, u"质量"_s, 0x0000FF);
    KX_DATA::BimPicRow row;
    for (int floor = 0; floor < kFloors; ++floor) {
        row.positionKey =
            writer.AddPosition({ppid, FloorText(floor), u"A"_s, u"1"_s, QString(), true});
    }
    for (int label = 0; label < kLabels; ++label) {
        writer.AddLabel(LabelText(label));
        if (label % 10 == 0) {
            row.labelNames.push_back(LabelText(label));
        }
    }
    writer.CommitBatch();
    row.ppid = ppid;
    row.picId = 1;
    row.markId = 1;
    row.fileName = u"照片.jpg"_s;
    row.floor = FloorText(kFloors - 1);
    row.axisX = u"A"_s;
    row.axisY = u"1"_s;
    return row;
}

void PaintNow(QWidget& window) {
    window.show();
    // Before it is exposed nothing would be painted.
    QCoreApplication::processEvents();
    window.repaint();
}

double OpenEditor(CBimPicEditDlg& editor) {
    const bench::Stopwatch watch;
    editor.Create(toolkit::kNoWindow);
    PaintNow(*editor.Widget());
    return watch.Milliseconds();
}

double OpenPlainTree() {
    const bench::Stopwatch watch;
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* tree = new QTreeWidget(&window);
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    layout->addWidget(tree);
    auto* root = new QTreeWidgetItem(tree, {u"全部标签"_s});
    for (int label = 0; label < kLabels; ++label) {
        auto* item = new QTreeWidgetItem(root, {LabelText(label)});
        item->setCheckState(0, label % 10 == 0 ? Qt::Checked : Qt::Unchecked);
    }
    root->setExpanded(true);
    window.resize(530, 660);
    PaintNow(window);
    return watch.Milliseconds();
}

double DropDown(QComboBox& combo) {
    const bench::Stopwatch watch;
    combo.showPopup();
    QCoreApplication::processEvents();
    combo.view()->viewport()->repaint();
    const double time = watch.Milliseconds();
    combo.hidePopup();
    return time;
}

double DropPlainList() {
    QComboBox combo;
    combo.setMaxVisibleItems(20);
    combo.show();
    QCoreApplication::processEvents();
    const bench::Stopwatch watch;
    for (int floor = 0; floor < kFloors; ++floor) {
        combo.addItem(FloorText(floor));
    }
    const double filling = watch.Milliseconds();
    return filling + DropDown(combo);
}

void Put(bench::Report& report, const QString& name, const std::vector<double>& ours,
         const std::vector<double>& bare) {
    report.AddGoal(name, bench::Median(ours), u"ms"_s, kUnnoticedMs);
    report.AddFigure(name + u", nine in ten"_s, bench::NinthDecile(ours), u"ms"_s);
    report.AddFigure(name + u", bare"_s, bench::Median(bare), u"ms"_s);
    report.AddFigure(name + u", ratio"_s, bench::Median(ours) / bench::Median(bare), u"x"_s);
}

void MeasureEditor(const KX_DATA::BimPicRow& row, bench::Report& report) {
    std::vector<double> openings;
    std::vector<double> trees;
    std::vector<double> drops;
    std::vector<double> lists;
    for (int run = 0; run < kRuns; ++run) {
        CBimPicEditDlg editor(row);
        openings.push_back(OpenEditor(editor));
        drops.push_back(DropDown(*editor.Widget()->findChild<DropCombo*>(u"floorCombo"_s)));
        editor.Destroy();
        trees.push_back(OpenPlainTree());
        lists.push_back(DropPlainList());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Put(report, u"editor with %1 labels and %2 floors opens"_s.arg(kLabels).arg(kFloors), openings,
        trees);
    Put(report, u"its list of %1 floors, fetched and dropped down"_s.arg(kFloors), drops, lists);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    toolkit::ApplyLook(app);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"bench.json"_s});
    options.process(app);
    const QTemporaryDir folder;
    host::HostSession session;
    const host::Serving serving(session);
    if (session.Open(folder.filePath(u"site"_s))) {
        QTextStream(stderr) << u"the data folder can't be used"_s << Qt::endl;
        return 1;
    }
    const KX_DATA::BimPicRow row = FillEditorSite(session);
    if (!session.SignIn(kUser) || !session.OpenProject(row.ppid)) {
        return 1;
    }
    bench::Report report;
    MeasureEditor(row, report);
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}
