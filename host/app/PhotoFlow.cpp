#include "host/app/PhotoFlow.h"

#include "host/app/Faults.h"
#include "host/ui/MainWindow.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "host/ui/photo/PhotoDock.h"
#include "site/IClientFolders.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>

namespace host {

using namespace Qt::StringLiterals;

namespace {

PhotoTale TaleOf(const site::PhotoDetails& details) {
    return {details.name,
            details.uploader,
            details.filed,
            details.facts.taken,
            details.facts.camera,
            details.facts.latitude,
            details.facts.longitude,
            details.facts.direction,
            details.originalName};
}

/// What an import makes photos of; the name comes from the data, and others could start a program.
bool MayOpen(const QString& name) {
    static const QStringList suffixes{u"heic"_s, u"heif"_s, u"hif"_s,
                                      u"tif"_s,  u"tiff"_s, u"webp"_s};
    return suffixes.contains(QFileInfo(name).suffix().toLower());
}

} // namespace

std::map<qint32, QString> ReadPhotoTips(HostSession& session, const std::vector<qint32>& picIds) {
    std::map<qint32, QString> tips;
    WithoutFault(session, [&] {
        for (const site::PhotoDetails& details :
             session.Site().PhotoFacts().Of(session.OpenPpids(), picIds)) {
            const QString tip = TipOf(TaleOf(details));
            if (!tip.isEmpty()) {
                tips[details.picId] = tip;
            }
        }
    });
    return tips;
}

PhotoFlow::PhotoFlow(HostSession& hostSession, MainWindow& mainWindow)
    : m_session(hostSession), m_window(mainWindow) {
    PhotoDock& dock = m_window.PhotoFacts();
    connect(&dock, &PhotoDock::Seen, this, [this] {
        if (m_isStale) {
            Read();
        }
    });
    connect(&dock, &PhotoDock::OpenOriginalWanted, this, &PhotoFlow::OpenOriginal);
    connect(&dock, &PhotoDock::SaveOriginalWanted, this, &PhotoFlow::SaveOriginal);
    CatchUpDock& news = m_window.CatchUpList();
    connect(&news, &CatchUpDock::ItemWanted, this, [this, &news](int row) {
        const CatchUpItem& item = news.Model().At(row);
        if (!item.isIssue) {
            Show(item.picId);
        }
    });
}

PhotoFlow::~PhotoFlow() {
    m_end.request_stop();
}

void PhotoFlow::Show(qint32 picId) {
    m_picId = picId;
    Refresh();
}

void PhotoFlow::Refresh() {
    m_isStale = m_picId != 0;
    // A dock in front of which nobody sits costs nothing.
    if (m_isStale && m_window.PhotoFacts().IsSeen()) {
        Read();
    }
}

void PhotoFlow::ProjectChanged() {
    m_picId = 0;
    m_isStale = false;
    m_details.reset();
    m_window.PhotoFacts().Empty();
}

PhotoTale PhotoFlow::Tale() const {
    return TaleOf(*m_details);
}

void PhotoFlow::Read() {
    m_isStale = false;
    m_details.reset();
    WithoutFault(m_session, [&] {
        for (site::PhotoDetails& details :
             m_session.Site().PhotoFacts().Of(m_session.OpenPpids(), {m_picId})) {
            m_details = std::move(details);
        }
    });
    PhotoDock& dock = m_window.PhotoFacts();
    if (!m_details) {
        dock.ShowSentence(u"这张照片已不存在，或不属于当前工程。"_s);
        return;
    }
    dock.SetBusy(false);
    const bool isSizeKnown = m_sizeOf == m_details->uuid;
    dock.ShowInfo(InfoOf(Tale(), isSizeKnown ? m_size : QSize()));
    if (!isSizeKnown) {
        AskSize();
    }
}

void PhotoFlow::AskSize() {
    using Folder = site::IClientFolders::Cache;
    const Folder cache = m_details->isOfDrawing ? Folder::Thumbnails : Folder::Pictures;
    const auto folder = m_session.Desk()->Folder(
        [&](site::IClientFolders& folders) { return folders.CacheOf(m_details->ppid, cache); });
    if (!folder || folder->isEmpty()) {
        return;
    }
    // Where the module looks for it too.
    const QString uuid = m_details->uuid;
    const QString path = *folder + u'/' + uuid + u".jpg"_s;
    const QPointer<PhotoFlow> self(this);
    const auto work = [self, uuid, path, end = m_end.get_token()](
                          site::IBlobs& blobs, const site::TransferTerms& terms) {
        QSize size;
        if (!end.stop_requested() && blobs.Fetch(uuid, path, terms).ok) {
            size = toolkit::ReadPictureSize(path);
        }
        // Looked up on the interface thread: the flow may be gone by then.
        toolkit::CallOnInterfaceThread([self, uuid, size] {
            if (self) {
                self->TakeSize(uuid, size);
            }
        });
    };
    (void)m_session.Desk()->Start(work);
}

void PhotoFlow::TakeSize(const QString& uuid, const QSize& size) {
    if (m_details && m_details->uuid == uuid && !size.isEmpty()) {
        m_sizeOf = uuid;
        m_size = size;
        m_window.PhotoFacts().ShowInfo(InfoOf(Tale(), m_size));
    }
}

void PhotoFlow::Fetch(const QString& path, std::function<void()> then) {
    m_window.PhotoFacts().SetBusy(true);
    const QPointer<PhotoFlow> self(this);
    const auto finish = [self, then = std::move(then)](const site::TransferOutcome& outcome) {
        if (!self) {
            return;
        }
        self->m_window.PhotoFacts().SetBusy(false);
        if (outcome.ok) {
            then();
        } else {
            self->m_session.Desk()->Report(MessageLevel::Error,
                                           u"没有取到原始文件：%1"_s.arg(outcome.text));
        }
    };
    const auto work = [finish, uuid = m_details->originalUuid, path, end = m_end.get_token()](
                          site::IBlobs& blobs, const site::TransferTerms& terms) {
        if (!end.stop_requested()) {
            const site::TransferOutcome outcome = blobs.Fetch(uuid, path, terms);
            toolkit::CallOnInterfaceThread([finish, outcome] { finish(outcome); });
        }
    };
    if (!m_session.Desk()->Start(work).stop_possible()) {
        finish({false, u"数据文件夹已关闭。"_s});
    }
}

void PhotoFlow::OpenOriginal() {
    if (!m_details || m_details->originalUuid.isEmpty()) {
        return;
    }
    const QString name = m_details->originalName;
    if (!MayOpen(name)) {
        m_session.Desk()->Report(MessageLevel::Warning,
                                 u"没有打开“%1”：不是图片的扩展名。可以另存后查看。"_s.arg(name));
        return;
    }
    const auto folder =
        m_session.Desk()->Folder([](site::IClientFolders& folders) { return folders.Opened(); });
    if (!folder || folder->isEmpty()) {
        return;
    }
    // The person knows it by its name; two of one name are two files.
    const QString path = *folder + u'/' + m_details->originalUuid.left(8) + u'-' + name;
    Fetch(path, [this, path] {
        if (!toolkit::Prompts().OpenFile(path)) {
            toolkit::Prompts().RevealFile(path);
        }
    });
}

void PhotoFlow::SaveOriginal() {
    if (!m_details || m_details->originalUuid.isEmpty()) {
        return;
    }
    const toolkit::StillThere still(this);
    const qint32 picId = m_picId;
    const QString suffix = QFileInfo(m_details->originalName).suffix();
    const QString path = toolkit::Prompts().AskSaveFile(
        {m_window.Id(), m_details->originalName, suffix, u"所有文件 (*)"_s});
    // Another photo may have been shown meanwhile.
    if (!still || path.isEmpty() || picId != m_picId || !m_details) {
        return;
    }
    Fetch(path, [this, path] {
        m_window.ShowStatus(u"已保存原始文件 %1"_s.arg(QDir::toNativeSeparators(path)));
    });
}

} // namespace host
