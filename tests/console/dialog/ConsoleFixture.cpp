#include "tests/console/dialog/ConsoleFixture.h"

#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "toolkit/BalloonTip.h"
#include "toolkit/KXComboBox.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

void ConsoleFixture::Open(ConsoleMode mode, int rows) {
    FillService(host, mode, rows);
    Facade().ShowPicMng(mode);
    Settle();
    Log().Clear();
}

void ConsoleFixture::Settle() {
    support::RunPendingEvents();
    ASSERT_TRUE(support::WaitFor([this] { return Window()->isActiveWindow(); }));
}

void ConsoleFixture::Click(QWidget* control) {
    ASSERT_TRUE(control->isVisible());
    QTest::mouseClick(control, Qt::LeftButton);
}

void ConsoleFixture::DropDown(QComboBox& box) {
    ASSERT_TRUE(box.isVisible());
    // On its arrow: elsewhere a box with an edit field takes the click for its text.
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(box.width() - 6, box.height() / 2));
}

void ConsoleFixture::CloseList(QComboBox& box) {
    if (box.view()->isVisible())
        QTest::keyClick(box.view(), Qt::Key_Escape);
}

void ConsoleFixture::Choose(QComboBox& box, int index) {
    DropDown(box);
    ASSERT_TRUE(box.view()->isVisible());
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int step = 0; step < index; ++step)
        QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
}

void ConsoleFixture::TypeKeyword(const QString& keyword) {
    QLineEdit* edit = C().keywordCombo->lineEdit();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    // Not every character has a key.
    for (const QChar character : keyword) {
        if (character.unicode() < 0x80)
            QTest::keyClick(edit, character.toLatin1());
        else
            edit->insert(character);
    }
    ASSERT_EQ(C().keywordCombo->currentText(), keyword);
}

void ConsoleFixture::ClickCell(int row, int column) {
    const QModelIndex index = View().model()->index(row, column);
    View().scrollTo(index);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, View().visualRect(index).center());
}

void ConsoleFixture::CheckRows(std::initializer_list<int> rows) {
    for (const int row : rows)
        ClickCell(row, 0);
}

void ConsoleFixture::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = Window()->focusWidget() != nullptr ? Window()->focusWidget() : Window();
    QTest::keyClick(target, key, modifiers);
}

std::vector<std::string> ConsoleFixture::Entries(const QComboBox& box) {
    std::vector<std::string> texts;
    for (int i = 0; i < box.count(); ++i)
        texts.push_back(box.itemText(i).toStdString());
    return texts;
}

int ConsoleFixture::Searches() {
    return Log().CountOf("QueryBimPics") + Log().CountOf("QueryPdfPics") +
           Log().CountOf("QueryIssues");
}

std::string ConsoleFixture::BalloonAt(const QWidget* control) {
    const toolkit::BalloonTip* balloon = toolkit::BalloonTip::Current();
    if (balloon == nullptr || balloon->Control() != control)
        return {};
    return balloon->Text().toStdString();
}
