// The messages are read by the module's own reader: what one writes the other must understand.
#include "host/reminders/PushMessage.h"

#include "reminder/feed/PicMessage.h"
#include "toolkit/GbkText.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

site::Filing Photo() {
    site::Filing filing;
    filing.ppid = 3;
    filing.picId = 17;
    filing.name = u"墙面 \"东\".jpg"_s;
    filing.person = u"李娜"_s;
    filing.uuid = u"0a1b"_s;
    filing.floor = u"3"_s;
    filing.posText = u"A/5"_s;
    filing.positionKey = u"P-9"_s;
    filing.markId = 4;
    filing.labels = {u"渗漏"_s, u"裂缝"_s};
    return filing;
}

site::Filing Issue() {
    site::Filing filing = Photo();
    filing.kind = site::ChangeKind::Issue;
    filing.questionId = u"q-1"_s;
    filing.name = u"钢筋外露"_s;
    filing.handle = u"1F2A"_s;
    filing.componentName = u"梁 2"_s;
    return filing;
}

KX_DATA::PicMsgRecord ReadBack(const site::Filing& filing) {
    std::vector<KX_DATA::PicMsgRecord> records;
    const QString json = toolkit::FromGbk(PushMessage(filing, u"3层A/5"_s));
    const bool isRead = filing.kind == site::ChangeKind::Issue
                            ? reminder::ReadIssueMessage(json, {filing.ppid}, records)
                            : reminder::ReadPicMessage(json, {filing.ppid}, records);
    EXPECT_TRUE(isRead) << json.toStdString();
    return records.empty() ? KX_DATA::PicMsgRecord() : records.front();
}

TEST(PushMessage, APhotoComesBackWithAllThatItSays) {
    const KX_DATA::PicMsgRecord record = ReadBack(Photo());
    EXPECT_EQ(record.ppid, 3);
    EXPECT_EQ(record.picId, 17);
    EXPECT_EQ(record.markerId, 4);
    EXPECT_EQ(record.picName, u"墙面 \"东\".jpg"_s);
    EXPECT_EQ(record.userName, u"李娜"_s);
    EXPECT_EQ(record.uuid, u"0a1b"_s);
    EXPECT_EQ(record.floor, u"3"_s);
    EXPECT_EQ(record.pos, u"3层A/5"_s);
    EXPECT_EQ(record.intersectionId, u"P-9"_s);
    EXPECT_EQ(record.labelNames, (std::vector<QString>{u"渗漏"_s, u"裂缝"_s}));
    EXPECT_TRUE(record.labelText.isEmpty());
}

TEST(PushMessage, AnIssueComesBackWithAllThatItSays) {
    const KX_DATA::PicMsgRecord record = ReadBack(Issue());
    EXPECT_EQ(record.ppid, 3);
    EXPECT_EQ(record.markerId, 4);
    EXPECT_EQ(record.questionId, u"q-1"_s);
    EXPECT_EQ(record.questionName, u"钢筋外露"_s);
    EXPECT_EQ(record.handle, u"1F2A"_s);
    EXPECT_EQ(record.compName, u"梁 2"_s);
    EXPECT_EQ(record.pos, u"3层A/5"_s);
    EXPECT_EQ(record.userName, u"李娜"_s);
}

TEST(PushMessage, HasTheKeysOfItsKindAndNoOthers) {
    const auto keys = [](const site::Filing& filing) {
        return QJsonDocument::fromJson(toolkit::FromGbk(PushMessage(filing, u"3层A/5"_s)).toUtf8())
            .object()
            .keys();
    };
    EXPECT_EQ(keys(Photo()),
              (QStringList{u"floor"_s, u"intersectionId"_s, u"labels"_s, u"markerId"_s, u"name"_s,
                           u"picId"_s, u"pos"_s, u"ppid"_s, u"username"_s, u"uuid"_s}));
    EXPECT_EQ(keys(Issue()), (QStringList{u"compName"_s, u"floor"_s, u"handle"_s, u"markerId"_s,
                                          u"pos"_s, u"ppid"_s, u"questionId"_s, u"questionName"_s,
                                          u"username"_s, u"uuid"_s}));
}

TEST(PushMessage, APhotoWithoutPlaceAndLabelsIsOneToo) {
    site::Filing filing;
    filing.ppid = 1;
    filing.picId = 2;
    const KX_DATA::PicMsgRecord record = ReadBack(filing);
    EXPECT_EQ(record.picId, 2);
    EXPECT_TRUE(record.labelNames.empty());
}

TEST(PushMessage, CharactersBeyondTheCodePageAreNotLost) {
    site::Filing filing = Photo();
    filing.name = u"😀 ½ 墙.jpg"_s;
    EXPECT_EQ(ReadBack(filing).picName, filing.name);
    const std::string text = PushMessage(filing, {});
    EXPECT_NE(text.find("\\ud83d\\ude00"), std::string::npos) << text;
    EXPECT_NE(text.find(toolkit::ToGbk(u"墙"_s)), std::string::npos)
        << "what it has stays readable";
}

} // namespace
} // namespace host
