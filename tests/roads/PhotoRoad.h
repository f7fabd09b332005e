// Roads between console, plan, viewer and editor of photos.
#pragma once

#include "tests/roads/ClientFixture.h"
#include "tests/roads/OtherClient.h"
#include "tests/roads/RoadHands.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

namespace roads {

/// What a person is told where the photos of a place, or the details of one, can't be had.
inline const QString kNotHad = QStringLiteral("获取Vesk照片信息失败！");

/// And where the record of the place can't be had either.
inline const QString kRecordNotHad = QStringLiteral("富文本信息获取服务调用失败！");

/// The client on the small site and two more photos at places of their own. Downloads don't wait
/// between their looks. No lookup of a test before waits for its viewer to close. A message box
/// that nobody answers fails the test and is closed.
class PhotoRoad : public ClientOnAFolder {
protected:
    void SetUp() override;
    void TearDown() override;
    void Furnish() override;

    /// In the order in which the program ends.
    void End();
    /// By its key; all seven photos are listed, latest first.
    void OpenConsole();
    /// Clicks the icon that looks a photo up.
    void LookUp(const QString& fileName);
    /// Number of photos that the mark panel gives for a mark of a floor; 0: it isn't listed.
    [[nodiscard]] int PanelCount(const QString& floorCaption, const QString& markName) const;
    /// Ticks or unticks a floor in the mark panel with the space bar.
    void ToggleFloor(const QString& floorCaption);
    void ClickInPanel(const QString& button);
    [[nodiscard]] OtherClient Other() const;
    /// Colour of 照片0.jpg to 照片4.jpg.
    [[nodiscard]] static QRgb ColorOf(int number) { return qRgb(40 * number, 90, 90); }
    /// Files that lie in the cache of the first project.
    [[nodiscard]] QStringList Cached() const;
    /// Whatever lies in the cache is whole and bears its final name.
    void ExpectNothingHalf() const;

    QString cornerKey;        ///< floor "-1", axes 1 and A
    QString upstairsKey;      ///< floor "1", axes 1 and A
    qint32 cornerPhoto = 0;   ///< 转角.jpg with mark 1, the latest of all
    qint32 upstairsPhoto = 0; ///< 楼上.jpg with mark 2 "安全"
    static constexpr QRgb kCornerColor = qRgb(200, 40, 40);
    static constexpr QRgb kUpstairsColor = qRgb(40, 40, 200);

private:
    void LookForBoxes();

    QTimer m_looking;
    QPointer<QWidget> m_box;
    QElapsedTimer m_boxSince;
};

} // namespace roads
