// Issue viewer and editor on scripted services.
#pragma once

#include "issues/TNPicEditDlg.h"
#include "issues/TNPicViewWrap.h"
#include "tests/console/ModuleFixture.h"
#include "tests/support/ScriptedAudio.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

/// Issue "q1" of project 1 has mark 1, three pictures (p1 to p3) and a rectification with two (r1,
/// r2), a component and a QR code; "q2" has neither pictures nor a rectification's. Their files are
/// in the project's folder.
class IssueFixture : public ModuleFixture {
protected:
    IssueFixture();

    static CTNPicViewWrap& Wrap() { return CTNPicViewWrap::Instance(); }
    static CTNPicViewDlg& Page() { return Wrap().QuestionView(); }
    static CTNPicChangeViewDlg& Rectify() { return Wrap().ChangeView(); }
    static CTNPicEditDlg& Editor() { return CTNPicEditDlg::Instance(); }

    /// As the facade opens it.
    bool Open(const QString& questionId = QStringLiteral("q1"), qint32 readOnly = 0);
    /// The same with the second tab in front.
    bool OpenRectify(const QString& questionId = QStringLiteral("q1"));
    /// As the facade opens it.
    bool Edit(const QString& questionId = QStringLiteral("q1"));

    [[nodiscard]] KX_DATA::IssueRow& Row(const QString& questionId = QStringLiteral("q1"));
    [[nodiscard]] KX_DATA::QuestionDetail& Detail(const QString& questionId = QStringLiteral("q1"));
    /// A picture with its file in the folder.
    KX_DATA::QuestionPicRecord Picture(const QString& id);

    /// Text of a line of a page, by its name.
    [[nodiscard]] static QString TextOf(const issues::IssuePane& page, const char* name);
    [[nodiscard]] static QString TipOf(const issues::IssuePane& page, const char* name);
    template <class Control> [[nodiscard]] static Control& Box(const char* name) {
        return *Editor().Widget()->findChild<Control*>(QString::fromLatin1(name));
    }
    static void Press(const char* button);
    /// Uuids of a page's gallery.
    [[nodiscard]] static std::vector<std::string> Uuids(const issues::IssuePane& page);

    support::ScriptedAudio audio;
    support::RecordingIssueEditSink editSink{host.script};
};
