#include "host/app/InboxFlow.h"

#include "host/app/BulkFlow.h"
#include "host/app/Faults.h"
#include "host/app/PhotoFlow.h"
#include "host/services/ListPresets.h"
#include "host/ui/MainWindow.h"
#include "host/ui/filing/InboxWindow.h"
#include "include/IKXVeskPicture.h"
#include "toolkit/windows/WaitCursor.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kInboxPage = 200;
/// Changes that come closely behind each other are looked at together, milliseconds.
constexpr int kInboxDelay = 300;
/// As many as a large screen shows.
constexpr std::size_t kPicturesInSight = 400;
constexpr qint32 kInboxUnread = 0;
constexpr qint32 kInboxMark = 0;
constexpr qint32 kInboxTicked = -1;

bool MayChangeInbox(const site::Change& change) {
    switch (change.kind) {
    case site::ChangeKind::Anything:
    case site::ChangeKind::BimPhoto:
    case site::ChangeKind::Mark:
    case site::ChangeKind::Place:
        return true;
    default:
        return false;
    }
}

} // namespace

InboxFlow::InboxFlow(const Parts& flowParts) : m_parts(flowParts) {
    m_reading.setSingleShot(true);
    m_reading.setInterval(kInboxDelay);
    m_reading.callOnTimeout(this, &InboxFlow::Reload);
    WithoutFault(m_parts.session, [this] {
        m_changes = m_parts.session.Site().Changes().Subscribe(
            [this](const site::Changes& changes) { NoteChanges(changes); });
    });
}

InboxFlow::~InboxFlow() {
    delete m_list;
}

void InboxFlow::Show() {
    if (m_list.isNull()) {
        MakeWindow();
        Reload();
    }
    m_list->show();
    m_list->raise();
    m_list->activateWindow();
}

void InboxFlow::MakeWindow() {
    m_list = new InboxWindow(&m_parts.window);
    m_list->setAttribute(Qt::WA_DeleteOnClose);
    connect(&m_list->Model(), &InboxModel::MoreWanted, this, &InboxFlow::ReadMore);
    connect(m_list, &InboxWindow::AllWanted, this, &InboxFlow::ReadAll);
    connect(m_list, &InboxWindow::FilingWanted, this, &InboxFlow::FileChosen);
    connect(m_list, &InboxWindow::ListWanted, this, [this] {
        ListPreset preset;
        preset.unfiled = true;
        m_parts.pictures.ShowBimPicMngFor(kInboxUnread, KeyOfPreset(preset), kInboxMark,
                                          kInboxTicked);
    });
    connect(m_list, &InboxWindow::PreviewWanted, this, [this](const InboxItem& item) {
        m_parts.pictures.ViewBimPic(
            {item.positionKey, item.picId, item.floor, item.markId, item.ppid});
    });
    ConnectPictures();
}

void InboxFlow::ConnectPictures() {
    m_thumbs = std::make_unique<CatchUpPictures>(m_parts.session, kPicturesInSight);
    const double ratio = m_list->devicePixelRatioF();
    m_thumbs->SetSize(InboxWindow::kPicture * ratio);
    InboxModel& model = m_list->Model();
    connect(&model, &InboxModel::PictureWanted, m_thumbs.get(), &CatchUpPictures::Ask);
    connect(m_thumbs.get(), &CatchUpPictures::Dropped, &model, &InboxModel::ForgetPicture);
    connect(m_thumbs.get(), &CatchUpPictures::Came, &model,
            [&model, ratio](const QString& uuid, const QImage& picture) {
                QPixmap pixmap = QPixmap::fromImage(picture);
                pixmap.setDevicePixelRatio(ratio);
                model.SetPicture(uuid, pixmap);
            });
}

void InboxFlow::NoteChanges(const site::Changes& changes) {
    if (!m_list.isNull() && !m_reading.isActive() &&
        std::any_of(changes.begin(), changes.end(), MayChangeInbox)) {
        m_reading.start();
    }
}

InboxFlow::Photos InboxFlow::Read(qint64 page, qint64 pageSize) const {
    site::ListFilter filter;
    filter.ppids = m_parts.session.OpenPpids();
    filter.unfiled = true;
    // As they were filed: what is changed and still waits stays where it was.
    const site::ListOrder latestFirst{u"ppid"_s, true};
    return m_parts.session.Site().BimPhotos().PageOf(filter, {latestFirst, page, pageSize});
}

std::vector<InboxItem> InboxFlow::ItemsOf(const Photos& photos) const {
    const std::map<qint32, KX_DATA::MarkRecord>& marks = m_parts.session.Tables().Marks();
    std::vector<qint32> ids;
    for (const KX_DATA::BimPicRow& row : photos.rows) {
        ids.push_back(row.picId);
    }
    const std::map<qint32, QString> facts = ReadPhotoTips(m_parts.session, ids);
    std::vector<InboxItem> items;
    items.reserve(photos.rows.size());
    for (const KX_DATA::BimPicRow& row : photos.rows) {
        QStringList lacks;
        if (row.floor.isEmpty()) {
            lacks << u"无楼层"_s;
        }
        if (!marks.contains(row.markId)) {
            lacks << u"无标识"_s;
        }
        const auto found = facts.find(row.picId);
        items.push_back({row.picId, row.ppid, row.fileName, row.uploadTime, lacks.join(u'、'),
                         row.uploaderName, row.floor, row.positionKey, row.markId, row.text8,
                         found == facts.end() ? QString() : found->second});
    }
    return items;
}

void InboxFlow::Reload() {
    if (m_list.isNull()) {
        return;
    }
    m_reading.stop();
    WithoutFault(m_parts.session, [this] {
        // As many as are listed, in pages.
        const qint64 listed = m_list->Model().rowCount();
        const qint64 pages = std::max<qint64>(1, (listed + kInboxPage - 1) / kInboxPage);
        const Photos photos = Read(1, pages * kInboxPage);
        m_list->SetItems(ItemsOf(photos), int(photos.total));
    });
}

void InboxFlow::ReadMore() {
    InboxModel& model = m_list->Model();
    if (model.rowCount() % kInboxPage != 0) {
        Reload(); // some went: pages have moved
        return;
    }
    const bool isRead = WithoutFault(m_parts.session, [&] {
        const Photos photos = Read(model.rowCount() / kInboxPage + 1, kInboxPage);
        model.Append(ItemsOf(photos), int(photos.total));
    });
    if (!isRead) {
        model.Append({}, model.Total()); // asked for again when one scrolls on
    }
}

void InboxFlow::ReadAll() {
    const bool isRead = WithoutFault(m_parts.session, [this] {
        const toolkit::WaitCursor waiting;
        const Photos photos = Read(1, std::max<qint64>(m_list->Model().Total(), kInboxPage));
        m_list->SetItems(ItemsOf(photos), int(photos.total));
    });
    if (isRead) {
        m_list->ChooseAll();
    }
}

void InboxFlow::FileChosen() {
    std::vector<BulkRow> rows;
    for (const InboxItem& item : m_list->Chosen()) {
        rows.push_back({QString::number(item.picId), item.name, item.ppid});
    }
    m_parts.bulk.AskForChosen(std::move(rows), *m_list, m_list->TipPlace());
}

} // namespace host
