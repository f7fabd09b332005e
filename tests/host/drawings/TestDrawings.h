// PDF files for tests: good ones, and what people and their mails make of them.
#pragma once

#include <QByteArray>
#include <QSizeF>

namespace drawingtest {

/// A document put together by hand: one object a text, the first one being the catalogue.
[[nodiscard]] QByteArray PdfOf(const QList<QByteArray>& objects, const QByteArray& trailer = {});

/// `pages` pages of a size in points, each with a black rectangle in its lower left quarter.
[[nodiscard]] QByteArray PlainPdf(int pages, const QSizeF& points = {200, 100});
/// One page of lines and squares all over, with further entries of its dictionary.
[[nodiscard]] QByteArray BusyPdf(const QByteArray& entries = {});
[[nodiscard]] QByteArray EncryptedPdf();
/// Forms that draw forms that draw forms on the first page: takes years. The second is empty.
[[nodiscard]] QByteArray EndlessPdf();

} // namespace drawingtest
