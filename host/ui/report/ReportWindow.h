// The window "输出报告".
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/ReportContent.h"
#include "host/ui/report/ReportJob.h"
#include "host/ui/report/ReportStore.h"

#include <QDialog>
#include <QTimer>

#include <memory>
#include <optional>

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace host {

class ReportChoices;
class ReportPreview;

/// Shows a report's pages as they will be, and saves them as a file. Knows no site: content and
/// pictures are told to it. Modeless and without a parent, since the main window is disabled while
/// it is open; gone when it is closed. Thread: user interface. Owns itself.
class ReportWindow final : public QDialog {
    Q_OBJECT

public:
    /// The store must outlive it.
    explicit ReportWindow(IReportStore& reportStore);
    ~ReportWindow() override;

    /// Also anew, with pictures that have come since.
    void SetContent(const ReportContent& content);
    /// There is nothing to show, for a reason in words.
    void SetLack(const QString& sentence);
    /// Pictures are on their way: saving waits for them, unless the person stops them.
    void SetFetching(int done, int total);
    /// Nothing but the place in the drawing is still missing.
    void SetDrawing();
    /// Another report was asked for while this one is saved.
    void TellBusy();
    /// They have come, or won't. @param sentence  what is missing; may be empty.
    void EndFetching(const QString& sentence);
    [[nodiscard]] bool IsSaving() const { return m_job != nullptr; }

signals:
    /// The person has had enough of waiting for pictures.
    void FetchingStopped();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void reject() override { close(); }

private:
    enum class State { Reading, Fetching, Ready, Saving, Lacking };

    [[nodiscard]] QWidget* MakePages();
    [[nodiscard]] QWidget* MakeBottom();
    QPushButton* MakeBottomButton(const QString& name, const QString& text, const QString& tip,
                                  QWidget* parent);
    void Become(State state);
    void ShowSheet();
    void ShowPageLine();
    /// In words why it couldn't be kept, which is also shown.
    QString KeepTemplate();
    void Save();
    void OnStepped(int done, int total);
    void OnEnded(bool isThere, const QString& fault);
    void StopWork();
    void ShowNotice(const QString& text, bool isFault);
    [[nodiscard]] ReportSheet Sheet() const;
    [[nodiscard]] QString ProposedName() const;

    IReportStore& m_store;
    ReportContent m_content;
    State m_state = State::Reading;
    bool m_isTemplateChanged = false;
    QString m_saved;  ///< path of the file that was saved last
    QString m_folder; ///< of it
    QTimer m_calm{this};
    PrintPictures m_pictures;
    ReportChoices* m_choices = nullptr;
    ReportPreview* m_preview = nullptr;
    QLabel* m_pageLine = nullptr;
    QLabel* m_notice = nullptr;
    QProgressBar* m_progress = nullptr;
    QComboBox* m_form = nullptr;
    QPushButton* m_stop = nullptr;
    QPushButton* m_show = nullptr;
    QPushButton* m_open = nullptr;
    QPushButton* m_save = nullptr;
    QPushButton* m_close = nullptr;
    std::unique_ptr<ReportJob> m_job; ///< the last: it ends before the pictures do
};

} // namespace host
