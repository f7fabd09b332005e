#include "host/app/ReminderFlow.h"

#include "host/app/Faults.h"
#include "host/app/PhotoFlow.h"
#include "host/reminders/PushMessage.h"
#include "host/services/Surroundings.h"
#include "host/ui/LocateText.h"
#include "host/ui/MainWindow.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "host/ui/catchup/CatchUpPaint.h"
#include "include/IKXVeskPicture.h"
#include "services/IKXView.h"
#include "site/ICatalogue.h"
#include "site/ISite.h"
#include "toolkit/KXTools.h"

#include <QAction>
#include <QPixmap>

#include <algorithm>
#include <limits>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPage = 50;
/// Looked at as the client ends; more would hold it up.
constexpr int kLatest = 1000;
/// Changes that come closely behind each other are looked at together, milliseconds.
constexpr int kRelistDelay = 300;
constexpr qint64 kNewest = std::numeric_limits<qint64>::max();
constexpr qint32 kNoPreset = 0;

/// May change what is listed. Of a photo one knows which, of an issue the list has another id.
bool Concerns(const site::Change& change, const CatchUpModel::Items& items) {
    switch (change.kind) {
    case site::ChangeKind::Anything:
    case site::ChangeKind::Mark:
    case site::ChangeKind::Place:
        return true;
    case site::ChangeKind::BimPhoto:
        return change.id == 0 ||
               std::any_of(items.begin(), items.end(), [&](const CatchUpItem& item) {
                   return !item.isIssue && item.picId == change.id;
               });
    case site::ChangeKind::Issue:
        return std::any_of(items.begin(), items.end(),
                           [](const CatchUpItem& item) { return item.isIssue; });
    default:
        return false;
    }
}

/// "3层 A/5", "屋面 A/5"; without a floor the place alone.
QString PlaceOf(const site::Filing& filing) {
    const QString floor = filing.floor.isEmpty() ? QString() : FloorCaption(filing.floor);
    // An issue's place may say the floor itself.
    return floor.isEmpty() || filing.posText.startsWith(floor)
               ? filing.posText
               : (floor + u' ' + filing.posText).trimmed();
}

void AddTips(HostSession& session, std::vector<CatchUpItem>& items) {
    std::vector<qint32> picIds;
    for (const CatchUpItem& item : items) {
        if (!item.isIssue) {
            picIds.push_back(item.picId);
        }
    }
    const auto tips = ReadPhotoTips(session, picIds);
    for (CatchUpItem& item : items) {
        if (const auto tip = tips.find(item.picId); !item.isIssue && tip != tips.end()) {
            item.tip = tip->second;
        }
    }
}

QString CountText(int count) {
    if (count == 0) {
        return {};
    }
    return count < CatchUp::kMostCounted ? QString::number(count)
                                         : u"%1+"_s.arg(CatchUp::kMostCounted - 1);
}

} // namespace

ReminderFlow::ReminderFlow(const Parts& flowParts)
    : m_parts(flowParts), m_messages([this](const ReminderMessage& message) { HandOn(message); }),
      m_thumbs(m_parts.session) {
    m_relisting.setSingleShot(true);
    m_relisting.setInterval(kRelistDelay);
    connect(&m_relisting, &QTimer::timeout, this, &ReminderFlow::Relist);
    ConnectSwitches();
    ConnectDock();
    WithoutFault(m_parts.session, [this] {
        m_catchUp = std::make_unique<CatchUp>(m_parts.session);
        m_channel = std::make_unique<PushChannel>(m_parts.session.Site());
        m_changes = m_parts.session.Site().Changes().Subscribe(
            [this](const site::Changes& changes) { NoteChanges(changes); });
    });
    if (m_channel) {
        connect(m_channel.get(), &PushChannel::Filed, this, &ReminderFlow::OnFiled);
        connect(m_channel.get(), &PushChannel::Failed, this, [this](const QString& text) {
            m_parts.session.Desk()->Report(MessageLevel::Error, text);
        });
    }
}

void ReminderFlow::ConnectSwitches() {
    QString kept;
    WithoutFault(m_parts.session,
                 [&] { kept = m_parts.session.Site().Catalogue().Setting(SwitchSetting()); });
    m_popsPhotos = !kept.contains(u"photos-off"_s);
    m_parts.around.remindOfIssues = !kept.contains(u"issues-off"_s);
    QAction& photos = m_parts.window.PhotoReminders();
    QAction& issues = m_parts.window.IssueReminders();
    photos.setChecked(m_popsPhotos);
    issues.setChecked(m_parts.around.remindOfIssues);
    connect(&photos, &QAction::toggled, this, [this](bool on) {
        m_popsPhotos = on;
        KeepSwitches();
    });
    connect(&issues, &QAction::toggled, this, [this](bool on) {
        m_parts.around.remindOfIssues = on;
        KeepSwitches();
    });
}

QString ReminderFlow::SwitchSetting() const {
    return u"reminders:"_s + m_parts.session.UserName();
}

void ReminderFlow::KeepSwitches() {
    QStringList off;
    if (!m_popsPhotos) {
        off << u"photos-off"_s;
    }
    if (!m_parts.around.remindOfIssues) {
        off << u"issues-off"_s;
    }
    WithoutFault(m_parts.session, [&] {
        m_parts.session.Site().Catalogue().SetSetting(SwitchSetting(), off.join(u' '));
    });
}

void ReminderFlow::ConnectDock() {
    CatchUpDock& dock = m_parts.window.CatchUpList();
    const double ratio = m_parts.window.devicePixelRatio();
    m_thumbs.SetSize(CatchUpPaint::kPicture * ratio);
    connect(&dock, &CatchUpDock::ItemWanted, this, &ReminderFlow::Open);
    connect(&dock, &CatchUpDock::AllReadWanted, this, &ReminderFlow::MarkAllRead);
    connect(&m_parts.window, &MainWindow::RemindersReady, this, [this](bool ofPhotos) {
        if (ofPhotos) {
            m_parts.pictures.ShowPicPopups(m_parts.window.Id());
        } else {
            m_parts.pictures.ShowIssuePopups(m_parts.window.Id());
        }
        m_messages.Shown();
    });
    connect(&dock.Model(), &CatchUpModel::MoreWanted, this, &ReminderFlow::ListOlder);
    connect(&dock.Model(), &CatchUpModel::PictureWanted, &m_thumbs, &CatchUpPictures::Ask);
    connect(&m_thumbs, &CatchUpPictures::Dropped, &dock.Model(), &CatchUpModel::ForgetPicture);
    connect(&m_thumbs, &CatchUpPictures::Came, &dock.Model(),
            [&dock, ratio](const QString& uuid, const QImage& picture) {
                QPixmap pixmap = QPixmap::fromImage(picture);
                pixmap.setDevicePixelRatio(ratio);
                dock.Model().SetPicture(uuid, pixmap);
            });
}

void ReminderFlow::OnFiled(const site::Filings& filings) {
    const site::Projects open = m_parts.session.OpenPpids();
    site::Filings listed;
    for (const site::Filing& filing : filings) {
        if (filing.byThisSite) {
            m_catchUp->TakeOwn(filing.ppid, filing.seq);
            continue;
        }
        Announce(filing);
        if (site::Has(open, filing.ppid)) {
            listed.insert(listed.begin(), filing);
        }
    }
    if (!listed.empty()) {
        m_parts.window.CatchUpList().Model().Prepend(ItemsOf(listed));
        ShowCount();
    }
}

void ReminderFlow::Announce(const site::Filing& filing) {
    // Of projects that aren't open too: the module knows which it wants.
    const bool isIssue = filing.kind == site::ChangeKind::Issue;
    if (isIssue || m_popsPhotos) {
        m_messages.Add({isIssue, PushMessage(filing, PlaceOf(filing))});
    }
}

void ReminderFlow::HandOn(const ReminderMessage& message) {
    if (message.isIssue) {
        m_parts.pictures.OnIssueMessage(m_parts.window.Id(), message.json);
    } else {
        m_parts.pictures.OnPicMessage(m_parts.window.Id(), message.json);
    }
}

void ReminderFlow::NoteChanges(const site::Changes& changes) {
    const CatchUpModel::Items& items = m_parts.window.CatchUpList().Model().All();
    if (!items.empty() && !m_relisting.isActive() &&
        std::any_of(changes.begin(), changes.end(),
                    [&](const site::Change& change) { return Concerns(change, items); })) {
        m_relisting.start();
    }
}

void ReminderFlow::ProjectChanged() {
    m_relisting.stop();
    m_parts.window.CatchUpList().Model().SetItems({});
    if (m_catchUp) {
        m_catchUp->Begin();
        ListOlder(kNewest);
    }
    ShowCount();
}

void ReminderFlow::Relist() {
    CatchUpModel& model = m_parts.window.CatchUpList().Model();
    if (!m_catchUp) {
        return;
    }
    WithoutFault(m_parts.session, [&] {
        // What came meanwhile and wasn't announced yet comes by itself.
        const site::Filings filings =
            m_catchUp->Page(m_channel->Mark() + 1, std::max(model.rowCount(), kPage));
        model.SetItems(ItemsOf(filings));
    });
    ShowCount();
}

void ReminderFlow::ListOlder(qint64 before) {
    CatchUpModel& model = m_parts.window.CatchUpList().Model();
    const bool isRead = WithoutFault(m_parts.session, [&] {
        const qint64 told = m_channel ? m_channel->Mark() + 1 : kNewest;
        const site::Filings filings = m_catchUp->Page(std::min(before, told), kPage);
        model.Append(ItemsOf(filings));
        model.SetHasMore(int(filings.size()) == kPage);
    });
    if (!isRead) {
        model.SetHasMore(true); // asked for again when one scrolls on
    }
}

std::vector<CatchUpItem> ReminderFlow::ItemsOf(const site::Filings& filings) const {
    // Without their names the items are listed all the same.
    const std::map<qint32, KX_DATA::MarkRecord>* marks = nullptr;
    WithoutFault(m_parts.session, [&] { marks = &m_parts.session.Tables().Marks(); });
    std::vector<CatchUpItem> items;
    for (const site::Filing& filing : filings) {
        CatchUpItem item;
        item.seq = filing.seq;
        item.isIssue = filing.kind == site::ChangeKind::Issue;
        item.isRead = m_catchUp->IsRead(filing.ppid, filing.seq);
        item.ppid = filing.ppid;
        item.picId = filing.picId;
        item.questionId = filing.questionId;
        item.name = filing.name;
        item.person = filing.person;
        item.time = KXTools::SecondText(filing.at);
        item.place = PlaceOf(filing);
        item.floor = filing.floor;
        item.positionKey = filing.positionKey;
        item.handle = filing.handle;
        item.markId = filing.markId;
        if (marks != nullptr && marks->contains(filing.markId)) {
            item.markName = marks->at(filing.markId).name;
        }
        item.uuid = filing.uuid;
        items.push_back(item);
    }
    AddTips(m_parts.session, items);
    return items;
}

void ReminderFlow::ShowCount() {
    QString count;
    WithoutFault(m_parts.session,
                 [&] { count = m_catchUp ? CountText(m_catchUp->Unread()) : QString(); });
    m_parts.window.ShowUnread(count);
}

void ReminderFlow::Open(int row) {
    const CatchUpItem item = m_parts.window.CatchUpList().Model().At(row);
    MarkRow(row);
    if (item.isIssue) {
        m_parts.pictures.ShowIssueMngFor(kNoPreset, item.floor, item.markId, item.handle);
        if (m_parts.around.view != nullptr) {
            m_parts.around.view->LocateIssue(item.questionId); // the console lists it either way
        }
    } else {
        m_parts.pictures.ViewBimPic(
            {item.positionKey, item.picId, item.floor, item.markId, item.ppid});
    }
}

void ReminderFlow::MarkRow(int row) {
    CatchUpModel& model = m_parts.window.CatchUpList().Model();
    model.MarkRead(row);
    m_catchUp->MarkRead(model.At(row).ppid, model.At(row).seq);
    ShowCount();
}

void ReminderFlow::PhotoSeen(qint32 picId) {
    const CatchUpModel& model = m_parts.window.CatchUpList().Model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const CatchUpItem& item = model.At(row);
        if (!item.isIssue && item.picId == picId && !item.isRead) {
            MarkRow(row);
        }
    }
}

void ReminderFlow::MarkAllRead() {
    if (!m_channel) {
        return;
    }
    m_catchUp->MarkAllRead(m_channel->Mark()); // not what nobody was told of yet
    m_parts.window.CatchUpList().Model().MarkAllRead();
    ShowCount();
}

void ReminderFlow::Keep() {
    if (!m_catchUp) {
        return;
    }
    if (m_channel) {
        // The channel may not have told of the latest yet, and the next client can't know whose
        // they were.
        WithoutFault(m_parts.session, [this] {
            site::IFilings& filings = m_parts.session.Site().Filings();
            for (const site::Filing& filing : filings.After(m_channel->Mark(), kLatest).filings) {
                if (filing.byThisSite) {
                    m_catchUp->TakeOwn(filing.ppid, filing.seq);
                }
            }
        });
    }
    m_catchUp->Keep();
}

} // namespace host
