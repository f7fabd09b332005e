#include "host/app/ReportFetch.h"

#include "host/session/HostSession.h"
#include "site/IBlobs.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/media/AmrReader.h"

#include <QPointer>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

int SecondsOf(const QString& path) {
    toolkit::AmrReader reader(path);
    const quint64 milliseconds = reader.CountRest() * toolkit::kAmrFrameMs;
    return static_cast<int>((milliseconds + 500) / 1000);
}

} // namespace

ReportFetch::ReportFetch(HostSession& hostSession, ReportReading reportReading, QObject* parent)
    : QObject(parent), m_session(hostSession), m_reading(std::move(reportReading)) {
    TakeCached();
}

ReportFetch::~ReportFetch() {
    m_stop.request_stop();
    m_transfer.request_stop();
}

void ReportFetch::Begin() {
    m_total = static_cast<int>(m_left.size());
    if (m_left.empty()) {
        QMetaObject::invokeMethod(
            this, [this] { End(); }, Qt::QueuedConnection);
        return;
    }
    emit Stepped(0, m_total);
    StartNext();
}

void ReportFetch::TakeCached() {
    m_session.Desk()->Run([this](site::IBlobs& blobs, const site::TransferTerms&) {
        for (size_t wish = m_reading.wishes.size(); wish-- > 0;) {
            const ReportWish& one = m_reading.wishes[wish];
            if (blobs.IsFetched(one.uuid, one.path)) {
                PutIn(one);
            } else {
                m_left.push_back(wish);
            }
        }
    });
}

void ReportFetch::StartNext() {
    if (m_isEnded) {
        return;
    }
    if (m_left.empty()) {
        End();
        return;
    }
    const size_t wish = m_left.back();
    m_left.pop_back();
    m_running = wish;
    const QPointer<ReportFetch> self(this);
    const auto work =
        [self, wish, uuid = m_reading.wishes[wish].uuid, path = m_reading.wishes[wish].path,
         end = m_stop.get_token()](site::IBlobs& blobs, const site::TransferTerms& terms) {
            const site::TransferOutcome outcome =
                end.stop_requested() ? site::TransferOutcome() : blobs.Fetch(uuid, path, terms);
            // Looked up on the interface thread: the report may be closed by then.
            toolkit::CallOnInterfaceThread([self, wish, outcome] {
                if (self) {
                    self->Take(wish, outcome.ok, outcome.text);
                }
            });
        };
    m_transfer = m_session.Desk()->Start(work);
    if (!m_transfer.stop_possible()) {
        Take(wish, false, u"数据文件夹已关闭"_s);
    }
}

void ReportFetch::Take(size_t wish, bool isThere, const QString& fault) {
    if (m_isEnded) {
        return;
    }
    m_running.reset();
    const ReportWish& one = m_reading.wishes[wish];
    if (isThere) {
        PutIn(one);
    } else if (one.what == ReportWish::What::Photo) {
        ++m_missing;
        m_reading.content.sections[one.section].photos[one.index].lack =
            u"图片没有下载成功：%1"_s.arg(fault);
    }
    emit Stepped(m_total - static_cast<int>(m_left.size()), m_total);
    StartNext();
}

void ReportFetch::PutIn(const ReportWish& wish) {
    ReportSection& section = m_reading.content.sections[wish.section];
    if (wish.what == ReportWish::What::Voice) {
        section.voices[wish.index].seconds = SecondsOf(wish.path);
    } else {
        section.photos[wish.index].file = wish.path;
        section.photos[wish.index].lack.clear();
    }
}

void ReportFetch::Stop() {
    m_stop.request_stop();
    m_transfer.request_stop();
    if (m_isEnded) {
        return;
    }
    if (m_running) {
        m_left.push_back(*m_running);
    }
    for (const size_t wish : m_left) {
        const ReportWish& one = m_reading.wishes[wish];
        if (one.what == ReportWish::What::Photo) {
            ++m_missing;
            m_reading.content.sections[one.section].photos[one.index].lack =
                u"图片没有下载：已取消"_s;
        }
    }
    End();
}

void ReportFetch::End() {
    if (!std::exchange(m_isEnded, true)) {
        emit Ended(m_missing);
    }
}

} // namespace host
