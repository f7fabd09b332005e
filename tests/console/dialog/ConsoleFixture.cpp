#include "tests/console/dialog/ConsoleFixture.h"

#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "toolkit/controls/KXComboBox.h"

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

void ConsoleFixture::TypeKeyword(const QString& keyword) {
    support::TypeOver(*C().keywordCombo->lineEdit(), keyword);
    ASSERT_EQ(C().keywordCombo->currentText(), keyword);
}

void ConsoleFixture::ClickCell(int row, int column) {
    const QModelIndex index = View().model()->index(row, column);
    View().scrollTo(index);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, View().visualRect(index).center());
}

void ConsoleFixture::CheckRows(std::initializer_list<int> rows) {
    for (const int row : rows) {
        ClickCell(row, 0);
    }
}

void ConsoleFixture::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = Window()->focusWidget() != nullptr ? Window()->focusWidget() : Window();
    QTest::keyClick(target, key, modifiers);
}

int ConsoleFixture::Searches() {
    return Log().CountOf("QueryBimPics") + Log().CountOf("QueryPdfPics") +
           Log().CountOf("QueryIssues");
}
