// The window "输出报告".
#include "host/ui/report/ReportWindow.h"

#include "hands/Choices.h"
#include "host/ui/report/ReportPreview.h"
#include "tests/host/report/PageSamples.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <map>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

const QString kProposed = u"照片报告 3层 2-B轴 质量"_s;

class NotedStore final : public IReportStore {
public:
    ReportOptions Options() override { return options; }
    void KeepOptions(const ReportOptions& kept) override { options = kept; }
    ReportTemplate Template(qint32 ppid) override { return templates[ppid]; }
    QString KeepTemplate(qint32 ppid, const ReportTemplate& dress) override {
        if (fault.isEmpty()) {
            templates[ppid] = dress;
        }
        return fault;
    }

    ReportOptions options;
    std::map<qint32, ReportTemplate> templates;
    QString fault;
};

class WindowOfReports : public testing::Test {
protected:
    WindowOfReports() {
        photo = reporttest::WritePhoto(folder, u"a.jpg"_s, Qt::red, {1200, 900});
        window = new ReportWindow(store);
        window->show();
        window->activateWindow();
    }
    ~WindowOfReports() override { delete window; }

    template <class Control> [[nodiscard]] Control& Find(const QString& name) const {
        return *window->findChild<Control*>(name);
    }
    [[nodiscard]] ReportPreview& Preview() const { return Find<ReportPreview>(u"reportPreview"_s); }
    [[nodiscard]] QString Notice() const { return Find<QLabel>(u"reportNotice"_s).text(); }
    [[nodiscard]] QPushButton& Button(const QString& name) const { return Find<QPushButton>(name); }
    void Click(const QString& button) {
        ASSERT_TRUE(Button(button).isEnabled()) << qUtf8Printable(button);
        QTest::mouseClick(&Button(button), Qt::LeftButton);
    }
    [[nodiscard]] bool Choose(const QString& box, const QString& entry) const {
        return WaitFor([&] { return hands::ChooseInCombo(&Find<QComboBox>(box), entry); });
    }
    void Show(int photos = 4) { window->SetContent(reporttest::PhotosAt(photo, photos)); }
    /// Presses "保存..." and answers with a file of this name.
    void SaveAs(const QString& name, const QString& proposed = kProposed) {
        support::AnsweredPrompts prompts;
        prompts.ExpectSaveFile(proposed, name.isEmpty() ? QString() : folder.Path(name));
        Click(u"reportSave"_s);
        askedFilter = prompts.LastFilter();
    }
    [[nodiscard]] bool WaitForEnd() {
        return WaitFor([this] { return !window->IsSaving(); });
    }
    [[nodiscard]] QStringList Names() const {
        return QDir(folder.Path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    support::TempFolder folder;
    NotedStore store;
    QString photo;
    QString askedFilter; ///< of the last file dialog
    QPointer<ReportWindow> window;
};

TEST_F(WindowOfReports, HasTheTitleThatViewersLookForAndNoParent) {
    EXPECT_EQ(window->windowTitle(), u"输出报告");
    EXPECT_EQ(window->parentWidget(), nullptr);
    EXPECT_FALSE(window->isModal());
}

TEST_F(WindowOfReports, ThereIsNothingToSaveBeforeTheContent) {
    EXPECT_EQ(Notice(), u"正在读取报告的内容...");
    EXPECT_FALSE(Button(u"reportSave"_s).isEnabled());
    Show();
    EXPECT_TRUE(Button(u"reportSave"_s).isEnabled());
    EXPECT_EQ(Notice(), u"");
    EXPECT_EQ(Preview().PageCount(), 2);
}

TEST_F(WindowOfReports, WhyThereIsNoReportIsSaid) {
    window->SetLack(u"该问题已被删除，请刷新后再试。"_s);
    EXPECT_EQ(Notice(), u"该问题已被删除，请刷新后再试。");
    EXPECT_FALSE(Button(u"reportSave"_s).isEnabled());
    EXPECT_TRUE(Button(u"reportClose"_s).isEnabled());
}

TEST_F(WindowOfReports, ThePagesAreShownWithTheirPhotos) {
    Show(1);
    const auto hasRed = [this] {
        const QImage image = Preview().viewport()->grab().toImage();
        for (int y = 0; y < image.height(); y += 5) {
            for (int x = 0; x < image.width(); x += 5) {
                const QColor color = image.pixelColor(x, y);
                if (color.red() > 230 && color.green() < 40) {
                    return true;
                }
            }
        }
        return false;
    };
    Preview().verticalScrollBar()->setValue(Preview().verticalScrollBar()->maximum() / 2);
    EXPECT_TRUE(WaitFor(hasRed));
}

TEST_F(WindowOfReports, AFileIsSavedInEachForm) {
    Show();
    for (const auto& [form, name] :
         {std::pair(0, u"a.pdf"_s), std::pair(1, u"a.docx"_s), std::pair(2, u"a.html"_s)}) {
        Find<QComboBox>(u"reportForm"_s).setCurrentIndex(form);
        SaveAs(name, form == 0 ? kProposed : folder.Path(kProposed));
        EXPECT_TRUE(askedFilter.endsWith(u"(*%1)"_s.arg(name.mid(1)))) << form;
        EXPECT_TRUE(WaitForEnd());
        const auto& progress = Find<QProgressBar>(u"reportProgress"_s);
        EXPECT_GT(progress.maximum(), 0) << form;
        EXPECT_EQ(progress.value(), progress.maximum());
        EXPECT_EQ(Notice(), u"报告已保存：%1"_s.arg(folder.Path(name)));
        EXPECT_GT(folder.Read(name).size(), 1000);
        EXPECT_TRUE(Button(u"reportOpen"_s).isVisible());
    }
    support::AnsweredPrompts prompts;
    prompts.ExpectRevealFile(folder.Path(u"a.html"_s));
    Click(u"reportReveal"_s);
    prompts.ExpectOpenFolder(folder.Path(u"a.html"_s));
    prompts.hasPrograms = false;
    Click(u"reportOpen"_s);
    EXPECT_TRUE(Notice().startsWith(u"没有可以打开该文件的程序"_s));
}

TEST_F(WindowOfReports, NobodyMissesASaveThatWasNotAnswered) {
    Show();
    SaveAs({});
    EXPECT_FALSE(window->IsSaving());
    EXPECT_EQ(Names(), QStringList({u"a.jpg"_s}));
}

TEST_F(WindowOfReports, SavingTellsHowFarItIsAndCanBeCancelled) {
    Show(200);
    SaveAs(u"a.pdf"_s);
    ASSERT_TRUE(window->IsSaving());
    EXPECT_TRUE(Find<QProgressBar>(u"reportProgress"_s).isVisible());
    EXPECT_FALSE(Button(u"reportSave"_s).isEnabled());
    EXPECT_FALSE(Find<QComboBox>(u"reportPaper"_s).isEnabled());
    Click(u"reportStop"_s);
    EXPECT_TRUE(WaitForEnd());
    EXPECT_EQ(Notice(), u"已取消，没有保存报告。");
    EXPECT_EQ(Names(), QStringList({u"a.jpg"_s}));
    EXPECT_TRUE(Button(u"reportSave"_s).isEnabled());
    EXPECT_FALSE(Button(u"reportStop"_s).isVisible());
}

TEST_F(WindowOfReports, ClosingWhileItIsSavedAsksAndLeavesNothing) {
    Show(200);
    SaveAs(u"a.pdf"_s);
    ASSERT_TRUE(window->IsSaving());
    const QString question = u"报告正在生成。要取消并关闭窗口吗？"_s;
    support::AnsweredPrompts prompts;
    prompts.ExpectNoYes(question, false);
    window->close();
    ASSERT_FALSE(window.isNull());
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->IsSaving());
    prompts.ExpectNoYes(question, true);
    window->close();
    EXPECT_TRUE(WaitFor([this] { return window.isNull(); }));
    EXPECT_EQ(Names(), QStringList({u"a.jpg"_s}));
}

TEST_F(WindowOfReports, TheWindowMayEndAtAnyMoment) {
    for (int round = 0; round < 5; ++round) {
        QPointer<ReportWindow> other = new ReportWindow(store);
        other->show();
        other->SetContent(reporttest::PhotosAt(photo, 60));
        {
            support::AnsweredPrompts prompts;
            prompts.ExpectSaveFile(kProposed, folder.Path(u"b.pdf"_s));
            other->findChild<QPushButton*>(u"reportSave"_s)->click();
        }
        for (int turn = 0; turn < round; ++turn) {
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        delete other;
        // Whole, if it was done by then, and else not there.
        const QByteArray left = folder.Read(u"b.pdf"_s);
        EXPECT_TRUE(left.isEmpty() || left.endsWith("%%EOF\n"));
        EXPECT_EQ(Names().size(), left.isEmpty() ? 1 : 2);
        QFile::remove(folder.Path(u"b.pdf"_s));
    }
    QApplication::processEvents();
}

TEST_F(WindowOfReports, AFaultOfTheDiskIsTold) {
    Show();
    SaveAs(u"gone/a.pdf"_s);
    EXPECT_TRUE(WaitForEnd());
    EXPECT_TRUE(Notice().contains(u"文件夹已不存在"_s)) << qUtf8Printable(Notice());
    EXPECT_FALSE(Button(u"reportOpen"_s).isVisible());
}

TEST_F(WindowOfReports, WhatIsChosenIsSeenAtOnceAndKept) {
    Show(12);
    const int before = Preview().PageCount();
    EXPECT_TRUE(Choose(u"reportPictures"_s, u"每页一张"_s));
    EXPECT_GT(Preview().PageCount(), before);
    EXPECT_EQ(store.options.pictures, ReportPictures::OnePerPage);
    QTest::mouseClick(&Find<QCheckBox>(u"reportTexts"_s), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_FALSE(store.options.withTexts);
    EXPECT_TRUE(Choose(u"reportDirection"_s, u"横向"_s));
    EXPECT_TRUE(store.options.isLandscape);
    EXPECT_GT(Preview().Pages().shape.page.width(), Preview().Pages().shape.page.height());
    ReportWindow next(store);
    next.SetContent(reporttest::PhotosAt(photo, 1));
    EXPECT_EQ(next.findChild<QComboBox*>(u"reportPictures"_s)->currentText(), u"每页一张");
    EXPECT_FALSE(next.findChild<QCheckBox*>(u"reportTexts"_s)->isChecked());
}

TEST_F(WindowOfReports, TheTemplateIsKeptForItsProjectAlone) {
    Show();
    QTest::keyClicks(&Find<QLineEdit>(u"reportTitle"_s), u"Monthly"_s);
    EXPECT_TRUE(WaitFor([this] { return store.templates[7].title == u"Monthly"; }));
    EXPECT_TRUE(WaitFor([this] {
        return std::get<TextItem>(Preview().Pages().pages[0].items[0]).text.LineCount() == 1;
    }));
    ReportContent other = reporttest::PhotosAt(photo, 1);
    other.ppid = 8;
    ReportWindow next(store);
    next.SetContent(other);
    EXPECT_EQ(next.findChild<QLineEdit*>(u"reportTitle"_s)->text(), u"");
}

TEST_F(WindowOfReports, ATemplateTypedLastIsKeptWhenTheWindowCloses) {
    Show();
    QTest::keyClicks(&Find<QLineEdit>(u"reportFooter"_s), u"internal"_s);
    window->close();
    EXPECT_EQ(store.templates[7].footer, u"internal");
}

TEST_F(WindowOfReports, ATemplateThatCannotBeKeptIsTold) {
    Show();
    store.fault = u"数据文件夹无法写入。"_s;
    QTest::keyClicks(&Find<QLineEdit>(u"reportHeader"_s), u"x"_s);
    EXPECT_TRUE(WaitFor([this] { return Notice() == u"版式没有保留：数据文件夹无法写入。"; }));
}

TEST_F(WindowOfReports, ATemplateLostAtTheEndIsToldBeforeTheWindowGoes) {
    Show();
    store.fault = u"数据文件夹无法写入。"_s;
    QTest::keyClicks(&Find<QLineEdit>(u"reportHeader"_s), u"x"_s);
    support::AnsweredPrompts prompts;
    prompts.ExpectMessage(u"版式没有保留：数据文件夹无法写入。"_s);
    window->close();
    EXPECT_TRUE(prompts.AllAnswered());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(WindowOfReports, ALogoIsChosenAndDropped) {
    Show();
    const QString filter = u"图片 (*.png *.jpg *.jpeg *.bmp *.gif);;所有文件 (*)"_s;
    support::AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(filter, {folder.Write(u"text.png"_s, "none")});
    Click(u"reportChooseLogo"_s);
    EXPECT_TRUE(Notice().contains(u"不是可以读取的图片"_s));
    prompts.ExpectOpenFiles(filter, {photo});
    Click(u"reportChooseLogo"_s);
    EXPECT_TRUE(WaitFor([this] { return !store.templates[7].logo.isNull(); }));
    Click(u"reportDropLogo"_s);
    EXPECT_TRUE(WaitFor([this] { return store.templates[7].logo.isNull(); }));
    EXPECT_FALSE(Button(u"reportDropLogo"_s).isEnabled());
}

TEST_F(WindowOfReports, SavingWaitsForPicturesUnlessThePersonStopsThem) {
    Show();
    window->SetFetching(1, 4);
    EXPECT_EQ(Notice(), u"正在下载图片：1 / 4");
    EXPECT_FALSE(Button(u"reportSave"_s).isEnabled());
    bool isStopped = false;
    QObject::connect(window, &ReportWindow::FetchingStopped, window, [&] { isStopped = true; });
    Click(u"reportStop"_s);
    EXPECT_TRUE(isStopped);
    window->EndFetching(u"有 3 张图片没有下载成功，报告中注明了原因。"_s);
    EXPECT_TRUE(Button(u"reportSave"_s).isEnabled());
    EXPECT_EQ(Notice(), u"有 3 张图片没有下载成功，报告中注明了原因。");
}

TEST_F(WindowOfReports, ALongRecordComesBehindTheRest) {
    ReportContent content = reporttest::PhotosAt(photo, 2);
    reporttest::AddRecord(content, QString(u"<p>一段记录</p>"_s).repeated(400));
    window->SetContent(content);
    const int early = Preview().PageCount();
    EXPECT_FALSE(Preview().IsWhole());
    EXPECT_TRUE(WaitFor([this] { return Preview().IsWhole(); }));
    EXPECT_GT(Preview().PageCount(), early + 4);
    EXPECT_TRUE(Find<QLabel>(u"reportPageLine"_s)
                    .text()
                    .contains(u"共 %1 页"_s.arg(Preview().PageCount())));
}

TEST_F(WindowOfReports, KeysAndWheelMoveAndZoomThePages) {
    Show(30);
    Preview().setFocus();
    QTest::keyClick(&Preview(), Qt::Key_End);
    EXPECT_EQ(Preview().CurrentPage(), Preview().PageCount() - 1);
    QTest::keyClick(&Preview(), Qt::Key_Home);
    EXPECT_EQ(Preview().CurrentPage(), 0);
    const double fit = Preview().Zoom();
    QTest::keyClick(&Preview(), Qt::Key_Minus);
    EXPECT_LT(Preview().Zoom(), fit);
    QTest::keyClick(&Preview(), Qt::Key_0);
    EXPECT_DOUBLE_EQ(Preview().Zoom(), fit);
    QTest::keyClick(&Preview(), Qt::Key_Plus);
    EXPECT_GT(Preview().horizontalScrollBar()->maximum(), 0);
    const double before = Preview().Zoom();
    QWheelEvent notch({50, 50}, {50, 50}, {}, {0, -120}, Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Preview().viewport(), &notch);
    EXPECT_NEAR(Preview().Zoom(), before / 1.2, 1e-9);
}

TEST_F(WindowOfReports, EscapeClosesAndEnterPressesTheButtonInFocus) {
    Show();
    Button(u"reportSave"_s).setFocus();
    {
        support::AnsweredPrompts prompts;
        prompts.ExpectSaveFile(kProposed, {});
        QTest::keyClick(&Button(u"reportSave"_s), Qt::Key_Return);
        EXPECT_TRUE(prompts.AllAnswered());
    }
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(WaitFor([this] { return window.isNull(); }));
}

TEST_F(WindowOfReports, TheProposedNameIsOneThatFilesCanHave) {
    ReportContent content = reporttest::PhotosAt(photo, 1);
    content.kind = u"..报告/:*?"_s;
    content.place = u"3层\\A\n\"轴\""_s;
    window->SetContent(content);
    SaveAs({}, u"报告 3层 A 轴"_s);
}

} // namespace
} // namespace host
