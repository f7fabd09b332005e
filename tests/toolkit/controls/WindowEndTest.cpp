// A window ends in every way while something is half done in every kind of field: its handlers hear
// nothing more.
#include "toolkit/windows/WindowEnd.h"
#include "tests/support/HalfTyped.h"
#include "tests/support/WaitFor.h"
#include "toolkit/controls/DropCombo.h"
#include "toolkit/controls/KXComboBox.h"
#include "toolkit/windows/PopTipDlg.h"

#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest/QTest>

#include <gmock/gmock.h>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Calls = std::vector<std::string>;

/// What the handlers of a form were told.
struct Told {
    Calls calls;
    bool formIsThere = false;
    bool toldWithoutForm = false;

    void Tell(const std::string& call) {
        calls.push_back(call);
        toldWithoutForm = toldWithoutForm || !formIsThere;
    }
};

/// One field of each kind, the handlers of all told.
class FormDialog : public CPopTipDlg {
public:
    explicit FormDialog(Told& told) : m_told(told) {}

    [[nodiscard]] QDateEdit* Date() { return Widget()->findChild<QDateEdit*>(); }

protected:
    void OnCreated() override {
        m_told.formIsThere = true;
        auto* layout = new QVBoxLayout(Widget());
        AddNumbers(*layout);
        AddTexts(*layout);
        AddLists(*layout);
        AddButtons(*layout);
    }
    void OnDestroyed() override {
        m_told.formIsThere = false;
        m_told.calls.emplace_back("destroyed");
    }

private:
    template <class Field> Field* Add(QVBoxLayout& layout, const QString& name, Field* field) {
        field->setObjectName(name);
        layout.addWidget(field);
        return field;
    }
    template <class Field, class Signal>
    void Listen(Field* field, Signal signal, const std::string& call) {
        QObject::connect(field, signal, Widget(), [this, call] { m_told.Tell(call); });
    }
    void AddNumbers(QVBoxLayout& layout) {
        auto* date = Add(layout, u"date"_s, new QDateEdit(QDate(2026, 3, 5)));
        date->setDisplayFormat(u"yyyy-MM-dd"_s);
        date->setKeyboardTracking(false);
        Listen(date, &QDateEdit::dateChanged, "date");
        auto* number = Add(layout, u"number"_s, new QSpinBox);
        number->setMaximum(1000);
        number->setValue(120);
        number->setKeyboardTracking(false);
        Listen(number, qOverload<int>(&QSpinBox::valueChanged), "number");
        Listen(number, &QSpinBox::editingFinished, "number finished");
    }
    void AddTexts(QVBoxLayout& layout) {
        auto* line = Add(layout, u"line"_s, new QLineEdit(u"abc"_s));
        Listen(line, &QLineEdit::editingFinished, "line finished");
        auto* text = Add(layout, u"text"_s, new QPlainTextEdit(u"abc"_s));
        Listen(text, &QPlainTextEdit::textChanged, "text");
    }
    void AddLists(QVBoxLayout& layout) {
        auto* keyword = Add(layout, u"keyword"_s, new KXComboBox);
        keyword->addItems({u"1"_s, u"2"_s, u"3"_s});
        Listen(keyword, &QComboBox::activated, "keyword");
        Listen(keyword->lineEdit(), &QLineEdit::editingFinished, "keyword finished");
        auto* choice = Add(layout, u"choice"_s, new DropCombo);
        choice->addItems({u"1"_s, u"2"_s, u"3"_s});
        Listen(choice, &QComboBox::currentIndexChanged, "choice");
        auto* cells = Add(layout, u"cells"_s, new QListWidget);
        cells->addItems({u"1"_s, u"2"_s});
        cells->item(0)->setFlags(cells->item(0)->flags() | Qt::ItemIsEditable);
        cells->setEditTriggers(QAbstractItemView::DoubleClicked);
        Listen(cells, &QListWidget::itemChanged, "cell");
    }
    void AddButtons(QVBoxLayout& layout) {
        auto* box = Add(layout, u"box"_s, new QCheckBox);
        Listen(box, &QCheckBox::clicked, "box");
        Listen(box, &QCheckBox::released, "box released");
        auto* button = Add(layout, u"button"_s, new QPushButton);
        Listen(button, &QPushButton::clicked, "button");
        Listen(button, &QPushButton::released, "button released");
    }

    Told& m_told;
};

struct WindowEndTest : ::testing::Test {
    Told told;
    std::unique_ptr<FormDialog> form;
    QWidget* parent = nullptr;

    ~WindowEndTest() override { delete parent; }

    QWidget* Open() {
        delete std::exchange(parent, new QWidget);
        const toolkit::WindowId id =
            toolkit::RegisterWindow(parent, [](const toolkit::WindowEvent&) { return 0; });
        form = std::make_unique<FormDialog>(told);
        form->Create(id);
        form->ShowRestored();
        form->BringToForeground();
        EXPECT_TRUE(support::WaitFor([this] { return form->Widget()->isActiveWindow(); }));
        return form->Widget();
    }
    Calls TakeCalls() { return std::exchange(told.calls, {}); }
    void ExpectSilent(const std::function<void()>& end) {
        support::ExpectEndsAsUntouched(
            {[this] { return Open(); }, end, [this] { return TakeCalls(); }});
        EXPECT_FALSE(told.toldWithoutForm);
    }
    void TypeIntoDate() {
        form->Date()->setFocus();
        QTest::keyClick(form->Date(), Qt::Key_End);
        QTest::keyClick(form->Date(), Qt::Key_Backspace);
        QTest::keyClick(form->Date(), Qt::Key_8);
        TakeCalls();
    }
};

TEST_F(WindowEndTest, ByItsObject) {
    ExpectSilent([this] { form->Destroy(); });
}

TEST_F(WindowEndTest, ByItsCloseButton) {
    ExpectSilent([this] { form->Widget()->close(); });
}

TEST_F(WindowEndTest, WithItsParent) {
    ExpectSilent([this] { delete std::exchange(parent, nullptr); });
}

TEST_F(WindowEndTest, WithItsObject) {
    ExpectSilent([this] { form.reset(); });
}

TEST_F(WindowEndTest, WithAllWindowsOfTheProgram) {
    ExpectSilent([] { QApplication::closeAllWindows(); });
}

TEST_F(WindowEndTest, WithItsWidget) {
    ExpectSilent([this] { delete form->Widget(); });
}

TEST_F(WindowEndTest, WhatIsTypedIsCommittedAsLongAsTheWindowIsThere) {
    Open();
    TypeIntoDate();
    form->Widget()->findChild<QLineEdit*>(u"line"_s)->setFocus();
    EXPECT_THAT(TakeCalls(), ElementsAre("date"));
}

TEST_F(WindowEndTest, TheWindowIsStillWholeWhenItsEndIsTold) {
    struct Looking final : FormDialog {
        using FormDialog::FormDialog;
        bool hadDate = false;
        bool wasVisible = false;
        QWidget* widget = nullptr;
        void OnDestroyed() override {
            hadDate = widget->findChild<QDateEdit*>() != nullptr;
            wasVisible = widget->isVisible();
        }
    };
    Looking looking(told);
    for (const bool byQt : {false, true}) {
        looking.Create(toolkit::kNoWindow);
        looking.widget = looking.Widget();
        looking.ShowRestored();
        looking.hadDate = looking.wasVisible = false;
        if (byQt) {
            delete looking.Widget();
        } else {
            looking.Destroy();
        }
        EXPECT_TRUE(looking.hadDate) << byQt;
        EXPECT_TRUE(looking.wasVisible) << byQt;
        support::RunPendingEvents();
    }
}

TEST_F(WindowEndTest, WhoWaitsForTheWidgetToGoIsToldOfIt) {
    Open();
    bool gone = false;
    QObject::connect(form->Widget(), &QObject::destroyed, [&] { gone = true; });
    form->Destroy();
    EXPECT_FALSE(gone);
    support::RunPendingEvents();
    EXPECT_TRUE(gone);
}

TEST_F(WindowEndTest, CallsThatAreQueuedForTheWindowAreDropped) {
    Open();
    int calls = 0;
    QMetaObject::invokeMethod(
        form->Widget(), [&] { ++calls; }, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        form->Date(), [&] { ++calls; }, Qt::QueuedConnection);
    form->Destroy();
    support::RunPendingEvents();
    EXPECT_EQ(calls, 0);
}

TEST_F(WindowEndTest, EndingItInItsOwnEndChangesNothing) {
    struct Twice final : FormDialog {
        using FormDialog::FormDialog;
        int ends = 0;
        void OnDestroyed() override {
            ++ends;
            Destroy();
        }
    };
    Twice twice(told);
    twice.Create(toolkit::kNoWindow);
    twice.Destroy();
    EXPECT_EQ(twice.ends, 1);
    EXPECT_FALSE(twice.HasWindow());
    EXPECT_TRUE(twice.Create(toolkit::kNoWindow));
    delete twice.Widget();
    EXPECT_EQ(twice.ends, 2);
}

TEST_F(WindowEndTest, AWidgetThatDiesInTheEndOfItsWindowEndsItOnce) {
    struct Killing final : FormDialog {
        using FormDialog::FormDialog;
        int ends = 0;
        void OnDestroyed() override {
            ++ends;
            delete Widget();
        }
    };
    Killing killing(told);
    killing.Create(toolkit::kNoWindow);
    killing.Destroy();
    EXPECT_EQ(killing.ends, 1);
    EXPECT_FALSE(killing.HasWindow());
    EXPECT_EQ(killing.Id(), toolkit::kNoWindow);
}

TEST_F(WindowEndTest, AWindowOfItsOwnThatLiesOnItStillAnswers) {
    Open();
    FormDialog upper(told);
    upper.Create(form->Id());
    upper.ShowRestored();
    auto* button = upper.Widget()->findChild<QPushButton*>();
    form->Destroy();
    TakeCalls();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(TakeCalls(), ElementsAre("button released", "button"));
    support::RunPendingEvents();
    EXPECT_FALSE(upper.HasWindow());
    EXPECT_THAT(TakeCalls(), ElementsAre("destroyed"));
}

/// A modal run that ends in each way while a date is half typed.
struct ModalEndTest : WindowEndTest {
    void Run(const std::function<void(FormDialog&)>& end) {
        form.reset();
        delete std::exchange(parent, new QWidget);
        const toolkit::WindowId id =
            toolkit::RegisterWindow(parent, [](const toolkit::WindowEvent&) { return 0; });
        form = std::make_unique<FormDialog>(told);
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            if (!form->HasWindow() || !form->Widget()->isActiveWindow()) {
                return;
            }
            look.stop();
            TypeIntoDate();
            end(*form);
        });
        look.start(1);
        EXPECT_EQ(form->DoModal(id), DialogResult::Cancelled);
        EXPECT_FALSE(form->HasWindow());
        EXPECT_THAT(TakeCalls(), ElementsAre("destroyed"));
        EXPECT_FALSE(told.toldWithoutForm);
        support::RunPendingEvents();
        EXPECT_THAT(TakeCalls(), IsEmpty());
    }
};

TEST_F(ModalEndTest, ByItsObject) {
    Run([](FormDialog& dialog) { dialog.Destroy(); });
}

TEST_F(ModalEndTest, ByItsCloseButton) {
    Run([](FormDialog& dialog) { dialog.Widget()->close(); });
}

TEST_F(ModalEndTest, WithItsParent) {
    Run([this](FormDialog&) { delete std::exchange(parent, nullptr); });
}

TEST_F(ModalEndTest, WithAllWindowsOfTheProgram) {
    Run([](FormDialog&) { QApplication::closeAllWindows(); });
}

} // namespace
