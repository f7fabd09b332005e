// The column in which a person chooses what a report shows, and how it is dressed.
#pragma once

#include "host/report/ReportContent.h"
#include "host/report/ReportOptions.h"
#include "host/report/ReportTemplate.h"

#include <QScrollArea>

#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace host {

/// Tells of what a person changes, not of what it is shown. Thread: user interface. Owned by its
/// parent widget.
class ReportChoices final : public QScrollArea {
    Q_OBJECT

public:
    explicit ReportChoices(QWidget* parent);

    void Show(const ReportOptions& options, const ReportTemplate& dress);
    /// Parts that a report hasn't can't be chosen; what was chosen of them stays.
    void SetAvailable(const ReportContent& content);
    [[nodiscard]] ReportOptions Options() const;
    [[nodiscard]] ReportTemplate Template() const;

signals:
    void OptionsChanged();
    void TemplateChanged();
    /// In words: the logo can't be read.
    void Refused(const QString& sentence);

private:
    struct Check {
        QCheckBox* box;
        bool ReportOptions::*value;
        QString tip;
    };

    void AddPaper(QVBoxLayout& column);
    void AddContent(QVBoxLayout& column);
    void AddTemplate(QVBoxLayout& column);
    QLineEdit* MakeLine(const QString& name, const QString& caption, const QString& hint);
    void ChooseLogo();
    void ShowLogo();

    QComboBox* m_paper = nullptr;
    QComboBox* m_direction = nullptr;
    QComboBox* m_pictures = nullptr;
    std::vector<Check> m_checks;
    QLineEdit* m_title = nullptr;
    QLineEdit* m_header = nullptr;
    QLineEdit* m_footer = nullptr;
    QLabel* m_logo = nullptr;
    QPushButton* m_dropLogo = nullptr;
    QImage m_logoImage;
};

} // namespace host
