// Names of windows on the walk, and what one step leaves for the next.
#pragma once

#include <QString>

namespace tour {

inline const QString kMain = QStringLiteral("mainWindow");
inline const QString kConsole = QStringLiteral("VeskPicMngDlg");
inline const QString kPhotoEditor = QStringLiteral("BimPicEditDlg");
inline const QString kPreview = QStringLiteral("VeskPicViewWrap");
inline const QString kPhotoViewer = QStringLiteral("BimPicViewWrap");
inline const QString kCheckpointViewer = QStringLiteral("PdfPicViewWrap");
inline const QString kCheckpointEditor = QStringLiteral("CheckPtEditDlg");
inline const QString kDrawingEditor = QStringLiteral("PdfPicEditDlg");
inline const QString kIssueViewer = QStringLiteral("TNPicViewWrap");
inline const QString kIssueEditor = QStringLiteral("TNPicEditDlg");
inline const QString kRectifyEditor = QStringLiteral("TNRectityEditDlg");
inline const QString kIssueWindow = QStringLiteral("issueWindow");
inline const QString kSignIn = QStringLiteral("signInDialog");
inline const QString kBin = QStringLiteral("binWindow");
inline const QString kImport = QStringLiteral("importDialog");
inline const QString kImportResult = QStringLiteral("importResult");
inline const QString kProgress = QStringLiteral("progressWindow");
inline const QString kAbout = QStringLiteral("aboutWindow");
inline const QString kNewProject = QStringLiteral("projectNameDialog");
inline const QString kFirstStart = QStringLiteral("firstStartPage");
inline const QString kSetup = QStringLiteral("setupWindow");
inline const QString kSetupPreview = QStringLiteral("setupPreview");
inline const QString kInbox = QStringLiteral("inboxWindow");
inline const QString kBulk = QStringLiteral("bulkDialog");
inline const QString kKeys = QStringLiteral("keysWindow");

/// A number that a step saw before it did something. Thread: user interface.
inline int& Remembered() {
    static int number = 0;
    return number;
}

} // namespace tour
