#include "services/Factories.h"
#include "tests/host/services/ServiceSite.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

/// What is filed once for all keywords: each photo is told by its place in the list.
class KeywordSite : public ServiceSite {
public:
    KeywordSite() {
        Add(u"外墙抹灰.jpg"_s, u"三层东侧空鼓，需返工"_s, u"zhangwei"_s, {});
        Add(u"IMG_0012.JPG"_s, u"elevator shaft-3 80% done"_s, u"王芳"_s, u"李娜"_s);
        Add(u"DSC%20.png"_s, u"he said \"no\" and it's *final*"_s, u"zhao_lei"_s, {});
        Add(u"c.jpg"_s, u"A\U00020BB7B 全角（括号）、顿号"_s, u"zhangwei"_s, {});
    }

    [[nodiscard]] std::vector<int> Found(const QString& keyword) {
        KX_DATA::PicQueryFilter filter = Filter();
        filter.keyword = keyword;
        std::vector<int> places;
        for (const qint32 id : PhotoIds(filter)) {
            places.push_back(
                static_cast<int>(std::find(m_ids.begin(), m_ids.end(), id) - m_ids.begin()));
        }
        return places;
    }

private:
    void Add(const QString& name, const QString& description, const QString& uploader,
             const QString& updater) {
        m_ids.push_back(AddPhoto([&](site::NewBimPhoto& photo) {
            photo.fileName = name;
            photo.description = description;
            photo.uploader = uploader;
            photo.updater = updater;
            photo.updateTime = updater.isEmpty() ? 0 : 1700001000;
        }));
    }

    std::vector<qint32> m_ids;
};

struct Expectation {
    const char16_t* keyword;
    std::vector<int> places;
};

} // namespace

TEST(Keyword, AnySubstringOfNamePeopleAndDescriptionIsFound) {
    KeywordSite site;
    const std::vector<Expectation> expectations{
        {u"墙", {0}},                           // one character
        {u"空鼓", {0}},                         // two
        {u"侧空", {0}},                         // across words
        {u"鼓，需", {0}},                       // across punctuation
        {u"王", {1}},                           // the uploader
        {u"李娜", {1}},                         // the updater
        {u"zhang", {0, 3}},                     // the beginning of a name
        {u"angw", {0, 3}},                      // its middle
        {u"MG_0", {1}},                         // inside a word, with a sign
        {u"img_00", {1}},                       // small letters for capitals
        {u"JPG", {0, 1, 3}},                    // capitals for small letters
        {u"r s", {1}},                          // across a blank
        {u"-3", {1}},                           // a minus is no operator
        {u"0%", {1}},                           // a percent sign is no wildcard
        {u"%2", {2}},           {u"_", {1, 2}}, // nor is an underline
        {u"\"no\"", {2}},       {u"t's", {2}},        {u"*", {2}},
        {u"*final*", {2}},      {u"\U00020BB7", {3}}, // beyond sixteen bits
        {u"A\U00020BB7B", {3}}, {u"（括", {3}},       {u"zhangweiz", {}},
        {u"鼓空", {}},          {u"jpgIMG", {}}, // not across two fields
        {u"NEAR", {}},
    };
    for (const Expectation& expectation : expectations) {
        const QString keyword = QString::fromUtf16(expectation.keyword);
        EXPECT_EQ(site.Found(keyword), expectation.places) << keyword.toStdString();
    }
}

TEST(Keyword, OperatorsOfTheSearchTableAreWordsLikeOthers) {
    KeywordSite site;
    for (const QString& keyword : {u"墙 OR c"_s, u"墙 AND 空"_s, u"NOT 墙"_s, u"name:墙"_s,
                                   u"{name}"_s, u"墙*"_s, u"^外"_s, u"\""_s + u"墙"_s}) {
        EXPECT_TRUE(site.Found(keyword).empty()) << keyword.toStdString();
    }
    EXPECT_TRUE(site.messages.empty());
}

TEST(Keyword, AnEmptyKeywordIsNoLimit) {
    KeywordSite site;
    EXPECT_EQ(site.Found({}).size(), 4u);
}

TEST(Keyword, AChangedPhotoIsFoundByItsNewTextsOnly) {
    KeywordSite site;
    KX_DATA::PicQueryFilter filter = site.Filter();
    filter.keyword = u"空鼓"_s;
    const qint32 id = site.PhotoIds(filter).front();
    KX_DATA::BimPicUpdate update;
    update.picId = id;
    update.fileName = u"新名.jpg"_s;
    update.description = u"已修补"_s;
    ASSERT_TRUE(GetVeskPicMng()->UpdateBimPic(site.first, update));
    EXPECT_TRUE(site.Found(u"空鼓"_s).empty());
    EXPECT_TRUE(site.Found(u"抹灰"_s).empty());
    EXPECT_EQ(site.Found(u"修补"_s), (std::vector<int>{0}));
    EXPECT_EQ(site.Found(u"li"_s), (std::vector<int>{0})) << "the updater";
}

TEST(Keyword, OtherFiltersCutTheHitsDown) {
    ServiceSite site;
    for (qint32 i = 0; i < 40; ++i) {
        site.AddPhoto([i](site::NewBimPhoto& photo) {
            photo.description = i % 2 == 0 ? u"渗漏"_s : u"裂缝"_s;
            photo.markId = 1 + i % 4 / 2;
            photo.state = i % 3;
            photo.uploadTime = 1000 + i;
        });
    }
    KX_DATA::PicQueryFilter filter = site.Filter();
    filter.keyword = u"渗"_s;
    EXPECT_EQ(site.PhotoIds(filter).size(), 20u);
    filter.markId = 1;
    EXPECT_EQ(site.PhotoIds(filter).size(), 10u);
    filter.noDateLimit = false;
    filter.startTime = 1004;
    filter.endTime = 1020;
    EXPECT_EQ(site.PhotoIds(filter).size(), 5u); // 4, 8, 12, 16, 20
    filter.status = u"未整改"_s;
    EXPECT_EQ(site.PhotoIds(filter).size(), 1u); // 12
}

} // namespace host
