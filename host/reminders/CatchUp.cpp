#include "host/reminders/CatchUp.h"

#include "host/session/HostSession.h"
#include "site/ICatalogue.h"
#include "site/IFilings.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kKeepDelayMs = 1000;

} // namespace

CatchUp::CatchUp(HostSession& owner) : m_session(owner) {
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(kKeepDelayMs);
    connect(&m_keeping, &QTimer::timeout, this, &CatchUp::Keep);
    const QString kept = m_session.Site().Catalogue().Setting(SettingName());
    if (kept.isEmpty()) {
        m_first = m_session.Site().Filings().Newest();
        Keep();
    } else {
        m_first = kept.section(u'/', 0, 0).toLongLong();
        TakeKept(kept);
    }
    Begin();
}

QString CatchUp::SettingName() const {
    return u"news:"_s + m_session.UserName();
}

CatchUp::Seen& CatchUp::Of(qint32 ppid) {
    const auto [place, isNew] = m_projects.try_emplace(ppid);
    if (isNew) {
        place->second.read.Add({1, m_first});
        place->second.from = m_first;
    }
    return place->second;
}

// "40/7:1-52,60;55/8:1-40;": known at first, then of each project what was read and what is own.
QString CatchUp::Text() const {
    QString text = QString::number(m_first);
    for (const auto& [ppid, seen] : m_projects) {
        text += u"/%1:%2;%3"_s.arg(QString::number(ppid), seen.read.Text(), seen.own.Text());
    }
    return text;
}

void CatchUp::TakeKept(const QString& text) {
    const QStringList parts = text.split(u'/').mid(1);
    for (const QString& part : parts) {
        const qint32 ppid = part.section(u':', 0, 0).toInt();
        const QString sets = part.section(u':', 1);
        if (ppid > 0) {
            Of(ppid).read.Add(SeqSet::FromText(sets.section(u';', 0, 0)));
            Of(ppid).own.Add(SeqSet::FromText(sets.section(u';', 1, 1)));
        }
    }
}

void CatchUp::Begin() {
    for (const qint32 ppid : m_session.OpenPpids()) {
        Seen& seen = Of(ppid);
        seen.from = seen.read.Whole();
        seen.own.Forget(seen.from);
    }
}

site::Filings CatchUp::Page(qint64 before, int most) {
    site::Filings page;
    const site::Projects open = m_session.OpenPpids();
    qint64 from = before;
    for (const qint32 ppid : open) {
        from = std::min(from, Of(ppid).from + 1);
    }
    while (int(page.size()) < most) {
        const site::Filings part =
            m_session.Site().Filings().Latest(open, {from, before - 1}, most);
        for (const site::Filing& filing : part) {
            const Seen& seen = Of(filing.ppid);
            if (filing.seq > seen.from && !seen.own.Has(filing.seq) && int(page.size()) < most) {
                page.push_back(filing);
            }
        }
        if (int(part.size()) < most) {
            break;
        }
        before = part.back().seq;
    }
    return page;
}

int CatchUp::Unread() {
    int count = 0;
    for (const qint32 ppid : m_session.OpenPpids()) {
        const Seen& seen = Of(ppid);
        const auto unread = seen.read.Gaps({seen.from + 1, std::numeric_limits<qint64>::max()});
        count += m_session.Site().Filings().Count({ppid}, unread, kMostCounted - count);
    }
    return count;
}

bool CatchUp::IsRead(qint32 ppid, qint64 seq) {
    return Of(ppid).read.Has(seq);
}

void CatchUp::TakeOwn(qint32 ppid, qint64 seq) {
    Of(ppid).own.Add(seq);
    MarkRead(ppid, seq);
}

void CatchUp::MarkRead(qint32 ppid, qint64 seq) {
    m_keeping.start();
    qint64 from = seq;
    try {
        // What lies between it and the one before is of other projects: no gap.
        const site::Filings before = m_session.Site().Filings().Latest({ppid}, {1, seq - 1}, 1);
        from = before.empty() ? 1 : before.front().seq + 1;
    } catch (const site::DataError&) {
        from = seq;
    }
    Of(ppid).read.Add({from, seq});
}

void CatchUp::MarkAllRead(qint64 upTo) {
    m_keeping.start();
    for (const qint32 ppid : m_session.OpenPpids()) {
        Of(ppid).read.Add({1, upTo});
    }
}

void CatchUp::Keep() {
    m_keeping.stop();
    try {
        site::ICatalogue& catalogue = m_session.Site().Catalogue();
        const QString kept = catalogue.Setting(SettingName());
        TakeKept(kept);
        const QString text = Text();
        if (text != kept) {
            catalogue.SetSetting(SettingName(), text);
        }
    } catch (const site::DataError&) {
        return; // it is still in memory, for the next time
    }
}

} // namespace host
