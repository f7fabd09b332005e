#include "host/report/ReportPrints.h"

namespace host {

using namespace Qt::StringLiterals;

ReportPrints::ReportPrints(const ReportSheet& sheet, PrintPictures& pictures,
                           const ReportSteps& steps, int more)
    : m_pictures(pictures), m_steps(steps), m_total(more) {
    const QSizeF room = ShapeOf(sheet.options).text.size();
    for (const ReportBlock& block : sheet.blocks) {
        if (const auto* photos = std::get_if<PhotosBlock>(&block)) {
            for (const ReportPhoto& photo : photos->photos) {
                Prepare(photo.file, photos->grid.picture);
            }
        } else if (const auto* record = std::get_if<RecordBlock>(&block)) {
            PrepareRecord(*record, room);
        }
    }
    m_steps.Next(0, m_total);
}

void ReportPrints::Prepare(const QString& file, const QSizeF& box) {
    if (!file.isEmpty()) {
        m_pictures.Prepare(file, box);
        ++m_total;
    }
}

void ReportPrints::PrepareRecord(const RecordBlock& block, const QSizeF& room) {
    auto text = std::make_unique<RecordText>(block.html, block.folder, room);
    for (const RecordPicture& picture : text->Pictures()) {
        Prepare(picture.file, picture.size);
    }
    m_records.emplace(&block, std::move(text));
}

PrintPicture ReportPrints::Next(const QString& file, const QSizeF& box) {
    if (file.isEmpty()) {
        return {};
    }
    const PrintPicture picture = m_pictures.Wait(file, box, m_steps.stop);
    Step();
    return picture;
}

void ReportPrints::Step() {
    m_steps.Next(++m_done, m_total);
}

const RecordText& ReportPrints::Record(const RecordBlock& block) const {
    return *m_records.at(&block);
}

bool HeadsPage(const ReportSheet& sheet, size_t place) {
    if (!std::holds_alternative<HeadingBlock>(sheet.blocks[place])) {
        return false;
    }
    size_t next = place + 1;
    while (next < sheet.blocks.size() && std::holds_alternative<FactsBlock>(sheet.blocks[next])) {
        ++next;
    }
    if (next == sheet.blocks.size()) {
        return false;
    }
    const auto* photos = std::get_if<PhotosBlock>(&sheet.blocks[next]);
    return photos != nullptr && photos->grid.picturesOfPage == 1;
}

QString LackOf(const ReportPhoto& photo) {
    return photo.file.isEmpty() && !photo.lack.isEmpty() ? photo.lack : u"图片无法读取"_s;
}

} // namespace host
