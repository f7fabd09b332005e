// What the windows of versions and drafts have in common: reading in turns, deeds, a line of words.
#pragma once

#include <QDialog>
#include <QIcon>
#include <QKeySequence>
#include <QTimer>

#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace host {

/// Shows what a source has. What is read follows what is chosen, one question to the source after
/// the other and only while the window is shown; it may be closed while the source answers. Knows
/// no database. Modeless, gone when it is closed. Thread: user interface. Owned by its parent
/// widget.
class ReadingWindow : public QDialog {
    Q_OBJECT

public:
    /// Reads anew; what is chosen stays chosen.
    void Reload();

protected:
    ReadingWindow(QWidget* parent, const QString& name, const QString& title);

    struct ButtonLook {
        QString name;
        QIcon icon;
        QString text;
        QString tip;
        QKeySequence key;
    };
    /// What is asked before something is done, and what is said afterwards.
    struct Deed {
        QString question;
        bool isDangerous = false;      ///< "no" is proposed
        std::function<QString()> doIt; ///< empty: done; else why not, a sentence
        QString done;
        QString failed; ///< the reason follows
    };

    /// Takes in the window's parts, over a row of words and buttons of one width that ends in
    /// "关闭".
    void Furnish(QWidget* parts, const QString& noticeName, const std::vector<ButtonLook>& looks,
                 const ButtonLook& close);
    [[nodiscard]] QPushButton* Button(const QString& name) const;

    /// Reads until what is shown is what is chosen.
    void CatchUp();
    /// The same a little later: while keys run through a table, nothing is read.
    void CatchUpSoon();
    /// Asks, and does it. True: done, and the window is still there.
    bool AskAndDo(const Deed& deed);
    void ShowNotice(const QString& text, bool isFault);
    [[nodiscard]] bool IsAsking() const { return m_isAsking; }

    /// At most one question to the source. False: nothing is left to be read. The window may be
    /// gone, whatever the answer.
    virtual bool ReadNext() = 0;
    /// Forgets what was read, so that it is read again.
    /// @param hadFault  the last word was one of a fault.
    virtual void Forget(bool hadFault) = 0;
    virtual void ShowButtons() = 0;

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QLabel* m_notice = nullptr;
    QTimer m_pause{this};
    bool m_isAsking = false;
    bool m_hasFault = false;
};

} // namespace host
