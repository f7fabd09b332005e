// Who is working: chosen among the people of the data folder.
#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

namespace host {

/// One person that can sign in.
struct SignInEntry {
    QString name;
    QString rights; ///< what they may do, in words; may be empty
};

/// Lists the people and answers with the one that was chosen. Lives on the interface thread.
class SignInDialog final : public QDialog {
    Q_OBJECT

public:
    /// @param last    who signed in the time before; chosen at first if still there.
    /// @param folder  the data folder, told to the person.
    SignInDialog(const std::vector<SignInEntry>& people, const QString& last,
                 const QString& folder);

    /// Empty if nobody is chosen.
    [[nodiscard]] QString UserName() const;

private:
    QListWidget* m_list = nullptr;
    QPushButton* m_signInButton = nullptr;
};

} // namespace host
