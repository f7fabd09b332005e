#include "host/report/ReportBlocks.h"

#include <algorithm>
#include <iterator>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kMostPlanHeightMm = 95;
constexpr double kCodeSideMm = 32;

/// Collects the blocks of one report.
class BlockList final {
public:
    BlockList(const ReportContent& content, const ReportOptions& options)
        : m_content(content), m_options(options), m_grid(GridOf(options)),
          m_width(ShapeOf(options).text.width()) {}

    [[nodiscard]] std::vector<ReportBlock> Collect(const ReportTemplate& dress) {
        AddTitle(dress);
        if (m_options.withContents) {
            m_blocks.emplace_back(ContentsBlock{});
        }
        AddPlace();
        for (const ReportSection& section : m_content.sections) {
            AddSection(section);
        }
        AddVoices();
        AddRecord();
        DropIdleContents();
        return std::move(m_blocks);
    }

private:
    void AddTitle(const ReportTemplate& dress) {
        TitleBlock title;
        title.title = dress.title.isEmpty() ? m_content.kind : dress.title;
        title.logo = dress.logo;
        for (const QString& line : {m_content.project, m_content.place, m_content.made}) {
            if (!line.isEmpty()) {
                title.lines << line;
            }
        }
        m_blocks.emplace_back(title);
    }

    void AddPlace() {
        const bool hasFacts = m_options.withTexts && !m_content.facts.empty();
        const bool hasPlan = m_options.withPlan && !m_content.plan.isNull();
        const bool hasCode = m_options.withCode && !m_content.code.isNull();
        if (!hasFacts && !hasPlan && !hasCode) {
            return;
        }
        m_blocks.emplace_back(HeadingBlock{u"概况"_s, 1});
        if (hasFacts) {
            m_blocks.emplace_back(FactsBlock{m_content.facts});
        }
        if (hasPlan) {
            m_blocks.emplace_back(ImageBlock{m_content.plan, m_width,
                                             OfMillimetres(kMostPlanHeightMm), m_content.planNote});
        }
        if (hasCode) {
            const double side = OfMillimetres(kCodeSideMm);
            m_blocks.emplace_back(ImageBlock{m_content.code, side, side, m_content.codeNote});
        }
    }

    void AddSection(const ReportSection& section) {
        const bool hasFacts = m_options.withTexts && !section.facts.empty();
        const bool hasComments = m_options.withComments && !section.comments.empty();
        if (section.photos.empty() && !hasFacts && !hasComments) {
            return;
        }
        m_blocks.emplace_back(HeadingBlock{section.title, 1});
        if (hasFacts) {
            m_blocks.emplace_back(FactsBlock{section.facts});
        }
        AddPhotos(section.photos);
        if (hasComments) {
            AddComments(section);
        }
    }

    void AddPhotos(const std::vector<ReportPhoto>& photos) {
        const auto columns = static_cast<size_t>(m_grid.columns);
        for (size_t first = 0; first < photos.size(); first += columns) {
            const size_t end = std::min(first + columns, photos.size());
            PhotosBlock row{m_grid, {photos.begin() + first, photos.begin() + end}};
            if (!m_options.withTexts) {
                for (ReportPhoto& photo : row.photos) {
                    photo.facts.clear();
                }
            }
            m_blocks.emplace_back(std::move(row));
        }
    }

    void AddComments(const ReportSection& section) {
        m_blocks.emplace_back(HeadingBlock{section.commentsTitle, 2});
        TableBlock table{{u"人员"_s, u"时间"_s, u"内容"_s}, {0.16, 0.24, 0.6}, {}};
        for (const ReportComment& comment : section.comments) {
            table.rows.push_back({comment.person, comment.when, comment.text});
        }
        m_blocks.emplace_back(std::move(table));
    }

    void AddVoices() {
        TableBlock table{{u"位置"_s, u"时长"_s}, {0.75, 0.25}, {}};
        for (const ReportSection& section : m_content.sections) {
            for (const ReportVoice& voice : section.voices) {
                table.rows.push_back(
                    {voice.where, voice.seconds > 0 ? u"%1秒"_s.arg(voice.seconds) : u"未知"_s});
            }
        }
        if (m_options.withVoices && !table.rows.empty()) {
            m_blocks.emplace_back(HeadingBlock{u"语音备注"_s, 1});
            m_blocks.emplace_back(std::move(table));
        }
    }

    void AddRecord() {
        if (!m_options.withRecord || !m_content.record) {
            return;
        }
        const ReportRecord& record = *m_content.record;
        if (record.html.isEmpty() && record.facts.empty()) {
            return;
        }
        m_blocks.emplace_back(HeadingBlock{u"整改记录"_s, 1});
        if (!record.facts.empty()) {
            m_blocks.emplace_back(FactsBlock{record.facts});
        }
        if (!record.html.isEmpty()) {
            m_blocks.emplace_back(RecordBlock{record.html, record.folder});
        }
    }

    /// One heading needs no list of them.
    void DropIdleContents() {
        const auto headings = std::ranges::count_if(m_blocks, [](const ReportBlock& block) {
            return std::holds_alternative<HeadingBlock>(block);
        });
        if (headings < 2) {
            std::erase_if(m_blocks, [](const ReportBlock& block) {
                return std::holds_alternative<ContentsBlock>(block);
            });
        }
    }

    const ReportContent& m_content;
    const ReportOptions& m_options;
    const PhotoGrid m_grid;
    const double m_width;
    std::vector<ReportBlock> m_blocks;
};

} // namespace

ReportSheet SheetOf(const ReportContent& content, const ReportOptions& options,
                    const ReportTemplate& dress) {
    ReportSheet sheet;
    sheet.blocks = BlockList(content, options).Collect(dress);
    sheet.title = std::get<TitleBlock>(sheet.blocks.front()).title;
    sheet.author = content.made;
    sheet.header = dress.header;
    sheet.footer = dress.footer;
    sheet.options = options;
    return sheet;
}

int PhotoCountOf(const ReportSheet& sheet) {
    int count = 0;
    for (const ReportBlock& block : sheet.blocks) {
        if (const auto* photos = std::get_if<PhotosBlock>(&block)) {
            count += static_cast<int>(std::ranges::count_if(
                photos->photos, [](const ReportPhoto& photo) { return !photo.file.isEmpty(); }));
        }
    }
    return count;
}

} // namespace host
