#include "services/PageQuery.h"
#include "services/PicRecords.h"
#include "services/RichTextRecords.h"

#include <QDateTime>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

TEST(PicMsgRecord, ACopyInAQueueKeepsItsLabelsWholeAndOwnsItsTexts) {
    std::vector<KX_DATA::PicMsgRecord> queue;
    {
        KX_DATA::PicMsgRecord message;
        message.picName = u"a.jpg"_s;
        message.labelNames = {u"裂缝"_s, u"渗漏"_s};
        message.picId = 7;
        queue.push_back(message);
        message.picName[0] = u'b';
        message.labelNames.clear();
    }
    EXPECT_EQ(queue[0].picName, u"a.jpg"_s);
    EXPECT_THAT(queue[0].labelNames, ElementsAre(u"裂缝"_s, u"渗漏"_s));
    EXPECT_EQ(queue[0].picId, 7);
}

TEST(RichTextMsg, ANewOneHoldsThePresentTime) {
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    const KX_DATA::RichTextMsg message;
    EXPECT_GE(message.updateTime, before);
    EXPECT_LE(message.updateTime, QDateTime::currentSecsSinceEpoch());
}

TEST(PageQuery, ANewRequestAsksForTheFirstPageOfThirty) {
    const KX_DATA::PageRequest request;
    EXPECT_EQ(request.page, 1);
    EXPECT_EQ(request.pageSize, 30);
}

TEST(PageQuery, ANewFilterLimitsNothingButTheProjects) {
    const KX_DATA::PicQueryFilter pics;
    EXPECT_EQ(pics.picId, -1);
    EXPECT_EQ(pics.markId, 0);
    EXPECT_TRUE(pics.noDateLimit);
    EXPECT_TRUE(pics.projectIds.empty());
    const KX_DATA::PdfQueryFilter pdfPics;
    EXPECT_EQ(pdfPics.drawingId, -1);
    EXPECT_EQ(pdfPics.checkpointId, -1);
    EXPECT_TRUE(pdfPics.noDateLimit);
}

TEST(PageQuery, ANewResultCountsNothing) {
    const KX_DATA::PageResult result;
    EXPECT_EQ(result.totalCount, 0);
    EXPECT_EQ(result.pageCount, 0);
}

} // namespace
