// The console in its window, opened by the facade and worked with mouse and keys.
#pragma once

#include "console/ConsoleControls.h"
#include "console/VeskPicMngDlg.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/Hands.h"

#include <QTableView>
#include <QtTest/QTest>

class QComboBox;

class ConsoleFixture : public ModuleFixture {
protected:
    /// Opens the console on `rows` records of a kind and waits until it has the keyboard; the log
    /// of calls is empty then.
    void Open(ConsoleMode mode, int rows = 3);
    /// Delivers what is posted and waits until the console has the keyboard.
    void Settle();

    [[nodiscard]] const ConsoleControls& C() { return *Console().Controls(); }
    [[nodiscard]] QWidget* Window() { return Console().Widget(); }
    [[nodiscard]] CVeskPicMngGrid& Grid() { return *Console().Grid(); }
    [[nodiscard]] QTableView& View() { return static_cast<QTableView&>(*Grid().Widget()); }
    [[nodiscard]] CGridItem& Item(int row, int column) {
        return *Grid().GetRow(row)->GetItem(column);
    }
    [[nodiscard]] std::string Cell(int row, int column) {
        return Item(row, column).GetText().toStdString();
    }
    [[nodiscard]] const KX_DATA::PicQueryFilter& BimFilter() { return host.pics.lastBimFilter; }
    [[nodiscard]] const KX_DATA::PdfQueryFilter& PdfFilter() { return host.pics.lastPdfFilter; }
    [[nodiscard]] const KX_DATA::PicQueryFilter& IssueFilter() { return host.questions.lastFilter; }

    static void Click(QWidget* control) { support::Click(control); }
    static void DropDown(QComboBox& box) { support::DropDown(box); }
    static void CloseList(QComboBox& box) { support::CloseList(box); }
    static void Choose(QComboBox& box, int index) { support::Choose(box, index); }
    /// Replaces the text of the keyword box, key by key.
    void TypeKeyword(const QString& keyword);
    void ClickCell(int row, int column);
    void CheckRows(std::initializer_list<int> rows);
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    [[nodiscard]] static Calls Entries(const QComboBox& box) { return support::Entries(box); }
    /// How often a query of any kind was asked.
    [[nodiscard]] int Searches();
    [[nodiscard]] static std::string BalloonAt(const QWidget* control) {
        return support::BalloonAt(control);
    }
};
