#include "host/app/SessionBin.h"

#include "host/app/Faults.h"
#include "site/IBin.h"

#include <map>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString KindText(site::BinKind kind) {
    static const std::map<site::BinKind, QString> texts = {
        {site::BinKind::BimPhoto, u"BIM模型照片"_s}, {site::BinKind::PdfPhoto, u"图纸照片"_s},
        {site::BinKind::Issue, u"TN问题"_s},         {site::BinKind::Checkpoint, u"检查点"_s},
        {site::BinKind::Drawing, u"图纸"_s},         {site::BinKind::IssuePic, u"问题图片"_s}};
    const auto known = texts.find(kind);
    return known != texts.end() ? known->second : u"未知类型（%1）"_s.arg(static_cast<int>(kind));
}

} // namespace

std::vector<BinRow> SessionBin::ReadBin() {
    std::vector<BinRow> rows;
    WithoutFault(m_session, [&] {
        for (const site::BinEntry& entry : m_session.Site().Bin().List()) {
            rows.push_back({entry.id, KindText(entry.kind), entry.title,
                            m_session.Tables().ProjectName(entry.ppid), entry.deletedBy,
                            entry.deletedAt, entry.deletedAt + site::kBinSeconds});
        }
    });
    return rows;
}

int SessionBin::RestoreFromBin(const std::vector<qint64>& binIds) {
    int restored = 0;
    WithoutFault(m_session, [&] {
        std::vector<qint64> back;
        restored = m_session.Site().Bin().Restore(binIds, &back);
        if (m_restored) {
            m_restored(back);
        }
        m_session.Actions().Write(u"从回收站恢复 %1 项"_s.arg(restored));
    });
    return restored;
}

} // namespace host
