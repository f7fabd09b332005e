// Any bytes as a page of the store and as pasted HTML: what becomes of them, not only that it
// survives.
#include "tests/fuzz/FileWatch.h"
#include "tests/fuzz/FormCheck.h"
#include "toolkit/Look.h"
#include "toolkit/richtext/NoteDocument.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteStore.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace Qt::StringLiterals;
using toolkit::NoteDocument;
using toolkit::NoteFault;

constexpr QSize kSheet(500, 400);
/// Far more than the longest input can say, far less than what runs away.
constexpr int kMostBlocks = 200'000;
constexpr double kMostHeight = 5e7;

void Expect(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "rich_fuzz: not so: %s\n", what);
        std::abort();
    }
}

/// One pixel; the corpus names it.
QByteArray OnePixelGif() {
    return QByteArray::fromHex("47494638396101000100800000ff000000000021f90401000001002c00000000"
                               "010001000002024401003b");
}

/// What one program needs for all inputs.
struct Surroundings {
    int count = 1;
    char name[10] = "rich_fuzz";
    char* names[2] = {name, nullptr};
    QApplication application{count, names};
    QTemporaryDir place;
    QString pages = place.filePath(u"pages/"_s);
    toolkit::NoteEdit sheet{nullptr};
    QImage screen{kSheet, QImage::Format_RGB32};

    Surroundings() {
        toolkit::ApplyLook(application);
        sheet.resize(kSheet);
        Expect(toolkit::StoreBytes(OnePixelGif(), pages, u".gif"_s).has_value(),
               "the folder can be written");
    }
};

Surroundings& The() {
    static auto* all = new Surroundings; // outlives the fuzzer's own end
    return *all;
}

/// As a person would see its beginning.
void Paint() {
    Surroundings& all = The();
    all.sheet.viewport()->render(&all.screen);
    Expect(all.sheet.document()->blockCount() <= kMostBlocks, "a small page has few paragraphs");
    Expect(all.sheet.document()->size().height() <= kMostHeight, "a small page isn't endless");
}

void ExpectClean(const NoteDocument& document, const QString& html) {
    const char* fault = fuzz::FaultOfForm(html);
    Expect(fault == nullptr, fault == nullptr ? "" : fault);
    for (const NoteFile& file : document.Files()) {
        Expect(file.localPath.startsWith(document.Folder()) &&
                   QDir::cleanPath(file.localPath) == file.localPath,
               "a file of a page lies in the folder");
    }
}

void Compare(const QString& first, const QString& second, const char* what) {
    if (first != second) {
        std::fprintf(stderr, "--- first\n%s\n--- second\n%s\n", qUtf8Printable(first),
                     qUtf8Printable(second));
    }
    Expect(first == second, what);
}

QString Words(const NoteDocument& document) {
    return document.toPlainText().simplified();
}

/// Qt moves a table that stands in a list a step to the right whenever it writes it, and an item of
/// a list in a list whose item has a margin by that margin; it gives the paragraph behind a table
/// the direction of the last one in its cells when it reads it.
QString WithoutWhatQtMoves(QString html) {
    static const QRegularExpression place(u"(<(?:table|li)[^>]*margin-left:)[^;]*;"_s);
    return html.replace(place, u"\\1;"_s).remove(u" dir=\"rtl\""_s);
}

void Load(NoteDocument& document, const QString& html) {
    Expect(document.Load(html) == NoteFault::None, "what was saved can be loaded");
}

/// What was made of an input loses no word when it is saved and loaded, and from the second time on
/// nothing changes any more: Qt's own HTML says some things in another way than it was told.
void ExpectLasts(const NoteDocument& document) {
    const QString html = document.Html();
    ExpectClean(document, html);
    NoteDocument again(document.Folder(), nullptr);
    Load(again, html);
    Compare(Words(document), Words(again), "no word is lost by saving");
    Expect(again.Files().size() == document.Files().size(), "no file is lost by saving");
    const QString second = again.Html();
    ExpectClean(again, second);
    NoteDocument third(document.Folder(), nullptr);
    Load(third, second);
    Compare(WithoutWhatQtMoves(second), WithoutWhatQtMoves(third.Html()),
            "what was saved twice loads as the same");
    Compare(Words(again), Words(third), "nor do its words change");
}

void LoadPage(const QByteArray& bytes) {
    auto document = std::make_unique<NoteDocument>(The().pages, nullptr);
    const NoteFault fault = document->Load(QString::fromUtf8(bytes));
    Expect(fault == NoteFault::None || document->isEmpty(), "a page that can't be read is empty");
    Expect(!document->isModified(), "a loaded page is unmodified");
    ExpectLasts(*document);
    The().sheet.SetNote(std::move(document));
    Paint();
}

void PasteHtml(const QByteArray& bytes) {
    Surroundings& all = The();
    auto document = std::make_unique<NoteDocument>(all.pages, nullptr);
    Expect(document->Load(u"<p>a</p>"_s) == NoteFault::None, "a page of one letter can be read");
    all.sheet.SetNote(std::move(document));
    auto* data = new QMimeData;
    data->setData(u"text/html"_s, bytes);
    data->setText(u"t"_s);
    QGuiApplication::clipboard()->setMimeData(data);
    all.sheet.paste();
    Paint();
    ExpectLasts(*all.sheet.Note());
    all.sheet.undo();
    Expect(all.sheet.toPlainText() == u"a", "a paste is one step to undo");
}

} // namespace

/// The platform's own, kept by it until the end.
extern "C" const char* __lsan_default_suppressions() { // NOLINT: the sanitizer's name
    return "leak:libfontconfig.so";
}

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*values*/) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt says much of odd sizes and colours.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    // What is loaded once, faces and readers of pictures, is loaded before anything is watched.
    LoadPage("<p>a<b>b</b><img src=\"x\"/></p>");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const fuzz::FileWatch watch(The().place.path().toStdString());
    LoadPage(bytes);
    PasteHtml(bytes);
    Expect(watch.Strange().empty(), watch.Strange().c_str());
    return 0;
}
