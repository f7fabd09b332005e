// A tree of check boxes with real clicks and keys.
#include "toolkit/controls/TreeCtrl3StateBase.h"

#include <QHelpEvent>
#include <QSignalSpy>
#include <QToolTip>
#include <QVBoxLayout>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Tree = CTreeCtrl3StateBase;

/// How often a widget is painted.
class PaintCount final : public QObject {
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
    int count = 0;
};

struct TreeTest : ::testing::Test {
    QWidget window;
    Tree* tree = new Tree(&window);
    QTreeWidgetItem* root = nullptr;
    std::vector<QTreeWidgetItem*> children;

    void SetUp() override {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(tree);
        window.resize(200, 300);
        window.show();
        window.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&window));
        root = tree->InsertItem(u"全部"_s);
        for (const QString& name : {u"甲"_s, u"乙"_s, u"丙"_s}) {
            children.push_back(tree->InsertItem(name, root));
        }
        tree->expandItem(root);
    }
    [[nodiscard]] QString States() const {
        QString text = QString::number(Tree::Get3StateCheck(*root)) + u':';
        for (const QTreeWidgetItem* child : Tree::ChildrenOf(*root)) {
            text += QString::number(Tree::Get3StateCheck(*child));
        }
        return text;
    }
    void ClickBox(QTreeWidgetItem* item) const {
        const QRect row = tree->visualItemRect(item);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          QPoint(row.left() + 10, row.center().y()));
    }
    void AskForTip(QTreeWidgetItem* item) const {
        const QPoint place = tree->visualItemRect(item).center();
        QHelpEvent help(QEvent::ToolTip, place, tree->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(tree->viewport(), &help);
    }
};

TEST_F(TreeTest, ItemsComeUncheckedInTheirOrder) {
    EXPECT_EQ(States(), u"1:111"_s);
    EXPECT_EQ(children[2]->text(0), u"丙"_s);
    EXPECT_EQ(root->child(2), children[2]);
    EXPECT_TRUE(Tree::ChildrenOf(*children[0]).empty());
}

TEST_F(TreeTest, TheRootShowsWhatItsChildrenAre) {
    Tree::Set3StateCheck(*children[1], Tree::kChecked);
    EXPECT_EQ(States(), u"2:131"_s);
    Tree::Set3StateCheck(*children[0], Tree::kChecked);
    Tree::Set3StateCheck(*children[2], Tree::kChecked);
    EXPECT_EQ(States(), u"3:333"_s);
    Tree::Set3StateCheck(*children[1], Tree::kUnchecked);
    EXPECT_EQ(States(), u"2:313"_s);
}

TEST_F(TreeTest, AChildMoreMakesAWholeRootMixed) {
    Tree::Set3StateCheck(*root, Tree::kChecked);
    tree->InsertItem(u"丁"_s, root);
    EXPECT_EQ(States(), u"2:3331"_s);
}

TEST_F(TreeTest, AnItemComesWithItsPointerAndItsState) {
    const int data = 1;
    const QTreeWidgetItem* item = tree->InsertItem(u"丁"_s, root, &data, Tree::kChecked);
    EXPECT_EQ(Tree::GetItemData(*item), &data);
    EXPECT_EQ(States(), u"2:1113"_s);
}

TEST_F(TreeTest, AClosedRootIsPaintedAnewWhenACheckedChildComes) {
    tree->collapseItem(root);
    QCoreApplication::processEvents();
    PaintCount paints(tree->viewport());
    tree->InsertItem(u"丁"_s, root, nullptr, Tree::kChecked);
    QCoreApplication::processEvents();
    EXPECT_GT(paints.count, 0);
}

TEST_F(TreeTest, MixedCannotBeSet) {
    Tree::Set3StateCheck(*children[1], Tree::kMixed);
    Tree::Set3StateCheck(*root, Tree::kMixed);
    EXPECT_EQ(States(), u"1:111"_s);
    Tree::Set3StateCheck(*children[1], Tree::kChecked);
    Tree::Set3StateCheck(*children[1], Tree::kMixed);
    EXPECT_EQ(States(), u"2:131"_s);
}

TEST_F(TreeTest, AClickOnABoxChangesItAndOneOnTheTextSelectsAlone) {
    ClickBox(children[1]);
    EXPECT_EQ(States(), u"2:131"_s);
    ClickBox(children[1]);
    EXPECT_EQ(States(), u"1:111"_s);
    const QRect row = tree->visualItemRect(children[2]);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 30, row.center().y()));
    EXPECT_EQ(States(), u"1:111"_s);
    EXPECT_EQ(tree->currentItem(), children[2]);
}

TEST_F(TreeTest, AClickOnTheRootChangesAll) {
    Tree::Set3StateCheck(*children[1], Tree::kChecked);
    ClickBox(root);
    EXPECT_EQ(States(), u"3:333"_s);
    ClickBox(root);
    EXPECT_EQ(States(), u"1:111"_s);
}

TEST_F(TreeTest, ArrowsAndSpaceDoTheSame) {
    tree->setFocus();
    tree->setCurrentItem(root);
    QTest::keyClick(tree, Qt::Key_Space);
    EXPECT_EQ(States(), u"3:333"_s);
    QTest::keyClick(tree, Qt::Key_Down);
    QTest::keyClick(tree, Qt::Key_Down);
    QTest::keyClick(tree, Qt::Key_Space);
    EXPECT_EQ(States(), u"2:313"_s);
    QTest::keyClick(tree, Qt::Key_Left);
    QTest::keyClick(tree, Qt::Key_Left);
    EXPECT_FALSE(root->isExpanded());
}

TEST_F(TreeTest, ADoubleClickOnABoxIsTwoClicksAndLeavesTheTreeOpen) {
    const QRect row = tree->visualItemRect(root);
    const QPoint box(row.left() + 10, row.center().y());
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(States(), u"1:111"_s);
    EXPECT_TRUE(root->isExpanded());
}

TEST_F(TreeTest, ItemsCarryAPointerOfTheirMaker) {
    const QString first = u"id"_s;
    EXPECT_EQ(Tree::GetItemData(*children[0]), nullptr);
    Tree::SetItemData(*children[0], &first);
    EXPECT_EQ(Tree::GetItemData(*children[0]), &first);
    EXPECT_EQ(Tree::GetItemData(*children[1]), nullptr);
}

TEST_F(TreeTest, DeletingAllLeavesNothingAndItCanBeFilledAgain) {
    tree->DeleteAllItems();
    EXPECT_EQ(tree->topLevelItemCount(), 0);
    QTreeWidgetItem* again = tree->InsertItem(u"全部"_s);
    EXPECT_EQ(Tree::Get3StateCheck(*again), Tree::kUnchecked);
    EXPECT_EQ(tree->topLevelItemCount(), 1);
}

TEST_F(TreeTest, ATextWithoutRoomIsShownWholeInATip) {
    const QString text = u"<b>"_s + QString(60, u'长');
    QTreeWidgetItem* item = tree->InsertItem(text, root);
    AskForTip(item);
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_TRUE(QToolTip::text().contains(u"&lt;b&gt;长长"_s)) << QToolTip::text().toStdString();
    QToolTip::hideText();
    ASSERT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    AskForTip(children[0]);
    EXPECT_FALSE(QToolTip::isVisible());
}

TEST_F(TreeTest, AllLinesHaveOneHeight) {
    QTreeWidgetItem* item = tree->InsertItem(u"两\n行"_s, root);
    EXPECT_EQ(tree->visualItemRect(item).height(), tree->visualItemRect(children[0]).height());
}

} // namespace
