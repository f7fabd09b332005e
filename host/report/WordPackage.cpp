#include "host/report/WordPackage.h"

#include <QBuffer>
#include <QFile>
#include <QXmlStreamWriter>

#include <cerrno>
#include <zip.h>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString WordReasonOf(int systemError) {
    switch (systemError) {
    case ENOSPC:
    case EDQUOT:
        return u"磁盘已满"_s;
    case EFBIG:
        return u"文件超过了允许的大小"_s;
    case EACCES:
    case EPERM:
    case EROFS:
        return u"没有写入权限"_s;
    case ENOENT:
        return u"文件夹或临时文件已不存在"_s;
    default:
        return u"写入失败"_s;
    }
}

} // namespace

QString WordRelations::Add(const QString& type, const QString& target, bool isOutside) {
    m_relations.push_back({type, target, isOutside});
    return u"rId%1"_s.arg(m_relations.size());
}

QString WordRelations::AddPicture(const QString& path) {
    QString& id = m_known[path];
    if (id.isEmpty()) {
        const QString part = u"media/image%1.jpg"_s.arg(m_pictures.size() + 1);
        m_pictures.push_back({part, path, {}});
        id = Add(u"image"_s, part);
    }
    return id;
}

QString WordRelations::AddImage(const QByteArray& png) {
    const QString part = u"media/image%1.png"_s.arg(m_pictures.size() + 1);
    m_pictures.push_back({part, {}, png});
    return Add(u"image"_s, part);
}

QString WordRelations::AddLink(const QString& address) {
    QString& id = m_known[address];
    if (id.isEmpty()) {
        id = Add(u"hyperlink"_s, address, true);
    }
    return id;
}

QByteArray WordRelations::Xml() const {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument(u"1.0"_s, true);
    xml.writeStartElement(u"Relationships"_s);
    xml.writeDefaultNamespace(u"http://schemas.openxmlformats.org/package/2006/relationships"_s);
    int number = 0;
    for (const Relation& relation : m_relations) {
        xml.writeEmptyElement(u"Relationship"_s);
        xml.writeAttribute(u"Id"_s, u"rId%1"_s.arg(++number));
        xml.writeAttribute(
            u"Type"_s, u"http://schemas.openxmlformats.org/officeDocument/2006/relationships/"_s +
                           relation.type);
        xml.writeAttribute(u"Target"_s, relation.target);
        if (relation.isOutside) {
            xml.writeAttribute(u"TargetMode"_s, u"External"_s);
        }
    }
    xml.writeEndDocument();
    return bytes;
}

WordPackage::WordPackage(const ReportFile& file) : m_file(file) {
    int fault = 0;
    m_zip =
        zip_open(QFile::encodeName(file.WorkPath()).constData(), ZIP_CREATE | ZIP_TRUNCATE, &fault);
    if (m_zip == nullptr) {
        throw file.WriteFault(WordReasonOf(errno));
    }
}

WordPackage::~WordPackage() {
    if (m_zip != nullptr) {
        zip_discard(m_zip);
    }
}

void WordPackage::AddPart(const QString& name, const QByteArray& bytes) {
    const QByteArray& kept = m_bytes.emplace_back(bytes);
    AddSource(name, zip_source_buffer(m_zip, kept.constData(), zip_uint64_t(kept.size()), 0), true);
}

void WordPackage::AddFile(const QString& name, const QString& path) {
    AddSource(name, zip_source_file(m_zip, QFile::encodeName(path).constData(), 0, -1), true);
}

void WordPackage::AddPictures(const QString& folder, const WordRelations& relations) {
    for (const WordRelations::Picture& picture : relations.Pictures()) {
        zip_source* source = nullptr;
        if (picture.path.isEmpty()) {
            const QByteArray& kept = m_bytes.emplace_back(picture.bytes);
            source = zip_source_buffer(m_zip, kept.constData(), zip_uint64_t(kept.size()), 0);
        } else {
            source = zip_source_file(m_zip, QFile::encodeName(picture.path).constData(), 0, -1);
        }
        AddSource(folder + picture.part, source, false);
    }
}

void WordPackage::AddSource(const QString& name, zip_source* source, bool isPacked) {
    if (source == nullptr) {
        Fail();
    }
    const zip_int64_t index =
        zip_file_add(m_zip, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        Fail();
    }
    if (!isPacked) {
        zip_set_file_compression(m_zip, zip_uint64_t(index), ZIP_CM_STORE, 0);
    }
}

void WordPackage::Close(const std::stop_token& stop) {
    std::stop_token asked = stop;
    const auto ends = [](zip*, void* state) {
        return static_cast<const std::stop_token*>(state)->stop_requested() ? 1 : 0;
    };
    zip_register_cancel_callback_with_state(m_zip, ends, nullptr, &asked);
    if (zip_close(m_zip) != 0) {
        // What it wrote until then it has taken away itself.
        zip_register_cancel_callback_with_state(m_zip, nullptr, nullptr, nullptr);
        if (stop.stop_requested()) {
            throw ReportFault({});
        }
        Fail();
    }
    m_zip = nullptr;
    m_bytes.clear();
}

void WordPackage::Fail() const {
    zip_error_t* error = zip_get_error(m_zip);
    const bool isSystems = zip_error_system_type(error) == ZIP_ET_SYS;
    throw m_file.WriteFault(WordReasonOf(isSystems ? zip_error_code_system(error) : 0));
}

} // namespace host
