#include "reminder/feed/ReminderFeed.h"

#include "base/OpenProject.h"
#include "base/PictureLog.h"
#include "base/StoredFile.h"
#include "reminder/feed/MessageText.h"
#include "reminder/feed/PicMessage.h"
#include "services/Factories.h"
#include "services/IKXFilesMng.h"
#include "services/IKXGlobalData.h"
#include "services/IKXPathMng.h"
#include "toolkit/windows/WindowRegistry.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace reminder {

namespace {

constexpr qint32 kPreviewKind = 5;
/// Nobody sees so short a time.
constexpr std::chrono::milliseconds kBreath{1};

std::vector<qint32> OpenProjects() {
    std::vector<qint32> ids;
    GetKXGlobalData()->GetOpenProjectIds(ids);
    return ids;
}

/// False without an open project.
bool Fetch(KX_DATA::PicMsgRecord& record) {
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    if (!project) {
        return false;
    }
    // The folder of the open project, whichever the message is of; required as is.
    QString folder;
    GetKXPathMng()->GetPicFolder(folder, project->ppid, project->name);
    record.localFile = ZelvorNRQ_KXVeskPicture::StoredFilePath(
        folder, record.uuid, ZelvorNRQ_KXVeskPicture::kPictureEnding);
    if (record.localFile.isEmpty()) {
        return true; // no name of a file: nothing of it reaches the disk or the service
    }
    KX_DATA::TransferResult result;
    GetKXFilesDownloadMng()->DownloadFile(result, record.uuid, record.localFile, kPreviewKind,
                                          false, 0);
    if (result.success == 0) {
        ZelvorNRQ_KXVeskPicture::WriteLog(result.message);
    }
    return true;
}

void Append(std::vector<KX_DATA::PicMsgRecord>& queue, std::vector<KX_DATA::PicMsgRecord> records) {
    queue.insert(queue.end(), std::make_move_iterator(records.begin()),
                 std::make_move_iterator(records.end()));
}

} // namespace

ReminderFeed::ReminderFeed() = default;

ReminderFeed::~ReminderFeed() {
    End();
}

void ReminderFeed::End() {
    m_ended = true;
    if (m_reminderThread.joinable()) {
        m_reminderThread.request_stop();
        m_reminderThread.join();
    }
}

void ReminderFeed::OnPicMessage(KXWindow window, const std::string& json) {
    m_reminderWindow = window;
    Batch records;
    const auto text = MessageText(json);
    if (text && ReadPicMessage(*text, OpenProjects(), records)) {
        PushAndWake(std::move(records), true);
    }
}

void ReminderFeed::OnIssueMessage(KXWindow window, const std::string& json) {
    m_reminderWindow = window;
    Batch records;
    if (json.empty()) {
        return;
    }
    if (!GetKXGlobalData()->IsTNReminderEnabled()) {
        PushAndWake(std::move(records), false);
        return;
    }
    const auto text = MessageText(json);
    if (text && ReadIssueMessage(*text, OpenProjects(), records)) {
        PushAndWake(std::move(records), false);
    }
}

void ReminderFeed::PushAndWake(Batch records, bool isPicture) {
    bool isAsleep = false;
    {
        const std::lock_guard guard(m_incomingLock);
        Append(m_incomingQueue, std::move(records));
        m_picReminderActive = isPicture;
        m_resumed = true;
        isAsleep = m_asleep;
    }
    if (isAsleep) {
        m_resume.notify_one();
    }
    if (m_reminderThread.joinable() || m_ended) {
        return;
    }
    try {
        m_reminderThread = std::jthread([this](const std::stop_token& stop) { Run(stop); });
    } catch (const std::system_error& fault) {
        // The records wait for the next message.
        ZelvorNRQ_KXVeskPicture::WriteLog(QString::fromLocal8Bit(fault.what()));
    }
}

ReminderFeed::Batch ReminderFeed::NextBatch(const std::stop_token& stop) {
    std::unique_lock lock(m_incomingLock);
    Batch batch = std::exchange(m_incomingQueue, {});
    if (batch.empty()) {
        // Woken with the batch still empty: that pass tells the host as any other; required as is.
        m_asleep = true;
        m_resume.wait(lock, stop, [this] { return m_resumed; });
        m_asleep = false;
    }
    m_resumed = false;
    return batch;
}

void ReminderFeed::LetMoreCome(const std::stop_token& stop) {
    std::unique_lock lock(m_incomingLock);
    m_resume.wait_for(lock, stop, kBreath, [] { return false; });
}

void ReminderFeed::Run(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
        Batch batch = NextBatch(stop);
        const bool hadRecords = !batch.empty();
        for (KX_DATA::PicMsgRecord& record : batch) {
            if (stop.stop_requested() || !Fetch(record)) {
                return; // for good, with the whole batch; required as is
            }
        }
        {
            const std::lock_guard guard(m_readyLock);
            Append(m_readyQueue, std::move(batch));
        }
        if (!stop.stop_requested()) {
            PostReady();
        }
        if (hadRecords) {
            LetMoreCome(stop);
        }
    }
}

void ReminderFeed::PostReady() {
    toolkit::PostWindowEvent(m_reminderWindow,
                             m_picReminderActive ? kPicMessageEvent : kIssueMessageEvent);
}

std::vector<KX_DATA::PicMsgRecord> ReminderFeed::TakeReady() {
    const std::lock_guard guard(m_readyLock);
    return std::exchange(m_readyQueue, {});
}

} // namespace reminder
