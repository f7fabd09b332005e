#include "host/ui/filing/PlaceCombos.h"

#include "host/ui/LocateText.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"

#include <QComboBox>

namespace host {

using namespace Qt::StringLiterals;

namespace {

void ChooseData(QComboBox& box, const QString& data) {
    box.setCurrentIndex(std::max(0, box.findData(data)));
}

} // namespace

PlaceCombos::PlaceCombos(const Boxes& placeBoxes, qint32 project)
    : m_boxes(placeBoxes), m_ppid(project) {
    connect(&m_boxes.floor, &QComboBox::activated, this, [this] {
        FillAxesX();
        emit Changed();
    });
    connect(&m_boxes.axisX, &QComboBox::activated, this, [this] {
        FillAxesY();
        emit Changed();
    });
    connect(&m_boxes.axisY, &QComboBox::activated, this, &PlaceCombos::Changed);
    FillFloors();
}

void PlaceCombos::Propose(const QString& floor, const QString& axisX, const QString& positionKey) {
    ChooseData(m_boxes.floor, floor);
    FillAxesX();
    ChooseData(m_boxes.axisX, axisX);
    FillAxesY();
    ChooseData(m_boxes.axisY, positionKey);
}

void PlaceCombos::SetEnabled(bool enabled) {
    m_enabled = enabled;
    for (QComboBox* box : {&m_boxes.floor, &m_boxes.axisX, &m_boxes.axisY}) {
        box->setEnabled(enabled && box->count() > 1);
    }
}

QString PlaceCombos::PositionKey() const {
    return m_boxes.axisY.currentData().toString();
}

bool PlaceCombos::LacksAxes() const {
    return !m_boxes.floor.currentData().toString().isEmpty() && m_boxes.axisX.count() <= 1;
}

void PlaceCombos::FillFloors() {
    std::vector<QString> floors;
    GetVeskPicMng()->GetProjectFloors(m_ppid, floors);
    Entries entries;
    for (const QString& floor : floors) {
        entries.emplace_back(FloorCaption(floor), floor);
    }
    Refill(m_boxes.floor, entries);
    FillAxesX();
}

void PlaceCombos::FillAxesX() {
    std::vector<QString> axes;
    const QString floor = m_boxes.floor.currentData().toString();
    if (!floor.isEmpty()) {
        GetVeskPicMng()->GetFloorAxesX(m_ppid, floor, axes);
    }
    Entries entries;
    for (const QString& axis : axes) {
        entries.emplace_back(axis, axis);
    }
    Refill(m_boxes.axisX, entries);
    FillAxesY();
}

void PlaceCombos::FillAxesY() {
    Entries entries;
    const QString axisX = m_boxes.axisX.currentData().toString();
    if (!axisX.isEmpty()) {
        GetVeskPicMng()->GetFloorAxesY(m_ppid, m_boxes.floor.currentData().toString(), axisX,
                                       entries);
    }
    Refill(m_boxes.axisY, entries);
}

void PlaceCombos::Refill(QComboBox& box, const Entries& entries) {
    box.clear();
    box.addItem(u"请选择"_s, QString());
    for (const auto& [name, data] : entries) {
        box.addItem(name, data);
    }
    box.setEnabled(m_enabled && !entries.empty());
}

} // namespace host
