// Records of places that no client writes: by another program, of another version, by a fault.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "site/IBlobs.h"
#include "site/IRichTexts.h"
#include "site/RectifyStates.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/TourEyes.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTextEdit>
#include <QTimer>

#include <random>
#include <utility>
#include <vector>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

const QByteArray kPageText = "<p>注浆完成</p>";

class CraftedRich : public PhotoRoad {
protected:
    [[nodiscard]] site::RichPlace Place() const {
        return site::AtIntersection(site.firstProject, site.positionKey, 1);
    }
    site::Database& Db() { return support::FolderOf(session).Db(); }
    static QTextEdit* Sheet() {
        return Viewer() == nullptr ? nullptr : Viewer()->findChild<QTextEdit*>(u"noteSheet"_s);
    }
    /// A record of one version with its page, by another person.
    void SavePage(const QByteArray& page) {
        const QString path = folder.Write(u"page.html"_s, page);
        const KX_DATA::UploadResult up = session.Site().Blobs().Upload(path, {});
        site::NewRichVersion version;
        version.docName = u"doc"_s;
        version.state = site::kStateDone;
        version.added = {{up.md5 + u".html"_s, {}, up.uuid, 0, 1}};
        const auto newest = session.Site().RichTexts().Newest({site.firstProject}, Place());
        version.base = newest->text;
        for (const site::RichFile& file : newest->files) {
            version.removed.push_back(file.uuid);
        }
        ASSERT_TRUE(
            session.Site().RichTexts().Save({site.firstProject}, Place(), version, {u"李娜"_s, 0}));
    }
    /// What the boxes said that came up while the record was open.
    QStringList LookAndClose(const std::function<void()>& inBetween = {}) {
        QStringList told;
        QTimer answers;
        QObject::connect(&answers, &QTimer::timeout, [&] {
            if (tour::OpenMessageBox() != nullptr) {
                told << tour::MessageBoxText();
                tour::OpenMessageBox()->close();
            }
        });
        answers.start(20);
        ClickFlag(Plan(), site.positionKey, 1);
        EXPECT_TRUE(WaitFor([] { return Sheet() != nullptr; }));
        WaitForRecord();
        EXPECT_FALSE(Viewer()->grab().isNull());
        if (inBetween) {
            inBetween();
        }
        EXPECT_TRUE(WaitFor([] { return hands::CloseWindow(Viewer()); }));
        EXPECT_TRUE(WaitFor([] { return Viewer() == nullptr; }));
        return told;
    }
    /// All files below the test's folder that contain a page.
    [[nodiscard]] QStringList WithContent(const QByteArray& bytes) const {
        QStringList found;
        QDirIterator files(folder.Path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly) && file.readAll() == bytes) {
                found << QDir(folder.Path()).relativeFilePath(file.fileName());
            }
        }
        found.sort();
        return found;
    }
};

TEST_F(CraftedRich, AFileWhoseNameIsAPathIsNotFetchedAndTheRecordCannotBeWritten) {
    SavePage(kPageText);
    const QStringList before = WithContent(kPageText);
    for (const QString& name :
         {u"../../../up.html"_s, u"..\\..\\up.html"_s, folder.Path(u"up.html"_s)}) {
        Db().Exec(u"UPDATE rich_file SET name = ?"_s, {name});
        const QStringList told = LookAndClose([] {
            ASSERT_NE(Sheet(), nullptr);
            EXPECT_TRUE(WaitFor([] { return Sheet()->isReadOnly(); }));
            EXPECT_TRUE(Sheet()->toPlainText().isEmpty());
        });
        EXPECT_TRUE(told.isEmpty()) << told.join(u'|').toStdString();
        EXPECT_EQ(WithContent(kPageText), before) << name.toStdString();
    }
}

TEST_F(CraftedRich, APageOfAnyBytesIsShownOrToldAndTheViewerCanBeLeft) {
    QByteArray bytes;
    std::mt19937 dice(1414);
    for (int i = 0; i < 50'000; ++i) {
        bytes += char(dice());
    }
    const std::vector<std::pair<QByteArray, bool>> pages = {
        {"", true},
        {"<p>a<b", true},
        {QByteArray(5000, '\0'), true},
        {QByteArray("\xff\xfe<\0p\0>\0", 8), true},
        {bytes, true},
        {"<p style='" + QByteArray(3'000'000, 'x') + "'>a", true},
        {QByteArray(50'000'000, 'a'), false},
        {QByteArray("<div>").repeated(2'000'000), false},
        {QByteArray("<table><tr><td>").repeated(100'000), false}};
    for (const auto& [page, isShown] : pages) {
        SavePage(page);
        const QStringList told = LookAndClose([isWritable = isShown] {
            ASSERT_NE(Sheet(), nullptr);
            // The row is filled before the files are fetched.
            EXPECT_TRUE(WaitFor([&] { return Sheet()->isReadOnly() != isWritable; }));
        });
        EXPECT_TRUE(told.isEmpty()) << told.join(u'|').toStdString();
    }
}

} // namespace
} // namespace roads
