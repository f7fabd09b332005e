// From the console's row to the preview of its photo and back.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QTextEdit>
#include <QTimer>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::ModalVisit;
using support::WaitFor;

const QString kPreview = u"VeskPicViewWrap"_s;

class PreviewRoad : public PhotoRoad {
protected:
    /// Previews a photo of the console and does something in the preview, which is then closed.
    static void Preview(const QString& fileName, const ModalVisit::Action& action) {
        const int row = RowOfPhoto(fileName);
        ASSERT_GE(row, 0);
        const Activation activation;
        const ModalVisit visit(kPreview, [&](QWidget& window) {
            action(window);
            window.close();
        });
        ClickRowIcon(row, u"预览"_s);
        EXPECT_TRUE(visit.HasCome());
    }
    /// A platform that forgets to activate a window leaves it to the person, who clicks on it.
    class Activation final {
    public:
        Activation() {
            m_timer.callOnTimeout([] {
                QWidget* window = QApplication::activeModalWidget();
                if (window != nullptr && window->objectName() == kPreview &&
                    !window->isActiveWindow()) {
                    window->activateWindow();
                }
            });
            m_timer.start(50);
        }

    private:
        QTimer m_timer;
    };
    static QString TextOf(const QWidget& window, const QString& name) {
        return tour::ReadText(tour::FindIn(&window, name));
    }
};

TEST_F(PreviewRoad, APhotoIsShownWithItsTextsAndOneStepsThroughThePage) {
    OpenConsole();
    const QStringList names = ConsoleColumnTexts(u"照片名称"_s);
    Preview(names[2], [&](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), names[2] + u"    3/(1-7)"_s);
        const QPointer<QWidget> step(&window);
        EXPECT_TRUE(WaitFor([&] { return hands::PressKey(&window, Qt::Key_Right); }));
        EXPECT_EQ(window.windowTitle(), names[3] + u"    4/(1-7)"_s);
        EXPECT_TRUE(TextOf(window, u"posText"_s).startsWith(u"位置："_s));
        EXPECT_FALSE(TextOf(window, u"uploaderText"_s).endsWith(u"："_s));
    });
    EXPECT_TRUE(tour::Console()->isVisible());
    EXPECT_EQ(ConsoleColumnTexts(u"照片名称"_s), names);
    EXPECT_TRUE(Messages().isEmpty());
}

TEST_F(PreviewRoad, TheRecordOfItsPlaceIsReadOnly) {
    OpenConsole();
    Preview(u"转角.jpg"_s, [](QWidget& window) {
        const auto* sheet = window.findChild<QTextEdit*>(u"noteSheet"_s);
        ASSERT_NE(sheet, nullptr);
        EXPECT_TRUE(WaitFor([&] { return sheet->isReadOnly(); }));
        const auto* states = window.findChild<QComboBox*>(u"stateCombo"_s);
        EXPECT_TRUE(WaitFor([&] { return !states->isEnabled() && states->count() > 0; }));
    });
}

TEST_F(PreviewRoad, ADrawingPhotoIsPreviewedToo) {
    ASSERT_TRUE(Press(Qt::Key_2));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 1; }));
    const QString name = ConsoleColumnTexts(u"照片名称"_s).value(0);
    Preview(name, [&](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), name + u"    1/(1-1)"_s);
        EXPECT_TRUE(TextOf(window, u"posText"_s).startsWith(u"位置：检查点"_s));
    });
}

TEST_F(PreviewRoad, APhotoThatAnotherClientDeletesMeanwhileStaysOnTheScreen) {
    OpenConsole();
    Preview(u"转角.jpg"_s, [this](QWidget& window) {
        const QString title = window.windowTitle();
        Other().DeletePhotos({cornerPhoto});
        support::RunPendingEvents();
        EXPECT_EQ(window.windowTitle(), title);
        EXPECT_TRUE(WaitFor([&] { return hands::PressKey(&window, Qt::Key_Right); }));
        EXPECT_NE(window.windowTitle(), title);
    });
}

TEST_F(PreviewRoad, TheClientMayEndUnderThePreview) {
    OpenConsole();
    const int row = RowOfPhoto(u"转角.jpg"_s);
    const Activation activation;
    const ModalVisit visit(kPreview, [this](QWidget&) { client->Stop(); });
    ClickRowIcon(row, u"预览"_s);
    EXPECT_TRUE(visit.HasCome());
    EXPECT_TRUE(WaitFor([] { return OpenWindows().isEmpty(); }));
}

} // namespace
} // namespace roads
