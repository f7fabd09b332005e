// Drop lists with real clicks and keys.
#include "toolkit/Look.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/KXComboBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A shown, active window with one combo and a place for the keyboard to be otherwise.
template <class Combo> struct ComboFixture : ::testing::Test {
    QWidget window;
    QPointer<Combo> combo = new Combo(&window);
    QLineEdit* other = new QLineEdit(&window);

    void SetUp() override {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(combo);
        layout->addWidget(other);
        window.resize(300, 120);
        window.show();
        window.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&window));
        other->setFocus();
    }
};

using DropComboTest = ComboFixture<DropCombo>;
using KXComboBoxTest = ComboFixture<KXComboBox>;
using ColorTxtComboBoxTest = ComboFixture<CColorTxtComboBox>;

TEST_F(DropComboTest, HandlerFillsTheListBeforeItShows) {
    combo->addItem(u"全部"_s);
    int drops = 0;
    QObject::connect(combo, &DropCombo::dropDown, &window, [&] {
        ++drops;
        EXPECT_FALSE(combo->view()->isVisible());
        combo->clear();
        combo->addItems({u"全部"_s, u"裂缝"_s, u"渗水"_s});
    });
    QTest::mouseClick(combo, Qt::LeftButton);
    EXPECT_EQ(drops, 1);
    EXPECT_TRUE(combo->view()->isVisible());
    EXPECT_EQ(combo->view()->model()->rowCount(), 3);
    combo->hidePopup();
}

TEST_F(DropComboTest, KeyboardDropsDownToo) {
    combo->addItem(u"全部"_s);
    combo->setFocus();
    QSignalSpy drops(combo, &DropCombo::dropDown);
    QTest::keyClick(combo, Qt::Key_F4);
    EXPECT_TRUE(combo->view()->isVisible());
    combo->hidePopup();
    QTest::keyClick(combo, Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(combo->view()->isVisible());
    combo->hidePopup();
    EXPECT_EQ(drops.count(), 2);
}

TEST_F(DropComboTest, OnlyAPersonsChoiceIsActivated) {
    combo->addItems({u"甲"_s, u"乙"_s, u"丙"_s});
    QSignalSpy activated(combo, &QComboBox::activated);
    combo->setCurrentIndex(2);
    combo->clear();
    combo->addItems({u"甲"_s, u"乙"_s});
    EXPECT_EQ(activated.count(), 0);
    combo->showPopup();
    combo->view()->setCurrentIndex(combo->model()->index(1, 0));
    QTest::keyClick(combo->view(), Qt::Key_Return);
    EXPECT_EQ(activated.count(), 1);
    EXPECT_EQ(combo->currentIndex(), 1);
}

TEST_F(DropComboTest, HandlerMayEndTheWindowOrDisableTheBox) {
    combo->addItem(u"全部"_s);
    QObject::connect(combo, &DropCombo::dropDown, &window, [&] { combo->setEnabled(false); });
    combo->showPopup();
    EXPECT_FALSE(combo->view()->isVisible());

    auto* dying = new DropCombo(&window);
    dying->addItem(u"全部"_s);
    dying->show();
    const QPointer<DropCombo> watched(dying);
    QObject::connect(dying, &DropCombo::dropDown, &window, [dying] { delete dying; });
    dying->showPopup();
    EXPECT_TRUE(watched.isNull());
}

TEST_F(DropComboTest, WheelTurnsOnlyTheBoxThatHasTheKeyboard) {
    combo->addItems({u"甲"_s, u"乙"_s, u"丙"_s});
    const auto turn = [&] {
        const QPointF place = combo->rect().center();
        QWheelEvent event(place, combo->mapToGlobal(place), QPoint(), QPoint(0, -120), {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(combo, &event);
    };
    turn();
    EXPECT_EQ(combo->currentIndex(), 0);
    combo->setFocus();
    turn();
    EXPECT_EQ(combo->currentIndex(), 1);
}

class StyledCombo final : public DropCombo {
public:
    [[nodiscard]] QString ShownText() const {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        return option.currentText;
    }
};

TEST_F(DropComboTest, TextTooLongForTheBoxIsElided) {
    StyledCombo box;
    box.resize(144, 24);
    box.addItem(u"短名"_s);
    box.addItem(u"很长很长很长很长很长很长很长的工程名称"_s);
    EXPECT_EQ(box.ShownText(), u"短名"_s);
    box.setCurrentIndex(1);
    EXPECT_TRUE(box.ShownText().endsWith(u'…')) << box.ShownText().toStdString();
    EXPECT_LT(box.fontMetrics().horizontalAdvance(box.ShownText()), 144);
    EXPECT_EQ(box.currentText(), u"很长很长很长很长很长很长很长的工程名称"_s);
}

TEST_F(DropComboTest, ListIsWideEnoughForItsLongestEntry) {
    const QString entry(30, u'长');
    combo->addItems({u"全部"_s, entry});
    combo->showPopup();
    EXPECT_GE(combo->view()->viewport()->width(), combo->fontMetrics().horizontalAdvance(entry));
    combo->hidePopup();
}

TEST_F(KXComboBoxTest, HintIsNoText) {
    combo->SetTipInfo(u"输入关键字"_s);
    EXPECT_EQ(combo->TipInfo(), u"输入关键字"_s);
    EXPECT_EQ(combo->lineEdit()->placeholderText(), u"输入关键字"_s);
    EXPECT_EQ(combo->currentText(), QString());
}

TEST_F(KXComboBoxTest, FillingTheListLeavesTheTextAlone) {
    combo->addItem(u"裂缝"_s);
    combo->addItem(u"渗水"_s);
    EXPECT_EQ(combo->currentText(), QString());
    EXPECT_EQ(combo->currentIndex(), -1);
    combo->clear();
    combo->setEditText(u"外墙"_s);
    combo->addItems({u"裂缝"_s, u"渗水"_s});
    EXPECT_EQ(combo->currentText(), u"外墙"_s);
}

TEST_F(KXComboBoxTest, NewestEntryMayBePutOnTopAndSelected) {
    combo->addItems({u"裂缝"_s, u"渗水"_s});
    combo->setEditText(u"外墙"_s);
    combo->insertItem(0, u"外墙"_s);
    combo->setCurrentIndex(0);
    EXPECT_EQ(combo->currentText(), u"外墙"_s);
    combo->removeItem(2);
    EXPECT_EQ(combo->count(), 2);
}

TEST_F(KXComboBoxTest, TypingIsNeitherCompletedNorAddedToTheList) {
    combo->addItems({u"wall crack"_s, u"Wall"_s});
    combo->setFocus();
    QTest::keyClicks(combo->lineEdit(), u"wall"_s);
    EXPECT_EQ(combo->currentText(), u"wall"_s);
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(combo->currentText(), u"wall"_s);
    EXPECT_EQ(combo->count(), 2);
}

TEST_F(KXComboBoxTest, EnterIsToldOnceAndIsNoChoiceFromTheList) {
    combo->addItems({u"裂缝"_s, u"wall"_s});
    QSignalSpy entered(combo, &KXComboBox::returnPressed);
    QSignalSpy activated(combo, &QComboBox::activated);
    combo->setFocus();
    QTest::keyClicks(combo->lineEdit(), u"wall"_s);
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(entered.count(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
    EXPECT_EQ(entered.count(), 2);
    other->setFocus();
    EXPECT_EQ(activated.count(), 0);
}

TEST_F(KXComboBoxTest, EnterGoesOnToTheDefaultButton) {
    QDialog dialog;
    auto* keyword = new KXComboBox(&dialog);
    auto* search = new QPushButton(u"搜索"_s, &dialog);
    search->setDefault(true);
    QSignalSpy pressed(search, &QPushButton::clicked);
    dialog.show();
    QTest::keyClicks(keyword->lineEdit(), u"wall"_s);
    QTest::keyClick(keyword->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(pressed.count(), 1);
}

TEST_F(KXComboBoxTest, ChoiceFromTheListBecomesTheText) {
    combo->addItems({u"裂缝"_s, u"渗水"_s});
    QSignalSpy activated(combo, &QComboBox::activated);
    combo->setEditText(u"外墙"_s);
    combo->showPopup();
    combo->view()->setCurrentIndex(combo->model()->index(1, 0));
    QTest::keyClick(combo->view(), Qt::Key_Return);
    EXPECT_EQ(combo->currentText(), u"渗水"_s);
    EXPECT_EQ(activated.count(), 1);
}

TEST_F(ColorTxtComboBoxTest, InitialisingReplacesAllEntriesAndSelectsTheFirst) {
    combo->SetVeskStyle(1);
    combo->OnInitialize({{0xFFFFFF, u"全部标识"_s}, {0x0000FF, u"裂缝"_s}});
    combo->setCurrentIndex(1);
    combo->OnInitialize({{0xFFFFFF, u"全部标识"_s}, {0x00FF00, u"渗水"_s}, {0xFF0000, u"空鼓"_s}});
    EXPECT_EQ(combo->count(), 3);
    EXPECT_EQ(combo->currentIndex(), 0);
    EXPECT_EQ(combo->itemText(2), u"空鼓"_s);
    EXPECT_EQ(combo->Entries().size(), 3U);
    combo->OnInitialize({});
    EXPECT_EQ(combo->currentIndex(), -1);
}

TEST_F(ColorTxtComboBoxTest, SelectedEntryShowsItsSwatch) {
    combo->SetVeskStyle(1);
    combo->OnInitialize({{0x0000FF, u"裂缝"_s}, {0xFF0000, u"空鼓"_s}});
    const auto has = [&](const QColor& color) {
        const QImage image = combo->grab().toImage();
        for (int x = 0; x < 24; ++x) {
            if (image.pixelColor(x, image.height() / 2) == color) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(has(Qt::red));
    combo->setCurrentIndex(1);
    EXPECT_TRUE(has(Qt::blue));
    EXPECT_FALSE(has(Qt::red));
}

TEST_F(ColorTxtComboBoxTest, AnotherStyleDressesTheEntriesThatAreThere) {
    combo->OnInitialize({{0x0000FF, u"裂缝"_s}});
    EXPECT_TRUE(combo->itemIcon(0).isNull());
    EXPECT_EQ(combo->itemData(0, Qt::BackgroundRole).value<QColor>(), QColor(Qt::red));
    combo->SetVeskStyle(1);
    EXPECT_FALSE(combo->itemIcon(0).isNull());
    EXPECT_FALSE(combo->itemData(0, Qt::BackgroundRole).isValid());
}

TEST_F(ColorTxtComboBoxTest, OtherStyleWritesTheNameOnItsColour) {
    combo->OnInitialize({{0x0000FF, u"裂缝"_s}});
    const QImage image = combo->grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() / 2, image.height() / 2), QColor(Qt::red));
    combo->SetVeskStyle(1);
    const QImage plain = combo->grab().toImage();
    EXPECT_NE(plain.pixelColor(plain.width() / 2, plain.height() / 2), QColor(Qt::red));
}

TEST_F(ColorTxtComboBoxTest, AnEntryIsSelectedByItsName) {
    combo->OnInitialize({{0xFF, u"质量"_s}, {0xFF00, u"安全"_s}, {0, u"安全"_s}});
    combo->SetSelectColorName(u"安全"_s);
    EXPECT_EQ(combo->currentIndex(), 1);
    combo->SetSelectColorName(u"没有"_s);
    EXPECT_EQ(combo->currentIndex(), -1);
    combo->SetSelectColorName(QString());
    EXPECT_EQ(combo->currentIndex(), -1);
}

TEST_F(ColorTxtComboBoxTest, ItsFieldIsFilledButForItsEdgeAndItsTextStandsFourPixelsIn) {
    combo->OnInitialize({{0x0000FF, u"国"_s}});
    combo->setCurrentIndex(0);
    const QImage image = combo->grab().toImage();
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.subControls = QStyle::SC_All;
    const QRect field = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                       QStyle::SC_ComboBoxEditField, combo);
    const int middle = field.center().y();
    EXPECT_EQ(image.pixelColor(field.left() + 1, middle), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(field.right() - 1, middle), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(field.center().x(), field.top() + 1), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(field.center().x(), field.bottom() - 1), QColor(Qt::red));
    EXPECT_NE(image.pixelColor(field.left(), middle), QColor(Qt::red));
    // The same text on the same ground, painted at that place.
    QImage wanted(image.size(), QImage::Format_RGB32);
    wanted.fill(Qt::red);
    QPainter painter(&wanted);
    painter.setFont(combo->font());
    painter.setPen(toolkit::TextOn(Qt::red));
    painter.drawText(QRect(field.left() + 4, field.top(), field.width() - 8, field.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, u"国"_s);
    painter.end();
    const QRect inner = field.adjusted(1, 1, -1, -1);
    EXPECT_EQ(image.copy(inner).convertToFormat(QImage::Format_RGB32), wanted.copy(inner));
}

} // namespace
