#include "host/app/UndoTexts.h"

#include "services/IKXAuthMng.h"
#include "site/SetupState.h"

#include <QStringList>

#include <map>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kMostNames = 3;

QString VerbOf(DeedKind kind) {
    static const std::map<DeedKind, QString> verbs = {{DeedKind::Deleted, u"删除"_s},
                                                      {DeedKind::Hidden, u"隐藏"_s},
                                                      {DeedKind::Shown, u"显示"_s}};
    return verbs.at(kind);
}

/// With their counting word.
QString ThingsOf(site::BinKind what) {
    static const std::map<site::BinKind, QString> things = {
        {site::BinKind::BimPhoto, u"张照片"_s}, {site::BinKind::PdfPhoto, u"张照片"_s},
        {site::BinKind::Issue, u"个TN问题"_s},  {site::BinKind::Checkpoint, u"个检查点"_s},
        {site::BinKind::Drawing, u"张图纸"_s},  {site::BinKind::IssuePic, u"张问题图片"_s}};
    const auto known = things.find(what);
    return known != things.end() ? known->second : u"项"_s;
}

QString Counted(site::BinKind what, size_t count) {
    return u"%1 %2"_s.arg(QString::number(count), ThingsOf(what));
}

QString NamesOf(const std::vector<DeedItem>& items) {
    QStringList names;
    for (size_t at = 0; at < items.size() && at < kMostNames; ++at) {
        names << u"“%1”"_s.arg(items[at].name);
    }
    const QString joined = names.join(u"、"_s);
    return items.size() <= kMostNames ? joined
                                      : u"%1 等 %2 项"_s.arg(joined, QString::number(items.size()));
}

} // namespace

QString DeedName(DeedKind kind, site::BinKind what, size_t count) {
    return VerbOf(kind) + u' ' + Counted(what, count);
}

QString DoneText(const DoneDeed& deed) {
    return u"已%1。"_s.arg(DeedName(deed.kind, deed.what, deed.items.size()));
}

QString UndoTip(const DoneDeed& deed) {
    switch (deed.kind) {
    case DeedKind::Hidden:
        return u"重新显示%1"_s.arg(NamesOf(deed.items));
    case DeedKind::Shown:
        return u"重新隐藏%1"_s.arg(NamesOf(deed.items));
    case DeedKind::Deleted:
        break;
    }
    return u"从回收站恢复%1"_s.arg(NamesOf(deed.items));
}

QString GoneText(const DoneDeed& deed, const std::vector<DeedItem>& gone, size_t back) {
    const QString head =
        back > 0 ? u"已撤销%1；"_s.arg(DeedName(deed.kind, deed.what, back)) : u"没有撤销："_s;
    const QString tail = deed.kind == DeedKind::Deleted
                             ? u"%1已不在回收站中，可能已被恢复或彻底删除。"_s
                             : u"%1已不存在，可能已被他人删除。"_s;
    return head + tail.arg(NamesOf(gone));
}

QString NothingLeftText(const DoneDeed& deed) {
    return u"没有撤销：%1已经是%2状态。"_s.arg(
        NamesOf(deed.items),
        VerbOf(deed.kind == DeedKind::Hidden ? DeedKind::Shown : DeedKind::Hidden));
}

QString UndoFaultHead(const DoneDeed& deed) {
    return u"撤销%1失败："_s.arg(DeedName(deed.kind, deed.what, deed.items.size()));
}

qint32 RightFor(DeedKind kind, site::BinKind what) {
    if (what == site::BinKind::Issue || what == site::BinKind::IssuePic) {
        return 0; // the module asks for none either
    }
    if (what == site::BinKind::Drawing) {
        return site::kRightSetup; // they are removed in the settings
    }
    return kind == DeedKind::Deleted ? KX_DATA::kRightDelete : KX_DATA::kRightShowHide;
}

QString NoRightText(const DoneDeed& deed) {
    return deed.what == site::BinKind::Drawing
               ? u"您没有设置的权限。"_s
               : u"您没有%1的权限。"_s.arg(deed.kind == DeedKind::Deleted ? u"删除"_s
                                                                          : u"显示和隐藏"_s);
}

} // namespace host
