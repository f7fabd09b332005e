#include "bench/RichPages.h"

#include "sample/PictureArtist.h"
#include "toolkit/richtext/NoteDocument.h"
#include "toolkit/richtext/NoteStore.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>
#include <vector>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kPhonePicture(4000, 3000);
constexpr QSize kShownPicture(600, 450);
constexpr int kParagraphs = 10; ///< of a page
constexpr int kPagesPerTable = 5;

bool PaintPicture(sample::PictureArtist& artist, const QString& path, int number) {
    sample::PictureOrder order;
    order.seed = quint64(number) + 1;
    order.kind = sample::kAllSceneKinds[size_t(number) % sample::kAllSceneKinds.size()];
    order.size = kPhonePicture;
    order.lines = {u"部位：%1 号"_s.arg(number)};
    const QByteArray bytes = artist.PaintJpeg(order);
    QSaveFile file(path);
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size() && file.commit();
}

QString RichParagraph(int page, int number) {
    static const std::array sentences = {
        u"楼板底面有裂缝，宽度约零点三毫米，长约一米二，走向与主筋垂直。"_s,
        u"请<b>三日内</b>完成注浆封闭，并在封闭前后各拍一张照片。"_s,
        u"柱脚有<span style=\"color:#ff0000\">蜂窝</span>，凿除松散部分后用细石混凝土修补。"_s,
        u"模板拼缝漏浆，已经通知木工班组，下一层施工前检查密封条。"_s,
        u"外墙保温层有两处空鼓，敲击检查后划线，周五前返工。"_s};
    QString text = u"第%1页第%2段。"_s.arg(page + 1).arg(number + 1);
    for (int i = 0; i < 3; ++i) {
        text += sentences[size_t(page + number + i) % sentences.size()];
    }
    return u"<p>"_s + text + u"</p>"_s;
}

QString RichTable(int page) {
    QString table = u"<table border=\"1\" cellpadding=\"4\" cellspacing=\"0\" width=\"100%\">"_s;
    for (int row = 0; row < 4; ++row) {
        table += u"<tr>"_s;
        for (int column = 0; column < 4; ++column) {
            table += u"<td>%1.%2.%3</td>"_s.arg(page).arg(row).arg(column);
        }
        table += u"</tr>"_s;
    }
    return table + u"</table>"_s;
}

QString RichPageText(int page, const QStringList& pictures) {
    QString html = u"<h2>%1 层检查记录</h2>"_s.arg(page + 1);
    for (int i = 0; i < kParagraphs; ++i) {
        html += RichParagraph(page, i);
        if (i % 4 == 1 && i / 4 < pictures.size()) {
            html += u"<p><img src=\"%1\" width=\"%2\" height=\"%3\" /></p>"_s.arg(pictures[i / 4])
                        .arg(kShownPicture.width())
                        .arg(kShownPicture.height());
        }
    }
    html += u"<ul><li>封闭</li><li>复查</li><li>销项</li></ul>"_s;
    return page % kPagesPerTable == 0 ? html + RichTable(page) : html;
}

} // namespace

QStringList PaintRichPictures(const QString& folder, int count) {
    if (!QDir().mkpath(folder)) {
        return {};
    }
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        paths << QDir(folder).filePath(u"%1.jpg"_s.arg(i, 4, 10, QChar(u'0')));
    }
    if (!QFile::exists(paths.constLast())) {
        QTextStream(stderr) << u"painting %1 pictures"_s.arg(count) << Qt::endl;
    }
    std::atomic<int> next{0};
    std::atomic<bool> isWhole{true};
    const auto work = [&] {
        sample::PictureArtist artist;
        for (int i = next++; i < count && isWhole; i = next++) {
            if (!QFile::exists(paths[i]) && !PaintPicture(artist, paths[i], i)) {
                isWhole = false;
            }
        }
    };
    {
        std::vector<std::jthread> others;
        for (unsigned i = 1; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
            others.emplace_back(work);
        }
        work();
    }
    return isWhole ? paths : QStringList();
}

std::optional<RichPages> MakeRichPages(const QStringList& pictures, const QString& folder) {
    RichPages made{folder, {}, {}};
    for (const QString& path : pictures) {
        const auto name = toolkit::StoreCopy(path, folder);
        if (!name) {
            return std::nullopt;
        }
        made.pictures << *name;
    }
    QString html;
    for (int page = 0; page < kRichPages; ++page) {
        const qsizetype from = made.pictures.size() * page / kRichPages;
        const qsizetype to = made.pictures.size() * (page + 1) / kRichPages;
        html += RichPageText(page, made.pictures.mid(from, to - from));
    }
    toolkit::NoteDocument document(folder, nullptr);
    if (document.Load(html) != toolkit::NoteFault::None) {
        return std::nullopt;
    }
    const auto page = toolkit::StoreBytes(document.Html().toUtf8(), folder, u".html"_s);
    made.page = page.value_or(QString());
    return page ? std::optional(made) : std::nullopt;
}

} // namespace bench
