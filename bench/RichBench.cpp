// A rich text of 200 pages with 300 pictures in its editor: loading, typing and saving, beside Qt's
// own editor on the same files in the same run.
#include "bench/Report.h"
#include "bench/RichPages.h"
#include "bench/RichSheet.h"
#include "bench/Stopwatch.h"
#include "richtext/RichFiles.h"
#include "toolkit/Look.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextStream>
#include <QUrl>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLoads = 7;
constexpr int kSaves = 9;
constexpr int kKeys = 120; ///< at each place
constexpr QSize kWindow(1000, 700);
constexpr double kMostOfBareLoad = 1.3;
constexpr double kFirstPageMs = 500;
constexpr double kKeyMedianMs = 16;
constexpr double kKeyWorstMs = 50; ///< 99 in 100

double Quantile(std::vector<double> values, double share) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[size_t(double(values.size() - 1) * share)];
}

class EditorSheet final : public bench::RichSheet, public IZvEditorNotify {
public:
    explicit EditorSheet(bench::WatchedApplication& application) : RichSheet(application) {
        m_owner.resize(kWindow);
        m_editor.SetZvEditorNotify(this);
        m_editor.Create(toolkit::RegisterWindow(&m_owner, [](const auto&) { return qintptr(0); }));
        m_editor.Widget()->setGeometry(m_owner.rect());
        m_owner.show();
        m_editor.Widget()->show();
        bench::Settle(200);
    }
    ~EditorSheet() override { m_editor.Destroy(); }

    QTextEdit& Sheet() override { return *m_editor.Sheet(); }
    void Load(const bench::RichPages& pages) override {
        m_editor.LoadEditor(u"bench"_s, {pages.page}, {}, 0);
    }
    int OnFilesChanged(const QString& /*name*/, const std::vector<NoteFile>& changed,
                       const QString& /*text*/) override {
        files = changed;
        return 1;
    }
    void OnOpenAttachment(const QString& /*folderKey*/, const QString& /*attachmentName*/,
                          const QString& /*storeName*/) override {}

    [[nodiscard]] CZelvorEditorImpl& Editor() { return m_editor; }

    std::vector<NoteFile> files; ///< of the last save

private:
    QWidget m_owner;
    CZelvorEditorImpl m_editor;
};

/// What the bare sheet shows of pictures.
enum class BarePictures {
    Files, ///< as they are: Qt decodes every one of them whole for its place, and keeps it
    Dots,  ///< one pixel each: the least that Qt's own layout and painting cost
};

class BareDocument final : public QTextDocument {
public:
    BareDocument(QString folder, BarePictures pictures)
        : m_folder(std::move(folder)), m_pictures(pictures), m_dot(1, 1, QImage::Format_RGB32) {
        setDefaultFont(toolkit::UiFont());
        m_dot.fill(Qt::gray);
    }

protected:
    QVariant loadResource(int type, const QUrl& name) override {
        const QImage image =
            m_pictures == BarePictures::Dots ? m_dot : QImage(m_folder + name.path());
        addResource(type, name, image);
        return image;
    }

private:
    const QString m_folder;
    const BarePictures m_pictures;
    QImage m_dot;
};

/// As large as the sheet of the editor, in the same face.
class BareSheet final : public bench::RichSheet {
public:
    BareSheet(bench::WatchedApplication& application, const QSize& size, const QString& folder,
              BarePictures pictures)
        : RichSheet(application), m_document(folder, pictures) {
        m_edit.setDocument(&m_document);
        m_edit.resize(size);
        m_edit.show();
        bench::Settle(200);
    }

    QTextEdit& Sheet() override { return m_edit; }
    void Load(const bench::RichPages& pages) override {
        QFile file(pages.folder + pages.page);
        if (!file.open(QIODevice::ReadOnly)) {
            qFatal("no page");
        }
        m_edit.setHtml(QString::fromUtf8(file.readAll()));
    }

private:
    BareDocument m_document;
    QTextEdit m_edit;
};

template <class Of> std::vector<double> Each(const std::vector<bench::LoadTimes>& runs, Of of) {
    std::vector<double> values;
    // The first one is told apart.
    for (size_t i = 1; i < runs.size(); ++i) {
        values.push_back(of(runs[i]));
    }
    return values;
}

template <class Of>
void PutLoad(bench::Report& report, const QString& name, const std::vector<bench::LoadTimes>& ours,
             const std::vector<bench::LoadTimes>& bare, Of of) {
    for (const auto& [who, runs] : {std::pair(u""_s, &ours), std::pair(u", bare"_s, &bare)}) {
        const std::vector<double> again = Each(*runs, of);
        report.AddFigure(name + who + u", first"_s, of(runs->front()), u"ms"_s);
        report.AddFigure(name + who, bench::Median(again), u"ms"_s);
        report.AddFigure(name + who + u", nine in ten"_s, bench::NinthDecile(again), u"ms"_s);
        report.AddFigure(name + who + u", worst"_s, Quantile(again, 1), u"ms"_s);
    }
    std::vector<double> ratios;
    for (size_t i = 1; i < ours.size(); ++i) {
        ratios.push_back(of(ours[i]) / of(bare[i]));
    }
    report.AddGoal(name + u", ratio"_s, bench::Median(ratios), u"times"_s, kMostOfBareLoad);
    report.AddFigure(name + u", ratio of the first"_s, of(ours.front()) / of(bare.front()),
                     u"times"_s);
}

void MeasureLoads(EditorSheet& ours, BareSheet& bare, const bench::RichPages& pages,
                  bench::Report& report) {
    std::vector<bench::LoadTimes> oursTimes;
    std::vector<bench::LoadTimes> bareTimes;
    for (int i = 0; i < kLoads; ++i) {
        bareTimes.push_back(bare.MeasureLoad(pages));
        oursTimes.push_back(ours.MeasureLoad(pages));
    }
    using Times = bench::LoadTimes;
    PutLoad(report, u"load"_s, oursTimes, bareTimes, [](const Times& t) { return t.call; });
    PutLoad(report, u"load to the first page painted"_s, oursTimes, bareTimes,
            [](const Times& t) { return t.painted; });
    PutLoad(report, u"load until all of it has its place"_s, oursTimes, bareTimes,
            [](const Times& t) { return t.whole; });
    PutLoad(report, u"longest event after a load"_s, oursTimes, bareTimes,
            [](const Times& t) { return t.longest; });
    report.AddGoal(u"first page painted, worst"_s,
                   Quantile(Each(oursTimes, [](const Times& t) { return t.painted; }), 1), u"ms"_s,
                   kFirstPageMs);
}

/// Beside Qt's own sheet with the pictures of the files, which is emptied before it goes on to
/// decode all of them.
void MeasureWithFiles(bench::WatchedApplication& application, EditorSheet& ours,
                      const bench::RichPages& pages, bench::Report& report) {
    BareSheet bare(application, ours.Sheet().size(), pages.folder, BarePictures::Files);
    std::vector<double> oursTimes;
    std::vector<double> bareTimes;
    for (int i = 0; i < kLoads; ++i) {
        bareTimes.push_back(bare.MeasureFirstPage(pages));
        bare.Sheet().clear();
        oursTimes.push_back(ours.MeasureFirstPage(pages));
    }
    report.AddFigure(u"first page, bare with whole pictures"_s, bench::Median(bareTimes), u"ms"_s);
    report.AddFigure(u"first page beside it"_s, bench::Median(oursTimes), u"ms"_s);
    report.AddGoal(u"first page beside it, ratio"_s,
                   bench::Median(oursTimes) / bench::Median(bareTimes), u"times"_s,
                   kMostOfBareLoad);
}

void PutKeys(bench::Report& report, const QString& name, const std::vector<double>& ours,
             const std::vector<double>& bare) {
    report.AddFigure(name + u", first"_s, ours.front(), u"ms"_s);
    report.AddGoal(name, bench::Median(ours), u"ms"_s, kKeyMedianMs);
    report.AddFigure(name + u", nine in ten"_s, bench::NinthDecile(ours), u"ms"_s);
    report.AddGoal(name + u", 99 in 100"_s, Quantile(ours, 0.99), u"ms"_s, kKeyWorstMs);
    report.AddFigure(name + u", worst"_s, Quantile(ours, 1), u"ms"_s);
    report.AddFigure(name + u", bare"_s, bench::Median(bare), u"ms"_s);
    report.AddFigure(name + u", bare, 99 in 100"_s, Quantile(bare, 0.99), u"ms"_s);
    report.AddFigure(name + u", ratio"_s, bench::Median(ours) / bench::Median(bare), u"times"_s);
}

std::vector<double> PressKeys(bench::RichSheet& sheet, bench::SheetPlace place) {
    sheet.Go(place);
    std::vector<double> times;
    for (int i = 0; i < kKeys; ++i) {
        times.push_back(sheet.PressKey(i % 2 == 0 ? QChar(u'梁') : QChar(u'a')));
    }
    return times;
}

void MeasureKeys(EditorSheet& ours, BareSheet& bare, const bench::RichPages& pages,
                 bench::Report& report) {
    ours.Load(pages);
    bare.Load(pages);
    for (const auto& [place, name] : {std::pair(bench::SheetPlace::Beginning, u"beginning"_s),
                                      std::pair(bench::SheetPlace::Middle, u"middle"_s),
                                      std::pair(bench::SheetPlace::End, u"end"_s)}) {
        const std::vector<double> bareKeys = PressKeys(bare, place);
        PutKeys(report, u"key to painted text at the "_s + name, PressKeys(ours, place), bareKeys);
    }
}

/// The document's files as its record has them after a save.
std::vector<KX_DATA::RichAttachment> RecordOf(const std::vector<NoteFile>& files) {
    std::vector<KX_DATA::RichAttachment> record;
    for (const NoteFile& file : files) {
        KX_DATA::RichAttachment attachment;
        attachment.name = QFileInfo(file.localPath).fileName();
        attachment.md5 = file.storeName.section(u'.', 0, 0);
        record.push_back(attachment);
    }
    return record;
}

/// Takes the place of the one in the middle.
void ChangePicture(toolkit::NoteEdit& sheet, const QString& path) {
    QTextCursor cursor = sheet.document()->find(QString(QChar::ObjectReplacementCharacter),
                                                sheet.document()->characterCount() / 2);
    sheet.setTextCursor(cursor);
    sheet.InsertFiles({path});
}

/// Qt's own HTML of the same document into a file.
double BareSave(const QTextDocument& document, const QString& path) {
    const bench::Stopwatch timer;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(document.toHtml().toUtf8()) <= 0) {
        qFatal("the bare page can't be written");
    }
    return timer.Milliseconds();
}

void MeasureSaves(EditorSheet& ours, const bench::RichPages& pages, const QStringList& fresh,
                  bench::Report& report) {
    ours.Load(pages);
    toolkit::NoteEdit& sheet = *ours.Editor().Sheet();
    std::vector<NoteFile> before = sheet.Note()->Files();
    before.push_back({.storeName = pages.page, .localPath = pages.folder + pages.page});
    std::vector<double> saves;
    std::vector<double> bare;
    qsizetype uploadedPages = 0;
    qsizetype uploadedPictures = 0;
    for (const QString& picture : fresh) {
        ChangePicture(sheet, picture);
        bare.push_back(BareSave(*sheet.document(), pages.folder + u"bare.html"_s));
        const bench::Stopwatch timer;
        if (!ours.Editor().SaveEditor()) {
            qFatal("the page can't be saved");
        }
        saves.push_back(timer.Milliseconds());
        for (const auto& upload : richtext::ListUploads(RecordOf(before), ours.files)) {
            (upload.name.endsWith(u".html"_s) ? uploadedPages : uploadedPictures) += 1;
        }
        before = ours.files;
    }
    const auto times = double(fresh.size());
    report.AddGoal(u"pages uploaded for one picture changed"_s, double(uploadedPages) / times,
                   u"files"_s, 1);
    report.AddGoal(u"pictures uploaded for one changed"_s, double(uploadedPictures) / times,
                   u"files"_s, 1);
    report.AddFigure(u"save with one picture changed, first"_s, saves.front(), u"ms"_s);
    report.AddFigure(u"save with one picture changed"_s, bench::Median(saves), u"ms"_s);
    report.AddFigure(u"save with one picture changed, worst"_s, Quantile(saves, 1), u"ms"_s);
    report.AddFigure(u"save, bare"_s, bench::Median(bare), u"ms"_s);
    report.AddFigure(u"save, ratio"_s, bench::Median(saves) / bench::Median(bare), u"times"_s);
}

} // namespace

int main(int argc, char** argv) {
    bench::WatchedApplication app(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({u"photos"_s, u"Folder of the painted pictures; filled once."_s, u"folder"_s,
                       u"build/bench-photos"_s});
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"rich.json"_s});
    options.process(app);
    toolkit::ApplyLook(app);
    QApplication::setCursorFlashTime(0); // its paints would be taken for the text's
    const QStringList painted = bench::PaintRichPictures(
        QDir(options.value(u"photos"_s)).filePath(u"rich"_s), bench::kRichPictures + kSaves);
    const QStringList pictures = painted.mid(0, bench::kRichPictures);
    const QTemporaryDir place;
    const auto pages = pictures.isEmpty()
                           ? std::nullopt
                           : bench::MakeRichPages(pictures, place.filePath(u"pages/"_s));
    if (!pages) {
        QTextStream(stderr) << u"the document can't be made"_s << Qt::endl;
        return 1;
    }
    toolkit::SetEditorFolders({pages->folder});
    bench::Report report;
    {
        EditorSheet ours(app);
        BareSheet bare(app, ours.Sheet().size(), pages->folder, BarePictures::Dots);
        MeasureWithFiles(app, ours, *pages, report);
        MeasureLoads(ours, bare, *pages, report);
        MeasureKeys(ours, bare, *pages, report);
        MeasureSaves(ours, *pages, painted.mid(bench::kRichPictures), report);
    }
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}
