#include "host/reminders/CatchUp.h"

#include "host/session/HostSession.h"
#include "site/ICatalogue.h"
#include "site/IFilings.h"

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
        MarkAllRead(m_session.Site().Filings().Newest());
        Keep();
    } else {
        TakeKept(kept);
    }
    Begin();
}

QString CatchUp::SettingName() const {
    return u"news:"_s + m_session.UserName();
}

void CatchUp::TakeKept(const QString& text) {
    m_read.Add(SeqSet::FromText(text.section(u';', 0, 0)));
    m_own.Add(SeqSet::FromText(text.section(u';', 1, 1)));
}

void CatchUp::Begin() {
    m_from = m_read.Whole();
    m_own.Forget(m_from);
}

site::Filings CatchUp::Page(qint64 before, int most) {
    site::Filings page;
    const site::Projects open = m_session.OpenPpids();
    while (int(page.size()) < most) {
        const site::Filings part =
            m_session.Site().Filings().Latest(open, {m_from + 1, before - 1}, most);
        for (const site::Filing& filing : part) {
            if (!m_own.Has(filing.seq) && int(page.size()) < most) {
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
    const auto unread = m_read.Gaps({m_from + 1, std::numeric_limits<qint64>::max()});
    return m_session.Site().Filings().Count(m_session.OpenPpids(), unread, kMostCounted);
}

void CatchUp::TakeOwn(qint64 seq) {
    m_own.Add(seq);
    MarkRead(seq);
}

void CatchUp::MarkRead(qint64 seq) {
    m_read.Add(seq);
    m_keeping.start();
}

void CatchUp::MarkAllRead(qint64 upTo) {
    m_read.Add({1, upTo});
    m_keeping.start();
}

void CatchUp::Keep() {
    m_keeping.stop();
    try {
        site::ICatalogue& catalogue = m_session.Site().Catalogue();
        const QString kept = catalogue.Setting(SettingName());
        TakeKept(kept);
        const QString text = m_read.Text() + u';' + m_own.Text();
        if (text != kept) {
            catalogue.SetSetting(SettingName(), text);
        }
    } catch (const site::DataError&) {
        return; // it is still in memory, for the next time
    }
}

} // namespace host
