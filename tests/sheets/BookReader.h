// A workbook as its parts say it.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <vector>

namespace sheettest {

struct BookCell {
    QString type; ///< attribute t: inlineStr, or empty for a number
    QString text; ///< of a string, or the number as it stands
    int style = 0;
    bool hasFormula = false;
};

struct BookSheet {
    QString name;
    std::vector<std::vector<BookCell>> rows; ///< cells by column; what isn't there is empty
    QString pane;                            ///< topLeftCell of a frozen pane
    QString filter;                          ///< ref of the filter
    QStringList elements;                    ///< all kinds of them, each once
};

struct Book {
    std::vector<BookSheet> sheets;
    QMap<QString, QByteArray> parts; ///< by path
    QStringList numberForms;         ///< by style, empty: none of its own
    QList<bool> bold;                ///< by style
    QList<bool> wraps;               ///< by style
};

/// Fails the test for what can't be read.
[[nodiscard]] Book ReadBook(const QString& path);

} // namespace sheettest
