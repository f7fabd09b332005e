#include "hands/Choices.h"
#include "hands/Hands.h"
#include "services/Factories.h"
#include "services/IKXFilesMng.h"
#include "services/IRichTextMsgMng.h"
#include "tour/NotedPhoto.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QTemporaryFile>
#include <QTextEdit>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

const QString kConflict = u"HistroyTip"_s;
const QString kHistory = u"HistroyEditor"_s;

QTextEdit* Sheet(const QString& window) {
    return qobject_cast<QTextEdit*>(FindIn(FindWindow(window), u"noteSheet"_s));
}

QComboBox* States() {
    return qobject_cast<QComboBox*>(FindIn(FindWindow(kPhotoViewer), u"stateCombo"_s));
}

bool Paste(QMimeData* data) {
    QGuiApplication::clipboard()->setMimeData(data);
    return hands::PressKey(Sheet(kPhotoViewer), Qt::Key_V, Qt::ControlModifier);
}

/// What a person would have copied from a table of another program.
bool PasteTable() {
    auto* data = new QMimeData;
    data->setHtml(
        u"<h2>雨后复查</h2><p>裂缝宽 <b>0.2 mm</b>，已<span style='color:#c00000'>注浆</span>封闭。"
        "</p><ul><li>养护七天</li><li>复测一次</li></ul>"
        "<table border='1'><tr><td>测点</td><td>宽度</td><td>处理</td></tr>"
        "<tr><td>A1</td><td>0.20 mm</td><td>注浆</td></tr>"
        "<tr><td>A2</td><td>0.05 mm</td><td>观察</td></tr></table><p>现场照片：</p>"_s);
    return Paste(data);
}

bool PastePicture() {
    auto* data = new QMimeData;
    data->setImageData(FindWindow(kMain)->grab().toImage().scaled(320, 200));
    Sheet(kPhotoViewer)->moveCursor(QTextCursor::End);
    return Paste(data);
}

/// The key of the record that the viewer shows is not told; that of the listed photo is.
KX_DATA::RichTextKey KeyOfRecord() {
    const KX_DATA::BimPicRow row = RowOfNotedPhoto();
    KX_DATA::RichTextKey key;
    key.objectId = row.positionKey;
    key.subId = row.markId;
    key.projectId = row.ppid;
    key.objectType = 1;
    return key;
}

/// A save between the reading and the closing, as by another client.
bool SaveInBetween() {
    QTemporaryFile page;
    const QByteArray text = u"<h2>已处理</h2><p>裂缝已封闭，无渗水。</p>"_s.toUtf8();
    if (!page.open() || page.write(text) != text.size() || !page.flush()) {
        return false;
    }
    KX_DATA::UploadResult up;
    QString error;
    KX_DATA::RichTextMsg message;
    std::vector<KX_DATA::RichAttachment> files;
    if (!GetKXFilesUploadMng()->UploadFile({{page.fileName()}}, 1, up, error) ||
        !GetRichTextMsgMng()->GetRichText(KeyOfRecord(), message, files)) {
        return false;
    }
    message.docName = u"other"_s;
    const KX_DATA::RichAttachment made{up.md5 + u".html"_s, up.md5, up.uuid, qint32(up.size), 1};
    return GetRichTextMsgMng()->SaveRichText(u"已整改"_s, message, KeyOfRecord(), {}, {made});
}

void WriteText(TourScript& script) {
    script.Do(
        u"在图片下方的记录里粘贴表格"_s,
        [] { return hands::Click(Sheet(kPhotoViewer)->viewport()) && PasteTable(); },
        [] { return Sheet(kPhotoViewer)->toPlainText().contains(u"0.05 mm"_s); });
    script.Do(
        u"粘贴图片，整改情况选“整改中”"_s,
        [] { return PastePicture() && hands::ChooseInCombo(States(), u"整改中"_s); },
        [] {
            return Sheet(kPhotoViewer)
                ->toPlainText()
                .contains(QChar(QChar::ObjectReplacementCharacter));
        });
    script.Picture(kPhotoViewer, u"record"_s);
    script.Do(
        u"窗口最大化：表格和图片"_s,
        [] {
            FindWindow(kPhotoViewer)->showMaximized();
            Sheet(kPhotoViewer)->moveCursor(QTextCursor::Start);
            return true;
        },
        nullptr);
    script.Picture(kPhotoViewer, u"record-table"_s);
}

void WriteConflict(TourScript& script) {
    script.Do(
        u"别人同时保存；关闭窗口：询问是否覆盖"_s,
        [] { return SaveInBetween() && hands::CloseWindow(FindWindow(kPhotoViewer)); },
        [] { return FindWindow(kConflict) != nullptr; });
    script.Picture(kConflict, u"record-conflict"_s);
    script.Do(
        u"单击“查看历史”"_s,
        [] { return hands::Click(FindIn(FindWindow(kConflict), u"historyButton"_s)); },
        [] {
            return Sheet(kHistory) != nullptr &&
                   Sheet(kHistory)->toPlainText().contains(u"无渗水"_s);
        });
    script.Picture(kHistory, u"record-history"_s);
    script.Do(
        u"关闭历史：问题还在"_s, [] { return hands::CloseWindow(FindWindow(kHistory)); },
        [] { return FindWindow(kHistory) == nullptr && FindWindow(kConflict) != nullptr; });
    script.Do(
        u"取消：窗口关闭，所写的放入草稿箱"_s,
        [] { return hands::Click(FindIn(FindWindow(kConflict), u"cancelButton"_s)); },
        [] { return FindWindow(kPhotoViewer) == nullptr; });
}

} // namespace

void WriteRecord(TourScript& script, const TourPlaces& places) {
    WriteText(script);
    WriteReport(script, kPhotoViewer, u"report"_s);
    WriteReportPages(script, places.pictures + u"/report.pdf"_s);
    WriteReportEnd(script);
    WriteConflict(script);
}

void WriteRecordWindows(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+Shift+D：草稿箱"_s,
        [] {
            return hands::PressKey(FindWindow(kMain), Qt::Key_D,
                                   Qt::ControlModifier | Qt::ShiftModifier);
        },
        [] {
            const auto* preview =
                qobject_cast<QTextEdit*>(FindIn(FindWindow(u"draftWindow"_s), u"draftPreview"_s));
            return preview != nullptr && preview->toPlainText().contains(u"雨后复查"_s);
        });
    script.Picture(u"draftWindow"_s, u"drafts"_s);
    script.Do(
        u"恢复草稿"_s,
        [] { return hands::Click(FindIn(FindWindow(u"draftWindow"_s), u"draftBringBack"_s)); },
        [] { return !MessageBoxText().isEmpty(); });
    script.Do(
        u"回答“是”：草稿成为最新版本"_s, [] { return AnswerMessageBox(u"是"_s); },
        [] { return MessageBoxText().isEmpty(); });
    script.Do(
        u"关闭草稿箱"_s, [] { return hands::CloseWindow(FindWindow(u"draftWindow"_s)); },
        [] { return FindWindow(u"draftWindow"_s) == nullptr; });
    script.Do(
        u"主窗口 Ctrl+H：记录版本"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_H, Qt::ControlModifier); },
        [] {
            const auto* sheet =
                qobject_cast<QTextEdit*>(FindIn(FindWindow(u"versionWindow"_s), u"compareSheet"_s));
            return sheet != nullptr && sheet->toPlainText().contains(u"雨后复查"_s);
        });
    script.Picture(u"versionWindow"_s, u"versions"_s);
    script.Do(
        u"关闭记录版本"_s, [] { return hands::CloseWindow(FindWindow(u"versionWindow"_s)); },
        [] { return FindWindow(u"versionWindow"_s) == nullptr; });
}

} // namespace tour
