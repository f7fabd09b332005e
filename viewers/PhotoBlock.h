// The texts and the player under a photo, for the viewers that have them.
#pragma once

#include "toolkit/controls/StaticText.h"
#include "toolkit/controls/TitledGroup.h"
#include "viewers/NotePlayer.h"
#include "viewers/PhotoBlockLayout.h"

#include <QFrame>
#include <QPointer>

namespace gallery {

/// What the lines say, without their captions.
struct PhotoBlockTexts {
    QString position;
    QString uploader;
    QString uploadTime;
    QString updater;
    QString updateTime;
    QString labels;
    QString description;
    QString labelTip; ///< the other lines' tips are what they say
};

/// Children of the viewer's pane, made anew with each window; the lines fill in what they are
/// told and know no record. Thread: user interface. A member of the viewer.
class PhotoBlock final {
public:
    /// @param updaterCaption  with its leading blanks, which differ from viewer to viewer.
    PhotoBlock(const PhotoBlockShape& shape, QString updaterCaption);

    void MakeControls(QWidget& pane, NotePlayer& note);
    /// Nothing without controls.
    void LayOut(const QSize& pane, NotePlayer& note);
    [[nodiscard]] bool HasControls() const { return !markText.isNull(); }

    void ShowTexts(const PhotoBlockTexts& texts);
    /// Drawn at once. `color` is 0xBBGGRR.
    void ShowMark(const QString& name, qint32 color);

    QPointer<CStaticFilespec> labelText;
    QPointer<CStaticFilespec> posText;
    QPointer<CAutoLineStatic> descText;
    QPointer<CColorStatic> markText;
    QPointer<CStaticFilespec> uploaderText;
    QPointer<CStaticFilespec> uploadTimeText;
    QPointer<CStaticFilespec> updaterText;
    QPointer<CStaticFilespec> updateTimeText;
    QPointer<QFrame> separator;
    QPointer<CTitledGroup> noteGroup;

private:
    const PhotoBlockShape m_shape;
    const QString m_updaterCaption;
};

} // namespace gallery
