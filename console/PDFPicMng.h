// The console's drawing photos.
#pragma once

#include "console/PhotoMng.h"

/// Photos filed against a checkpoint of a PDF drawing.
struct PdfPics : PhotoTraits<KX_DATA::PdfPicRecord> {
    static constexpr ConsoleMode kMode = kModePdf;
    static constexpr QStringView kHint = u"输入照片名称、图纸、相关人账号、描述等关键字";
    /// Small letters, unlike for BIM photos; required as is.
    static constexpr QStringView kDeletionLog = u"删除vesk照片";
    static constexpr int kPeople = 6;
    static constexpr qint32 kPageKind = 2;

    static void TellHost();
    /// Success is any answer of the service but 0.
    static bool Query(const CPicMngBase& mng, const KX_DATA::PageRequest& request,
                      KX_DATA::PageResult& result, std::vector<Record>& page);
    static bool SetShown(qint32 projectId, const std::vector<Id>& ids, bool hidden);
    static bool Delete(qint32 projectId, const std::vector<Id>& ids);
    static bool UsedMarks(std::vector<qint32>& markIds);

    static const std::vector<KX_DATA::LabelEntry>& Labels(const Record& record) {
        return record.labels;
    }
    static QString Uuid(const Record& record) { return record.text1; }
    static QString FileText(const Record& record) { return record.text2; }
    static QString Folder(const KX_DATA::ProjectRecord& project);
    static void PutPlace(KX_DATA::PicViewItem& item, const Record& record, const CGridRow& row);
};

class CPDFPicMng final : public PhotoMng<PdfPics> {
public:
    using PhotoMng::PhotoMng;

    /// A checked row lies on the open drawing, judged by its name alone.
    [[nodiscard]] bool IsViewAffected() override;
    [[nodiscard]] bool IsRowInView(const CGridRow& row) override;
    bool EditRow(CGridRow& row) override;
    void LocateRow(CGridRow& row) override;

protected:
    void FillCells(CGridRow& row, const KX_DATA::PdfPicRecord& record) override;

private:
    void FillPdfBasicCells(CGridRow& row, const KX_DATA::PdfPicRecord& record) const;
};
