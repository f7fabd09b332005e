#include "tests/console/SampleRecords.h"

#include "tests/support/ScriptedHost.h"

using namespace Qt::StringLiterals;

KX_DATA::BimPicRow BimPhoto(qint32 picId) {
    KX_DATA::BimPicRow row;
    row.picId = picId;
    row.fileName = u"照片%1.jpg"_s.arg(picId);
    row.floor = u"1"_s;
    row.posText = u"A-%1"_s.arg(picId);
    row.posValid = 1;
    row.positionKey = u"K%1"_s.arg(picId);
    row.markId = 1;
    row.text8 = u"uuid%1"_s.arg(picId);
    row.text9 = u"file%1"_s.arg(picId);
    row.labelNames = {u"裂缝"_s, u"渗漏"_s};
    row.uploaderName = u"zhang"_s;
    row.uploadTime = u"2026-01-01 08:00"_s;
    row.updaterName = u"li"_s;
    row.updateTime = u"2026-02-01 09:00"_s;
    row.rectifyText = u"待整改"_s;
    row.description = u"描述%1"_s.arg(picId);
    row.ppid = 1;
    return row;
}

KX_DATA::PdfPicRecord DrawingPhoto(qint32 picId) {
    KX_DATA::PdfPicRecord row;
    row.picId = picId;
    row.fileName = u"图片%1.jpg"_s.arg(picId);
    row.drawingId = 100 + picId;
    row.checkpointNo = picId;
    row.checkpointId = 500;
    row.drawingName = u"一层平面"_s;
    row.markId = 2;
    row.text1 = u"uuid%1"_s.arg(picId);
    row.text2 = u"file%1"_s.arg(picId);
    row.labels = {{u"l1"_s, u"裂缝"_s}, {u"l2"_s, u"渗漏"_s}};
    row.uploaderName = u"zhang"_s;
    row.uploadTime = u"2026-01-01 08:00"_s;
    row.updaterName = u"li"_s;
    row.updateTime = u"2026-02-01 09:00"_s;
    row.rectifyText = u"整改中"_s;
    row.description = u"描述%1"_s.arg(picId);
    row.ppid = 1;
    return row;
}

KX_DATA::IssueRow Issue(int number) {
    KX_DATA::IssueRow row;
    row.questionId = u"q%1"_s.arg(number);
    row.theme = u"问题%1"_s.arg(number);
    row.description = u"描述%1"_s.arg(number);
    row.floor = u"2"_s;
    row.posInfo = u"B-%1"_s.arg(number);
    row.compName = u"KZ-%1"_s.arg(number);
    row.markId = 3;
    row.rectifyText = u"已整改"_s;
    row.creatorName = u"zhang"_s;
    row.createTime = 1772683200; // 2026-03-05 12:00 in the tests' zone
    row.updaterName = u"li"_s;
    row.updateTime = row.createTime + 3600;
    row.ppid = 1;
    return row;
}

void FillService(support::ScriptedHost& host, ConsoleMode mode, int count) {
    host.pics.bimPics.clear();
    host.pics.pdfPics.clear();
    host.questions.issues.clear();
    for (int number = 1; number <= count; ++number) {
        if (mode == kModeBim) {
            host.pics.bimPics.push_back(BimPhoto(number));
        } else if (mode == kModePdf) {
            host.pics.pdfPics.push_back(DrawingPhoto(number));
            host.drawings.drawings[host.pics.pdfPics.back().drawingId] = {};
        } else {
            host.questions.issues.push_back(Issue(number));
        }
    }
}
