#include "tests/host/drawings/TestDrawings.h"

#include <QList>

namespace drawingtest {

namespace {

QByteArray Stream(const QByteArray& dictionary, const QByteArray& content) {
    return "<< " + dictionary + " /Length " + QByteArray::number(content.size()) + " >>\nstream\n" +
           content + "\nendstream";
}

QByteArray Ref(qsizetype number) {
    return QByteArray::number(number) + " 0 R";
}

QByteArray Box(const QSizeF& points) {
    return "[0 0 " + QByteArray::number(points.width()) + ' ' +
           QByteArray::number(points.height()) + ']';
}

} // namespace

QByteArray PdfOf(const QList<QByteArray>& objects, const QByteArray& trailer) {
    QByteArray pdf = "%PDF-1.4\n";
    QByteArray table =
        "xref\n0 " + QByteArray::number(objects.size() + 1) + "\n0000000000 65535 f \n";
    for (qsizetype at = 0; at < objects.size(); ++at) {
        table += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
        pdf += QByteArray::number(at + 1) + " 0 obj\n" + objects[at] + "\nendobj\n";
    }
    const QByteArray start = QByteArray::number(pdf.size());
    return pdf + table + "trailer\n<< /Size " + QByteArray::number(objects.size() + 1) +
           " /Root 1 0 R " + trailer + " >>\nstartxref\n" + start + "\n%%EOF\n";
}

QByteArray PlainPdf(int pages, const QSizeF& points) {
    QByteArray kids;
    QList<QByteArray> objects{"<< /Type /Catalog /Pages 2 0 R >>", {}};
    const QByteArray half =
        QByteArray::number(points.width() / 2) + ' ' + QByteArray::number(points.height() / 2);
    objects << Stream({}, "0 0 " + half + " re f");
    for (int page = 0; page < pages; ++page) {
        objects << "<< /Type /Page /Parent 2 0 R /MediaBox " + Box(points) +
                       " /Contents 3 0 R /Resources << >> >>";
        kids += Ref(objects.size()) + ' ';
    }
    objects[1] = "<< /Type /Pages /Count " + QByteArray::number(pages) + " /Kids [" + kids + "] >>";
    return PdfOf(objects);
}

QByteArray BusyPdf(const QByteArray& entries) {
    QByteArray content;
    for (int at = 0; at < 40; ++at) {
        const QByteArray x = QByteArray::number(at * 37 % 400);
        const QByteArray y = QByteArray::number(at * 91 % 300);
        content += x + ' ' + y + " 9 9 re f " + x + " 0 m 400 " + y + " l S\n";
    }
    return PdfOf({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Count 1 /Kids [3 0 R] >>",
                  "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 400 300] /Contents 4 0 R"
                  " /Resources << >> " +
                      entries + " >>",
                  Stream({}, content)});
}

QByteArray EncryptedPdf() {
    const QByteArray key = '<' + QByteArray(64, 'a') + '>';
    return PdfOf({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Count 1 /Kids [3 0 R] >>",
                  "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] >>",
                  "<< /Filter /Standard /V 1 /R 2 /P -4 /O " + key + " /U " + key + " >>"},
                 "/Encrypt 4 0 R /ID [<00112233445566778899aabbccddeeff> "
                 "<00112233445566778899aabbccddeeff>]");
}

QByteArray EndlessPdf() {
    constexpr int kDeep = 12;
    constexpr int kFirstForm = 5;
    QList<QByteArray> objects{"<< /Type /Catalog /Pages 2 0 R >>",
                              "<< /Type /Pages /Count 2 /Kids [3 0 R 17 0 R] >>",
                              "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] /Contents 4 0 R"
                              " /Resources << /XObject << /F 5 0 R >> >> >>",
                              Stream({}, "/F Do")};
    for (int depth = 0; depth < kDeep; ++depth) {
        const bool isLast = depth + 1 == kDeep;
        QByteArray content;
        for (int times = 0; times < 10; ++times) {
            content += isLast ? "0 0 9 9 re f " : "/F Do ";
        }
        const QByteArray inner =
            isLast ? QByteArray() : "/XObject << /F " + Ref(kFirstForm + depth + 1) + " >>";
        objects << Stream("/Type /XObject /Subtype /Form /BBox [0 0 200 100] /Resources << " +
                              inner + " >>",
                          content);
    }
    objects << "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] /Resources << >> >>";
    return PdfOf(objects);
}

} // namespace drawingtest
