// What the question of a bulk filing offers, refuses and answers.
#include "host/ui/filing/BulkDialog.h"
#include "services/PicRecords.h"
#include "tests/support/ScriptedHost.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class BulkAsking : public testing::Test {
protected:
    BulkAsking() {
        scripted.pics.floors = {u"-1"_s, u"屋面"_s};
        scripted.pics.axesX = {u"3"_s, u"4"_s};
        scripted.pics.axesY = {{u"B"_s, u"key-3B"_s}};
        asked.count = 12;
        asked.mayEdit = asked.mayShowHide = asked.mayAddLabels = true;
        asked.ppid = 1;
        asked.project = u"一期"_s;
        asked.marks = {{7, u"安全"_s, 0x00FF00}, {2, u"质量"_s, 0x0000FF}};
        asked.labels = {{31, u"渗漏"_s}, {32, u"复查"_s}};
    }
    void Open() {
        dialog = std::make_unique<BulkDialog>(nullptr, asked);
        QObject::connect(dialog.get(), &BulkDialog::FilingWanted,
                         [this](const BulkAnswer& answer) { answers.push_back(answer); });
        dialog->show();
    }
    template <class Control> [[nodiscard]] Control& Find(const QString& name) const {
        return *dialog->findChild<Control*>(name);
    }
    void Choose(const QString& name, int index) const {
        auto& combo = Find<QComboBox>(name);
        ASSERT_TRUE(combo.isEnabled()) << name.toStdString();
        combo.setFocus();
        while (combo.currentIndex() != index) {
            QTest::keyClick(&combo, combo.currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
        }
    }
    void Check(int row) const {
        auto& list = Find<QListWidget>(u"labelList"_s);
        list.setCurrentRow(row);
        QTest::keyClick(&list, Qt::Key_Space);
    }
    [[nodiscard]] bool CanStart() const { return Find<QPushButton>(u"bulkStart"_s).isEnabled(); }
    [[nodiscard]] QString Note() const { return Find<QLabel>(u"noteLabel"_s).text(); }
    [[nodiscard]] QString Hint() const {
        const auto& label = Find<QLabel>(u"hintLabel"_s);
        return label.isVisible() ? label.text() : QString();
    }
    [[nodiscard]] bool IsShown(const QString& name) const {
        return Find<QWidget>(name).isVisible();
    }

    support::ScriptedHost scripted;
    BulkQuestion asked;
    std::unique_ptr<BulkDialog> dialog;
    std::vector<BulkAnswer> answers;
};

TEST_F(BulkAsking, WaysAreCalledByWhatTheyDo) {
    Open();
    const auto texts = [this](const QString& name) {
        QStringList words;
        const auto& combo = Find<QComboBox>(name);
        for (int row = 0; row < combo.count(); ++row) {
            words << combo.itemText(row);
        }
        return words;
    };
    EXPECT_EQ(texts(u"placeCombo"_s).mid(1), QStringList({u"指定"_s, u"清除"_s}));
    EXPECT_EQ(texts(u"labelCombo"_s).mid(1), QStringList({u"添加"_s, u"替换为"_s}));
}

TEST_F(BulkAsking, BeginsWithNothingToChangeAndSaysSo) {
    Open();
    EXPECT_EQ(Find<QLabel>(u"headLabel"_s).text(), u"将修改勾选的 12 张BIM模型照片"_s);
    EXPECT_FALSE(CanStart());
    EXPECT_EQ(Note(), u"还没有选择要修改的内容。"_s);
    EXPECT_EQ(Find<QPushButton>(u"bulkStart"_s).toolTip(), Note());
    EXPECT_EQ(Hint(), QString());
    EXPECT_FALSE(Find<QComboBox>(u"floorCombo"_s).isEnabled());
    EXPECT_FALSE(Find<QListWidget>(u"labelList"_s).isEnabled());
    asked.ticked = false;
    Open();
    EXPECT_EQ(Find<QLabel>(u"headLabel"_s).text(), u"将修改选中的 12 张BIM模型照片"_s);
}

TEST_F(BulkAsking, APlaceNeedsFloorAndBothAxes) {
    Open();
    Choose(u"placeCombo"_s, 1);
    EXPECT_FALSE(CanStart());
    EXPECT_EQ(Note(), u"请选择楼层、X轴和Y轴。"_s);
    Choose(u"floorCombo"_s, 1);
    EXPECT_EQ(Find<QComboBox>(u"floorCombo"_s).currentText(), u"-1层"_s);
    Choose(u"axisXCombo"_s, 1);
    EXPECT_FALSE(CanStart());
    Choose(u"axisYCombo"_s, 1);
    EXPECT_TRUE(CanStart());
    EXPECT_EQ(dialog->Answer().positionKey, u"key-3B"_s);
    Choose(u"floorCombo"_s, 2);
    EXPECT_FALSE(CanStart()) << "axes are those of the floor";
    Choose(u"placeCombo"_s, 2);
    EXPECT_TRUE(CanStart());
    EXPECT_EQ(dialog->Answer().positionKey, QString());
    EXPECT_FALSE(Find<QComboBox>(u"floorCombo"_s).isEnabled());
    Choose(u"placeCombo"_s, 0);
    EXPECT_FALSE(dialog->Answer().positionKey.has_value());
}

TEST_F(BulkAsking, TheIntersectionOfThePlanIsProposed) {
    asked.floor = u"屋面"_s;
    asked.axisX = u"4"_s;
    asked.positionKey = u"key-3B"_s;
    Open();
    EXPECT_FALSE(CanStart()) << "it is the person who wants a place";
    Choose(u"placeCombo"_s, 1);
    EXPECT_TRUE(CanStart());
    EXPECT_EQ(Find<QComboBox>(u"axisXCombo"_s).currentText(), u"4"_s);
    EXPECT_EQ(dialog->Answer().positionKey, u"key-3B"_s);
    asked.positionKey = u"gone"_s;
    Open();
    Choose(u"placeCombo"_s, 1);
    EXPECT_FALSE(CanStart()) << "a place that the services don't have";
}

TEST_F(BulkAsking, MarksComeInTheOrderThatPeopleGaveWithTheirColours) {
    Open();
    auto& box = Find<QComboBox>(u"markCombo"_s);
    QStringList entries;
    for (int row = 0; row < box.count(); ++row) {
        entries << box.itemText(row);
    }
    EXPECT_EQ(entries, (QStringList{u"不修改"_s, u"无标识"_s, u"安全"_s, u"质量"_s}));
    EXPECT_EQ(box.itemIcon(2).pixmap(12, 12).toImage().pixelColor(6, 6), QColor(0, 255, 0));
    Choose(u"markCombo"_s, 1);
    EXPECT_TRUE(CanStart());
    EXPECT_EQ(dialog->Answer().markId, 0);
    Choose(u"markCombo"_s, 2);
    EXPECT_EQ(dialog->Answer().markId, 7);
}

TEST_F(BulkAsking, LabelsAreAddedOrReplaceThoseThatAreThere) {
    Open();
    Choose(u"labelCombo"_s, 1);
    EXPECT_FALSE(CanStart());
    EXPECT_EQ(Note(), u"请勾选要添加的标签。"_s);
    Check(1);
    EXPECT_TRUE(CanStart());
    EXPECT_EQ(dialog->Answer().labelIds, std::vector<qint32>{32});
    EXPECT_FALSE(dialog->Answer().replaceLabels);
    Check(1);
    EXPECT_FALSE(CanStart());
    Choose(u"labelCombo"_s, 2);
    EXPECT_TRUE(CanStart());
    EXPECT_TRUE(dialog->Answer().replaceLabels);
    EXPECT_EQ(Hint(), u"没有勾选标签：照片已有的标签会全部去掉。"_s);
    Check(0);
    EXPECT_EQ(Hint(), QString());
    Choose(u"labelCombo"_s, 0);
    EXPECT_TRUE(dialog->Answer().labelIds.empty()) << "checked, and not wanted any more";
    EXPECT_FALSE(CanStart());
}

TEST_F(BulkAsking, ANewLabelHasNoBlanks) {
    Open();
    Choose(u"labelCombo"_s, 1);
    auto& edit = Find<QLineEdit>(u"newLabelEdit"_s);
    edit.setFocus();
    QTest::keyClicks(&edit, u"wet wall"_s);
    EXPECT_EQ(edit.text(), u"wetwall"_s);
    edit.setCursorPosition(3);
    QTest::keyClicks(&edit, u" x"_s);
    EXPECT_EQ(edit.text(), u"wetxwall"_s);
    EXPECT_TRUE(CanStart());
    EXPECT_EQ(dialog->Answer().newLabel, u"wetxwall"_s);
    asked.mayAddLabels = false;
    Open();
    EXPECT_FALSE(IsShown(u"newLabelEdit"_s));
    EXPECT_TRUE(IsShown(u"labelList"_s));
}

TEST_F(BulkAsking, OnlyWhatKindAndRightsAllowIsShown) {
    asked.of = BulkOf::Issues;
    Open();
    EXPECT_TRUE(IsShown(u"markCombo"_s) && IsShown(u"statusCombo"_s));
    EXPECT_FALSE(IsShown(u"placeCombo"_s) || IsShown(u"floorCombo"_s) || IsShown(u"labelList"_s));
    EXPECT_EQ(Find<QComboBox>(u"markCombo"_s).itemText(1), u"安全"_s) << "issues have a mark";
    asked.mayEdit = false;
    Open();
    EXPECT_FALSE(IsShown(u"markCombo"_s));
    EXPECT_TRUE(IsShown(u"statusCombo"_s));
    asked.of = BulkOf::PdfPhotos;
    asked.mayEdit = true;
    Open();
    EXPECT_FALSE(IsShown(u"markCombo"_s));
    EXPECT_TRUE(IsShown(u"statusCombo"_s));
    EXPECT_EQ(Hint(), u"图纸照片的标识和标签是检查点的，请在图纸上编辑检查点。"_s);
    Choose(u"statusCombo"_s, 2);
    EXPECT_EQ(dialog->Answer().status, KX_DATA::kStatusHidden);
    asked.of = BulkOf::BimPhotos;
    asked.mayShowHide = false;
    Open();
    EXPECT_FALSE(IsShown(u"statusCombo"_s));
    EXPECT_TRUE(IsShown(u"placeCombo"_s));
}

TEST_F(BulkAsking, PhotosOfOtherProjectsAreToldOfOnceAPlaceIsWanted) {
    asked.elsewhere = 3;
    Open();
    EXPECT_EQ(Hint(), QString());
    Choose(u"placeCombo"_s, 1);
    EXPECT_EQ(Hint(), u"这里是工程“一期”的位置，其他工程的 3 张照片会跳过。"_s);
    Choose(u"placeCombo"_s, 2);
    EXPECT_EQ(Hint(), QString());
}

TEST_F(BulkAsking, TheAnswerIsHandedOverAndAFaultStandsUntilTheNextChoice) {
    Open();
    Choose(u"statusCombo"_s, 1);
    Find<QPushButton>(u"bulkStart"_s).click();
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers.front().status, KX_DATA::kStatusShown);
    EXPECT_FALSE(answers.front().markId.has_value());
    EXPECT_TRUE(dialog->isVisible()) << "who files decides";
    dialog->ShowFault(u"磁盘已满。"_s);
    EXPECT_EQ(Note(), u"磁盘已满。"_s);
    Choose(u"statusCombo"_s, 2);
    EXPECT_EQ(Note(), u"其余内容保持不变，之后可以撤销。"_s);
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    EXPECT_EQ(answers.size(), 2U);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(answers.size(), 2U);
}

} // namespace
} // namespace host
