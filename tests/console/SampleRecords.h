// Records for the scripted services: photo n has everything that tells it from its neighbours.
#pragma once

#include "console/ConsoleMode.h"
#include "services/IssueRecords.h"
#include "services/PicRecords.h"

namespace support {
class ScriptedHost;
}

/// "照片n.jpg" on floor 1 with mark 1, two labels, shown; project 1.
[[nodiscard]] KX_DATA::BimPicRow BimPhoto(qint32 picId);
/// "图片n.jpg" at checkpoint n of "一层平面"; its drawing is 500, its point 100 + n.
[[nodiscard]] KX_DATA::PdfPicRecord DrawingPhoto(qint32 picId);
/// "问题n" with the UUID "qn".
[[nodiscard]] KX_DATA::IssueRow Issue(int number);

/// Gives the services `count` records of a kind, numbered from 1, and the points on which drawing
/// photos stand; those before go.
void FillService(support::ScriptedHost& host, ConsoleMode mode, int count);
