#include "host/app/DrawingCommand.h"

#include "host/app/DrawingImport.h"
#include "site/DataError.h"
#include "site/ICatalogue.h"
#include "site/IIntake.h"
#include "site/ISite.h"

#include <QTextStream>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDone = 0;
constexpr int kNotAll = 1;
constexpr int kWrongWords = 2;

/// The project's id; 0, and what there is told, for an unknown one.
qint32 ProjectOf(site::ISite& site, const QString& name, QTextStream& err) {
    const qint32 ppid = site.NewIntake()->FindProject(name);
    if (ppid == 0) {
        QStringList known;
        for (const site::ProjectEntry& project : site.Catalogue().Projects()) {
            known << project.name;
        }
        err << u"没有工程“%1”。现有工程：%2\n"_s.arg(name, known.join(u'、'));
    }
    return ppid;
}

/// Why it wasn't filed; empty: it was.
QString FileOne(site::ISite& site, qint32 ppid, const QString& path,
                const DrawingReader::Terms& terms) {
    const DrawingVerdict verdict = ExamineDrawing(path, terms);
    if (verdict.fault != DrawingFault::None) {
        return DrawingFaultText(verdict.fault);
    }
    try {
        site.NewIntake()->AddDrawing(ppid, DrawingNameOf(path), {path, {}},
                                     int(verdict.pages.size()));
        return {};
    } catch (const site::DataError& error) {
        return error.Text();
    }
}

} // namespace

int RunDrawingCommand(site::ISite& site, const DrawingRequest& request,
                      const DrawingReader::Terms& terms, QTextStream& out, QTextStream& err) {
    int result = kDone;
    try {
        const qint32 ppid = ProjectOf(site, request.project, err);
        if (ppid == 0) {
            return kWrongWords;
        }
        for (const QString& path : request.files) {
            const QString lack = FileOne(site, ppid, path, terms);
            if (lack.isEmpty()) {
                out << u"已导入图纸“%1”\n"_s.arg(DrawingNameOf(path));
            } else {
                err << u"没有导入“%1”：%2\n"_s.arg(path, lack);
                result = kNotAll;
            }
            out.flush();
        }
    } catch (const site::DataError& error) {
        err << error.Text() << u'\n';
        result = kNotAll;
    }
    err.flush();
    return result;
}

} // namespace host
