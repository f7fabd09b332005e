// The package of a Word document: parts in a ZIP file, and what they lead to.
#pragma once

#include "host/report/ReportFile.h"

#include <QByteArray>
#include <QString>

#include <deque>
#include <map>
#include <stop_token>
#include <vector>

struct zip;
struct zip_source;

namespace host {

/// Pictures, links and parts that the text names by the ids of relationships (ISO/IEC 29500-2).
class WordRelations final {
public:
    /// @param type    the last part of the type's address: "image".
    /// @param target  a part's name from the folder of the text, or an address.
    [[nodiscard]] QString Add(const QString& type, const QString& target, bool isOutside = false);
    /// The same picture file has one id.
    [[nodiscard]] QString AddPicture(const QString& path);
    /// Is kept as PNG until the package is closed.
    [[nodiscard]] QString AddImage(const QByteArray& png);
    /// The same address has one id.
    [[nodiscard]] QString AddLink(const QString& address);

    struct Picture {
        QString part; ///< from the folder of the text
        QString path; ///< of a file; empty: `bytes` hold it
        QByteArray bytes;
    };
    [[nodiscard]] const std::vector<Picture>& Pictures() const { return m_pictures; }
    /// The part that tells of all of them.
    [[nodiscard]] QByteArray Xml() const;

private:
    struct Relation {
        QString type;
        QString target;
        bool isOutside;
    };
    std::vector<Relation> m_relations; ///< the id is the place, from 1
    std::vector<Picture> m_pictures;
    std::map<QString, QString> m_known; ///< ids by path and by address
};

/// Writes a ZIP file. Nothing of it is there before Close, and after a fault neither. Thread: one.
class WordPackage final {
public:
    /// Throws ReportFault, as all below.
    explicit WordPackage(const ReportFile& file);
    ~WordPackage();
    WordPackage(const WordPackage&) = delete;
    WordPackage& operator=(const WordPackage&) = delete;

    void AddPart(const QString& name, const QByteArray& bytes);
    /// Read when the package is closed.
    void AddFile(const QString& name, const QString& path);
    /// As it is, without being packed: JPEG and PNG don't become smaller.
    void AddPictures(const QString& folder, const WordRelations& relations);
    /// Writes it all.
    void Close(const std::stop_token& stop);

private:
    void AddSource(const QString& name, zip_source* source, bool isPacked);
    [[noreturn]] void Fail() const;

    const ReportFile& m_file;
    zip* m_zip = nullptr;
    std::deque<QByteArray> m_bytes; ///< stay where they are until the package is closed
};

} // namespace host
