#include "tests/editors/dialog/EditorFixture.h"

#include "tests/support/WaitFor.h"

using namespace Qt::StringLiterals;

EditorFixture::EditorFixture() {
    host.docs.labels = {
        {u"l1"_s, u"裂缝"_s}, {u"l2"_s, u"空鼓"_s}, {u"l3"_s, u"渗漏"_s}, {u"l4"_s, u"返工"_s}};
    host.pics.floors = {u"1"_s, u"2"_s, u"3"_s};
    host.pics.axesX = {u"A"_s, u"B"_s};
    host.pics.axesY = {{u"1"_s, u"N1"_s}, {u"2"_s, u"N2"_s}, {u"3"_s, u"N3"_s}};
}

EditorFixture::~EditorFixture() {
    if (editor) {
        editor->Destroy();
    }
    support::RunPendingEvents();
}

KX_DATA::BimPicRow EditorFixture::Photo() {
    KX_DATA::BimPicRow row = BimPhoto(1);
    row.axisX = u"A"_s;
    row.axisY = u"1"_s;
    row.markId = 2;
    return row;
}

KX_DATA::BimPicRow EditorFixture::PhotoAt(const QString& floor, const QString& axisX,
                                          const QString& axisY) {
    KX_DATA::BimPicRow row = Photo();
    row.floor = floor;
    row.axisX = axisX;
    row.axisY = axisY;
    return row;
}

KX_DATA::BimPicRow EditorFixture::PhotoNamed(const QString& fileName) {
    KX_DATA::BimPicRow row = Photo();
    row.fileName = fileName;
    return row;
}

KX_DATA::BimPicRow EditorFixture::PhotoWithoutPlace() {
    KX_DATA::BimPicRow row = PhotoAt({}, {}, {});
    row.positionKey.clear();
    return row;
}

void EditorFixture::Open(const KX_DATA::BimPicRow& row) {
    editor = std::make_unique<CBimPicEditDlg>(row);
    Show();
}

void EditorFixture::Open(const KX_DATA::BimPicDetail& detail) {
    editor = std::make_unique<CBimPicEditDlg>(detail);
    Show();
}

void EditorFixture::Show() {
    editor->Create(toolkit::kNoWindow);
    editor->ShowRestored();
    editor->BringToForeground();
    support::RunPendingEvents();
    ASSERT_TRUE(support::WaitFor([this] { return Window()->isActiveWindow(); }));
}

void EditorFixture::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = Window()->focusWidget() != nullptr ? Window()->focusWidget() : Window();
    QTest::keyClick(target, key, modifiers);
}

EditorFixture::Calls EditorFixture::Labels() {
    Calls labels;
    for (const QTreeWidgetItem* item : CTreeCtrl3StateBase::ChildrenOf(Root())) {
        const bool checked =
            CTreeCtrl3StateBase::Get3StateCheck(*item) == CTreeCtrl3StateBase::kChecked;
        labels.push_back((checked ? "x " : "  ") + item->text(0).toStdString());
    }
    return labels;
}

void EditorFixture::ClickBox(QTreeWidgetItem& item) {
    Tree().scrollToItem(&item);
    const QRect row = Tree().visualItemRect(&item);
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 10, row.center().y()));
}

bool EditorFixture::Save() {
    support::Click(&Ok());
    return !IsOpen();
}

void EditorFixture::ExpectRefused(QWidget& control, const std::string& message) {
    const int saves = Saves();
    EXPECT_FALSE(Save());
    EXPECT_EQ(support::BalloonAt(&control), message);
    EXPECT_TRUE(control.hasFocus()) << message;
    EXPECT_EQ(Saves(), saves);
}
