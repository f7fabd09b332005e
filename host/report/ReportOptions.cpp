#include "host/report/ReportOptions.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPageSize>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kMarginMm = 18;
constexpr double kPageLinesMm = 12; ///< room for header and footer, above and below the text
/// Of a page's width, for a picture with its text beside.
constexpr double kBesideShare = 0.62;
constexpr double kPhotoGap = 14;     ///< as pages have it between blocks
constexpr double kProportion = 0.75; ///< 4 : 3, as cameras have them
constexpr int kSmallOfPage = 6;

struct Choice {
    QLatin1StringView name;
    bool ReportOptions::*value;
};

constexpr Choice kChoices[] = {
    {"landscape"_L1, &ReportOptions::isLandscape}, {"contents"_L1, &ReportOptions::withContents},
    {"plan"_L1, &ReportOptions::withPlan},         {"texts"_L1, &ReportOptions::withTexts},
    {"comments"_L1, &ReportOptions::withComments}, {"voices"_L1, &ReportOptions::withVoices},
    {"record"_L1, &ReportOptions::withRecord},     {"code"_L1, &ReportOptions::withCode},
};

template <class Enum> Enum EnumOf(const QJsonValue& value, Enum fallback, Enum last) {
    const int number = value.toInt(-1);
    return number < 0 || number > static_cast<int>(last) ? fallback : static_cast<Enum>(number);
}

QSizeF FourByThree(double width, double mostHeight) {
    const double height = std::min(width * kProportion, mostHeight);
    return {width, height};
}

} // namespace

QString ToSetting(const ReportOptions& options) {
    QJsonObject object{{"paper"_L1, static_cast<int>(options.paper)},
                       {"pictures"_L1, static_cast<int>(options.pictures)}};
    for (const Choice& choice : kChoices) {
        object[choice.name] = options.*choice.value;
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

ReportOptions ReportOptionsOf(const QString& setting) {
    const QJsonObject object = QJsonDocument::fromJson(setting.toUtf8()).object();
    ReportOptions options;
    options.paper = EnumOf(object["paper"_L1], options.paper, ReportPaper::A3);
    options.pictures = EnumOf(object["pictures"_L1], options.pictures, ReportPictures::OnePerPage);
    for (const Choice& choice : kChoices) {
        options.*choice.value = object[choice.name].toBool(options.*choice.value);
    }
    return options;
}

QPageLayout PageLayoutOf(const ReportOptions& options) {
    const QPageSize size(options.paper == ReportPaper::A3 ? QPageSize::A3 : QPageSize::A4);
    // Pages are painted from edge to edge.
    return {size, options.isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
            QMarginsF()};
}

PageShape ShapeOf(const ReportOptions& options) {
    PageShape shape;
    const QSizeF points = PageLayoutOf(options).fullRect(QPageLayout::Point).size();
    shape.page = points * (kReportDpi / 72);
    const double side = OfMillimetres(kMarginMm);
    const double lines = OfMillimetres(kPageLinesMm);
    shape.text = QRectF(QPointF(), shape.page).adjusted(side, lines + kPageLine, -side, 0);
    shape.text.setBottom(shape.page.height() - lines - kPageLine);
    shape.headerTop = OfMillimetres(kPageLinesMm - 4) - 2;
    shape.footerTop = shape.page.height() - shape.headerTop - kPageLine;
    return shape;
}

PhotoGrid GridOf(const ReportOptions& options) {
    const QRectF text = ShapeOf(options).text;
    PhotoGrid grid;
    switch (options.pictures) {
    case ReportPictures::Small:
        grid.columns = options.isLandscape ? 3 : 2;
        grid.picturesOfPage = kSmallOfPage;
        break;
    case ReportPictures::Medium:
        grid.columns = options.isLandscape ? 2 : 1;
        grid.textBeside = !options.isLandscape;
        grid.picturesOfPage = options.isLandscape ? 2 : 3;
        break;
    case ReportPictures::OnePerPage:
        grid.picturesOfPage = 1;
        break;
    }
    const int rows = grid.picturesOfPage / grid.columns;
    const double share = grid.textBeside ? kBesideShare : 1;
    const double width = (text.width() - (grid.columns - 1) * kPhotoGap) / grid.columns * share;
    // What is known of a photo takes some lines below it.
    const double ofText = grid.textBeside                             ? 1
                          : options.pictures == ReportPictures::Small ? 0.66
                                                                      : 0.8;
    grid.picture = FourByThree(width, (text.height() / rows - kPhotoGap) * ofText);
    return grid;
}

} // namespace host
