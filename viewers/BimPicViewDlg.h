// The pane of the BIM photo viewer: the photos of one place in the model, with their texts.
#pragma once

#include "viewers/BimPhotoSource.h"
#include "viewers/BimViewItem.h"
#include "viewers/NotePlayer.h"
#include "viewers/PhotoBlock.h"
#include "viewers/PicViewDlg.h"

#include <QPointer>
#include <QPushButton>

#include <memory>
#include <vector>

/// What a pane asks of the window around it.
class ITitleNotify {
public:
    virtual ~ITitleNotify() = default;

    virtual void OnTitleChanged(const QString& title) = 0;
    /// The report button was pressed.
    virtual void OnOutputReport() = 0;
};

/// The photos of a floor, a grid intersection and a mark, one at a time, with labels, people,
/// times, description and voice note; details are fetched when a photo is first shown.
///
/// Knows neither the console nor the view. Thread: user interface. A member of the window around
/// it, as whose child it is created.
class CBimPicViewDlg final : public CPicViewDlg {
public:
    CBimPicViewDlg();

    /// Shows the photos of a place. False, and nothing changed but an emptied detail cache: they
    /// can't be listed, or there is no window any more. An empty list is shown as such.
    /// @param wantedPicId  the photo shown first; the first one for -1 and for one not listed.
    bool LoadPosition(const BimPlace& place, qint32 wantedPicId);
    /// The same from any source.
    bool LoadPhotos(const std::shared_ptr<gallery::IPhotoSource>& source, qint32 ppid,
                    qint32 wantedPicId);

    [[nodiscard]] const std::vector<BimViewItem>& Items() const { return items; }
    [[nodiscard]] gallery::NotePlayer& Note() { return m_note; }
    [[nodiscard]] const gallery::PhotoBlock& Texts() const { return m_block; }
    [[nodiscard]] QPushButton* ReportButton() const { return m_report; }

    /// Not owned; set once the pane's window is made.
    ITitleNotify* titleNotify = nullptr;

protected:
    void OnCurPicChanged(int index) override;
    void OnCreated() override;
    void OnDestroyed() override;
    void OnResized() override { LayoutPicPane(); }
    void OnClose() override;
    void OnTimer(int timerId) override;

private:
    void LayoutPicPane();
    void MakeReportButton();
    void ShowPicDetail(int index);
    void ShowItem(int index);

    std::shared_ptr<gallery::IPhotoSource> m_source; ///< null before the first list
    std::vector<BimViewItem> items;                  ///< one for each gallery item, in its order
    gallery::NotePlayer m_note;
    gallery::PhotoBlock m_block;
    QPointer<QPushButton> m_report;
};
