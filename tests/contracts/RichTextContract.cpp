// IRichTextMsgMng: what is written about a place, and the state of its photos.
#include "tests/contracts/Contract.h"

#include <QFile>
#include <QTemporaryDir>

namespace contracts {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// An intersection and a checkpoint with a photo each, and others beside them.
template <class Base> class WithPlaces : public Base {
protected:
    WithPlaces() {
        key.objectType = 1;
        key.objectId = this->Position(u"2"_s, u"3"_s, u"B"_s);
        key.subId = 1;
        key.projectId = key.ownerId = this->first;
        photo = PhotoAt(key.objectId, 1);
        otherPhoto = PhotoAt(this->Position(u"2"_s, u"4"_s, u"B"_s), 1);
        pointKey.objectType = 2;
        const qint32 drawing = this->site->AddDrawing(this->first, u"首层"_s);
        pointKey.ownerId = this->Point(drawing, 4);
        pointKey.projectId = this->first;
        otherPoint = this->Point(drawing, 5);
        foreignPoint = this->Point(this->site->AddDrawing(this->site->second, u"二层"_s), 1);
        this->PdfPhoto(pointKey.ownerId, u"a.jpg"_s);
        this->PdfPhoto(otherPoint, u"b.jpg"_s);
    }

    qint32 PhotoAt(const QString& positionKey, qint32 state) {
        return this->Photo([&](site::NewBimPhoto& made) {
            made.positionKey = positionKey;
            made.state = state;
        });
    }
    [[nodiscard]] KX_DATA::RichAttachment Uploaded(const QString& name, qint32 kind = 1,
                                                   const QByteArray& bytes = "page") {
        QFile file(m_dir.filePath(u"up"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        KX_DATA::UploadResult up;
        QString error;
        EXPECT_TRUE(this->on.uploads->UploadFile({{file.fileName()}}, 1, up, error));
        return {name, up.md5, up.uuid, qint32(up.size), kind};
    }
    [[nodiscard]] KX_DATA::RichTextMsg Read(const KX_DATA::RichTextKey& of) {
        KX_DATA::RichTextMsg message;
        std::vector<KX_DATA::RichAttachment> attachments(3);
        EXPECT_TRUE(this->on.richTexts->GetRichText(of, message, attachments));
        EXPECT_EQ(attachments.size(), message.attachments.size());
        return message;
    }
    /// What the pane sends for a document that it has read before.
    [[nodiscard]] static KX_DATA::RichTextMsg Written(const QString& version = {}) {
        KX_DATA::RichTextMsg message;
        message.docName = u"doc"_s;
        message.versionText = version;
        return message;
    }
    bool Save(const KX_DATA::RichTextKey& of, const QString& state,
              const KX_DATA::RichTextMsg& message,
              const std::vector<KX_DATA::RichAttachment>& added = {},
              const std::vector<QString>& removed = {}) {
        return this->on.richTexts->SaveRichText(state, message, of, removed, added);
    }
    [[nodiscard]] static std::vector<QString> Names(const KX_DATA::RichTextMsg& message) {
        std::vector<QString> names;
        for (const KX_DATA::RichAttachment& file : message.attachments) {
            names.push_back(file.name);
        }
        return names;
    }
    /// Of all photos, then of all drawing photos, in the order of filing.
    [[nodiscard]] std::vector<QString> States() {
        std::vector<QString> states;
        for (const KX_DATA::BimPicRow& row : this->BimRows()) {
            states.push_back(row.rectifyText);
        }
        for (const KX_DATA::PdfPicRecord& row : this->PdfRows()) {
            states.push_back(row.rectifyText);
        }
        return states;
    }

    KX_DATA::RichTextKey key;
    KX_DATA::RichTextKey pointKey;
    qint32 photo = 0;
    qint32 otherPhoto = 0;
    qint32 otherPoint = 0;
    qint32 foreignPoint = 0;

private:
    QTemporaryDir m_dir;
};

} // namespace

class Drafts : public Contract {};
ON_EVERY_SITE(Drafts);

TEST_P(Drafts, ATextThatWasNotSavedIsKeptForWhoWroteIt) {
    QTemporaryDir dir;
    QFile page(dir.filePath(u"0123.html"_s));
    ASSERT_TRUE(page.open(QIODevice::WriteOnly) && page.write("page") == 4);
    page.close();
    KX_DATA::RichTextDraft draft;
    draft.key = {u"K"_s, 7, first, first, 1};
    draft.docName = u"doc"_s;
    draft.versionText = u"v1"_s;
    draft.stateText = u"整改中"_s;
    draft.files = {{page.fileName(), u"0123.html"_s, 1}};
    on.drafts->Keep(draft);
    const std::vector<KX_DATA::RichTextDraft> kept = site->Drafts();
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].key.objectId, u"K"_s);
    EXPECT_EQ(kept[0].key.subId, 7);
    EXPECT_EQ(kept[0].key.ownerId, first);
    EXPECT_EQ(kept[0].key.projectId, first);
    EXPECT_EQ(kept[0].key.objectType, 1);
    EXPECT_EQ(kept[0].docName, u"doc"_s);
    EXPECT_EQ(kept[0].versionText, u"v1"_s);
    EXPECT_EQ(kept[0].stateText, u"整改中"_s);
    ASSERT_EQ(kept[0].files.size(), 1U);
    EXPECT_EQ(kept[0].files[0].name, u"0123.html"_s);
    site->SignIn(u"guest"_s);
    EXPECT_TRUE(site->Drafts().empty());
}

TEST_P(Drafts, ATextThatIsStillWrittenIsNoDraftUntilItIsGivenUp) {
    KX_DATA::RichTextDraft draft;
    draft.key = {u"K"_s, 7, first, first, 1};
    draft.docName = u"doc"_s;
    draft.page = "<p>open</p>";
    on.drafts->KeepOpen(draft);
    EXPECT_TRUE(site->Drafts().empty());
    on.drafts->DropOpen(draft.key, draft.docName);
    on.drafts->DropOpen(draft.key, draft.docName);
    EXPECT_TRUE(site->Drafts().empty());
    on.drafts->KeepOpen(draft);
    on.drafts->Keep(draft);
    on.drafts->DropOpen(draft.key, draft.docName);
    EXPECT_EQ(site->Drafts().size(), 1U) << "what is given up stays";
}

class RichTexts : public WithPlaces<Contract> {};
ON_EVERY_SITE(RichTexts);

TEST_P(RichTexts, APlaceThatNobodySavedHasTheStateOfItsNewestPhotoAndNothingElse) {
    PhotoAt(key.objectId, 2);
    KX_DATA::RichTextMsg message;
    message.docName = message.editorName = message.versionText = u"old"_s;
    message.updateTime = 1;
    message.attachments.resize(2);
    std::vector<KX_DATA::RichAttachment> attachments(2);
    ASSERT_TRUE(on.richTexts->GetRichText(key, message, attachments));
    EXPECT_EQ(message.docName, QString());
    EXPECT_EQ(message.editorName, QString());
    EXPECT_EQ(message.versionText, QString());
    EXPECT_EQ(message.stateText, u"已整改"_s);
    EXPECT_GT(message.updateTime, 1'700'000'000) << "a new record holds the present time";
    EXPECT_TRUE(message.attachments.empty());
    EXPECT_TRUE(attachments.empty());
    key.subId = 2;
    EXPECT_EQ(Read(key).stateText, u"未整改"_s) << "no photo";
    EXPECT_EQ(Read(pointKey).stateText, u"未整改"_s);
}

TEST_P(RichTexts, WhatIsSavedIsReadFieldByField) {
    const KX_DATA::RichAttachment page = Uploaded(u"p.html"_s);
    const KX_DATA::RichAttachment sheet = Uploaded(u"量测.xlsx"_s, 2, "sheet");
    KX_DATA::RichTextMsg sent = Written();
    sent.editorName = u"somebody"_s;
    sent.updateTime = 5;
    ASSERT_TRUE(on.richTexts->SaveRichText(u"整改中"_s, sent, key, {}, {page, sheet}));
    const KX_DATA::RichTextMsg read = Read(key);
    EXPECT_EQ(read.docName, u"doc"_s);
    EXPECT_EQ(read.editorName, u"li"_s) << "who is signed in, not who was sent";
    EXPECT_GT(read.updateTime, 1'700'000'000);
    EXPECT_FALSE(read.versionText.isEmpty());
    EXPECT_EQ(read.stateText, u"整改中"_s);
    ASSERT_EQ(read.attachments.size(), 2U);
    EXPECT_EQ(read.attachments[0].name, u"p.html"_s);
    EXPECT_EQ(read.attachments[0].kind, 1);
    EXPECT_EQ(read.attachments[1].name, u"量测.xlsx"_s);
    EXPECT_EQ(read.attachments[1].md5, sheet.md5);
    EXPECT_EQ(read.attachments[1].uuid, sheet.uuid);
    EXPECT_EQ(read.attachments[1].size, 5);
    EXPECT_EQ(read.attachments[1].kind, 2);
}

TEST_P(RichTexts, WhatTheCallerSaysOfAFilesContentIsNotBelieved) {
    KX_DATA::RichAttachment page = Uploaded(u"p.html"_s);
    const QString md5 = page.md5;
    page.md5 = QString(32, u'0');
    page.size = -1;
    ASSERT_TRUE(Save(key, u"整改中"_s, Written(), {page}));
    EXPECT_EQ(Read(key).attachments.at(0).md5, md5);
    EXPECT_EQ(Read(key).attachments.at(0).size, 4);
}

TEST_P(RichTexts, ASaveBuildsOnTheVersionThatItNames) {
    ASSERT_TRUE(Save(key, u"整改中"_s, Written(), {Uploaded(u"1.html"_s)}));
    const KX_DATA::RichTextMsg base = Read(key);
    ASSERT_TRUE(Save(key, u"整改中"_s, Written(base.versionText), {Uploaded(u"2.html"_s)},
                     {base.attachments.at(0).uuid, u"nowhere"_s}));
    const KX_DATA::RichTextMsg second = Read(key);
    EXPECT_NE(second.versionText, base.versionText);
    EXPECT_THAT(Names(second), ElementsAre(u"2.html"_s));
    ASSERT_TRUE(Save(key, u"整改中"_s, Written(base.versionText), {Uploaded(u"b.png"_s, 3)}));
    EXPECT_THAT(Names(Read(key)), ElementsAre(u"1.html"_s, u"b.png"_s)) << "nothing is merged";
    EXPECT_FALSE(Save(key, u"整改中"_s, Written(u"unknown"_s)));
    EXPECT_FALSE(Save(pointKey, u"整改中"_s, Written(base.versionText))) << "of another place";
    EXPECT_THAT(Names(Read(key)), ElementsAre(u"1.html"_s, u"b.png"_s));
    EXPECT_EQ(Read(pointKey).editorName, QString());
}

TEST_P(RichTexts, AStateAloneLeavesTheRecordWithoutADocument) {
    ASSERT_TRUE(Save(key, u"已整改"_s, Written()));
    EXPECT_EQ(Read(key).docName, QString());
    EXPECT_EQ(Read(key).editorName, u"li"_s);
    EXPECT_EQ(Read(key).stateText, u"已整改"_s);
    ASSERT_TRUE(Save(key, u"已整改"_s, Written(Read(key).versionText), {Uploaded(u"p.html"_s)}));
    EXPECT_EQ(Read(key).docName, u"doc"_s);
}

TEST_P(RichTexts, TheStateOfAPlaceIsThatOfItsPhotosAlsoOfThoseThatComeLater) {
    PdfPhoto(pointKey.ownerId, u"c.jpg"_s);
    ASSERT_TRUE(Save(key, u"已整改"_s, Written()));
    EXPECT_THAT(States(),
                ElementsAre(u"已整改"_s, u"整改中"_s, u"未整改"_s, u"未整改"_s, u"未整改"_s));
    ASSERT_TRUE(Save(pointKey, u"无需整改"_s, Written()));
    PhotoAt(key.objectId, 1);
    PdfPhoto(pointKey.ownerId, u"d.jpg"_s);
    EXPECT_THAT(States(), ElementsAre(u"已整改"_s, u"整改中"_s, u"已整改"_s, u"无需整改"_s,
                                      u"未整改"_s, u"无需整改"_s, u"无需整改"_s));
}

TEST_P(RichTexts, FieldsThatDontNameThePlaceAreLeftAside) {
    ASSERT_TRUE(Save(key, u"整改中"_s, Written()));
    const QString version = Read(key).versionText;
    key.ownerId = kNobody;
    EXPECT_EQ(Read(key).versionText, version);
    ASSERT_TRUE(Save(pointKey, u"整改中"_s, Written()));
    const QString onPoint = Read(pointKey).versionText;
    pointKey.objectId = key.objectId;
    pointKey.subId = 1;
    pointKey.projectId = kNobody;
    EXPECT_EQ(Read(pointKey).versionText, onPoint);
}

TEST_P(RichTexts, AnotherMarkAnotherPositionAndAnotherCheckpointHaveTheirOwn) {
    ASSERT_TRUE(Save(key, u"整改中"_s, Written()));
    ASSERT_TRUE(Save(pointKey, u"整改中"_s, Written()));
    key.subId = 2;
    EXPECT_EQ(Read(key).versionText, QString());
    key.subId = 1;
    key.objectId = Position(u"2"_s, u"5"_s, u"B"_s);
    EXPECT_EQ(Read(key).versionText, QString());
    pointKey.ownerId = otherPoint;
    EXPECT_EQ(Read(pointKey).versionText, QString());
}

TEST_P(RichTexts, WhatIsForeignOrOfNoKindIsRefused) {
    const std::vector<KX_DATA::RichTextKey> keys{{key.objectId, 1, first, site->second, 1},
                                                 {key.objectId, 1, first, -1, 1},
                                                 {{}, 0, foreignPoint, first, 2},
                                                 {{}, 0, kNobody, first, 2},
                                                 {{}, 0, 0, first, 2},
                                                 {{}, 0, -1, first, 2},
                                                 {key.objectId, 1, first, first, 0},
                                                 {key.objectId, 1, first, first, 3}};
    for (const KX_DATA::RichTextKey& wrong : keys) {
        KX_DATA::RichTextMsg message;
        message.docName = u"old"_s;
        std::vector<KX_DATA::RichAttachment> attachments(2);
        EXPECT_FALSE(on.richTexts->GetRichText(wrong, message, attachments)) << wrong.ownerId;
        EXPECT_EQ(message.docName, u"old"_s);
        EXPECT_EQ(attachments.size(), 2U);
        EXPECT_FALSE(Save(wrong, u"整改中"_s, Written()));
    }
    key.objectId = u"nowhere"_s;
    EXPECT_FALSE(Save(key, u"整改中"_s, Written())) << "neither a photo nor a position";
    EXPECT_EQ(Read(key).versionText, QString());
}

TEST_P(RichTexts, StatesNamesAndFilesThatAreNoneAreRefused) {
    const KX_DATA::RichAttachment page = Uploaded(u"p.html"_s);
    for (const QString& state : {QString(), u"全部"_s, u"完成"_s}) {
        EXPECT_FALSE(Save(key, state, Written(), {page})) << state.toStdString();
    }
    for (const QString& name : {QString(), u".."_s, u"a/b"_s, u"a\\b"_s, u"a\nb"_s,
                                QString(256, u'长'), QString(100'000, u'长')}) {
        KX_DATA::RichAttachment named = page;
        named.name = name;
        EXPECT_FALSE(Save(key, u"整改中"_s, Written(), {named})) << name.left(9).toStdString();
    }
    KX_DATA::RichTextMsg message = Written();
    for (const QString& name : {QString(), u"../doc"_s}) {
        message.docName = name;
        EXPECT_FALSE(Save(key, u"整改中"_s, message, {page})) << name.toStdString();
    }
    KX_DATA::RichAttachment lost = page;
    lost.uuid = u"nowhere"_s;
    EXPECT_FALSE(Save(key, u"整改中"_s, Written(), {page, lost}));
    EXPECT_EQ(Read(key).versionText, QString());
    EXPECT_THAT(States(), ElementsAre(u"整改中"_s, u"整改中"_s, u"未整改"_s, u"未整改"_s));
    ASSERT_TRUE(Save(key, u"整改中"_s, Written(), {page})) << "it is still there";
    EXPECT_FALSE(Save(pointKey, u"整改中"_s, Written(), {page})) << "it has its place now";
    KX_DATA::RichAttachment longest = page;
    longest.name = QString(255, u'长');
    ASSERT_TRUE(Save(key, u"整改中"_s, Written(Read(key).versionText), {longest}));
    EXPECT_THAT(Names(Read(key)), ElementsAre(longest.name));
}

TEST_P(RichTexts, InAWorksetEachOfItsProjectsIsOpen) {
    pointKey.ownerId = foreignPoint;
    site->OpenWorkset();
    EXPECT_TRUE(Save(pointKey, u"整改中"_s, Written()));
    EXPECT_EQ(Read(pointKey).stateText, u"整改中"_s);
}

class RichTextReadFailures : public WithPlaces<FailureContract> {};
WHERE_READING_FAILS(RichTextReadFailures);

TEST_P(RichTextReadFailures, ARecordThatCantBeReadLeavesWhatWasThere) {
    Fail({"GetRichText"});
    KX_DATA::RichTextMsg message;
    message.docName = u"old"_s;
    std::vector<KX_DATA::RichAttachment> attachments(2);
    EXPECT_FALSE(on.richTexts->GetRichText(key, message, attachments));
    EXPECT_EQ(message.docName, u"old"_s);
    EXPECT_EQ(attachments.size(), 2U);
}

class RichTextFailures : public WithPlaces<FailureContract> {};
WHERE_WRITING_FAILS(RichTextFailures);

TEST_P(RichTextFailures, ASaveThatFailsTellsItAndChangesNothing) {
    ASSERT_TRUE(Save(key, u"整改中"_s, Written(), {Uploaded(u"1.html"_s)}));
    const KX_DATA::RichTextMsg before = Read(key);
    const KX_DATA::RichAttachment added = Uploaded(u"2.html"_s);
    Fail({"SaveRichText"});
    EXPECT_FALSE(
        on.richTexts->SaveRichText(u"已整改"_s, Written(before.versionText), key, {}, {added}));
    if (StillReads()) {
        EXPECT_EQ(Read(key).versionText, before.versionText);
        EXPECT_EQ(Read(key).stateText, u"整改中"_s);
        EXPECT_THAT(Names(Read(key)), ElementsAre(u"1.html"_s));
        EXPECT_EQ(States().front(), u"整改中"_s);
    }
}

} // namespace contracts
