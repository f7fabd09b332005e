// What the host's observer hub gets from the module.
#pragma once

#include "include/KXFrameObs.h"

/// Shuts what belongs to the old project and writes the new one's banner to the log.
class CVeskPicProjChangeObs final : public KXFRAME::IBaseObs, public KXFRAME::IProjChangeObs {
public:
    /// Tells the log where its file lies.
    CVeskPicProjChangeObs();

    [[nodiscard]] QString GetObsName() const override;
    [[nodiscard]] QString GetObsClassName() const override;
    void OnProjChange() override;
};

/// Opens a photo or an issue for other modules of the host.
class CViewBimPicObs final : public KXFRAME::IBaseObs, public KXFRAME::IViewBimPicObs {
public:
    [[nodiscard]] QString GetObsName() const override;
    [[nodiscard]] QString GetObsClassName() const override;
    void ViewBimPic(const qint32* ppid, const QString& floor, const QString& positionKey,
                    qint32 markId) override;
    void OpenIssueEdit(qint32 mode) override;
    void LocateIssue(qint32 ppid, const QString& questionId) override;
};
