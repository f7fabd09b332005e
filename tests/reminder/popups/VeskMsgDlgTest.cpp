// What people see of a reminder, and what their click does.
#include "reminder/popups/VeskMsgDlg.h"

#include "frame/KXVeskPictureImpl.h"
#include "reminder/popups/MsgDlgLayout.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/Hands.h"
#include "tests/support/RecordingSinks.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/Toasts.h"
#include "tests/support/WaitFor.h"
#include "viewers/PicStatic.h"

#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

using namespace Qt::StringLiterals;

using reminder::kIssuePopup;
using reminder::kPicPopup;
using support::ToastsInSight;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

KX_DATA::PicMsgRecord Record(const QString& name) {
    KX_DATA::PicMsgRecord record;
    record.ppid = 1;
    record.markerId = 2;
    record.picId = 7;
    record.picName = name;
    record.questionName = name;
    record.questionId = u"q-"_s + name;
    record.pos = u"B/7"_s;
    record.floor = u"1"_s;
    record.intersectionId = u"K7"_s;
    record.userName = u"李娜"_s;
    record.compName = u"墙-3"_s;
    return record;
}

class Popups : public testing::Test {
protected:
    Popups() { facade.SetPicSink(&sink); }
    ~Popups() override {
        CBCGPPopupWindow::CloseAll();
        support::RunPendingEvents();
        CKXVeskPictureImpl::ReleaseInstance();
    }

    void Show(const KX_DATA::PicMsgRecord& record, qint32 kind) {
        reminder::ShowPopup(record, toolkit::kNoWindow, kind);
    }
    [[nodiscard]] static QWidget* Part(const QWidget* toast, const QString& name) {
        return toast->findChild<QWidget*>(name);
    }
    [[nodiscard]] static QString Line(const QWidget* toast, int number) {
        return toast->findChild<QLabel*>(u"line%1"_s.arg(number))->text();
    }
    [[nodiscard]] static CPicStatic& Preview(const QWidget* toast) {
        return *toast->findChild<CPicStatic*>(u"preview"_s);
    }
    static void Look(QWidget* toast) { support::Click(Part(toast, u"look"_s)); }

    support::ScriptedHost host;
    support::RecordingSink sink{host.script};
    CKXVeskPictureImpl& facade = CKXVeskPictureImpl::Instance();
};

} // namespace

TEST_F(Popups, APhotoShowsWhoDidWhatWhere) {
    KX_DATA::PicMsgRecord record = Record(u"甲.jpg"_s);
    record.labelNames = {u"裂缝"_s, u"渗漏"_s};
    Show(record, kPicPopup);
    ASSERT_EQ(ToastsInSight().size(), 1U);
    const QWidget* toast = ToastsInSight()[0];
    EXPECT_EQ(toast->windowTitle(), u"Vesk照片提醒"_s);
    EXPECT_EQ(Line(toast, 1), u"名称:甲.jpg"_s);
    EXPECT_EQ(Line(toast, 2), u"标识:"_s + host.marks.marks.at(2).name);
    EXPECT_EQ(Line(toast, 3), u"标签:裂缝;渗漏"_s);
    EXPECT_EQ(Line(toast, 4), u"位置:B/7"_s);
    EXPECT_EQ(Line(toast, 5), u"上传人:李娜"_s);
    EXPECT_EQ(toast->findChild<QPushButton*>(u"look"_s)->text(), u"立即查看"_s);
    QStringList captions;
    for (const QLabel* label : toast->findChildren<QLabel*>()) {
        captions << label->text();
    }
    EXPECT_TRUE(captions.contains(u"预览:"_s)) << captions.join(u' ').toStdString();
    EXPECT_FALSE(toast->isActiveWindow());
}

TEST_F(Popups, AnIssueHidesTheThirdLineAndMovesItsNeighbours) {
    Show(Record(u"漏水"_s), kIssuePopup);
    Show(Record(u"甲.jpg"_s), kPicPopup);
    ASSERT_EQ(ToastsInSight().size(), 2U);
    const QWidget* issue = ToastsInSight()[0];
    const QWidget* photo = ToastsInSight()[1];
    EXPECT_EQ(issue->windowTitle(), u"TN问题提醒"_s);
    EXPECT_EQ(Line(issue, 1), u"问题主题:漏水"_s);
    EXPECT_EQ(Line(issue, 2), u"问题标识:"_s + host.marks.marks.at(2).name);
    EXPECT_FALSE(Part(issue, u"line3"_s)->isVisible());
    EXPECT_EQ(Line(issue, 4), u"问题构件:B/7"_s) << "the position";
    EXPECT_EQ(Line(issue, 5), u"创建人:李娜"_s);
    EXPECT_EQ(Part(issue, u"line2"_s)->y(), Part(photo, u"line2"_s)->y() + 8);
    EXPECT_EQ(Part(issue, u"line4"_s)->y(), Part(photo, u"line4"_s)->y() - 8);
    EXPECT_EQ(Part(issue, u"line1"_s)->y(), Part(photo, u"line1"_s)->y());
    EXPECT_EQ(Part(issue, u"line5"_s)->y(), Part(photo, u"line5"_s)->y());
}

TEST_F(Popups, ARecordWithoutLabelsShowsNothingBehindTheColon) {
    Show(Record(u"甲.jpg"_s), kPicPopup);
    EXPECT_EQ(Line(ToastsInSight()[0], 3), u"标签:"_s);
}

TEST_F(Popups, LabelsAreCountedInBytesOfTheCodePage) {
    KX_DATA::PicMsgRecord record = Record(u"甲.jpg"_s);
    record.labelNames = {QString(13, u'缝'), u"b"_s};
    Show(record, kPicPopup);
    EXPECT_EQ(Line(ToastsInSight()[0], 3), u"标签:"_s + QString(13, u'缝') + u";..."_s);
}

TEST_F(Popups, AnUnknownMarkAndAFailedTableLeaveTheMarkEmpty) {
    KX_DATA::PicMsgRecord record = Record(u"甲.jpg"_s);
    record.markerId = 99;
    Show(record, kPicPopup);
    EXPECT_EQ(Line(ToastsInSight()[0], 2), u"标识:"_s);
    host.script.FailNext("GetMarkTable");
    Show(Record(u"乙.jpg"_s), kPicPopup);
    EXPECT_EQ(Line(ToastsInSight()[1], 2), u"标识:"_s);
}

TEST_F(Popups, TheHostHearsOfEachAtOnce) {
    Show(Record(u"甲.jpg"_s), kPicPopup);
    EXPECT_THAT(host.Log().LinesOf({"RefreshBimMarks", "RefreshTNMarks", "SetTNIssueMarkers"}),
                ElementsAre("RefreshBimMarks()"));
    host.Log().Clear();
    Show(Record(u"漏水"_s), kIssuePopup);
    EXPECT_THAT(host.Log().LinesOf({"RefreshBimMarks", "RefreshTNMarks", "SetTNIssueMarkers"}),
                ElementsAre("SetTNIssueMarkers(groups=0)", "RefreshTNMarks()"));
}

TEST_F(Popups, ThreeRecordsMakeThreeWithTheirOwnWhateverCloses) {
    for (const QString& name : {u"甲"_s, u"乙"_s, u"丙"_s}) {
        Show(Record(name), kPicPopup);
    }
    ASSERT_EQ(ToastsInSight().size(), 3U);
    ToastsInSight()[1]->close();
    support::RunPendingEvents();
    ASSERT_EQ(ToastsInSight().size(), 2U);
    EXPECT_EQ(Line(ToastsInSight()[0], 1), u"名称:甲"_s);
    EXPECT_EQ(Line(ToastsInSight()[1], 1), u"名称:丙"_s);
    Show(Record(u"丁"_s), kPicPopup);
    EXPECT_EQ(Line(ToastsInSight()[1], 1), u"名称:丁"_s) << "in the place that got free";
}

TEST_F(Popups, LookingFliesToThePhotoAndCloses) {
    Show(Record(u"甲"_s), kPicPopup);
    host.Log().Clear();
    host.script.FailAlways("LocatePicture");
    Look(ToastsInSight()[0]);
    EXPECT_THAT(
        host.Log().LinesOf({"SelectPictureMark", "LocatePicture", "LocateIssue"}),
        ElementsAre("SelectPictureMark(floor=1,mark=2,id=7)", "LocatePicture(position=K7,mark=2)"))
        << "whose result is ignored";
    EXPECT_TRUE(support::WaitFor([] { return ToastsInSight().empty(); }));
}

TEST_F(Popups, TheButtonOfAnOlderOneGoesByTheKindOfTheNewest) {
    Show(Record(u"甲"_s), kPicPopup);
    Show(Record(u"漏水"_s), kIssuePopup);
    host.Log().Clear();
    // The photo's record names no issue that could be opened.
    support::AnsweredPrompts prompts;
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    Look(ToastsInSight()[0]);
    EXPECT_THAT(host.Log().LinesOf({"SelectPictureMark", "LocateIssue"}),
                ElementsAre("LocateIssue(id=q-甲)"))
        << "with its own record";
}

TEST_F(Popups, TheFirstMoveOfTheMouseShowsAPictureThatCameLater) {
    KX_DATA::PicMsgRecord record = Record(u"甲"_s);
    record.localFile = host.folder.Path(u"late.jpg"_s);
    Show(record, kPicPopup);
    QWidget* toast = ToastsInSight()[0];
    CPicStatic& preview = Preview(toast);
    EXPECT_EQ(preview.picPath, record.localFile);
    const QPoint middle = preview.rect().center();
    EXPECT_EQ(preview.grab().toImage().pixelColor(middle), QColor(250, 250, 250));
    support::RunPendingEvents();
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(QColor(200, 30, 30));
    ASSERT_TRUE(picture.save(record.localFile));

    int paints = 0;
    struct PaintCounter final : QObject {
        explicit PaintCounter(int& count) : m_count(count) {}
        bool eventFilter(QObject* watched, QEvent* event) override {
            m_count += event->type() == QEvent::Paint ? 1 : 0;
            return QObject::eventFilter(watched, event);
        }
        int& m_count;
    } counter(paints);
    preview.installEventFilter(&counter);
    QWidget* dialog = preview.parentWidget();
    const auto move = [&](int x) {
        QMouseEvent event(QEvent::MouseMove, QPointF(x, 5), dialog->mapToGlobal(QPointF(x, 5)),
                          Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(dialog, &event);
        support::RunPendingEvents();
    };
    move(5);
    EXPECT_EQ(paints, 1);
    move(6);
    EXPECT_EQ(paints, 1) << "once";
    EXPECT_GT(preview.grab().toImage().pixelColor(middle).red(), 180);
    EXPECT_LT(preview.grab().toImage().pixelColor(middle).blue(), 80);
}

TEST_F(Popups, TheMouseIsNoticedOverEveryPart) {
    Show(Record(u"甲"_s), kPicPopup);
    const QWidget* dialog = Preview(ToastsInSight()[0]).parentWidget();
    const auto parts = dialog->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_EQ(parts.size(), reminder::kMsgParts);
    for (const QWidget* part : parts) {
        EXPECT_TRUE(part->hasMouseTracking()) << part->objectName().toStdString();
    }
}

TEST_F(Popups, WithoutAFileThePreviewIsBlank) {
    Show(Record(u"甲"_s), kPicPopup);
    EXPECT_EQ(Preview(ToastsInSight()[0]).picPath, QString());
}

TEST_F(Popups, WhereNothingIsReadyTheFacadeShowsNothing) {
    facade.ShowPicPopups(toolkit::kNoWindow);
    facade.ShowIssuePopups(toolkit::kNoWindow);
    EXPECT_THAT(ToastsInSight(), IsEmpty());
}

TEST(MsgDlgLayout, PartsStandAsInDialogUnitsOneBelowTheOther) {
    const reminder::DialogBase base{8, 16};
    EXPECT_EQ(reminder::MsgDlgSize(base), QSize(342, 370));
    EXPECT_EQ(reminder::PlaceOf(reminder::MsgPart::First, false, base), QRect(36, 18, 278, 16));
    EXPECT_EQ(reminder::PlaceOf(reminder::MsgPart::Preview, false, base), QRect(90, 182, 204, 132));
    EXPECT_EQ(reminder::PlaceOf(reminder::MsgPart::Button, true, base), QRect(124, 330, 100, 28));
    const reminder::DialogBase units{4, 8};
    const std::array<QRect, reminder::kMsgParts> places{{{18, 9, 139, 8},
                                                         {18, 24, 139, 8},
                                                         {18, 39, 139, 8},
                                                         {18, 54, 139, 8},
                                                         {18, 69, 139, 8},
                                                         {18, 84, 139, 8},
                                                         {45, 91, 102, 66},
                                                         {62, 165, 50, 14}}};
    for (int part = 0; part < reminder::kMsgParts; ++part) {
        EXPECT_EQ(reminder::PlaceOf(reminder::MsgPart(part), false, units), places[size_t(part)])
            << part;
    }
    EXPECT_EQ(reminder::PlaceOf(reminder::MsgPart::Second, true, base).y(),
              reminder::PlaceOf(reminder::MsgPart::Second, false, base).y() + 8);
    EXPECT_EQ(reminder::PlaceOf(reminder::MsgPart::Fourth, true, base).y(),
              reminder::PlaceOf(reminder::MsgPart::Fourth, false, base).y() - 8);
}
