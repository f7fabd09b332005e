#include "host/report/WebReport.h"

#include "host/report/ReportPrints.h"
#include "host/report/WebRecord.h"
#include "host/report/WebStyle.h"
#include "host/report/WebText.h"

#include <QBuffer>
#include <QFile>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kMostWebLogoWidth = 240;
constexpr double kMostWebLogoHeight = 64;

QString WebElement(const QString& element, const QString& text) {
    return u'<' + element + u'>' + WebLines(text) + u"</"_s + element + u">\n"_s;
}

QString WebCaption(const std::pair<QString, QString>& fact) {
    return u"<dt>"_s + WebLines(fact.first) + u"</dt><dd>"_s + WebLines(fact.second) + u"</dd>\n"_s;
}

/// Writes a report, block after block.
class WebBody final {
public:
    WebBody(const ReportSheet& sheet, WebText& text, ReportPrints& prints)
        : m_sheet(sheet), m_text(text), m_prints(prints) {}

    void Write() {
        m_text.Add(WebHead(m_sheet));
        WriteLine(u"header"_s, m_sheet.header);
        m_text.Add(u"<main>\n"_s);
        for (size_t place = 0; place < m_sheet.blocks.size(); ++place) {
            m_beginsPage = HeadsPage(m_sheet, place);
            std::visit([this](const auto& known) { WriteBlock(known); }, m_sheet.blocks[place]);
        }
        m_text.Add(u"</main>\n"_s);
        WriteLine(u"footer"_s, m_sheet.footer);
        m_text.Add(u"</body>\n</html>\n"_s);
    }

private:
    void WriteLine(const QString& element, const QString& text) {
        if (!text.isEmpty()) {
            m_text.Add(WebElement(element, text));
        }
    }

    void WriteBlock(const TitleBlock& block) {
        m_text.Add(u"<div class=\"title\">\n"_s);
        WriteImage(block.logo, {kMostWebLogoWidth, kMostWebLogoHeight}, u"标志"_s, false);
        m_text.Add(WebElement(u"h1"_s, block.title));
        for (const QString& line : block.lines) {
            m_text.Add(WebElement(u"p"_s, line));
        }
        m_text.Add(u"</div>\n"_s);
    }

    void WriteBlock(const HeadingBlock& block) {
        m_text.Add(u"<h%1 id=\"s%2\"%3>%4</h%1>\n"_s.arg(
            QString::number(block.level + 1), QString::number(++m_headings),
            m_beginsPage ? u" class=\"first\""_s : QString(), WebLines(block.text)));
    }

    void WriteBlock(const ParagraphBlock& block) { m_text.Add(WebElement(u"p"_s, block.text)); }

    void WriteFacts(const ReportFacts& facts) {
        if (facts.empty()) {
            return;
        }
        m_text.Add(u"<dl>\n"_s);
        for (const auto& fact : facts) {
            m_text.Add(WebCaption(fact));
        }
        m_text.Add(u"</dl>\n"_s);
    }

    void WriteBlock(const FactsBlock& block) { WriteFacts(block.facts); }

    void WriteBlock(const ContentsBlock&) {
        m_text.Add(u"<nav>\n<p>目录</p>\n<ul>\n"_s);
        int heading = 0;
        for (const ReportBlock& block : m_sheet.blocks) {
            if (const auto* known = std::get_if<HeadingBlock>(&block)) {
                m_text.Add(u"<li class=\"l%1\"><a href=\"#s%2\">%3</a></li>\n"_s.arg(
                    QString::number(known->level), QString::number(++heading),
                    WebEscaped(known->text)));
            }
        }
        m_text.Add(u"</ul>\n</nav>\n"_s);
    }

    void WriteBlock(const PhotosBlock& block) {
        const QString kind = block.grid.picturesOfPage == 1 ? u"photos page"_s
                             : block.grid.textBeside        ? u"photos beside"_s
                                                            : u"photos"_s;
        m_text.Add(u"<div class=\"%1\" style=\"grid-template-columns:repeat(%2,1fr)\">\n"_s.arg(
            kind, QString::number(block.grid.columns)));
        for (const ReportPhoto& photo : block.photos) {
            WritePhoto(photo, block.grid);
        }
        m_text.Add(u"</div>\n"_s);
    }

    void WritePhoto(const ReportPhoto& photo, const PhotoGrid& grid) {
        m_text.Add(u"<figure>\n"_s);
        const PrintPicture picture = m_prints.Next(photo.file, grid.picture);
        m_text.Add(u"<div class=\"picture\">"_s);
        if (picture.IsThere()) {
            WritePrint(picture, PrintSizeOf(picture), photo.title);
        } else {
            m_text.Add(u"<p class=\"lack\">"_s + WebLines(LackOf(photo)) + u"</p>"_s);
        }
        m_text.Add(u"</div>\n<figcaption>\n"_s + WebElement(u"strong"_s, photo.title));
        WriteFacts(photo.facts);
        m_text.Add(u"</figcaption>\n</figure>\n"_s);
    }

    void WriteBlock(const TableBlock& block) {
        m_text.Add(u"<table class=\"lined list\">\n<colgroup>"_s);
        for (const double share : block.shares) {
            m_text.Add(u"<col style=\"width:"_s + WebNumber(share * 100) + u"%\">"_s);
        }
        m_text.Add(u"</colgroup>\n<thead><tr>"_s);
        for (const QString& title : block.titles) {
            m_text.Add(u"<th>"_s + WebLines(title) + u"</th>"_s);
        }
        m_text.Add(u"</tr></thead>\n<tbody>\n"_s);
        for (const QStringList& row : block.rows) {
            m_text.Add(u"<tr>"_s);
            for (const QString& text : row) {
                m_text.Add(u"<td>"_s + WebLines(text) + u"</td>"_s);
            }
            m_text.Add(u"</tr>\n"_s);
        }
        m_text.Add(u"</tbody>\n</table>\n"_s);
    }

    void WriteBlock(const ImageBlock& block) {
        m_text.Add(u"<div class=\"image\">"_s);
        WriteImage(block.image, {block.mostWidth, block.mostHeight},
                   block.note.isEmpty() ? u"图"_s : block.note, true);
        m_text.Add(u"</div>\n"_s);
        if (!block.note.isEmpty()) {
            m_text.Add(u"<p class=\"note\">"_s + WebLines(block.note) + u"</p>\n"_s);
        }
    }

    void WriteBlock(const RecordBlock& block) {
        const RecordText& record = m_prints.Record(block);
        if (!record.IsRead()) {
            m_text.Add(u"<p>%1</p>\n"_s.arg(kRecordTooLarge));
            return;
        }
        m_text.Add(u"<div class=\"record\">\n"_s);
        WebRecord taker(m_text, [this](const RecordPicture& wanted) {
            const PrintPicture picture = m_prints.Next(wanted.file, wanted.size);
            if (picture.IsThere()) {
                WritePrint(picture, wanted.size, u"整改记录中的图片"_s);
            } else {
                m_text.Add(u"[图片无法读取]"_s);
            }
        });
        record.Walk(taker);
        taker.End();
        m_text.Add(u"</div>\n"_s);
    }

    void BeginImage(const QSizeF& size, const QString& text) {
        m_text.Add(u"<img alt=\"%1\" width=\"%2\" height=\"%3\" src=\""_s.arg(
            WebEscaped(text), QString::number(std::max(qRound(size.width()), 1)),
            QString::number(std::max(qRound(size.height()), 1))));
    }

    void WritePrint(const PrintPicture& picture, const QSizeF& size, const QString& text) {
        BeginImage(size, text);
        if (!m_text.AddFile(u"image/jpeg"_s, picture.path)) {
            throw ReportFault(u"无法读取临时文件“%1”。请重试。"_s.arg(picture.path));
        }
        m_text.Add(u"\">"_s);
    }

    void WriteImage(const QImage& image, const QSizeF& room, const QString& text, bool grows) {
        QSizeF size = image.size();
        if (size.isEmpty()) {
            return;
        }
        if (grows || size.width() > room.width() || size.height() > room.height()) {
            size.scale(room, Qt::KeepAspectRatio);
        }
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        BeginImage(size, text);
        m_text.AddBytes(u"image/png"_s, png);
        m_text.Add(u"\">"_s);
    }

    const ReportSheet& m_sheet;
    WebText& m_text;
    ReportPrints& m_prints;
    bool m_beginsPage = false; ///< the block that is written now
    int m_headings = 0;
};

} // namespace

void WriteWeb(const ReportSheet& sheet, PrintPictures& pictures, ReportFile& file,
              const ReportSteps& steps) {
    ReportPrints prints(sheet, pictures, steps, 1);
    QFile out(file.WorkPath());
    if (!out.open(QIODevice::WriteOnly)) {
        throw file.WriteFault();
    }
    WebText text(out);
    WebBody(sheet, text, prints).Write();
    if (!out.flush() || text.HasFault()) {
        throw file.WriteFault();
    }
    out.close();
    prints.Step();
    file.Commit(file.WorkPath());
}

} // namespace host
