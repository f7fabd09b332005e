#include "reminder/feed/PicMessage.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/property_tree/ptree.hpp>
#include <map>
#include <optional>

namespace reminder {

using namespace Qt::StringLiterals;
using KX_DATA::PicMsgRecord;
using testing::ElementsAre;

namespace {

const std::vector<qint32> kOpen{3, 12};

const std::map<QString, QString> kPicKeys = {{u"ppid"_s, u"12"_s},
                                             {u"markerId"_s, u"2"_s},
                                             {u"picId"_s, u"77"_s},
                                             {u"intersectionId"_s, u"\"K7\""_s},
                                             {u"labels"_s, u"[\"裂缝\",\"渗漏\"]"_s},
                                             {u"name"_s, u"\"甲.jpg\""_s},
                                             {u"pos"_s, u"\"B/7\""_s},
                                             {u"username"_s, u"\"李娜\""_s},
                                             {u"uuid"_s, u"\"a-1\""_s},
                                             {u"floor"_s, u"\"1\""_s}};

const std::map<QString, QString> kIssueKeys = {{u"ppid"_s, u"12"_s},
                                               {u"markerId"_s, u"2"_s},
                                               {u"username"_s, u"\"李娜\""_s},
                                               {u"questionId"_s, u"\"q\""_s},
                                               {u"questionName"_s, u"\"漏水\""_s},
                                               {u"pos"_s, u"\"墙\""_s},
                                               {u"handle"_s, u"\"4F\""_s},
                                               {u"uuid"_s, u"\"a-1\""_s},
                                               {u"floor"_s, u"\"1\""_s},
                                               {u"compName"_s, u"\"墙-3\""_s}};

QString Json(const std::map<QString, QString>& keys) {
    QStringList lines;
    for (const auto& [key, value] : keys) {
        lines << u"\"%1\":%2"_s.arg(key, value);
    }
    return u'{' + lines.join(u',') + u'}';
}

QString With(std::map<QString, QString> keys, const QString& key, const QString& value) {
    keys[key] = value;
    return Json(keys);
}

QString Without(std::map<QString, QString> keys, const QString& key) {
    keys.erase(key);
    return Json(keys);
}

bool IsPic(const QString& json) {
    std::vector<PicMsgRecord> records;
    const bool isRead = ReadPicMessage(json, kOpen, records);
    EXPECT_EQ(records.size(), isRead ? 1U : 0U);
    return isRead;
}

bool IsIssue(const QString& json) {
    std::vector<PicMsgRecord> records;
    const bool isRead = ReadIssueMessage(json, kOpen, records);
    EXPECT_EQ(records.size(), isRead ? 1U : 0U);
    return isRead;
}

} // namespace

TEST(PicMessage, FillsTheRecordFromItsKeys) {
    std::vector<PicMsgRecord> records(1);
    ASSERT_TRUE(ReadPicMessage(Json(kPicKeys), kOpen, records));
    ASSERT_EQ(records.size(), 2U) << "appended";
    const PicMsgRecord& record = records[1];
    EXPECT_EQ(record.ppid, 12);
    EXPECT_EQ(record.markerId, 2);
    EXPECT_EQ(record.picId, 77);
    EXPECT_EQ(record.intersectionId, u"K7"_s);
    EXPECT_EQ(record.picName, u"甲.jpg"_s);
    EXPECT_EQ(record.pos, u"B/7"_s);
    EXPECT_EQ(record.userName, u"李娜"_s);
    EXPECT_EQ(record.uuid, u"a-1"_s);
    EXPECT_EQ(record.floor, u"1"_s);
    EXPECT_TRUE(record.localFile.isEmpty());
}

TEST(PicMessage, LabelsAsAnArrayLeaveTheTextEmptyAndKeepTheirOrder) {
    std::vector<PicMsgRecord> records;
    ASSERT_TRUE(ReadPicMessage(Json(kPicKeys), kOpen, records));
    EXPECT_EQ(records[0].labelText, QString());
    EXPECT_THAT(records[0].labelNames, ElementsAre(u"裂缝"_s, u"渗漏"_s));
}

TEST(PicMessage, LabelsAsATextAreThatText) {
    std::vector<PicMsgRecord> records;
    ASSERT_TRUE(ReadPicMessage(With(kPicKeys, u"labels"_s, u"\"裂缝\""_s), kOpen, records));
    EXPECT_EQ(records[0].labelText, u"裂缝"_s);
    EXPECT_TRUE(records[0].labelNames.empty());
}

TEST(PicMessage, WithoutLabelsItIsVoid) {
    EXPECT_FALSE(IsPic(Without(kPicKeys, u"labels"_s)));
}

TEST(PicMessage, EveryKeyIsRequired) {
    EXPECT_TRUE(IsPic(Json(kPicKeys)));
    for (const auto& [key, value] : kPicKeys) {
        EXPECT_FALSE(IsPic(Without(kPicKeys, key))) << key.toStdString();
    }
    EXPECT_TRUE(IsIssue(Json(kIssueKeys)));
    for (const auto& [key, value] : kIssueKeys) {
        EXPECT_FALSE(IsIssue(Without(kIssueKeys, key))) << key.toStdString();
    }
}

TEST(PicMessage, AnIdMayBeATextOfDigitsAndNothingElse) {
    for (const QString& key : {u"ppid"_s, u"markerId"_s, u"picId"_s}) {
        EXPECT_TRUE(IsPic(With(kPicKeys, key, u"\"12\""_s))) << key.toStdString();
        for (const QString& wrong :
             {u"\"abc\""_s, u"1.5"_s, u"\"\""_s, u"null"_s, u"true"_s, u"[12]"_s, u"12e0"_s,
              u"\"12x\""_s, u"2147483648"_s, u"-2147483649"_s}) {
            EXPECT_FALSE(IsPic(With(kPicKeys, key, wrong))) << wrong.toStdString();
        }
    }
    EXPECT_TRUE(IsPic(With(kPicKeys, u"picId"_s, u"2147483647"_s)));
    EXPECT_TRUE(IsPic(With(kPicKeys, u"picId"_s, u"-1"_s)));
}

TEST(PicMessage, AnIdIsWhatAStreamWouldReadOfIt) {
    for (const QString& id : {u"12"_s,          u" 12 "_s,
                              u"\t12\n"_s,      u"\v\f12\r"_s,
                              u"1 2"_s,         u"+12"_s,
                              u"-12"_s,         u"+-12"_s,
                              u"-+12"_s,        u"++12"_s,
                              u"--12"_s,        u"+ 12"_s,
                              u"+"_s,           u"-"_s,
                              u" "_s,           u""_s,
                              u"012"_s,         u"-0"_s,
                              u"0x0c"_s,        u"12."_s,
                              u"1,200"_s,       u"1e1"_s,
                              u"１２"_s,        u"\u00a012"_s,
                              u"2147483647"_s,  u"2147483648"_s,
                              u"+2147483648"_s, u"-2147483648"_s,
                              u"-2147483649"_s, u"99999999999999999999"_s}) {
        boost::property_tree::ptree node;
        node.data() = id.toStdString();
        QString escaped;
        for (const QChar c : id) {
            escaped += u"\\u%1"_s.arg(c.unicode(), 4, 16, QChar(u'0'));
        }
        std::vector<PicMsgRecord> records;
        std::optional<qint32> read;
        if (ReadPicMessage(With(kPicKeys, u"picId"_s, u'"' + escaped + u'"'), kOpen, records)) {
            read = records.at(0).picId;
        }
        const auto expected = node.get_value_optional<qint32>();
        EXPECT_EQ(read.has_value(), expected.has_value()) << '"' << id.toStdString() << '"';
        EXPECT_EQ(read.value_or(0), expected.value_or(0)) << '"' << id.toStdString() << '"';
    }
}

TEST(PicMessage, OfAProjectThatIsNotOpenIsDropped) {
    EXPECT_TRUE(IsPic(With(kPicKeys, u"ppid"_s, u"3"_s)));
    EXPECT_FALSE(IsPic(With(kPicKeys, u"ppid"_s, u"4"_s)));
    EXPECT_FALSE(IsIssue(With(kIssueKeys, u"ppid"_s, u"4"_s)));
    std::vector<PicMsgRecord> records;
    EXPECT_FALSE(ReadPicMessage(Json(kPicKeys), {}, records));
}

TEST(PicMessage, WhatIsNoMessageIsVoid) {
    for (const QString& text :
         {u" "_s, u"{"_s, u"}"_s, u"[]"_s, u"{}"_s, u"12"_s, u"\"text\""_s, u"null"_s,
          Json(kPicKeys).chopped(1), Json(kPicKeys) + u'x', u"{\"ppid\":12,}"_s, u"\u0000"_s}) {
        EXPECT_FALSE(IsPic(text)) << text.toStdString();
        EXPECT_FALSE(IsIssue(text)) << text.toStdString();
    }
}

TEST(PicMessage, OfAKeyThatComesTwiceTheFirstCounts) {
    const QString json = Json(kPicKeys);
    EXPECT_TRUE(IsPic(json.chopped(1) + u",\"ppid\":4}"_s));
    EXPECT_FALSE(IsPic(u"{\"ppid\":4,"_s + json.sliced(1)));
}

TEST(PicMessage, UnknownKeysAndLowerLevelsChangeNothing) {
    EXPECT_TRUE(IsPic(With(kPicKeys, u"extra"_s, u"{\"ppid\":4,\"a\":[1,2]}"_s)));
    EXPECT_FALSE(IsPic(u"{\"a\":%1}"_s.arg(Json(kPicKeys))));
}

TEST(PicMessage, DeeperThanTheLimitIsVoidBeforeItIsParsed) {
    const auto nested = [](int depth) {
        // The message itself is one level.
        return With(kPicKeys, u"extra"_s,
                    QString(depth - 1, u'[') + u'1' + QString(depth - 1, u']'));
    };
    EXPECT_TRUE(IsPic(nested(kDeepest)));
    EXPECT_FALSE(IsPic(nested(kDeepest + 1)));
    EXPECT_FALSE(IsPic(QString(500'000, u'[')));
    EXPECT_FALSE(IsPic(QString(500'000, u'{')));
    const QString brackets = u'"' + QString(100, u'[') + u"\\\""_s + QString(100, u'{') + u'"';
    EXPECT_TRUE(IsPic(With(kPicKeys, u"name"_s, brackets))) << "signs in a text";
}

TEST(PicMessage, AnIssueFillsItsOwnFields) {
    std::vector<PicMsgRecord> records;
    ASSERT_TRUE(ReadIssueMessage(Json(kIssueKeys), kOpen, records));
    EXPECT_EQ(records[0].questionId, u"q"_s);
    EXPECT_EQ(records[0].questionName, u"漏水"_s);
    EXPECT_EQ(records[0].handle, u"4F"_s);
    EXPECT_EQ(records[0].compName, u"墙-3"_s);
    EXPECT_EQ(records[0].pos, u"墙"_s);
    EXPECT_EQ(records[0].userName, u"李娜"_s);
    EXPECT_EQ(records[0].picId, 0);
    EXPECT_FALSE(IsIssue(Json(kPicKeys)));
    EXPECT_FALSE(IsPic(Json(kIssueKeys)));
}

} // namespace reminder
