// What saving an edited BIM photo changes, in lists, search and panel, and what it refuses.
#include "services/Factories.h"
#include "services/IKXDocMng.h"
#include "services/IKXLocalCacheData.h"
#include "site/sqlite/Database.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

/// One photo at A/1 of floor 3, with one label, and what its editor would send untouched.
class EditSite : public ServiceSite {
public:
    EditSite() {
        writer->AddPosition({first, u"3"_s, u"A"_s, u"1"_s, u"key-3"_s, true});
        writer->AddPosition({first, u"5"_s, u"B"_s, u"2"_s, u"key-5"_s, true});
        writer->AddPosition({second, u"9"_s, u"C"_s, u"1"_s, u"key-9"_s, true});
        label = writer->AddLabel(u"质量"_s);
        otherLabel = writer->AddLabel(u"进度"_s);
        photo = AddPhoto([this](site::NewBimPhoto& made) {
            made.fileName = u"外墙.jpg"_s;
            made.description = u"三层东侧"_s;
            made.positionKey = u"key-3"_s;
            made.labelIds = {label};
        });
        update = Untouched();
    }

    [[nodiscard]] KX_DATA::BimPicUpdate Untouched() {
        KX_DATA::BimPicDetail detail;
        EXPECT_EQ(GetVeskPicMng()->GetBimPicDetail(first, photo, detail), KX_DATA::kServiceOk);
        KX_DATA::BimPicUpdate same;
        same.description = detail.description;
        same.picId = photo;
        same.positionKey = detail.positionKey;
        same.markId = detail.markId;
        same.fileName = detail.fileName;
        same.status = detail.status;
        for (const KX_DATA::LabelEntry& entry : detail.labels) {
            same.labelIds.push_back(entry.labelId);
        }
        return same;
    }
    bool Save() { return GetVeskPicMng()->UpdateBimPic(first, update); }
    [[nodiscard]] KX_DATA::BimPicRow Row() { return Photos(Filter())[0]; }
    [[nodiscard]] bool IsFound(const QString& keyword) {
        KX_DATA::PicQueryFilter filter = Filter();
        filter.keyword = keyword;
        return !PhotoIds(filter).empty();
    }
    [[nodiscard]] bool HasLabel(qint32 labelId) {
        KX_DATA::PicQueryFilter filter = Filter();
        filter.labelId = QString::number(labelId);
        return !PhotoIds(filter).empty();
    }
    site::Database& Db() { return support::FolderOf(session).Db(); }
    /// What another client does that names a floor anew.
    void RenameFloor(const QString& from, const QString& to) {
        writer->AddFloor(first, to);
        Db().Exec(u"UPDATE position SET floor = ? WHERE ppid = ? AND floor = ?"_s,
                  {to, first, from});
        Db().Exec(u"DELETE FROM floor WHERE ppid = ? AND name = ?"_s, {first, from});
    }
    /// Everything of the photo that a refused save must leave.
    [[nodiscard]] QString Everything() {
        QString text;
        Db().ForEach(u"SELECT name, description, mark_id, status, position_key, floor, axis_x,"
                     " axis_y, pos_text, updater, updated, modifier, modified FROM bim_photo"
                     " WHERE id = ?"_s,
                     {photo}, [&](const site::Statement& read) {
                         for (int column = 0; column < 13; ++column) {
                             text += read.Text(column) + u'|';
                         }
                     });
        Db().ForEach(u"SELECT label_id FROM bim_label WHERE photo_id = ?"_s, {photo},
                     [&](const site::Statement& read) { text += read.Text(0) + u' '; });
        return text;
    }

    qint32 label = 0;
    qint32 otherLabel = 0;
    qint32 photo = 0;
    KX_DATA::BimPicUpdate update;
};

} // namespace

TEST(BimEdit, ANewNameIsFoundAndTheOldOneNoLonger) {
    EditSite site;
    ASSERT_TRUE(site.IsFound(u"外墙"_s));
    site.update.fileName = u"屋面.jpg"_s;
    site.update.description = u"四层西侧"_s;
    ASSERT_TRUE(site.Save());
    EXPECT_TRUE(site.IsFound(u"屋面"_s));
    EXPECT_TRUE(site.IsFound(u"四层"_s));
    EXPECT_TRUE(site.IsFound(u"li"_s)) << "who changed it is searched too";
    EXPECT_FALSE(site.IsFound(u"外墙"_s));
    EXPECT_FALSE(site.IsFound(u"东侧"_s));
}

TEST(BimEdit, NewLabelsAreThoseOfTheFilterAndOfTheRow) {
    EditSite site;
    site.update.labelIds = {QString::number(site.otherLabel)};
    ASSERT_TRUE(site.Save());
    EXPECT_FALSE(site.HasLabel(site.label));
    EXPECT_TRUE(site.HasLabel(site.otherLabel));
    EXPECT_EQ(site.Row().labelNames, (std::vector<QString>{u"进度"_s}));
    site.update.labelIds.clear();
    ASSERT_TRUE(site.Save());
    EXPECT_FALSE(site.HasLabel(site.otherLabel));
    EXPECT_TRUE(site.Row().labelNames.empty());
}

TEST(BimEdit, ALabelAddedAMomentAgoCanBeGivenAtOnce) {
    EditSite site;
    QString added;
    ASSERT_EQ(GetKXDocMng()->AddLabel(KX_DATA::kPhotoDocKind, u"新标签"_s, 2, u"0"_s, added),
              KX_DATA::kLabelAdded);
    site.update.labelIds.push_back(added);
    ASSERT_TRUE(site.Save());
    EXPECT_EQ(site.Row().labelNames, (std::vector<QString>{u"质量"_s, u"新标签"_s}));
}

TEST(BimEdit, ALabelThatAnotherClientAddedMeanwhileIsTheSame) {
    EditSite site;
    const qint32 others = site.writer->AddLabel(u"新标签"_s);
    QString added;
    ASSERT_EQ(GetKXDocMng()->AddLabel(KX_DATA::kPhotoDocKind, u"新标签"_s, 2, u"0"_s, added),
              KX_DATA::kLabelAdded);
    EXPECT_EQ(added, QString::number(others));
    EXPECT_NE(GetKXDocMng()->AddLabel(KX_DATA::kPhotoDocKind, QString(), 2, u"0"_s, added),
              KX_DATA::kLabelAdded);
}

TEST(BimEdit, TheChangeComesFirstInTheListOfTheLatest) {
    EditSite site;
    const qint32 later = site.AddPhoto([](site::NewBimPhoto& photo) { photo.uploadTime += 100; });
    ASSERT_EQ(site.PhotoIds(site.Filter(), u"last_modifytime"_s, u"desc"_s),
              (std::vector<qint32>{later, site.photo}));
    ASSERT_TRUE(site.Save());
    EXPECT_EQ(site.PhotoIds(site.Filter(), u"last_modifytime"_s, u"desc"_s),
              (std::vector<qint32>{site.photo, later}));
    EXPECT_EQ(site.PhotoIds(site.Filter(), u"last_modifyuser"_s, u"asc"_s),
              (std::vector<qint32>{site.photo, later}));
    KX_DATA::BimPicDetail detail;
    GetVeskPicMng()->GetBimPicDetail(site.first, site.photo, detail);
    EXPECT_EQ(detail.updaterName, u"li"_s);
    EXPECT_GT(detail.updateTime, detail.uploadTime);
}

TEST(BimEdit, HidingByTheEditorHidesAndCountsAsAChange) {
    EditSite site;
    site.update.status = KX_DATA::kStatusHidden;
    ASSERT_TRUE(site.Save());
    EXPECT_EQ(site.Row().status, KX_DATA::kStatusHidden);
    KX_DATA::BimPicDetail detail;
    EXPECT_NE(GetVeskPicMng()->GetBimPicDetail(site.first, site.photo, detail),
              KX_DATA::kServiceOk);
}

TEST(BimEdit, AMovedPhotoIsAmongThoseOfItsNewPlace) {
    EditSite site;
    site.update.positionKey = u"key-5"_s;
    site.update.markId = 2;
    ASSERT_TRUE(site.Save());
    std::vector<KX_DATA::PicFileEntry> files;
    GetVeskPicMng()->GetPicFilesByPosition(site.first, u"key-3"_s, 1, files);
    EXPECT_TRUE(files.empty());
    GetVeskPicMng()->GetPicFilesByPosition(site.first, u"key-5"_s, 2, files);
    EXPECT_EQ(files.size(), 1u);
}

TEST(BimEdit, AFloorRenamedBetweenOpeningAndSavingLosesNothing) {
    EditSite site;
    const KX_DATA::BimPicRow before = site.Row();
    site.RenameFloor(u"3"_s, u"三层"_s);
    ASSERT_TRUE(site.Save());
    const KX_DATA::BimPicRow row = site.Row();
    EXPECT_EQ(row.floor, u"三层"_s) << "the key decides";
    EXPECT_EQ(row.positionKey, before.positionKey);
    EXPECT_EQ(row.posText, before.posText);
    EXPECT_EQ(row.posValid, 1);
    EXPECT_EQ(row.labelNames, before.labelNames);
    EXPECT_EQ(row.fileName, before.fileName);
    EXPECT_EQ(row.description, before.description);
    EXPECT_EQ(site.PhotoIds(site.Filter(), u"floor,axis_symbol"_s), (std::vector{site.photo}));
}

TEST(BimEdit, TheRenamedFloorsAxesAreAskedForByItsNewName) {
    EditSite site;
    site.RenameFloor(u"3"_s, u"三层"_s);
    std::vector<KX_DATA::AxisYEntry> axes;
    EXPECT_EQ(GetVeskPicMng()->GetFloorAxesY(site.first, u"3"_s, u"A"_s, axes),
              KX_DATA::kServiceOk);
    EXPECT_TRUE(axes.empty());
    EXPECT_EQ(GetVeskPicMng()->GetFloorAxesY(site.first, u"三层"_s, u"A"_s, axes),
              KX_DATA::kServiceOk);
    EXPECT_EQ(axes, (std::vector<KX_DATA::AxisYEntry>{{u"1"_s, u"key-3"_s}}));
}

TEST(BimEdit, APlaceThatLeftTheModelMeanwhileIsKept) {
    EditSite site;
    site.Db().Exec(u"DELETE FROM position WHERE position_key = 'key-3'"_s);
    ASSERT_TRUE(site.Save());
    EXPECT_EQ(site.Row().floor, u"3"_s);
    EXPECT_EQ(site.Row().posText, u"A/1"_s);
    EXPECT_EQ(site.Row().positionKey, u"key-3"_s);
    EXPECT_EQ(site.Row().posValid, 0);
}

TEST(BimEdit, APlaceThatTheProjectHasNotIsRefusedAndToldWithNothingChanged) {
    EditSite site;
    const QString before = site.Everything();
    for (const QString& key : {u"nowhere"_s, u"key-9"_s}) {
        site.update.positionKey = key;
        site.update.fileName = u"neu.jpg"_s;
        site.update.labelIds.clear();
        EXPECT_FALSE(site.Save());
        EXPECT_EQ(site.Everything(), before);
        EXPECT_FALSE(site.IsFound(u"neu"_s));
        EXPECT_TRUE(site.IsFound(u"外墙"_s));
    }
    ASSERT_EQ(site.messages.size(), 2u);
    EXPECT_EQ(site.messages[0], u"修改照片失败：所选的位置已不在模型中，请重新选择楼层和轴线。"_s);
}

TEST(BimEdit, AnUnknownLabelIsRefusedAndToldWithNothingChanged) {
    EditSite site;
    const QString before = site.Everything();
    for (const QString& labelId : {u"4711"_s, u"x"_s}) {
        site.update = site.Untouched();
        site.update.fileName = u"neu.jpg"_s;
        site.update.labelIds.push_back(labelId);
        EXPECT_FALSE(site.Save());
        EXPECT_EQ(site.Everything(), before);
        EXPECT_TRUE(site.IsFound(u"外墙"_s));
    }
    EXPECT_EQ(site.messages.size(), 2u);
}

TEST(BimEdit, APhotoDeletedMeanwhileIsToldAndNotBroughtBack) {
    EditSite site;
    ASSERT_TRUE(GetVeskPicMng()->DeleteBimPics({site.photo}));
    EXPECT_FALSE(site.Save());
    EXPECT_TRUE(site.PhotoIds(site.Filter()).empty());
    ASSERT_EQ(site.messages.size(), 1u);
    EXPECT_TRUE(site.messages[0].startsWith(u"修改照片失败：外墙.jpg"_s));
}

TEST(BimEdit, AFaultInTheMiddleChangesNothing) {
    EditSite site;
    const QString before = site.Everything();
    site.Db().Exec(u"CREATE TRIGGER broken BEFORE INSERT ON bim_label BEGIN"
                   " SELECT RAISE(ABORT, 'broken'); END"_s);
    site.update.fileName = u"neu.jpg"_s;
    EXPECT_FALSE(site.Save());
    EXPECT_EQ(site.Everything(), before);
    EXPECT_TRUE(site.IsFound(u"外墙"_s));
    EXPECT_FALSE(site.IsFound(u"neu"_s));
    site.Db().Exec(u"DROP TRIGGER broken"_s);
    EXPECT_TRUE(site.Save());
    EXPECT_TRUE(site.IsFound(u"neu"_s));
}

TEST(BimEdit, TheServicesOfTheEditorFailWithoutAFolder) {
    EditSite site;
    site.session.Close();
    std::vector<QString> names;
    std::vector<KX_DATA::AxisYEntry> axes;
    std::vector<KX_DATA::LabelEntry> labels;
    std::map<qint32, KX_DATA::MarkRecord> marks;
    QString labelId;
    EXPECT_NE(GetVeskPicMng()->GetProjectFloors(site.first, names), KX_DATA::kServiceOk);
    EXPECT_NE(GetVeskPicMng()->GetFloorAxesX(site.first, u"3"_s, names), KX_DATA::kServiceOk);
    EXPECT_NE(GetVeskPicMng()->GetFloorAxesY(site.first, u"3"_s, u"A"_s, axes),
              KX_DATA::kServiceOk);
    EXPECT_NE(GetKXDocMng()->GetLabels(KX_DATA::kPhotoDocKind, labels), KX_DATA::kLabelsOk);
    EXPECT_NE(GetKXDocMng()->AddLabel(KX_DATA::kPhotoDocKind, u"a"_s, 2, u"0"_s, labelId),
              KX_DATA::kLabelAdded);
    EXPECT_FALSE(GetKXLocalCacheData()->GetMarkTable(marks));
    EXPECT_FALSE(site.Save());
}

} // namespace host
