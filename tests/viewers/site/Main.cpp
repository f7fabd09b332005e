// Shows a folder of pictures as photos that are fetched from a site, and saves the gallery's
// states.
#include "tests/viewers/site/GallerySite.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

/// What follows the end of a picture is not looked at: enough for a transfer of several blocks.
constexpr qsizetype kPhotoBytes = 3'000'000;
constexpr int kPollMs = 20;
constexpr int kMostMs = 60'000;
constexpr int kDamaged = 1; ///< the photo whose bytes are wrong

/// A state of the gallery to be waited for, and what is done then.
struct Stage {
    std::function<bool()> reached;
    std::function<void()> act;
};

site::TransferRules RulesOf(const QString& name) {
    static const std::map<QString, site::TransferRules> rules{
        {u"quick"_s, {}}, {u"slow"_s, {60}}, {u"never"_s, {0, site::TransferFault::NeverEnds}}};
    const auto found = rules.find(name);
    return found == rules.end() ? site::TransferRules() : found->second;
}

void FilePhotos(support::GallerySite& site, const QString& folder) {
    for (const QString& path : support::FolderGallery::PicturesIn(folder)) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        QByteArray bytes = file.readAll();
        if (bytes.size() < kPhotoBytes) {
            bytes.append(QByteArray(kPhotoBytes - bytes.size(), '\0'));
        }
        site.AddPhoto(bytes);
    }
}

bool IsFetching(const support::FolderGallery& gallery) {
    return gallery.State().activeDownloads > 0;
}

/// One photo is here, one has failed, one is on its way, the others wait.
bool IsArriving(const support::FolderGallery& gallery) {
    const std::vector<GalleryItem>& items = gallery.State().items;
    return items.size() > 3 && items[0].picState == kOnDisk &&
           items[kDamaged].picState == kDownloadFailedState && items[2].picProgress > 30;
}

bool IsOver(const support::FolderGallery& gallery) {
    const gallery::GalleryState& state = gallery.State();
    return state.activeDownloads == 0 &&
           !gallery::NextDownload(state.items, state.visible, state.currentIndex);
}

void Save(const support::FolderGallery& gallery, const QString& path) {
    if (!gallery.Widget()->grab().save(path)) {
        std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(path));
        QCoreApplication::exit(1);
    }
}

std::vector<Stage> ShotStages(support::FolderGallery& gallery, support::GallerySite& site,
                              const QString& folder) {
    const QDir shots(folder);
    QDir().mkpath(folder);
    return {{[&] { return IsArriving(gallery); },
             [&gallery, &site, shots] {
                 Save(gallery, shots.filePath(u"gallery-arriving.png"_s));
                 site.session->Desk()->SetRules({});
             }},
            {[&] { return IsOver(gallery); },
             [&gallery, shots] {
                 gallery.SelectPic(2, gallery::kCurrentMiddle);
                 Save(gallery, shots.filePath(u"gallery-arrived.png"_s));
                 QCoreApplication::exit(0);
             }}};
}

/// Goes from stage to stage; none reached for long ends the program with a fault.
class Stages final : public QObject {
public:
    explicit Stages(std::vector<Stage> stages) : m_stages(std::move(stages)) {
        m_sinceStart.start();
        startTimer(kPollMs);
    }

protected:
    void timerEvent(QTimerEvent*) override {
        if (m_at < m_stages.size() && m_stages[m_at].reached()) {
            m_stages[m_at++].act();
        } else if (m_at < m_stages.size() && m_sinceStart.elapsed() > kMostMs) {
            QCoreApplication::exit(1);
        }
    }

private:
    std::vector<Stage> m_stages;
    size_t m_at = 0;
    QElapsedTimer m_sinceStart;
};

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    toolkit::ApplyLook(app);
    QCommandLineParser options;
    options.addHelpOption();
    options.addPositionalArgument(u"folder"_s, u"folder of pictures"_s);
    options.addOptions({{u"transfers"_s, u"quick, slow or never ending"_s, u"KIND"_s, u"slow"_s},
                        {u"shots"_s, u"saves pictures of the states there and ends"_s, u"DIR"_s},
                        {u"quit"_s, u"ends while the first download runs"_s}});
    options.process(app);
    if (options.positionalArguments().size() != 1) {
        options.showHelp(2);
    }

    const QTemporaryDir root;
    support::GallerySite site(root.filePath(u"data"_s));
    host::TheServices().around.imageFolder = QCoreApplication::applicationDirPath() + u"/work"_s;
    FilePhotos(site, options.positionalArguments().front());
    const std::vector<GalleryItem> items = site.Items();
    if (options.isSet(u"shots"_s) && items.size() > kDamaged) {
        site.Damage(items[kDamaged].picUuid);
    }
    site.session->Desk()->SetRules(RulesOf(options.value(u"transfers"_s)));
    // Ends first, then the session with its transfers, then the application with the workers.
    support::FolderGallery gallery;
    gallery.Create(toolkit::kNoWindow);
    gallery.Widget()->resize(900, 700);
    gallery.Widget()->show();
    gallery.SetPicItems(items);
    std::vector<Stage> stages;
    if (options.isSet(u"shots"_s)) {
        stages = ShotStages(gallery, site, options.value(u"shots"_s));
    } else if (options.isSet(u"quit"_s)) {
        stages = {{[&] { return IsFetching(gallery); }, [] { QCoreApplication::exit(0); }}};
    }
    const Stages walk(std::move(stages));
    return QApplication::exec();
}
