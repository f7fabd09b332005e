// Opens a folder of pictures in a plain gallery.
#include "tests/support/ScriptedHost.h"
#include "tests/viewers/gallery_program/FolderGallery.h"
#include "tests/viewers/gallery_program/NotedGallery.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QSize SizeOf(const QString& text) {
    const QStringList parts = text.split(u'x');
    const QSize size(parts.value(0).toInt(), parts.value(1).toInt());
    return size.isEmpty() ? QSize(900, 700) : size;
}

/// The client's fixed images lie beside the programs.
QString OwnWorkFolder() {
    return QDir(QCoreApplication::applicationDirPath()).filePath(u"work"_s);
}

/// The plain gallery, or the one with the player where there is something to play.
std::unique_ptr<CPicViewDlg> GalleryFor(const std::vector<GalleryItem>& items, bool vertical) {
    if (!vertical && support::NotedGallery::HasNotes(items)) {
        return std::make_unique<support::NotedGallery>();
    }
    auto gallery = std::make_unique<support::FolderGallery>();
    gallery->horizontal = !vertical;
    return gallery;
}

/// Saves what the window shows and ends the program.
void SaveAndQuit(const CPicViewDlg& gallery, const QString& path) {
    const bool saved = gallery.Widget()->grab().save(path);
    QCoreApplication::exit(saved ? 0 : 1);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    toolkit::ApplyLook(app);
    QCommandLineParser options;
    options.addHelpOption();
    options.addPositionalArgument(u"folder"_s, u"folder of pictures"_s);
    options.addOptions(
        {{u"size"_s, u"size of the window"_s, u"WxH"_s, u"900x700"_s},
         {u"index"_s, u"the picture shown first"_s, u"N"_s, u"0"_s},
         {u"vertical"_s, u"the strip stands to the right"_s},
         {u"work"_s, u"folder with the images of the buttons"_s, u"DIR"_s, OwnWorkFolder()},
         {u"shot"_s, u"saves a picture of the window and ends"_s, u"FILE"_s}});
    options.process(app);
    const QStringList arguments = options.positionalArguments();
    if (arguments.size() != 1) {
        options.showHelp(2);
    }

    support::ScriptedHost host;
    const QTemporaryDir root;
    host.paths.root = root.path();
    QFile::link(QDir(options.value(u"work"_s)).absolutePath(), root.filePath(u"work"_s));
    const std::vector<GalleryItem> items =
        support::FolderGallery::ItemsOf(support::FolderGallery::PicturesIn(arguments.front()));
    const auto gallery = GalleryFor(items, options.isSet(u"vertical"_s));
    gallery->Create(toolkit::kNoWindow);
    gallery->Widget()->resize(SizeOf(options.value(u"size"_s)));
    gallery->Widget()->show();
    gallery->SetCurrentIndex(options.value(u"index"_s).toInt());
    gallery->SetPicItems(items);
    std::printf("%d pictures\n", int(items.size()));
    if (options.isSet(u"shot"_s)) {
        QTimer::singleShot(0, &app, [&] { SaveAndQuit(*gallery, options.value(u"shot"_s)); });
    }
    return QApplication::exec();
}
