// The console's BIM photos.
#pragma once

#include "console/PhotoMng.h"

/// Photos filed against a place of the model.
struct BimPics : PhotoTraits<KX_DATA::BimPicRow> {
    static constexpr ConsoleMode kMode = kModeBim;
    static constexpr QStringView kHint = u"输入照片名称、相关人账号、描述等关键字";
    static constexpr QStringView kDeletionLog = u"删除Vesk照片";
    static constexpr int kPeople = 5;
    static constexpr qint32 kPageKind = 1;

    static void TellHost();
    static bool Query(const CPicMngBase& mng, const KX_DATA::PageRequest& request,
                      KX_DATA::PageResult& result, std::vector<Record>& page);
    static bool SetShown(qint32 projectId, const std::vector<Id>& ids, bool hidden);
    static bool Delete(qint32 projectId, const std::vector<Id>& ids);
    static bool UsedMarks(std::vector<qint32>& markIds);

    static const std::vector<QString>& Labels(const Record& record) { return record.labelNames; }
    static QString Uuid(const Record& record) { return record.text8; }
    static QString FileText(const Record& record) { return record.text9; }
    static QString Folder(const KX_DATA::ProjectRecord& project);
    /// As displayed.
    static void PutPlace(KX_DATA::PicViewItem& item, const Record& record, const CGridRow& row);
};

class CBimPicMng final : public PhotoMng<BimPics> {
public:
    using PhotoMng::PhotoMng;

    bool EditRow(CGridRow& row) override;
    void LocateRow(CGridRow& row) override;

    /// False if a checked photo's position is invalid; nobody looks at it.
    bool CollectCheckedIds(std::vector<qint32>& picIds) const override;

protected:
    /// The photo that a preset names.
    [[nodiscard]] bool StartsChecked(const KX_DATA::BimPicRow& record) const override;
    void FillCells(CGridRow& row, const KX_DATA::BimPicRow& record) override;
};
