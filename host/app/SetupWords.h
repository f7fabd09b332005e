// What the person wants of a setup file.
#pragma once

#include <QString>
#include <QStringList>

namespace host {

struct SetupRequest {
    QString file;
    QStringList dataFolders; ///< none: the user's own
    bool isCheck = false;    ///< only say what would change
    bool isWritten = false;  ///< the other way round: the setup goes into the file
    QString user;            ///< who changes the sites; may be empty where nobody may set them up
};

} // namespace host
