// What a person sees who has no site yet: three ways to begin.
#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace host {

enum class FirstChoice { Sample, NewSite, OpenFolder };

/// With what the page begins.
struct FirstStartProposal {
    QString folder; ///< where a sample or a new site would be made
    QString person; ///< who is likely to sit here; may be empty
    /// Why a new site of this project and person can't be; empty: it can. Chinese.
    std::function<QString(const QString& project, const QString& person)> lackOf;
};

/// Asks which of the three, for names, and for folders by the prompts. It makes nothing and knows
/// neither site nor session: accepted, it says what was chosen, and may be run again. Escape leads
/// back from the form of a new site, else it and the close button reject it. Lives on the interface
/// thread, owned by its maker.
class FirstStartPage final : public QDialog {
    Q_OBJECT

public:
    explicit FirstStartPage(FirstStartProposal proposal);

    /// Above the choices: what went wrong. Empty: nothing did.
    void ShowNote(const QString& text);

    [[nodiscard]] FirstChoice Choice() const { return m_choice; }
    /// Where the sample or the new site is to be, or what is to be opened.
    [[nodiscard]] QString Folder() const;
    [[nodiscard]] QString Project() const;
    [[nodiscard]] QString Person() const;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QWidget* MakeNote();
    [[nodiscard]] QWidget* MakeChoices();
    [[nodiscard]] QWidget* MakeForm();
    [[nodiscard]] QLineEdit* MakeField(const QString& name, const QString& caption);
    [[nodiscard]] QLabel* MakePlace();
    [[nodiscard]] QWidget* MakeButtons();
    void ShowForm(bool form);
    void Take(FirstChoice choice);
    void AskWhatToOpen();
    void ChangeFolder();
    void Validate();
    void GrowToContents();

    FirstStartProposal m_proposal;
    FirstChoice m_choice = FirstChoice::Sample;
    QString m_opened;
    QWidget* m_contents = nullptr;
    QWidget* m_note = nullptr;
    QLabel* m_noteText = nullptr;
    QStackedWidget* m_stack = nullptr;
    QLineEdit* m_project = nullptr;
    QLineEdit* m_person = nullptr;
    QLineEdit* m_folder = nullptr;
    QLabel* m_lack = nullptr;
    QWidget* m_buttons = nullptr;
    QLabel* m_place = nullptr; ///< of the sample
    QPushButton* m_back = nullptr;
    QPushButton* m_make = nullptr;
};

} // namespace host
